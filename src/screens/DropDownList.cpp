#include "screens/DropDownList.h"

#include "controls/base/Accessible.h"
#include "screens/ListAccessible.h"

namespace screens {

DropDownList::DropDownList(QWidget* parent) : QComboBox(parent) {
    controls::RegisterAccessible<DropDownList, ListAccessible>();
    RegisterEntriesAccessible();
    connect(this, &QComboBox::currentTextChanged, this, [this](const QString& text) {
        QAccessibleValueChangeEvent event(this, text);
        QAccessible::updateAccessibility(&event);
    });
}

}  // namespace screens
