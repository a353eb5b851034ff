#pragma once

#include <QAccessibleWidget>

namespace screens {

class DropDownList;

/// A drop-down list as assistive programs see it. Its text is the chosen entry, which can be read and not
/// written; its only child is the list of entries.
class ListAccessible : public QAccessibleWidget, public QAccessibleTextInterface {
public:
    explicit ListAccessible(DropDownList* list);

    void* interface_cast(QAccessible::InterfaceType type) override;
    QString text(QAccessible::Text kind) const override;
    QAccessible::State state() const override;
    int childCount() const override { return 1; }
    QAccessibleInterface* child(int index) const override;
    int indexOfChild(const QAccessibleInterface* child) const override;
    QStringList actionNames() const override;
    /// Opens or closes the list; the focus comes first, as with a click.
    void doAction(const QString& action) override;

    QString text(int startOffset, int endOffset) const override;
    int characterCount() const override;
    void selection(int selectionIndex, int* startOffset, int* endOffset) const override;
    int selectionCount() const override { return 0; }
    void addSelection(int, int) override {}
    void removeSelection(int) override {}
    void setSelection(int, int, int) override {}
    int cursorPosition() const override { return 0; }
    void setCursorPosition(int) override {}
    QRect characterRect(int) const override { return rect(); }
    int offsetAtPoint(const QPoint&) const override { return -1; }
    void scrollToSubstring(int, int) override {}
    QString attributes(int offset, int* startOffset, int* endOffset) const override;

private:
    DropDownList& List() const;
};

/// From here on the entries of each drop-down list say whether they are the chosen one, have the focus only
/// while the list is open, and are chosen by pressing them.
void RegisterEntriesAccessible();

}  // namespace screens
