#pragma once

namespace engine {

class Database;

/// The databases that are open in this process, so that what they hold can be brought to the disk together:
/// before a message box holds the program up, when another database is opened, at the end of the process.
void RegisterDatabase(Database& database);
void UnregisterDatabase(Database& database);
void FlushOpenDatabases();

}  // namespace engine
