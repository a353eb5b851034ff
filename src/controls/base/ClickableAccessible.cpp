#include "controls/base/ClickableAccessible.h"

#include "controls/base/Action.h"

#include <QCheckBox>
#include <QRadioButton>
#include <QStyle>
#include <QStyleOptionButton>
#include <QTimer>

namespace controls {

namespace {

QAccessible::Role RoleOf(const QAbstractButton* button) {
    if (qobject_cast<const QRadioButton*>(button) != nullptr) {
        return QAccessible::RadioButton;
    }
    return qobject_cast<const QCheckBox*>(button) != nullptr ? QAccessible::CheckBox : QAccessible::Button;
}

}  // namespace

ClickableAccessible::ClickableAccessible(QAbstractButton* button)
    : QAccessibleWidget(button, RoleOf(button)) {
}

QAbstractButton& ClickableAccessible::Button() const {
    return *static_cast<QAbstractButton*>(widget());
}

const QString& ClickableAccessible::ClickAction() const {
    return Button().isCheckable() ? toggleAction() : pressAction();
}

QString ClickableAccessible::text(QAccessible::Text text) const {
    // A button that shows nothing but a picture goes by the name that its form gives it.
    return text == QAccessible::Name && !Button().text().isEmpty() ? Button().text()
                                                                   : QAccessibleWidget::text(text);
}

QRect ClickableAccessible::rect() const {
    if (!Button().isCheckable() || !Button().isVisible()) {
        return QAccessibleWidget::rect();
    }
    QStyleOptionButton option;
    option.initFrom(&Button());
    option.text = Button().text();
    const auto part =
        role() == QAccessible::RadioButton ? QStyle::SE_RadioButtonClickRect : QStyle::SE_CheckBoxClickRect;
    const QRect place = Button().style()->subElementRect(part, &option, &Button());
    return {Button().mapToGlobal(place.topLeft()), place.size()};
}

QAccessible::State ClickableAccessible::state() const {
    QAccessible::State state = QAccessibleWidget::state();
    state.checkable = Button().isCheckable();
    state.checked = Button().isChecked();
    state.pressed = Button().isDown();
    return state;
}

QStringList ClickableAccessible::actionNames() const {
    QStringList names = QAccessibleWidget::actionNames();
    if (CanBeActedOn(Button())) {
        names.prepend(ClickAction());
    }
    return names;
}

void ClickableAccessible::doAction(const QString& action) {
    if (action != ClickAction()) {
        QAccessibleWidget::doAction(action);
        return;
    }
    if (actionNames().contains(action)) {
        auto* button = &Button();
        QTimer::singleShot(0, button, [button] {
            BringFocus(*button);
            button->click();
        });
    }
}

}  // namespace controls
