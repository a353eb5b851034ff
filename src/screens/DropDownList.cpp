#include "screens/DropDownList.h"

#include "controls/base/AccessibilityBus.h"
#include "controls/base/Accessible.h"
#include "screens/ListAccessible.h"

#include <QListView>
#include <QWheelEvent>

namespace screens {

DropDownList::DropDownList(QWidget* parent) : QComboBox(parent) {
    controls::RegisterAccessible<DropDownList, ListAccessible>();
    RegisterEntriesAccessible();
    connect(this, &QComboBox::currentTextChanged, this, [this](const QString& text) {
        QAccessibleValueChangeEvent event(this, text);
        QAccessible::updateAccessibility(&event);
    });
    setFocusPolicy(Qt::StrongFocus);
}

void DropDownList::keyPressEvent(QKeyEvent* event) {
    // The keys of an open list don't come here.
    const int before = currentIndex();
    QComboBox::keyPressEvent(event);
    TellChoiceOtherThan(before);
}

void DropDownList::wheelEvent(QWheelEvent* event) {
    if (hasFocus()) {
        const int before = currentIndex();
        QComboBox::wheelEvent(event);
        TellChoiceOtherThan(before);
    } else {
        event->ignore();
    }
}

void DropDownList::TellChoiceOtherThan(int before) {
    // Of the value alone screen readers say nothing.
    if (currentIndex() != before && currentIndex() >= 0 && QAccessible::isActive()) {
        controls::TellBusOfDescendant(*this,
                                      *QAccessible::queryAccessibleInterface(view())->child(currentIndex()));
    }
}

}  // namespace screens
