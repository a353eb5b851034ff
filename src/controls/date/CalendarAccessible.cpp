#include "controls/date/CalendarAccessible.h"

#include "controls/akDate.h"
#include "controls/base/Action.h"
#include "controls/base/Display.h"
#include "controls/date/DateLayout.h"

#include <algorithm>

namespace controls {

namespace {

QRect OnScreen(const akDate& date, int left, int top, int width, int height) {
    const QPoint corner = date.mapToGlobal(QPoint(ToPixels(left), ToPixels(top)));
    return {corner, QSize(ToPixels(width), ToPixels(height))};
}

}  // namespace

CalendarAccessible::CalendarAccessible(akDate* date) : date_(date) {
    for (int row = 1; row <= DayRows; ++row) {
        for (int column = 1; column <= DayColumns; ++column) {
            cells_.push_back(new CalendarCellAccessible(date, this, {column, row}));
        }
    }
    cells_.push_back(new CalendarCellAccessible(date, this, {1, DayRows + 1}));
    for (CalendarCellAccessible* cell : cells_) {
        ids_.push_back(QAccessible::registerAccessibleInterface(cell));
    }
}

CalendarAccessible::~CalendarAccessible() {
    for (const QAccessible::Id id : ids_) {
        QAccessible::deleteAccessibleInterface(id);
    }
}

bool CalendarAccessible::isValid() const {
    return date_ != nullptr && date_->DroppedDown();
}

QAccessibleInterface* CalendarAccessible::parent() const {
    return QAccessible::queryAccessibleInterface(date_.data());
}

QAccessible::State CalendarAccessible::state() const {
    QAccessible::State state;
    state.invisible = !isValid() || !date_->isVisible();
    return state;
}

QString CalendarAccessible::text(QAccessible::Text text) const {
    return text == QAccessible::Name && isValid() ? MonthTitle(date_->ShownCalendar().shown) : QString();
}

QRect CalendarAccessible::rect() const {
    if (!isValid()) {
        return {};
    }
    return OnScreen(*date_, 0, DateLayout::BorderHeight, CalendarPlaces::Width,
                    OpenHeight(date_->IncludeNone()) - DateLayout::BorderHeight);
}

int CalendarAccessible::rowCount() const {
    return isValid() && date_->IncludeNone() ? DayRows + 1 : DayRows;
}

int CalendarAccessible::childCount() const {
    return DayRows * DayColumns + (rowCount() > DayRows ? 1 : 0);
}

QAccessibleInterface* CalendarAccessible::child(int index) const {
    return index >= 0 && index < childCount() ? cells_[static_cast<size_t>(index)] : nullptr;
}

int CalendarAccessible::indexOfChild(const QAccessibleInterface* child) const {
    const auto found = std::find(cells_.begin(), cells_.end(), child);
    return found != cells_.end() ? static_cast<int>(found - cells_.begin()) : -1;
}

QAccessibleInterface* CalendarAccessible::childAt(int x, int y) const {
    for (int index = 0; index < childCount(); ++index) {
        if (child(index)->rect().contains(x, y)) {
            return child(index);
        }
    }
    return nullptr;
}

QAccessibleInterface* CalendarAccessible::cellAt(int row, int column) const {
    if (row < 0 || row >= rowCount() || column < 0 || column >= DayColumns) {
        return nullptr;
    }
    return child(row < DayRows ? row * DayColumns + column : DayRows * DayColumns);
}

QList<QAccessibleInterface*> CalendarAccessible::selectedCells() const {
    QList<QAccessibleInterface*> selected;
    for (int index = 0; index < childCount(); ++index) {
        if (cells_[static_cast<size_t>(index)]->isSelected()) {
            selected += child(index);
        }
    }
    return selected;
}

void* CalendarAccessible::interface_cast(QAccessible::InterfaceType type) {
    return type == QAccessible::TableInterface ? static_cast<QAccessibleTableInterface*>(this) : nullptr;
}

CalendarCellAccessible::CalendarCellAccessible(akDate* date, CalendarAccessible* table, CalendarCell cell)
    : date_(date), table_(table), cell_(cell) {
}

bool CalendarCellAccessible::isValid() const {
    return table_->isValid();
}

int CalendarCellAccessible::Day() const {
    if (!isValid() || IsNone()) {
        return -1;
    }
    const auto column = static_cast<size_t>(cell_.column);
    return date_->ShownCalendar().days.at(column).at(static_cast<size_t>(cell_.row));
}

QAccessible::State CalendarCellAccessible::state() const {
    QAccessible::State state = table_->state();
    state.disabled = !IsNone() && Day() == -1;
    state.selectable = !state.disabled;
    state.selected = isSelected();
    return state;
}

QString CalendarCellAccessible::text(QAccessible::Text text) const {
    if (text != QAccessible::Name || !isValid()) {
        return {};
    }
    if (IsNone()) {
        return QStringLiteral("<None>");
    }
    return Day() == -1 ? QString()
                       : QString::number(Day()) + QLatin1Char(' ') + MonthTitle(date_->ShownCalendar().shown);
}

QRect CalendarCellAccessible::rect() const {
    if (!isValid()) {
        return {};
    }
    if (IsNone()) {
        return OnScreen(*date_, 0, NoneLine(true), CalendarPlaces::Width, CalendarPlaces::RowHeight);
    }
    const TwipsPoint place = CellPlace(cell_);
    return OnScreen(*date_, place.left, place.top, CalendarPlaces::ColumnWidth, CalendarPlaces::RowHeight);
}

bool CalendarCellAccessible::isSelected() const {
    if (!isValid()) {
        return false;
    }
    if (IsNone() || date_->NoneShown()) {
        return IsNone() && date_->NoneShown();
    }
    return Day() != -1 && date_->ShownCalendar().markedDay == Day();
}

QStringList CalendarCellAccessible::actionNames() const {
    const bool canBePicked = isValid() && (IsNone() || Day() != -1) && CanBeActedOn(*date_);
    return canBePicked ? QStringList{pressAction()} : QStringList();
}

void CalendarCellAccessible::doAction(const QString& actionName) {
    if (actionNames().contains(actionName)) {
        date_->ActOn(cell_);
    }
}

void* CalendarCellAccessible::interface_cast(QAccessible::InterfaceType type) {
    switch (type) {
        case QAccessible::TableCellInterface:
            return static_cast<QAccessibleTableCellInterface*>(this);
        case QAccessible::ActionInterface:
            return static_cast<QAccessibleActionInterface*>(this);
        default:
            return nullptr;
    }
}

}  // namespace controls
