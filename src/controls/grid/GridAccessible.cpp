#include "controls/grid/GridAccessible.h"

#include "controls/akGrid.h"
#include "controls/base/Accessible.h"
#include "controls/base/Action.h"
#include "controls/grid/GridPartAccessible.h"

#include <QAccessibleWidget>
#include <QScrollBar>

#include <algorithm>
#include <limits>
#include <map>
#include <utility>

namespace controls {

namespace {

/// The list as a table. Headers and cells are made when they are asked for.
class GridAccessible : public QAccessibleWidget, public QAccessibleTableInterface {
public:
    explicit GridAccessible(akGrid* grid) : QAccessibleWidget(grid, QAccessible::Table) {}
    GridAccessible(const GridAccessible&) = delete;
    GridAccessible& operator=(const GridAccessible&) = delete;
    ~GridAccessible() override {
        for (const auto& [place, id] : parts_) {
            QAccessible::deleteAccessibleInterface(id);
        }
    }

    void* interface_cast(QAccessible::InterfaceType type) override {
        if (type == QAccessible::TableInterface) {
            return static_cast<QAccessibleTableInterface*>(this);
        }
        return QAccessibleWidget::interface_cast(type);
    }

    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        // It's the current cell that has the focus.
        state.focused = state.focused && Grid().AbsoluteRow() <= 0;
        return state;
    }

    int childCount() const override { return ScrollBarIndex() + (ScrollBar()->isVisible() ? 1 : 0); }
    QAccessibleInterface* child(int index) const override {
        if (index == ScrollBarIndex() && ScrollBar()->isVisible()) {
            return QAccessible::queryAccessibleInterface(ScrollBar());
        }
        return index < 0 ? nullptr : Part(index / Grid().Cols(), index % Grid().Cols() + 1);
    }
    int indexOfChild(const QAccessibleInterface* child) const override {
        if (child->object() == ScrollBar()) {
            return ScrollBarIndex();
        }
        const auto* part = dynamic_cast<const GridPartAccessible*>(child);
        return part != nullptr && part->parent() == this ? part->IndexInTable() : -1;
    }
    QAccessibleInterface* childAt(int x, int y) const override {
        if (ScrollBar()->isVisible() &&
            ScrollBar()->rect().contains(ScrollBar()->mapFromGlobal(QPoint(x, y)))) {
            return QAccessible::queryAccessibleInterface(ScrollBar());
        }
        const int lastOnView = Grid().TopRow() + Grid().VisibleRows() - 1;
        for (int column = 1; column <= Grid().Cols(); ++column) {
            if (QAccessibleInterface* header = PartUnder(0, column, {x, y})) {
                return header;
            }
            for (int row = Grid().TopRow(); row <= std::min(lastOnView, Grid().Rows()); ++row) {
                if (QAccessibleInterface* cell = PartUnder(row, column, {x, y})) {
                    return cell;
                }
            }
        }
        return nullptr;
    }
    QAccessibleInterface* focusChild() const override {
        if (Grid().hasFocus()) {
            return Part(std::max(Grid().AbsoluteRow(), 0), Grid().AbsoluteRow() > 0 ? Grid().Col() : 0);
        }
        return QAccessibleWidget::focusChild();
    }

    QAccessibleInterface* caption() const override { return nullptr; }
    QAccessibleInterface* summary() const override { return nullptr; }
    QAccessibleInterface* cellAt(int row, int column) const override {
        return row < 0 ? nullptr : Part(row + 1, column + 1);
    }
    int selectedCellCount() const override { return static_cast<int>(selectedCells().size()); }
    QList<QAccessibleInterface*> selectedCells() const override {
        QList<QAccessibleInterface*> cells;
        const int row = Grid().AbsoluteRow();
        for (int column = 1; column <= Grid().Cols(); ++column) {
            if (Grid().IsSelected(row, column)) {
                cells += Part(row, column);
            }
        }
        cells.removeAll(nullptr);
        return cells;
    }
    QString columnDescription(int column) const override { return Grid().ColumnHeading(column + 1); }
    QString rowDescription(int /*row*/) const override { return {}; }
    int selectedColumnCount() const override { return 0; }
    int selectedRowCount() const override { return static_cast<int>(selectedRows().size()); }
    int columnCount() const override { return Grid().Cols(); }
    int rowCount() const override { return std::max(Grid().Rows(), 0); }
    QList<int> selectedColumns() const override { return {}; }
    QList<int> selectedRows() const override {
        return selectedCellCount() == Grid().Cols() ? QList<int>{Grid().AbsoluteRow() - 1} : QList<int>();
    }
    bool isColumnSelected(int /*column*/) const override { return false; }
    bool isRowSelected(int row) const override { return selectedRows().contains(row); }
    bool selectRow(int row) override {
        if (!Grid().CanShowRow(row + 1) || !CanBeActedOn(Grid())) {
            return false;
        }
        BringFocus(Grid());
        Grid().SetAbsoluteRow(row + 1);
        return true;
    }
    bool selectColumn(int /*column*/) override { return false; }
    bool unselectRow(int /*row*/) override { return false; }
    bool unselectColumn(int /*column*/) override { return false; }
    void modelChange(QAccessibleTableModelChangeEvent* /*event*/) override {
        // The parts know their places only and always tell what is there now.
    }

private:
    akGrid& Grid() const { return *static_cast<akGrid*>(widget()); }
    QScrollBar* ScrollBar() const { return widget()->findChild<QScrollBar*>(QStringLiteral("VScroll")); }
    int ScrollBarIndex() const {
        const qint64 parts = Grid().Cols() * (qint64{rowCount()} + 1);
        return static_cast<int>(std::min<qint64>(parts, std::numeric_limits<int>::max() - 1));
    }

    /// Row 0 is the headers'. None for a place that doesn't exist.
    QAccessibleInterface* Part(int row, int column) const {
        if (row < 0 || row > Grid().Rows() || column < 1 || column > Grid().Cols()) {
            return nullptr;
        }
        auto [place, isNew] = parts_.try_emplace({row, column}, QAccessible::Id{0});
        if (isNew) {
            place->second =
                QAccessible::registerAccessibleInterface(new GridPartAccessible(&Grid(), row, column));
        }
        return QAccessible::accessibleInterface(place->second);
    }
    QAccessibleInterface* PartUnder(int row, int column, const QPoint& place) const {
        QAccessibleInterface* part = Part(row, column);
        return part != nullptr && part->rect().contains(place) ? part : nullptr;
    }

    mutable std::map<std::pair<int, int>, QAccessible::Id> parts_;
};

void AnnounceOfCell(akGrid& grid, int row, int column, QAccessible::Event what) {
    const qint64 index = qint64{row} * grid.Cols() + column - 1;
    if (!QAccessible::isActive() || row < 1 || index > std::numeric_limits<int>::max()) {
        return;
    }
    QAccessibleEvent event(&grid, what);
    event.setChild(static_cast<int>(index));
    QAccessible::updateAccessibility(&event);
}

}  // namespace

void RegisterGridAccessible() {
    RegisterAccessible<akGrid, GridAccessible>();
}

void AnnounceCell(akGrid& grid, int row, int column) {
    AnnounceOfCell(grid, row, column, QAccessible::Selection);
    if (grid.hasFocus()) {
        AnnounceOfCell(grid, row, column, QAccessible::Focus);
    }
}

void AnnounceCellDeselected(akGrid& grid, int row, int column) {
    if (row <= grid.Rows()) {
        AnnounceOfCell(grid, row, column, QAccessible::SelectionRemove);
    }
}

void AnnounceRows(akGrid& grid, QAccessibleTableModelChangeEvent::ModelChangeType change, int row) {
    if (!QAccessible::isActive()) {
        return;
    }
    QAccessibleTableModelChangeEvent event(&grid, change);
    event.setFirstRow(row);
    event.setLastRow(row);
    QAccessible::updateAccessibility(&event);
}

}  // namespace controls
