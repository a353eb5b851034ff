#include "controls/button/ButtonAccessible.h"

#include "controls/base/AccessibilityBus.h"
#include "controls/base/Action.h"
#include "controls/ctlButton.h"

#include <QTimer>

namespace controls {

namespace {

void AnnounceStates(ctlButton& button, QAccessible::State changed) {
    QAccessibleStateChangeEvent event(&button, changed);
    QAccessible::updateAccessibility(&event);
}

}  // namespace

ButtonAccessible::ButtonAccessible(ctlButton* button) : QAccessibleWidget(button, QAccessible::Button) {
}

const ctlButton& ButtonAccessible::Button() const {
    return static_cast<const ctlButton&>(*widget());
}

QString ButtonAccessible::text(QAccessible::Text text) const {
    // A button that shows nothing but an icon goes by the name that its form gives it.
    return text == QAccessible::Name && !Button().Caption().isEmpty() ? Button().Caption()
                                                                      : QAccessibleWidget::text(text);
}

QAccessible::State ButtonAccessible::state() const {
    QAccessible::State state = QAccessibleWidget::state();
    if (!Button().Enabled()) {
        state.disabled = 1;
    }
    if (Button().ButtonState() == ButtonStates::Down) {
        state.pressed = 1;
    }
    return state;
}

QStringList ButtonAccessible::actionNames() const {
    QStringList names = QAccessibleWidget::actionNames();
    if (Button().Enabled() && CanBeActedOn(Button())) {
        names.prepend(pressAction());
    }
    return names;
}

void ButtonAccessible::doAction(const QString& action) {
    if (action != pressAction()) {
        QAccessibleWidget::doAction(action);
        return;
    }
    if (actionNames().contains(action)) {
        auto* button = static_cast<ctlButton*>(widget());
        QTimer::singleShot(0, button, [button] {
            BringFocus(*button);
            button->DoClick();
        });
    }
}

void AnnounceCaption(ctlButton& button) {
    QAccessibleEvent event(&button, QAccessible::NameChanged);
    QAccessible::updateAccessibility(&event);
}

void AnnounceEnabled(ctlButton& button) {
    QAccessible::State changed;
    changed.disabled = 1;
    AnnounceStates(button, changed);
}

void AnnouncePressed(ctlButton& button) {
    QAccessible::State changed;
    changed.pressed = 1;
    AnnounceStates(button, changed);
    TellBusOfState(button, QStringLiteral("pressed"), button.ButtonState() == ButtonStates::Down);
}

}  // namespace controls
