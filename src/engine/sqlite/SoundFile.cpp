#include "engine/sqlite/SoundFile.h"

#include "engine/Error.h"
#include "engine/sqlite/SqlText.h"
#include "platform/DeepStack.h"
#include "platform/FileStatus.h"

#include <QString>

#include <optional>
#include <utility>

namespace engine::sqlite {

namespace {

// As many as the format that Hearthbook's files began with took.
constexpr int MostIndexes = 32;

// SQLite's check goes down a tree by calling itself, to a page at most once: with this much room for each
// page of the file (it takes some half of it) no tree can be too deep for it. A sound one has 20 levels at
// most.
constexpr size_t StackForAPage = 512;

QString TextOf(sqlite3_stmt* row, int place) {
    return QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(row, place)));
}

std::string SqlOf(sqlite3_stmt* row, int place) {
    const auto* sql = reinterpret_cast<const char*>(sqlite3_column_text(row, place));
    return sql == nullptr ? std::string() : BareSql(sql);
}

[[noreturn]] void Refuse(const QString& table, const char* what) {
    throw Error(ErrorNumber::UnrecognizedFormat,
                QStringLiteral("Unrecognized database format: the table '%1' has %2, as no table of "
                               "Hearthbook's does.")
                    .arg(table, QLatin1String(what)));
}

/// Goes through the rows of a query. The first column is the name of a table.
template <class Look>
void ForEachRow(execution::Connection& connection, const std::string& sql, Look look) {
    const execution::StatementHandle rows = connection.Prepare(sql);
    int step = SQLITE_ROW;
    while ((step = sqlite3_step(rows.get())) == SQLITE_ROW) {
        look(rows.get());
    }
    if (step != SQLITE_DONE) {
        connection.Raise(step);
    }
}

void RefuseAny(execution::Connection& connection, const std::string& sql, const char* what) {
    ForEachRow(connection, sql, [what](sqlite3_stmt* row) { Refuse(TextOf(row, 0), what); });
}

// What has no pages of its own, such as a virtual table, has no rows for which something could be computed.
const std::string Tables = " from sqlite_master as t";
const std::string AreTables = " where t.type = 'table' and t.rootpage > 0 ";

void RefuseWhatIsComputed(execution::Connection& connection) {
    ForEachRow(connection, "select t.name, t.sql" + Tables + AreTables, [](sqlite3_stmt* row) {
        if (HasWord(SqlOf(row, 1), "check")) {
            Refuse(TextOf(row, 0), "a check");
        }
    });
    const std::string columns = "select t.name, c.dflt_value" + Tables + ", pragma_table_xinfo(t.name) as c";
    RefuseAny(connection, columns + AreTables + "and c.hidden <> 0", "a generated column");
    ForEachRow(connection, columns + AreTables + "and c.dflt_value is not null", [](sqlite3_stmt* row) {
        if (SqlOf(row, 1).find('(') != std::string::npos) {
            Refuse(TextOf(row, 0), "a default that is computed");
        }
    });
    const std::string indexes = "select t.name" + Tables + ", pragma_index_list(t.name) as i";
    RefuseAny(connection, indexes + AreTables + "and i.partial <> 0", "an index for some of its rows");
    RefuseAny(connection, indexes + ", pragma_index_xinfo(i.name) as c" + AreTables + "and c.cid < -1",
              "an index on an expression");
    RefuseAny(connection,
              "select t.tbl_name" + Tables +
                  " where t.type = 'index' group by t.tbl_name having count(*) > " +
                  std::to_string(MostIndexes),
              "too many indexes");
}

qint64 PageCount(execution::Connection& connection) {
    qint64 pages = 0;
    ForEachRow(connection, "pragma page_count",
               [&pages](sqlite3_stmt* row) { pages = sqlite3_column_int64(row, 0); });
    return pages;
}

void CheckIntegrity(execution::Connection& connection) {
    QString found;
    ForEachRow(connection, "pragma integrity_check(1)",
               [&found](sqlite3_stmt* row) { found = TextOf(row, 0).simplified(); });
    if (found != QLatin1String("ok")) {
        throw Error(ErrorNumber::DatabaseDamaged, QStringLiteral("The database is damaged: %1.").arg(found));
    }
}

/// The file and its log, which may hold what the file doesn't hold yet.
using FileStates = std::pair<std::optional<platform::FileStatus>, std::optional<platform::FileStatus>>;

std::optional<platform::FileStatus> StatusOf(const char* path) {
    return platform::StatusOf(QString::fromUtf8(path));
}

}  // namespace

void RequireSound(execution::Connection& connection) {
    static FileStates lastFoundSound;
    const char* database = sqlite3_db_filename(connection.Handle(), "main");
    const FileStates states(StatusOf(database), StatusOf(sqlite3_filename_wal(database)));
    if (states == lastFoundSound) {
        return;
    }
    RefuseWhatIsComputed(connection);
    const size_t stack = static_cast<size_t>(PageCount(connection)) * StackForAPage;
    platform::RunOnDeepStack(stack, [&connection] {
        CheckIntegrity(connection);
        // Pages read on another stack would keep that thread's memory for as long as they are kept.
        sqlite3_db_release_memory(connection.Handle());
    });
    lastFoundSound = states;
}

}  // namespace engine::sqlite
