#include "screens/DropDownList.h"

#include "controls/base/Accessible.h"
#include "screens/ListAccessible.h"

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

void DropDownList::wheelEvent(QWheelEvent* event) {
    if (hasFocus()) {
        QComboBox::wheelEvent(event);
    } else {
        event->ignore();
    }
}

}  // namespace screens
