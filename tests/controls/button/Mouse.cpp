#include "button/Mouse.h"

#include <QCoreApplication>
#include <QCursor>
#include <QTest>

Mouse::~Mouse() {
    for (const Qt::MouseButton button : {Qt::LeftButton, Qt::RightButton, Qt::MiddleButton}) {
        if (held_.testFlag(button)) {
            Release(button);
        }
    }
    LeaveWindow();
}

QPoint Mouse::PlaceInWindow() const {
    return window_.mapFromGlobal(place_);
}

void Mouse::MoveTo(const QWidget& widget, QPoint place) {
    place_ = widget.mapToGlobal(place);
    // With a button held the window goes on getting moves outside of it. And the cursor hasn't followed what
    // was dragged: back where it was before, it would not move.
    if (held_ != Qt::NoButton || QCursor::pos() == place_) {
        QTest::mouseMove(window_.windowHandle(), PlaceInWindow());
    } else {
        QCursor::setPos(place_);
        QCoreApplication::processEvents();
    }
}

void Mouse::LeaveWindow() {
    QCursor::setPos(window_.frameGeometry().bottomRight() + QPoint(50, 50));
    QCoreApplication::processEvents();
}

void Mouse::Press(Qt::MouseButton button) {
    held_.setFlag(button);
    QTest::mousePress(window_.windowHandle(), button, Qt::NoModifier, PlaceInWindow());
}

void Mouse::Release(Qt::MouseButton button) {
    held_.setFlag(button, false);
    QTest::mouseRelease(window_.windowHandle(), button, Qt::NoModifier, PlaceInWindow());
}

void Mouse::Click(const QWidget& widget, Qt::MouseButton button) {
    MoveTo(widget);
    Press(button);
    Release(button);
}
