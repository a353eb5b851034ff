#include "engine/sqlite/CreateDatabase.h"

#include "engine/dialect/Names.h"
#include "engine/sqlite/TableSchema.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <functional>

namespace engine::sqlite {

namespace {

std::string Quoted(const QString& name) {
    return dialect::QuotedName(name.toStdString());
}

std::string CreateTableSql(const TableDefinition& table) {
    std::string columns;
    for (const ColumnDefinition& column : table.columns) {
        columns += columns.empty() ? "" : ", ";
        columns += Quoted(column.name) + " " + DeclaredType(column.type, column.size).toStdString();
    }
    return "create table " + Quoted(table.name) + "(" + columns + ")";
}

std::string CreateIndexSql(const TableDefinition& table, const IndexDefinition& index) {
    std::string columns;
    for (const QString& column : index.columns) {
        columns += columns.empty() ? "" : ", ";
        columns += Quoted(column);
    }
    return std::string("create ") + (index.unique ? "unique " : "") + "index " + Quoted(index.name) + " on " +
           Quoted(table.name) + "(" + columns + ")";
}

void RemoveWithJournal(const QString& path) {
    QFile::remove(path);
    QFile::remove(path + QStringLiteral("-journal"));
}

// SQLite keeps files of these names beside the database, and removes them.
bool IsSideFile(const QString& path, const QString& database) {
    const QFileInfo file(path);
    const QString place = file.dir().canonicalPath() + QLatin1Char('/') + file.fileName();
    const QStringList ends{QStringLiteral("-journal"), QStringLiteral("-wal"), QStringLiteral("-shm")};
    return std::any_of(ends.begin(), ends.end(), [&](const QString& end) { return place == database + end; });
}

// The file grows under another name and takes its own when it is whole, so that nobody ever finds half of it.
void MakeFile(const QString& path, const std::function<void(Connection&)>& fill) {
    if (QFileInfo::exists(path) || QFileInfo(path).isSymLink()) {
        throw Error(ErrorNumber::DatabaseExists, QStringLiteral("Database '%1' already exists.").arg(path));
    }
    const QString unfinished = path + QStringLiteral(".unfinished");
    RemoveWithJournal(unfinished);
    try {
        {
            Connection connection(unfinished, Connection::Mode::New);
            fill(connection);
        }
        // Doesn't take the place of a file that has appeared meanwhile.
        if (!QFile::rename(unfinished, path)) {
            throw Error(ErrorNumber::DiskError, QStringLiteral("Disk error: '%1' can't be made.").arg(path));
        }
    } catch (...) {
        RemoveWithJournal(unfinished);
        throw;
    }
}

}  // namespace

void CreateDatabaseFile(const QString& path, const std::vector<TableDefinition>& tables) {
    MakeFile(path, [&tables](Connection& connection) {
        connection.Run("begin");
        for (const TableDefinition& table : tables) {
            connection.Run(CreateTableSql(table).c_str());
            for (const IndexDefinition& index : table.indexes) {
                connection.Run(CreateIndexSql(table, index).c_str());
            }
        }
        connection.Run("commit");
    });
}

void CopyDatabaseFile(Connection& source, const QString& path) {
    if (IsSideFile(path, QString::fromUtf8(sqlite3_db_filename(source.Handle(), "main")))) {
        throw Error(ErrorNumber::InvalidOperation,
                    QStringLiteral("Invalid operation: the database uses the name %1 for itself.").arg(path));
    }
    MakeFile(path, [&source](Connection& copy) {
        sqlite3_backup* backup = sqlite3_backup_init(copy.Handle(), "main", source.Handle(), "main");
        if (backup == nullptr) {
            copy.Raise(sqlite3_errcode(copy.Handle()));
        }
        // All pages in one step, so that nobody can write between them; a lock is waited for as everywhere.
        sqlite3_backup_step(backup, -1);
        const int finished = sqlite3_backup_finish(backup);
        if (finished != SQLITE_OK) {
            copy.Raise(finished);
        }
    });
}

}  // namespace engine::sqlite
