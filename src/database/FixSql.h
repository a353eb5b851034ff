#pragma once

#include <QString>

namespace database {

/// Rewrites a statement just before the engine sees it, so that callers may glue user text into statements
/// without escaping it, and returns the same text.
///
/// "false" becomes 0 and "true" becomes -1 anywhere in lower case, inside names too. If the number of
/// apostrophes is odd, those that don't look like the opening or the closing of a text are doubled. An even
/// number of stray apostrophes stays: the engine rejects such a statement.
///
/// Platform failure 5 when an apostrophe at the second or third place has to be looked at: there is no
/// text of three characters before it.
QString& FixSql(QString& statement);

}  // namespace database
