#pragma once

#include "engine/jet/rules/RuledTable.h"

#include <sqlite3.h>

#include <vector>

namespace engine::jet {

/// The same change of many rows of a table, one after the other.
class RepeatedChange {
public:
    /// Of these columns, each named once, to the values that a statement's current row has.
    RepeatedChange(RuledTable& table, const std::vector<std::size_t>& columns, sqlite3_stmt* values);

    /// Fails as RuledTable::Update does.
    void Make(RowPlace row);

private:
    RuledTable& table_;
    bool isQuick_;
    std::vector<CellChange> changes_;
    std::vector<int> columns_;
    RowCells cells_;  ///< Of all columns, once the first row has asked for them.
};

}  // namespace engine::jet
