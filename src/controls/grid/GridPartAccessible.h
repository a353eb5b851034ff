#pragma once

#include <QAccessible>
#include <QPointer>

namespace controls {

class akGrid;
struct GridLabel;

/// A header or a cell of a list as assistive programs see it. It knows its place only, row 0 for the headers
/// and else absolute, and always tells what the list holds there at the moment. It is invalid while the list
/// has no such place.
class GridPartAccessible : public QAccessibleInterface,
                           public QAccessibleTableCellInterface,
                           public QAccessibleActionInterface {
public:
    GridPartAccessible(akGrid* grid, int row, int column);

    /// Its number among the list's children.
    int IndexInTable() const;

    void* interface_cast(QAccessible::InterfaceType type) override;
    bool isValid() const override;
    QObject* object() const override { return nullptr; }
    QAccessibleInterface* childAt(int /*x*/, int /*y*/) const override { return nullptr; }
    QAccessibleInterface* parent() const override { return table(); }
    QAccessibleInterface* child(int /*index*/) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface* /*child*/) const override { return -1; }
    QString text(QAccessible::Text type) const override;
    void setText(QAccessible::Text /*type*/, const QString& /*text*/) override {}
    /// Empty while the part is out of view.
    QRect rect() const override;
    QAccessible::Role role() const override;
    QAccessible::State state() const override;

    bool isSelected() const override;
    QList<QAccessibleInterface*> columnHeaderCells() const override;
    QList<QAccessibleInterface*> rowHeaderCells() const override { return {}; }
    int columnIndex() const override { return column_ - 1; }
    int rowIndex() const override { return row_ - 1; }
    int columnExtent() const override { return 1; }
    int rowExtent() const override { return 1; }
    QAccessibleInterface* table() const override;

    QStringList actionNames() const override;
    /// The focus comes first, as with a click. Done once the present event is, as a click may open a dialog.
    void doAction(const QString& actionName) override;
    QStringList keyBindingsForAction(const QString& /*actionName*/) const override { return {}; }

private:
    bool IsHeader() const { return row_ == 0; }
    /// What is drawn of it, none while it is out of view.
    const GridLabel* Label() const;

    QPointer<akGrid> grid_;
    int row_;
    int column_;
};

}  // namespace controls
