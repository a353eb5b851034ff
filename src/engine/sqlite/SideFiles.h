#pragma once

#include <sqlite3.h>

namespace engine::sqlite {

/// Looks at what lies beside a database under the names that SQLite uses itself (-journal, -wal, -shm),
/// before SQLite does. Left to itself, SQLite would wait for ever at a pipe, and it would play back whatever
/// looks like a journal, remove it, and remove any file that the journal names.
///
/// A journal, or a log, that a killed program has left passes, and SQLite then recovers the database from it.
/// Fails with 3049, with nothing changed, if one of the files is
/// - no regular file of one name, or can't be read;
/// - a journal that names another journal: only a transaction over several databases writes such ones, and
///   no program of Hearthbook's does that;
/// - neither empty, nor a journal (a log) that is finished with, nor one whose sizes and counts make sense.
///
/// Must come before the first look into the database, which is when SQLite would use them.
void CheckSideFiles(sqlite3* handle);

}  // namespace engine::sqlite
