#include "support/SecondReader.h"

#include "engine/DBEngine.h"
#include "support/JetReader.h"

#include <QTemporaryDir>

#include <sqlite3.h>

namespace {

class OtherConnection {
public:
    /// To a Jet file: to a copy of these tables, or of all.
    explicit OtherConnection(const QString& path, const QStringList& tables = {}) {
        const bool isJet = IsJetFile(path);
        const QString name = isJet ? directory_.filePath(QStringLiteral("copy")) : path;
        if (isJet) {
            CopyJetTables(path, name, tables);
        }
        if (sqlite3_open_v2(name.toUtf8().constData(), &handle_, SQLITE_OPEN_READWRITE, nullptr) !=
            SQLITE_OK) {
            qFatal("%s can't be opened", qPrintable(path));
        }
    }
    ~OtherConnection() { sqlite3_close(handle_); }
    OtherConnection(const OtherConnection&) = delete;
    OtherConnection& operator=(const OtherConnection&) = delete;

    sqlite3* Handle() const { return handle_; }

private:
    QTemporaryDir directory_;
    sqlite3* handle_ = nullptr;
};

QString RowText(sqlite3_stmt* statement) {
    QStringList values;
    for (int column = 0; column < sqlite3_column_count(statement); ++column) {
        const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
        values += text == nullptr ? QStringLiteral("NULL")
                                  : QString::fromUtf8(text, sqlite3_column_bytes(statement, column));
    }
    return values.join(QLatin1Char('|'));
}

QStringList Rows(const OtherConnection& connection, const char* sql) {
    sqlite3_stmt* statement = nullptr;
    if (sqlite3_prepare_v2(connection.Handle(), sql, -1, &statement, nullptr) != SQLITE_OK) {
        qFatal("%s: %s", sql, sqlite3_errmsg(connection.Handle()));
    }
    QStringList rows;
    int step = SQLITE_ROW;
    while ((step = sqlite3_step(statement)) == SQLITE_ROW) {
        rows += RowText(statement);
    }
    sqlite3_finalize(statement);
    if (step != SQLITE_DONE) {
        qFatal("%s: %s", sql, sqlite3_errmsg(connection.Handle()));
    }
    return rows;
}

// No other program here writes Jet files.
bool RunOnJetFile(const QString& path, const char* statements) {
    const auto database = engine::DBEngine::Instance().OpenDatabase(path);
    for (const QString& statement :
         QString::fromUtf8(statements).split(QLatin1Char(';'), Qt::SkipEmptyParts)) {
        try {
            database->Execute(statement.trimmed());
        } catch (const engine::Error&) {
            return false;
        }
    }
    return true;
}

}  // namespace

QStringList ReadRows(const QString& path, const char* sql) {
    const OtherConnection connection(path);
    sqlite3_busy_timeout(connection.Handle(), 5000);
    return Rows(connection, sql);
}

QHash<QString, QStringList> ReadTables(const QString& path, const QStringList& tables) {
    const OtherConnection connection(path, tables);
    sqlite3_busy_timeout(connection.Handle(), 5000);
    QHash<QString, QStringList> rows;
    for (const QString& table : tables) {
        const QByteArray sql = "select * from [" + table.toUtf8() + "] order by rowid";
        rows.insert(table, Rows(connection, sql.constData()));
    }
    return rows;
}

bool RunElsewhere(const QString& path, const char* sql, int waitMilliseconds) {
    if (IsJetFile(path)) {
        return RunOnJetFile(path, sql);
    }
    const OtherConnection connection(path);
    sqlite3_busy_timeout(connection.Handle(), waitMilliseconds);
    return sqlite3_exec(connection.Handle(), sql, nullptr, nullptr, nullptr) == SQLITE_OK;
}
