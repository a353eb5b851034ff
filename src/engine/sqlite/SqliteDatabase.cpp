#include "engine/sqlite/SqliteDatabase.h"

#include "engine/sqlite/CreateDatabase.h"
#include "engine/sqlite/FileConnection.h"

namespace engine::sqlite {

bool IsSqliteHeader(const QByteArray& firstBytes) {
    static const QByteArray signature("SQLite format 3\0", 16);
    return firstBytes.startsWith(signature);
}

SqliteDatabase::SqliteDatabase(const QString& path)
    : FileDatabase(path, std::make_unique<FileConnection>(path, FileConnection::Mode::Existing)) {
}

void SqliteDatabase::CopyTo(const QString& path) {
    Flush();
    CopyDatabaseFile(Connected(), path);
}

}  // namespace engine::sqlite
