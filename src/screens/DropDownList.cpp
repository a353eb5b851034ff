#include "screens/DropDownList.h"

#include "controls/base/Accessible.h"

#include <QAbstractItemView>
#include <QAccessibleWidget>
#include <QWheelEvent>

namespace screens {

namespace {

class AccessibleList : public QAccessibleWidget {
public:
    explicit AccessibleList(DropDownList* list) : QAccessibleWidget(list, QAccessible::ComboBox) {}

    QString text(QAccessible::Text kind) const override {
        return kind == QAccessible::Value ? List()->currentText() : QAccessibleWidget::text(kind);
    }

    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.expandable = true;
        state.expanded = List()->view()->isVisible();
        return state;
    }

    int childCount() const override { return 1; }

    QAccessibleInterface* child(int index) const override {
        return index == 0 ? QAccessible::queryAccessibleInterface(List()->view()) : nullptr;
    }

    int indexOfChild(const QAccessibleInterface* child) const override {
        return child != nullptr && child->object() == List()->view() ? 0 : -1;
    }

    QStringList actionNames() const override { return {showMenuAction(), pressAction()}; }

    void doAction(const QString& action) override {
        if (!actionNames().contains(action)) {
            return;
        }
        if (List()->view()->isVisible()) {
            List()->hidePopup();
        } else {
            List()->showPopup();
        }
    }

private:
    DropDownList* List() const { return static_cast<DropDownList*>(widget()); }
};

}  // namespace

DropDownList::DropDownList(QWidget* parent) : QComboBox(parent) {
    controls::RegisterAccessible<DropDownList, AccessibleList>();
    setFocusPolicy(Qt::StrongFocus);
}

void DropDownList::wheelEvent(QWheelEvent* event) {
    if (hasFocus()) {
        QComboBox::wheelEvent(event);
    } else {
        event->ignore();
    }
}

}  // namespace screens
