#pragma once

#include "engine/DBEngine.h"
#include "engine/execution/Connection.h"

#include <vector>

namespace engine::sqlite {

/// Makes a new file with these tables and the rows that `fill`, if any, writes. Fails with 3204 if the file
/// or one of those that SQLite keeps beside it is there already; a failure leaves none.
void CreateDatabaseFile(const QString& path, const std::vector<TableDefinition>& tables,
                        const DBEngine::FillDatabase& fill);

/// Copies the database that the connection sees to a new file, in the same manner. Fails with
/// 3219 under the name of a file that SQLite keeps beside the database.
void CopyDatabaseFile(execution::Connection& source, const QString& path);

}  // namespace engine::sqlite
