#pragma once

#include "engine/execution/FileDatabase.h"

namespace engine::sqlite {

/// True for the first bytes of a SQLite file.
bool IsSqliteHeader(const QByteArray& firstBytes);

/// A SQLite file behind the engine's surface.
class SqliteDatabase : public execution::FileDatabase {
public:
    /// The file must exist.
    explicit SqliteDatabase(const QString& path);

    void CopyTo(const QString& path) override;
};

}  // namespace engine::sqlite
