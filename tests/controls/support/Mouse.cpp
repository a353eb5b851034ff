#include "support/Mouse.h"

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
    if (held_ == Qt::NoButton) {
        QCursor::setPos(place_);
        QCoreApplication::processEvents();
    } else {
        // With a button held the window goes on getting moves outside of it.
        QTest::mouseMove(window_.windowHandle(), PlaceInWindow());
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
