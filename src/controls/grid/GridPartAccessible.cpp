#include "controls/grid/GridPartAccessible.h"

#include "controls/akGrid.h"
#include "controls/base/Action.h"

#include <QTimer>

#include <limits>

namespace controls {

GridPartAccessible::GridPartAccessible(akGrid* grid, int row, int column)
    : grid_(grid), row_(row), column_(column) {
}

int GridPartAccessible::IndexInTable() const {
    const qint64 index = isValid() ? qint64{row_} * grid_->Cols() + column_ - 1 : -1;
    return index <= std::numeric_limits<int>::max() ? static_cast<int>(index) : -1;
}

void* GridPartAccessible::interface_cast(QAccessible::InterfaceType type) {
    if (type == QAccessible::TableCellInterface) {
        return static_cast<QAccessibleTableCellInterface*>(this);
    }
    if (type == QAccessible::ActionInterface) {
        return static_cast<QAccessibleActionInterface*>(this);
    }
    return nullptr;
}

bool GridPartAccessible::isValid() const {
    return !grid_.isNull() && row_ <= grid_->Rows() && column_ <= grid_->Cols();
}

QString GridPartAccessible::text(QAccessible::Text type) const {
    if (!isValid() || (type != QAccessible::Name && type != QAccessible::Value)) {
        return {};
    }
    if (IsHeader()) {
        return type == QAccessible::Name ? grid_->ColumnHeading(column_) : QString();
    }
    return grid_->CellText(row_, column_);
}

const GridLabel* GridPartAccessible::Label() const {
    if (!isValid()) {
        return nullptr;
    }
    const std::vector<GridLabel>& labels = IsHeader() ? grid_->HeadingLabels() : grid_->CellLabels();
    const int windowRow = IsHeader() ? 0 : row_ - grid_->TopRow();
    if (windowRow < 0 || windowRow >= (IsHeader() ? 1 : grid_->VisibleRows())) {
        return nullptr;
    }
    const auto index = static_cast<size_t>(windowRow * grid_->Cols() + column_ - 1);
    return index < labels.size() && labels[index].Visible ? &labels[index] : nullptr;
}

QRect GridPartAccessible::rect() const {
    const GridLabel* label = Label();
    if (label == nullptr || !grid_->isVisible()) {
        return {};
    }
    const QRect pixels = label->Pixels().intersected(grid_->rect());
    return pixels.isEmpty() ? QRect() : QRect(grid_->mapToGlobal(pixels.topLeft()), pixels.size());
}

QAccessible::Role GridPartAccessible::role() const {
    return IsHeader() ? QAccessible::ColumnHeader : QAccessible::Cell;
}

QAccessible::State GridPartAccessible::state() const {
    QAccessible::State state;
    if (!isValid()) {
        state.invalid = true;
        return state;
    }
    state.readOnly = true;
    state.disabled = !grid_->isEnabled();
    state.invisible = !grid_->isVisible() || grid_->ColWidth(column_) == 0;
    state.offscreen = rect().isEmpty();
    if (!IsHeader()) {
        state.selectable = true;
        state.selected = isSelected();
        state.focusable = true;
        state.focused = grid_->hasFocus() && grid_->AbsoluteRow() == row_ && grid_->Col() == column_;
    }
    return state;
}

bool GridPartAccessible::isSelected() const {
    return isValid() && !IsHeader() && grid_->IsSelected(row_, column_);
}

QList<QAccessibleInterface*> GridPartAccessible::columnHeaderCells() const {
    return isValid() ? QList<QAccessibleInterface*>{table()->child(column_ - 1)}
                     : QList<QAccessibleInterface*>();
}

QAccessibleInterface* GridPartAccessible::table() const {
    return grid_.isNull() ? nullptr : QAccessible::queryAccessibleInterface(grid_);
}

QStringList GridPartAccessible::actionNames() const {
    const bool canBeClicked = isValid() && CanBeActedOn(*grid_) && grid_->ColWidth(column_) > 0 &&
                              (IsHeader() || grid_->CanShowRow(row_));
    return canBeClicked ? QStringList{pressAction()} : QStringList();
}

void GridPartAccessible::doAction(const QString& actionName) {
    if (!actionNames().contains(actionName)) {
        return;
    }
    akGrid* grid = grid_;
    QTimer::singleShot(0, grid, [grid, row = row_, column = column_] {
        BringFocus(*grid);
        grid->ClickPart(row, column);
    });
}

}  // namespace controls
