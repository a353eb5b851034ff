#include "controls/akGrid.h"
#include "controls/grid/GridAccessible.h"

#include <algorithm>

namespace controls {

/// Where a cell's label lies, counting from 0; -1 if it can't be there. The row is a row of the window, from
/// 1. One place behind the last is let through, as the selection asks with columns counted from 1.
int akGrid::CellIndex(qint64 row, qint64 column) const {
    const qint64 index = Cols() * (row - 1) + column;
    return index < 0 || index > static_cast<qint64>(cells_.size()) ? -1 : static_cast<int>(index);
}

void akGrid::ColourSelection(Colour colour) {
    if (CellIndex(currentRow_, currentColumn_) == -1) {
        return;
    }
    const int firstColumn = selectType_ == 0 ? 1 : currentColumn_;
    const int lastColumn = selectType_ == 0 ? Cols() : currentColumn_;
    for (int column = firstColumn; column <= lastColumn; ++column) {
        // Rows that were added in bulk have no cells yet.
        const qint64 index = Cols() * (qint64{currentRow_} - 1) + column - 1;
        if (index >= 0 && index < static_cast<qint64>(cells_.size())) {
            cells_[static_cast<size_t>(index)].BackColour = colour;
        }
    }
    update();
}

bool akGrid::ChangeCurrentCell(int& row, int& column, bool force) {
    if (row == currentRow_ && column == currentColumn_ && !force) {
        return false;
    }
    column = std::min(std::max(column, 1), Cols());
    row = std::min(std::max(row, 1), rows_);
    if (currentRow_ != 0 && currentColumn_ != 0) {
        ColourSelection(White);
    }
    Q_EMIT RowColumnChange(row, column, currentRow_, currentColumn_);
    currentColumn_ = column;
    currentRow_ = row;
    if (currentRow_ != 0 && currentColumn_ != 0) {
        ColourSelection(selectColour_);
    }
    return true;
}

void akGrid::SetCurrentCell(int& Row, int& Col, bool bForce) {
    const int rowBefore = AbsoluteRow();
    const int columnBefore = currentColumn_;
    if (ChangeCurrentCell(Row, Col, bForce)) {
        AnnounceDeselected(rowBefore, columnBefore);
        AnnounceCurrentCell();
    }
}

void akGrid::AnnounceDeselected(int row, int column) {
    for (int each = 1; each <= Cols(); ++each) {
        const bool wasSelected = selectType_ == 0 || each == column;
        if (column != 0 && wasSelected && !IsSelected(row, each)) {
            AnnounceCellDeselected(*this, row, each);
        }
    }
}

void akGrid::AnnounceCurrentCell() {
    if (currentRow_ != 0 && currentColumn_ != 0) {
        AnnounceCell(*this, AbsoluteRow(), currentColumn_);
    }
}

bool akGrid::IsSelected(int row, int column) const {
    if (currentRow_ == 0 || currentColumn_ == 0 || row != AbsoluteRow()) {
        return false;
    }
    return ValidColumn(column) && (selectType_ == 0 || column == currentColumn_);
}

int akGrid::AbsoluteRow() const {
    return currentRow_ == 0 ? 0 : RowInList(currentRow_);
}

void akGrid::SetAbsoluteRow(int value) {
    const int wanted = std::min(value == 0 ? 1 : value, rows_);
    if (currentColumn_ == 0) {
        currentColumn_ = 1;
    }
    if (wanted <= visibleRows_ + topOffset_) {
        if (wanted <= topOffset_) {
            SetTopRow(wanted);
        }
        int row = Moved(wanted, -topOffset_);
        int column = currentColumn_;
        SetCurrentCell(row, column, true);
    } else {
        SetTopRow(Moved(wanted, 1 - visibleRows_));
        int row = visibleRows_;
        int column = currentColumn_;
        SetCurrentCell(row, column, false);
    }
}

void akGrid::SetRow(int value) {
    int row = std::max(std::min<int>(value, visibleRows_), 1);
    if (currentColumn_ == 0) {
        currentColumn_ = 1;
    }
    int column = currentColumn_;
    SetCurrentCell(row, column, false);
}

void akGrid::SetCol(int value) {
    int row = currentRow_;
    int column = value;
    SetCurrentCell(row, column, false);
}

}  // namespace controls
