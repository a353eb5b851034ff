#pragma once

#include "engine/DBEngine.h"

#include <QString>
#include <QStringList>

#include <memory>

/// Module Database: finding and opening Hearthbook's database.
namespace database {

/// What a database is opened for.
enum class Opening {
    Shared,     ///< Beside any other program.
    ForImport,  ///< Beside any other program but one that imports, to write all that an import writes.
};

/// Finds the database file through Hearthbook's settings and opens it; the new database object takes the
/// place of the one before. On failure the user has been told, and the answer is false with the database
/// object of the earlier call still in place; without an earlier one the process ends with status 1. Where
/// it's opened for an import, that includes an import that another process has under way in the file (3260),
/// and whatever keeps any of the tables from being written (3219); nothing can be written to the file then,
/// by the database object of the earlier call either.
bool StartDatabase(Opening opening = Opening::Shared, const QStringList& tables = {});

/// From here on StartDatabase opens this file and doesn't ask the settings (the road of the batch tool's
/// --database). Nothing is opened here. An empty path goes back to the settings.
void UseDatabaseFile(const QString& path);

/// The file that StartDatabase opened last; empty before the first one.
const QString& DatabaseFile();

/// The one open database. Platform failure 91 if none has been opened.
engine::Database& CurrentDatabase();

/// Puts a database in place (null takes it away). For programs that open their own, and for tests.
void SetCurrentDatabase(std::shared_ptr<engine::Database> database);

/// Brings to the disk what was written so far, unless another program holds the file up. Message boxes and
/// the end of the process do so themselves; a program that waits for the user does it when it begins to wait.
void FlushWrites();

}  // namespace database
