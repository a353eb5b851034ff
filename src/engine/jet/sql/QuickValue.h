#pragma once

#include "engine/jet/StoredRow.h"

#include <sqlite3.h>

#include <string_view>

namespace engine::jet {

/// The usual values go straight between a row's bytes and SQLite: whole numbers, amounts, days, texts of
/// ASCII. All these routines say no to any other value, having done nothing. Those go by way of a Value,
/// which is right for the usual ones as well, and slow (SqlValue.h).

/// Puts in the cell that ToCell would make of the value.
bool PutQuickly(RowCells& cells, int place, const Column& column, sqlite3_value* value);
bool PutQuickly(RowCells& cells, int place, const Column& column, qint64 number);
bool PutQuickly(RowCells& cells, int place, const Column& column, double number);
/// In UTF-8. For a date it's the ISO text of a day.
bool PutQuickly(RowCells& cells, int place, const Column& column, std::string_view text);

/// Gives what GiveToSql would give of the column.
bool GiveQuickly(sqlite3_context* context, const Column& column, const StoredRow& row, int place);

}  // namespace engine::jet
