#pragma once

#include "engine/execution/TableSchema.h"
#include "engine/jet/TableLayout.h"

#include <sqlite3.h>

namespace engine::jet {

/// How statements see a column: the type and the size by which they know what it takes.
execution::Column ToSqlColumn(const Column& column);
/// The same, as the table that statements see declares it.
QString SqlTypeOf(const Column& column);

/// What a statement has for a column, in the nature of the column. What the column can't hold comes as it is,
/// to be refused when it is stored.
Value FromSql(const Column& column, sqlite3_value* value);

/// Gives a statement a column's value, in the form in which a SQLite file would have it.
void GiveToSql(sqlite3_context* context, const execution::Column& column, const Value& value);

}  // namespace engine::jet
