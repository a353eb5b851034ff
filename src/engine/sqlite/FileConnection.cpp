#include "engine/sqlite/FileConnection.h"

#include "engine/sqlite/FileTransaction.h"
#include "engine/sqlite/Hardening.h"
#include "engine/sqlite/SideFiles.h"
#include "engine/sqlite/SoundFile.h"

namespace engine::sqlite {

namespace {

// Room for the pages that one group of writes touches. A fixed room keeps the memory of long imports flat.
constexpr const char* PageCache = "pragma cache_size = -8192";

constexpr const char* LookIntoTheFile = "select 1 from sqlite_master limit 1";

}  // namespace

FileConnection::FileConnection(const QString& path, Mode mode) {
    OpenFile(path, mode);
    CheckSideFiles(Handle());
    CheckFile();
    if (mode == Mode::Existing) {
        RequireSound(*this);
    }
}

void FileConnection::OpenFile(const QString& path, Mode mode) {
    const int creation = mode == Mode::New ? SQLITE_OPEN_CREATE | SQLITE_OPEN_EXCLUSIVE : 0;
    Open(path.toUtf8(), SQLITE_OPEN_READWRITE | creation);
    Harden(Handle());
}

void FileConnection::CheckFile() {
    // A link may have led here, and the journal is looked for by this name.
    if (!QByteArrayView(sqlite3_db_filename(Handle(), "main")).isValidUtf8()) {
        RaiseNoName();
    }
    {
        // The first look into the file: it finds foreign, damaged and locked ones.
        const ReadingBudget budget(Handle());
        Run(LookIntoTheFile);
    }
    Run("pragma synchronous = full");
    Run(PageCache);
    if (sqlite3_db_readonly(Handle(), "main") == 1) {
        Raise(SQLITE_READONLY);
    }
    // Somebody who has the file for himself would make every write wait in vain: better to know it now.
    Run("begin immediate");
    TryJournal();
    Run("rollback");
    // Whether the journal could be removed is told to the next one who looks.
    Run(LookIntoTheFile);
}

// A page that is changed in memory alone: its journal is made before, and removed when it is changed back, so
// that a folder or a disk that takes none is found before there is anything to lose. The file stays as it is.
void FileConnection::TryJournal() {
    const int changed = TryRun("pragma user_version = 0");
    if (changed == SQLITE_READONLY_DIRECTORY || (changed & 0xFF) == SQLITE_CANTOPEN) {
        throw Error(
            ErrorNumber::ReadOnlyDatabase,
            QStringLiteral("Cannot update. Database or object is read-only: no journal can be made at '%1'.")
                .arg(QString::fromUtf8(sqlite3_filename_journal(sqlite3_db_filename(Handle(), "main")))));
    }
    if (changed != SQLITE_OK) {
        Raise(changed);
    }
}

std::unique_ptr<execution::Transaction> FileConnection::MakeTransaction() {
    return std::make_unique<FileTransaction>(*this);
}

// A view is none, nor is what only a module of SQLite could make a table of.
bool FileConnection::HasTable(const std::string& name) {
    const execution::StatementHandle tables = Prepare(
        "select 1 from sqlite_master where type = 'table' and rootpage > 0 and name = ? collate nocase");
    sqlite3_bind_text(tables.get(), 1, name.data(), static_cast<int>(name.size()), SQLITE_STATIC);
    const int step = sqlite3_step(tables.get());
    if (step != SQLITE_ROW && step != SQLITE_DONE) {
        Raise(step);
    }
    return step == SQLITE_ROW;
}

// Plain columns and plain indexes only. Whatever else a table declares might refuse a row.
bool FileConnection::TakesAnyRow(const std::string& table) {
    const execution::StatementHandle obstacles = Prepare(
        "select exists(select 1 from pragma_table_info(?1) where \"notnull\" <> 0 or pk <> 0)"
        " or exists(select 1 from pragma_index_list(?1) where \"unique\" <> 0)"
        " or exists(select 1 from sqlite_master where name = ?1 collate nocase and sql like '%strict%')");
    sqlite3_bind_text(obstacles.get(), 1, table.data(), static_cast<int>(table.size()), SQLITE_STATIC);
    const int step = sqlite3_step(obstacles.get());
    if (step != SQLITE_ROW) {
        Raise(step);
    }
    return sqlite3_column_int(obstacles.get(), 0) == 0;
}

}  // namespace engine::sqlite
