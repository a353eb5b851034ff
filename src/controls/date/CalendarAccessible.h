#pragma once

#include "controls/date/Calendar.h"

#include <QAccessible>
#include <QPointer>

#include <vector>

namespace controls {

class akDate;
class CalendarCellAccessible;

/// The open calendar of a date control as a table of seven columns, Sunday first, with its cells. Valid while
/// the calendar is open. Rows and columns are counted from 0 here, as the toolkit does.
class CalendarAccessible : public QAccessibleInterface, public QAccessibleTableInterface {
public:
    explicit CalendarAccessible(akDate* date);
    CalendarAccessible(const CalendarAccessible&) = delete;
    CalendarAccessible& operator=(const CalendarAccessible&) = delete;
    ~CalendarAccessible() override;

    bool isValid() const override;
    QObject* object() const override { return nullptr; }
    QAccessibleInterface* parent() const override;
    QAccessible::Role role() const override { return QAccessible::Table; }
    QAccessible::State state() const override;
    QString text(QAccessible::Text text) const override;
    void setText(QAccessible::Text, const QString&) override {}
    QRect rect() const override;
    int childCount() const override;
    QAccessibleInterface* child(int index) const override;
    int indexOfChild(const QAccessibleInterface* child) const override;
    QAccessibleInterface* childAt(int x, int y) const override;
    void* interface_cast(QAccessible::InterfaceType type) override;

    int rowCount() const override;
    int columnCount() const override { return DayColumns; }
    QAccessibleInterface* cellAt(int row, int column) const override;
    QString columnDescription(int column) const override { return DayName(column + 1); }
    QString rowDescription(int) const override { return {}; }
    QAccessibleInterface* caption() const override { return nullptr; }
    QAccessibleInterface* summary() const override { return nullptr; }

    int selectedCellCount() const override { return static_cast<int>(selectedCells().size()); }
    QList<QAccessibleInterface*> selectedCells() const override;
    /// One day is selected and never a row or a column; a day is picked by pressing it.
    int selectedColumnCount() const override { return 0; }
    int selectedRowCount() const override { return 0; }
    QList<int> selectedColumns() const override { return {}; }
    QList<int> selectedRows() const override { return {}; }
    bool isColumnSelected(int) const override { return false; }
    bool isRowSelected(int) const override { return false; }
    bool selectRow(int) override { return false; }
    bool selectColumn(int) override { return false; }
    bool unselectRow(int) override { return false; }
    bool unselectColumn(int) override { return false; }
    void modelChange(QAccessibleTableModelChangeEvent*) override {}

private:
    QPointer<akDate> date_;
    /// The days row after row, then "<None>". Owned by the toolkit's register of interfaces.
    std::vector<CalendarCellAccessible*> cells_;
    std::vector<QAccessible::Id> ids_;
};

/// A day of the calendar, a cell without one, or "<None>".
class CalendarCellAccessible : public QAccessibleInterface,
                               public QAccessibleTableCellInterface,
                               public QAccessibleActionInterface {
public:
    /// The cell as the calendar counts it; row 7 is "<None>".
    CalendarCellAccessible(akDate* date, CalendarAccessible* table, CalendarCell cell);

    bool isValid() const override;
    QObject* object() const override { return nullptr; }
    QAccessibleInterface* parent() const override { return table_; }
    QAccessible::Role role() const override { return QAccessible::Cell; }
    QAccessible::State state() const override;
    QString text(QAccessible::Text text) const override;
    void setText(QAccessible::Text, const QString&) override {}
    QRect rect() const override;
    int childCount() const override { return 0; }
    QAccessibleInterface* child(int) const override { return nullptr; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    void* interface_cast(QAccessible::InterfaceType type) override;

    bool isSelected() const override;
    QList<QAccessibleInterface*> columnHeaderCells() const override { return {}; }
    QList<QAccessibleInterface*> rowHeaderCells() const override { return {}; }
    int columnIndex() const override { return cell_.column - 1; }
    int rowIndex() const override { return cell_.row - 1; }
    int columnExtent() const override { return IsNone() ? DayColumns : 1; }
    int rowExtent() const override { return 1; }
    QAccessibleInterface* table() const override { return table_; }

    QStringList actionNames() const override;
    void doAction(const QString& actionName) override;
    QStringList keyBindingsForAction(const QString&) const override { return {}; }

private:
    bool IsNone() const { return cell_.row > DayRows; }
    /// The day of the month; -1 for a cell without one and for "<None>".
    int Day() const;

    QPointer<akDate> date_;
    CalendarAccessible* table_;
    CalendarCell cell_;
};

}  // namespace controls
