#include "engine/sqlite/CreateDatabase.h"

#include "engine/NewFile.h"
#include "engine/dialect/Names.h"
#include "engine/execution/TableSchema.h"
#include "engine/sqlite/FileConnection.h"
#include "engine/sqlite/SqliteDatabase.h"

#include <QStringList>

namespace engine::sqlite {

namespace {

std::string Quoted(const QString& name) {
    return dialect::QuotedName(name.toStdString());
}

std::string CreateTableSql(const TableDefinition& table) {
    std::string columns;
    for (const ColumnDefinition& column : table.columns) {
        columns += columns.empty() ? "" : ", ";
        columns +=
            Quoted(column.name) + " " + execution::DeclaredType(column.type, column.size).toStdString();
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

// SQLite keeps files of these names beside a database, plays them back and removes them.
const QStringList& SideFileEnds() {
    static const QStringList ends{QStringLiteral("-journal"), QStringLiteral("-wal"), QStringLiteral("-shm")};
    return ends;
}

QStringList SideFilesOf(const QString& database) {
    QStringList names;
    for (const QString& end : SideFileEnds()) {
        names += database + end;
    }
    return names;
}

void CreateTables(const QString& path, const std::vector<TableDefinition>& tables) {
    FileConnection connection(path, FileConnection::Mode::New);
    connection.Run("begin");
    for (const TableDefinition& table : tables) {
        connection.Run(CreateTableSql(table).c_str());
        for (const IndexDefinition& index : table.indexes) {
            connection.Run(CreateIndexSql(table, index).c_str());
        }
    }
    connection.Run("commit");
}

void CopyPages(execution::Connection& source, execution::Connection& copy) {
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
}

}  // namespace

void CreateDatabaseFile(const QString& path, const std::vector<TableDefinition>& tables,
                        const DBEngine::FillDatabase& fill) {
    NewFile file(path, SideFileEnds());
    CreateTables(file.Path(), tables);
    if (fill) {
        execution::FillNewFile(std::make_unique<SqliteDatabase>(file.Path()), fill);
    }
    file.TakePlace();
}

void CopyDatabaseFile(execution::Connection& source, const QString& path) {
    const QString original = QString::fromUtf8(sqlite3_db_filename(source.Handle(), "main"));
    RequireOtherName(path, SideFilesOf(original));
    NewFile file(path, SideFileEnds());
    {
        FileConnection copy(file.Path(), FileConnection::Mode::New);
        CopyPages(source, copy);
    }
    file.TakePermissionsOf(original);
    file.TakePlace();
}

}  // namespace engine::sqlite
