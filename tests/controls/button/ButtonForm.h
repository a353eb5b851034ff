#pragma once

#include "button/Mouse.h"
#include "controls/ctlButton.h"
#include "support/OnScreen.h"

#include <QLineEdit>

#include <ostream>

namespace controls {

inline void PrintTo(ButtonStates state, std::ostream* out) {
    *out << "state " << static_cast<int>(state);
}

}  // namespace controls

/// A form as the user has it before him: two buttons side by side that touch, and a text field with the
/// focus.
struct ButtonForm {
    ButtonForm()
        : button({.Caption = QStringLiteral("Add")}, &window),
          neighbour({.Caption = QStringLiteral("Next")}, &window),
          field(&window),
          mouse(window) {
        window.resize(400, 200);
        button.setGeometry(40, 40, 105, 25);
        neighbour.setGeometry(145, 40, 105, 25);
        field.setGeometry(40, 100, 105, 25);
        QWidget::setTabOrder(&button, &neighbour);
        QWidget::setTabOrder(&neighbour, &field);
        QObject::connect(&button, &controls::ctlButton::Click, [this] { ++clicks; });
        QObject::connect(&neighbour, &controls::ctlButton::Click, [this] { ++neighbourClicks; });
        ShowAndActivate(window);
        field.setFocus();
    }

    /// A pixel of the window that no control is on.
    void MoveToGround() { mouse.MoveTo(window, {350, 180}); }

    QWidget window;
    controls::ctlButton button;
    controls::ctlButton neighbour;
    QLineEdit field;
    Mouse mouse;
    int clicks = 0;
    int neighbourClicks = 0;
};
