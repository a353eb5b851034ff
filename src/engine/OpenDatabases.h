#pragma once

namespace engine {

class Database;

/// The databases that are open in this process, so that what they hold can be brought to the disk together:
/// when another database is opened, at the end of the process; and, short of what another program holds up,
/// before a message box or the user's next step is waited for.
void RegisterDatabase(Database& database);
void UnregisterDatabase(Database& database);
void FlushOpenDatabases();
void FlushOpenDatabasesUnlessHeldUp();

}  // namespace engine
