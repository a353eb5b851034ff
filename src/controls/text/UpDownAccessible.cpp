#include "controls/text/UpDownAccessible.h"

#include "controls/base/Action.h"
#include "controls/text/UpDownImage.h"

namespace controls {

UpDownAccessible::UpDownAccessible(UpDownImage* image) : QAccessibleWidget(image, QAccessible::Grouping) {
}

UpDownImage& UpDownAccessible::Image() const {
    return *static_cast<UpDownImage*>(widget());
}

QString UpDownAccessible::text(QAccessible::Text kind) const {
    return kind == QAccessible::Name ? Image().Label() : QAccessibleWidget::text(kind);
}

int UpDownAccessible::childCount() const {
    return 2;
}

QAccessibleInterface* UpDownAccessible::child(int index) const {
    switch (index) {
        case 0:
            return QAccessible::queryAccessibleInterface(&Image().Button(UpDownHalf::Up));
        case 1:
            return QAccessible::queryAccessibleInterface(&Image().Button(UpDownHalf::Down));
        default:
            return nullptr;
    }
}

int UpDownAccessible::indexOfChild(const QAccessibleInterface* child) const {
    for (int index = 0; index < childCount(); ++index) {
        if (this->child(index) == child) {
            return index;
        }
    }
    return -1;
}

QAccessibleInterface* UpDownAccessible::childAt(int x, int y) const {
    for (int index = 0; index < childCount(); ++index) {
        if (QAccessibleInterface* half = child(index); half->rect().contains(x, y)) {
            return half;
        }
    }
    return nullptr;
}

UpDownButtonAccessible::UpDownButtonAccessible(UpDownButton* button) : QAccessibleObject(button) {
}

UpDownButton& UpDownButtonAccessible::Button() const {
    return *static_cast<UpDownButton*>(object());
}

QWindow* UpDownButtonAccessible::window() const {
    return parent()->window();
}

QAccessibleInterface* UpDownButtonAccessible::parent() const {
    return QAccessible::queryAccessibleInterface(&Button().Image());
}

QAccessibleInterface* UpDownButtonAccessible::child(int /*index*/) const {
    return nullptr;
}

int UpDownButtonAccessible::childCount() const {
    return 0;
}

int UpDownButtonAccessible::indexOfChild(const QAccessibleInterface* /*child*/) const {
    return -1;
}

QAccessible::Role UpDownButtonAccessible::role() const {
    return QAccessible::PushButton;
}

QString UpDownButtonAccessible::text(QAccessible::Text kind) const {
    if (kind != QAccessible::Name) {
        return {};
    }
    const QString& label = Button().Image().Label();
    const bool isUp = Button().Half() == UpDownHalf::Up;
    if (label.isEmpty()) {
        return isUp ? QStringLiteral("Up") : QStringLiteral("Down");
    }
    return label + (isUp ? QStringLiteral(" up") : QStringLiteral(" down"));
}

QRect UpDownButtonAccessible::rect() const {
    const QRect area = Button().Image().HalfPixels(Button().Half());
    return {Button().Image().mapToGlobal(area.topLeft()), area.size()};
}

QAccessible::State UpDownButtonAccessible::state() const {
    QAccessible::State state;
    state.disabled = !Button().Image().isEnabled();
    state.invisible = !Button().Image().isVisible();
    return state;
}

void* UpDownButtonAccessible::interface_cast(QAccessible::InterfaceType type) {
    return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this) : nullptr;
}

QStringList UpDownButtonAccessible::actionNames() const {
    return CanBeActedOn(Button().Image()) ? QStringList{pressAction()} : QStringList();
}

QStringList UpDownButtonAccessible::keyBindingsForAction(const QString& /*name*/) const {
    return {};
}

void UpDownButtonAccessible::doAction(const QString& name) {
    if (actionNames().contains(name)) {
        UpDownImage& image = Button().Image();
        // The number that is stepped has the focus for both.
        BringFocus(*image.parentWidget());
        image.Press(Button().Half());
    }
}

}  // namespace controls
