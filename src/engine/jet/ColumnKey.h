#pragma once

#include "engine/Value.h"
#include "engine/jet/ColumnType.h"
#include "engine/jet/TextKey.h"

#include <span>

namespace engine::jet {

struct KeyColumn {
    std::uint8_t type;
    Order order = Order::Ascending;
};

/// Adds the key of one column's value, so that keys are ordered as values are, null before all others (or, in
/// descending order, behind them). What a value must hold:
///
/// | column type          | value                                                                    |
/// |----------------------|--------------------------------------------------------------------------|
/// | Boolean              | bool, never null                                                         |
/// | Byte, Short, Long    | qint64 within the type's range                                           |
/// | Currency             | Currency                                                                 |
/// | Single, Double       | double; for Single one that a float can hold                             |
/// | DateTime             | double: the days as the row stores them, to the last bit                 |
/// | Binary               | QByteArray, not empty                                                    |
/// | Text, Memo           | QString                                                                  |
/// | Guid                 | QByteArray: the 16 bytes as the row stores them                          |
/// | Decimal              | QByteArray: the 17 bytes as the row stores them                          |
///
/// Any other value is an engine error (WrongType), and so is a column type that no index can have. The key of
/// an empty Binary isn't known, so it's refused as well. Nothing is added when this fails.
void AppendColumnKey(Key& key, const KeyColumn& column, const Value& value);

}  // namespace engine::jet
