#include "engine/jet/StoredRow.h"

#include "engine/jet/Damage.h"
#include "engine/jet/UsageBits.h"

#include <algorithm>

namespace engine::jet {

namespace {

constexpr std::size_t ColumnCountSize = 2;
constexpr std::size_t OffsetSize = 2;

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

// By their places; none at those of deleted columns.
std::vector<const Cell*> VariableCells(const TableLayout& layout, const std::vector<Cell>& cells) {
    std::vector<const Cell*> variable(layout.variableColumns, nullptr);
    for (std::size_t column = 0; column < cells.size(); ++column) {
        const Column& known = layout.columns[column];
        if (!known.isFixed && known.type != ColumnType::Boolean) {
            variable[known.variablePlace] = &cells[column];
        }
    }
    return variable;
}

void Append16(QByteArray& bytes, std::size_t number) {
    bytes += static_cast<char>(number & 0xFF);
    bytes += static_cast<char>(number >> 8 & 0xFF);
}

QByteArray FixedPart(const TableLayout& layout, const std::vector<Cell>& cells) {
    QByteArray fixed(static_cast<qsizetype>(FixedEnd(layout)), '\0');
    ChangeableBytes bytes = ChangeableBytesOf(fixed, layout.page);
    for (std::size_t column = 0; column < cells.size(); ++column) {
        const Column& known = layout.columns[column];
        if (known.isFixed && known.type != ColumnType::Boolean && cells[column]) {
            bytes.PutBytes(known.fixedAt, BytesOf(*cells[column], layout.page).Part(0, known.size));
        }
    }
    return fixed;
}

void AppendVariablePart(QByteArray& row, const TableLayout& layout, const std::vector<Cell>& cells) {
    std::vector<qsizetype> offsets;
    for (const Cell* cell : VariableCells(layout, cells)) {
        offsets.push_back(row.size());
        if (cell != nullptr && *cell) {
            row += **cell;
        }
    }
    offsets.push_back(row.size());
    std::for_each(offsets.rbegin(), offsets.rend(),
                  [&row](qsizetype offset) { Append16(row, static_cast<std::size_t>(offset)); });
    Append16(row, layout.variableColumns);
}

QByteArray NullMask(const TableLayout& layout, const std::vector<Cell>& cells) {
    QByteArray mask(static_cast<qsizetype>(NullMaskSize(layout.rowColumns)), '\0');
    for (std::size_t column = 0; column < cells.size(); ++column) {
        if (cells[column]) {
            SetBit(ChangeableBytesOf(mask, layout.page), layout.columns[column].number, true);
        }
    }
    return mask;
}

}  // namespace

StoredRow::StoredRow(const TableLayout& layout, const Bytes& row) : page_(row.OfPage()), row_(row.Copy()) {
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
    cells_.reserve(layout.columns.size());
    for (const Column& column : layout.columns) {
        cells_.push_back(Find(column, row));
    }
}

StoredRow::Extent StoredRow::Find(const Column& column, const Bytes& row) const {
    if (column.number >= columns_ || !HasBit(row.From(nullMaskAt_), column.number)) {
        return {};
    }
    if (column.type == ColumnType::Boolean) {
        return {true, 0, 0};
    }
    if (!column.isFixed) {
        return FindVariable(column, row);
    }
    const std::size_t at = ColumnCountSize + column.fixedAt;
    row.Part(0, nullMaskAt_).Part(at, column.size);
    return {true, static_cast<std::uint16_t>(at), column.size};
}

StoredRow::Extent StoredRow::FindVariable(const Column& column, const Bytes& row) const {
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

Bytes StoredRow::BytesOf(int column) const {
    const Extent& extent = cells_[static_cast<std::size_t>(column)];
    return jet::BytesOf(row_, page_).Part(extent.at, extent.size);
}

Cell StoredRow::CellOf(int column) const {
    return Has(column) ? Cell(BytesOf(column).Copy()) : std::nullopt;
}

std::vector<Cell> StoredRow::Cells() const {
    std::vector<Cell> cells;
    for (std::size_t column = 0; column < cells_.size(); ++column) {
        cells.push_back(CellOf(static_cast<int>(column)));
    }
    return cells;
}

QByteArray PutRowTogether(const TableLayout& layout, const std::vector<Cell>& cells) {
    QByteArray row;
    Append16(row, layout.rowColumns);
    row += FixedPart(layout, cells);
    if (layout.variableColumns > 0) {
        AppendVariablePart(row, layout, cells);
    }
    return row + NullMask(layout, cells);
}

}  // namespace engine::jet
