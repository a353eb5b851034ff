#pragma once

#include "engine/execution/Connection.h"

namespace engine::sqlite {

/// Makes sure of a file before anything in it is relied on.
///
/// Fails with 3343 if one of its tables or indexes holds something that SQLite would have to compute for each
/// row: a check, a generated column, a default that calls a function, an index on an expression or for some
/// rows only; or if a table has more than 32 indexes. Hearthbook's tables have nothing of the kind, and what
/// a file from elsewhere computes could take for ever.
///
/// Fails with 3049 if SQLite's own integrity check finds a fault: pages that lead in circles or are used
/// twice, rows that an index doesn't know. What is damaged is told before anything is deleted. The check
/// takes time and reads the file as a whole; a file that hasn't changed since it was found sound is not
/// checked a second time.
void RequireSound(execution::Connection& connection);

}  // namespace engine::sqlite
