#pragma once

#include "engine/Value.h"
#include "engine/jet/StoredRow.h"

#include <optional>

namespace engine::jet {

/// What the bytes of a column stand for, and back. By the column's type:
///
/// | type                      | value                                                        |
/// |---------------------------|--------------------------------------------------------------|
/// | Boolean                   | bool, never null                                             |
/// | Byte, Short, Long         | qint64                                                       |
/// | Currency                  | Currency                                                     |
/// | Single, Double            | double                                                       |
/// | DateTime                  | QDateTime (UTC, as FromDate makes them), to the millisecond  |
/// | Text                      | QString                                                      |
/// | Binary, Guid, all others  | QByteArray, the bytes as they are                            |
///
/// A decimal comes as its 17 bytes: no kind of value holds all of its digits; DecimalText shows them. Of a
/// date the bytes may say more than the value, so whoever needs it exactly (a key of an index) takes those.
/// Memos and long binaries are LongValues' business.
///
/// Fails with DatabaseDamaged where bytes stand for no value of the type.
Value ValueOf(const Column& column, const StoredRow& row, int place);

/// The cell for a value. Null gives none, and no for a boolean. A number is taken for any kind of number
/// that holds it, and for yes or no. Fails with 3421 for a value that the column can't hold and 3163 for one
/// that is longer than the column.
Cell ToCell(const Column& column, const Value& value);

/// A number in the nature of the column and as exact as that is, or nothing if the column can't hold it.
std::optional<Value> NumberAsHeld(const Column& column, const Value& number);

/// The digits of a decimal with its point, as "-12.50".
QString DecimalText(const Bytes& decimal, int scale);

}  // namespace engine::jet
