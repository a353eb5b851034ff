#pragma once

#include "engine/jet/RowCells.h"
#include "engine/jet/TableLayout.h"

#include <QByteArray>

#include <optional>
#include <vector>

namespace engine::jet {

/// What a row holds of a column: its bytes, or none for null. A boolean is there for yes, without bytes, and
/// not there for no.
using Cell = std::optional<QByteArray>;

/// A row as it is stored, taken apart: for each column of the layout the bytes that it has in the row.
/// Of a long value these are the reference to it, with the value itself behind where that lies in the row.
///
/// Has a copy of the row, and so stays what it is when the page changes.
class StoredRow {
public:
    /// Fails with DatabaseDamaged where the row says something that can't be.
    StoredRow(const TableLayout& layout, const Bytes& row) { TakeApart(layout, row); }
    /// Of no columns, until a row is taken apart.
    StoredRow() = default;
    /// Takes the place of the row that was there, and its memory. Fails likewise; then it is no row any more.
    void TakeApart(const TableLayout& layout, const Bytes& row);
    /// The same for a row of which few columns are asked for: each is looked for when it is, and what is
    /// wrong with it found out then. The layout must live as long.
    void TakeWhole(const TableLayout& layout, const Bytes& row);

    std::size_t ColumnCount() const { return cells_.size(); }
    bool Has(int column) const { return ExtentOf(column).isThere; }
    /// Of a column that the row has.
    Bytes BytesOf(int column) const;
    /// None if the row doesn't have it.
    std::optional<Bytes> FindBytes(int column) const;

    Bytes Whole() const { return {row_.data(), row_.size(), page_}; }

private:
    friend class RowMaker;

    struct Extent {
        bool isThere = false;
        std::uint16_t at = 0;
        std::uint16_t size = 0;
    };

    void Begin(const TableLayout& layout, const Bytes& row);
    Extent ExtentOf(int column) const {
        const auto place = static_cast<std::size_t>(column);
        return layout_ == nullptr ? cells_[place] : FindCell(layout_->columns[place]);
    }
    Extent FindCell(const Column& column) const;
    Extent Find(const Column& column, const Bytes& row) const;
    Extent FindVariable(const Column& column, const Bytes& row) const;

    const TableLayout* layout_ = nullptr;  ///< Where cells are looked for when they are asked for.
    PageNumber page_ = 0;
    std::uint16_t columns_ = 0;
    std::size_t nullMaskAt_ = 0;
    std::uint16_t variableColumns_ = 0;
    std::vector<std::uint8_t> row_;
    std::vector<Extent> cells_;
};

/// The longest row that the format allows.
inline constexpr std::size_t LongestRow = 4060;

/// Puts rows of a table together.
class RowMaker {
public:
    explicit RowMaker(const TableLayout& layout);

    /// A row that has these cells, one for each column of the layout, however long it gets: as if its bytes
    /// had been taken apart.
    void Make(const TableLayout& layout, const RowCells& cells, StoredRow& row) const;

    /// The same row with other values in these columns, where that takes no more than other bytes in the same
    /// places: all of them are fixed, and neither null before nor now. Otherwise false, and no row was made.
    static bool TryReplace(const TableLayout& layout, const StoredRow& old, const std::vector<int>& columns,
                           const RowCells& changed, StoredRow& row);

private:
    /// What a row needs of each column, close together: it is asked of all of them for each row.
    struct Place {
        std::uint16_t maskAt = 0;
        std::uint8_t maskBit = 0;
        bool hasFixedBytes = false;
        std::uint16_t at = 0;
        std::uint16_t size = 0;
    };

    void PutFixedPart(const RowCells& cells, StoredRow& row) const;
    void PutVariablePart(std::size_t at, const RowCells& cells, StoredRow& row) const;
    std::size_t VariableSize(const RowCells& cells) const;

    std::size_t fixedEnd_ = 0;
    std::vector<Place> places_;
    /// The column at each place of the variable part, NoColumn where one was deleted.
    std::vector<int> variable_;
};

}  // namespace engine::jet
