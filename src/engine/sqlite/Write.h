#pragma once

#include "engine/sqlite/TableSchema.h"

#include <QString>

#include <memory>
#include <utility>
#include <variant>
#include <vector>

namespace engine::sqlite {

/// A change of one row through a row set.
struct RowWrite {
    enum class Kind { Insert, Update, Delete };

    Kind kind = Kind::Insert;
    std::shared_ptr<const TableSchema> table;
    /// The key of the row. Of an insert 0 until it has run; it then keeps that key if it has to run again.
    qint64 key = 0;
    std::vector<std::pair<size_t, Value>> values;  ///< By place of the column.
};

/// Something to be written, whole enough to be written again: the text of a statement, or a change of a row.
using Write = std::variant<QString, RowWrite>;

/// A write as the error log tells it.
QString Describe(const Write& write);

}  // namespace engine::sqlite
