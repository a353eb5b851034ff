#include "engine/jet/StoredRow.h"

#include "engine/jet/Damage.h"

#include <algorithm>

namespace engine::jet {

namespace {

constexpr std::size_t ColumnCountSize = 2;
constexpr std::size_t OffsetSize = 2;
constexpr int NoColumn = -1;

std::size_t NullMaskSize(std::size_t columns) {
    return (columns + 7) / 8;
}

// Where fixed columns end. A boolean has no bytes of its own, wherever its definition says that they begin.
std::size_t FixedEnd(const TableLayout& layout) {
    std::size_t end = 0;
    for (const Column& column : layout.columns) {
        if (column.isFixed && column.type != ColumnType::Boolean) {
            end = std::max<std::size_t>(end, std::size_t{column.fixedAt} + column.size);
        }
    }
    return end;
}

}  // namespace

inline StoredRow::Extent StoredRow::FindVariable(const Column& column, const Bytes& row) const {
    // A row from before the column was made.
    if (column.variablePlace >= variableColumns_) {
        return {};
    }
    const std::size_t listEnd = nullMaskAt_ - OffsetSize;
    const std::size_t listSize = OffsetSize * (std::size_t{variableColumns_} + 1);
    if (ColumnCountSize + listSize > listEnd) {
        RaiseDamaged(page_, QStringLiteral("has a row of %1 bytes with %2 variable columns")
                                .arg(static_cast<qulonglong>(row.Size()))
                                .arg(variableColumns_));
    }
    const std::size_t entry = listEnd - OffsetSize * (std::size_t{column.variablePlace} + 1);
    const std::uint16_t begin = row.U16(entry);
    const std::uint16_t end = row.U16(entry - OffsetSize);
    if (begin < ColumnCountSize || begin > end || end > listEnd - listSize) {
        RaiseDamaged(page_, QStringLiteral("has a row whose column %1 lies from %2 to %3")
                                .arg(column.number)
                                .arg(begin)
                                .arg(end));
    }
    return {true, begin, static_cast<std::uint16_t>(end - begin)};
}

inline StoredRow::Extent StoredRow::Find(const Column& column, const Bytes& row) const {
    const std::uint16_t bit = column.number;
    const bool isThere = bit < columns_ && (row.Data()[nullMaskAt_ + bit / 8U] >> bit % 8U & 1U) != 0;
    if (!isThere) {
        return {};
    }
    if (column.type == ColumnType::Boolean) {
        return {true, 0, 0};
    }
    if (!column.isFixed) {
        return FindVariable(column, row);
    }
    const std::size_t at = ColumnCountSize + column.fixedAt;
    if (at + column.size > nullMaskAt_) {
        row.Part(0, nullMaskAt_).Part(at, column.size);
    }
    return {true, static_cast<std::uint16_t>(at), column.size};
}

void StoredRow::Begin(const TableLayout& layout, const Bytes& row) {
    page_ = row.OfPage();
    row_.assign(row.Data(), row.Data() + row.Size());
    variableColumns_ = 0;
    columns_ = row.U16(0);
    const std::size_t maskSize = NullMaskSize(columns_);
    if (columns_ > layout.rowColumns || ColumnCountSize + maskSize > row.Size()) {
        RaiseDamaged(page_, QStringLiteral("has a row of %1 columns and %2 bytes, of a table that has %3")
                                .arg(columns_)
                                .arg(static_cast<qulonglong>(row.Size()))
                                .arg(layout.rowColumns));
    }
    nullMaskAt_ = row.Size() - maskSize;
    if (layout.variableColumns > 0) {
        variableColumns_ = row.U16(nullMaskAt_ - OffsetSize);
    }
}

void StoredRow::TakeApart(const TableLayout& layout, const Bytes& row) {
    Begin(layout, row);
    layout_ = nullptr;
    cells_.resize(layout.columns.size());
    auto cell = cells_.begin();
    for (const Column& column : layout.columns) {
        *cell++ = Find(column, row);
    }
}

StoredRow::Extent StoredRow::FindCell(const Column& column) const {
    return Find(column, Whole());
}

void StoredRow::TakeWhole(const TableLayout& layout, const Bytes& row) {
    Begin(layout, row);
    layout_ = &layout;
}

Bytes StoredRow::BytesOf(int column) const {
    const Extent extent = ExtentOf(column);
    return Whole().Part(extent.at, extent.size);
}

std::optional<Bytes> StoredRow::FindBytes(int column) const {
    const Extent extent = ExtentOf(column);
    return extent.isThere ? std::optional(Whole().Part(extent.at, extent.size)) : std::nullopt;
}

RowMaker::RowMaker(const TableLayout& layout)
    : fixedEnd_(FixedEnd(layout)), variable_(layout.variableColumns, NoColumn) {
    for (std::size_t column = 0; column < layout.columns.size(); ++column) {
        const Column& known = layout.columns[column];
        const bool hasBytes = known.type != ColumnType::Boolean;
        places_.push_back({static_cast<std::uint16_t>(known.number / 8U),
                           static_cast<std::uint8_t>(1U << known.number % 8U), known.isFixed && hasBytes,
                           static_cast<std::uint16_t>(ColumnCountSize + known.fixedAt), known.size});
        if (!known.isFixed && hasBytes) {
            variable_[known.variablePlace] = static_cast<int>(column);
        }
    }
}

std::size_t RowMaker::VariableSize(const RowCells& cells) const {
    if (variable_.empty()) {
        return 0;
    }
    std::size_t size = OffsetSize * (variable_.size() + 2);
    for (const int column : variable_) {
        size += column != NoColumn && cells.Has(column) ? cells.BytesOf(column).Size() : 0;
    }
    return size;
}

void RowMaker::Make(const TableLayout& layout, const RowCells& cells, StoredRow& row) const {
    const std::size_t variableAt = ColumnCountSize + fixedEnd_;
    const std::size_t maskSize = NullMaskSize(layout.rowColumns);
    row.layout_ = nullptr;
    row.page_ = layout.page;
    row.columns_ = layout.rowColumns;
    row.variableColumns_ = static_cast<std::uint16_t>(variable_.size());
    row.nullMaskAt_ = variableAt + VariableSize(cells);
    row.row_.assign(row.nullMaskAt_ + maskSize, 0);
    row.cells_.assign(layout.columns.size(), {});
    ChangeableBytes(row.row_.data(), row.row_.size(), layout.page).Put16(0, layout.rowColumns);
    PutFixedPart(cells, row);
    if (!variable_.empty()) {
        PutVariablePart(variableAt, cells, row);
    }
}

bool RowMaker::TryReplace(const TableLayout& layout, const StoredRow& old, const std::vector<int>& columns,
                          const RowCells& changed, StoredRow& row) {
    const auto staysInPlace = [&](int column) {
        const Column& known = layout.columns[static_cast<std::size_t>(column)];
        return known.isFixed && old.Has(column) && changed.Has(column) &&
               changed.BytesOf(column).Size() == known.size;
    };
    if (!std::all_of(columns.begin(), columns.end(), staysInPlace)) {
        return false;
    }
    row = old;
    ChangeableBytes bytes(row.row_.data(), row.row_.size(), row.page_);
    for (const int column : columns) {
        bytes.PutBytes(row.cells_[static_cast<std::size_t>(column)].at, changed.BytesOf(column));
    }
    return true;
}

// And the null mask.
void RowMaker::PutFixedPart(const RowCells& cells, StoredRow& row) const {
    ChangeableBytes bytes(row.row_.data(), row.row_.size(), row.page_);
    for (std::size_t column = 0; column < places_.size(); ++column) {
        const auto place = static_cast<int>(column);
        if (!cells.Has(place)) {
            continue;
        }
        const Place& known = places_[column];
        const std::size_t maskAt = row.nullMaskAt_ + known.maskAt;
        bytes.Put8(maskAt, static_cast<std::uint8_t>(bytes.U8(maskAt) | known.maskBit));
        row.cells_[column].isThere = true;
        if (known.hasFixedBytes) {
            bytes.PutBytes(known.at, cells.BytesOf(place).Part(0, known.size));
            row.cells_[column] = {true, known.at, known.size};
        }
    }
}

// The values, and behind them the list of where each begins and the last ends, in reverse.
void RowMaker::PutVariablePart(std::size_t at, const RowCells& cells, StoredRow& row) const {
    ChangeableBytes bytes(row.row_.data(), row.nullMaskAt_, row.page_);
    std::size_t entry = bytes.Size() - OffsetSize;
    bytes.Put16(entry, row.variableColumns_);
    for (const int column : variable_) {
        entry -= OffsetSize;
        bytes.Put16(entry, static_cast<std::uint16_t>(at));
        if (column != NoColumn && cells.Has(column)) {
            const Bytes cell = cells.BytesOf(column);
            bytes.PutBytes(at, cell);
            row.cells_[static_cast<std::size_t>(column)] = {true, static_cast<std::uint16_t>(at),
                                                            static_cast<std::uint16_t>(cell.Size())};
            at += cell.Size();
        }
    }
    bytes.Put16(entry - OffsetSize, static_cast<std::uint16_t>(at));
}

}  // namespace engine::jet
