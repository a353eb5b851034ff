#pragma once

#include "engine/execution/TableSchema.h"

#include <QString>

#include <memory>
#include <utility>
#include <variant>
#include <vector>

namespace engine::execution {

/// A change of one row through a row set.
struct RowWrite {
    enum class Kind { Insert, Update, Delete };

    Kind kind = Kind::Insert;
    std::shared_ptr<const TableSchema> table;
    qint64 key = 0;                                ///< Of the row that is changed or removed.
    std::vector<std::pair<size_t, Value>> values;  ///< By place of the column.
    /// What a changed or removed row held, as far as it was read, so that people can tell which it was.
    std::vector<std::pair<size_t, Value>> held;
};

/// Something to be written, whole enough to be written again: the text of a statement, or a change of a row.
using Write = std::variant<QString, RowWrite>;

/// A write as the error log tells it.
QString Describe(const Write& write);

}  // namespace engine::execution
