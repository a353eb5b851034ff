#include "controls/base/Keys.h"

#include <QApplication>
#include <QKeyEvent>
#include <QWidget>

namespace controls {

namespace {

void Press(int key, Qt::KeyboardModifiers modifiers, const QString& text) {
    // The widget with the focus is asked for late: the event that sends keys often moves the focus first.
    const auto press = [key, modifiers, text] {
        for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
            if (QWidget* target = QApplication::focusWidget()) {
                QKeyEvent event(type, key, modifiers, text);
                QCoreApplication::sendEvent(target, &event);
            }
        }
    };
    QMetaObject::invokeMethod(qApp, press, Qt::QueuedConnection);
}

}  // namespace

void SendTab() {
    const bool backwards = (QGuiApplication::keyboardModifiers() & Qt::ShiftModifier) != 0;
    Press(backwards ? Qt::Key_Backtab : Qt::Key_Tab, backwards ? Qt::ShiftModifier : Qt::NoModifier,
          QStringLiteral("\t"));
}

void SendText(const QString& text) {
    for (const QChar character : text) {
        const QChar upper = character.toUpper();
        Press(upper.unicode() < 256 ? static_cast<int>(upper.unicode()) : static_cast<int>(Qt::Key_unknown),
              Qt::NoModifier, QString(character));
    }
}

}  // namespace controls
