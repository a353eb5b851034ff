#pragma once

#include "engine/execution/LiteralRows.h"
#include "engine/jet/RowCells.h"
#include "engine/jet/rules/RuledTable.h"

#include <vector>

namespace engine::jet {

class JetConnection;

/// Rows of literals on their way into a table, kept as the bytes of their cells.
class CellRows : public execution::LiteralRows {
public:
    /// Whether rows with these columns, by their places, can be kept: the table must be plain, no column
    /// named twice, and none hold long values, which lie on pages of their own.
    static bool CanKeep(const RuledTable& table, const std::vector<std::size_t>& columns);

    /// Of a table that lives as long as the connection, and columns for which CanKeep says yes.
    CellRows(JetConnection& connection, RuledTable& table, std::vector<std::size_t> columns)
        : connection_(connection), table_(table), columns_(std::move(columns)) {}

    void Keep(std::size_t place, std::span<const execution::Column* const> columns,
              const dialect::ShapedStatement& row) override;
    void Put(std::size_t count) override;

private:
    JetConnection& connection_;
    RuledTable& table_;
    std::vector<std::size_t> columns_;
    std::vector<RowCells> rows_;
};

}  // namespace engine::jet
