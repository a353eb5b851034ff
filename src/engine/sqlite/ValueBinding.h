#pragma once

#include "engine/Value.h"
#include "engine/dialect/Tokenizer.h"
#include "engine/sqlite/TableSchema.h"

#include <sqlite3.h>

#include <string_view>

namespace engine::sqlite {

/// Binds a value as a column stores it: dates as ISO text, booleans as 0 and -1, currency to 4 decimal
/// places, all else by its nature. Fails with 3163 for a text longer than the column and 3421 for a value
/// that the column can't hold.
void BindForColumn(sqlite3_stmt* statement, int place, const Column& column, const Value& value);

/// Binds a literal of a statement. `column` is the one that it will be stored in, or null if it is compared
/// only. `text` must live until the statement is reset.
void BindLiteral(sqlite3_stmt* statement, int place, const Column* column, const dialect::Literal& literal,
                 std::string_view text);

/// The value that the current row of a statement holds at a place (from 0), in the nature of its column's
/// type. A stored value of another nature comes as what it is.
Value ReadValue(sqlite3_stmt* statement, int place, DataType type);

}  // namespace engine::sqlite
