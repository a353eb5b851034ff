#include "controls/base/TypedText.h"

#include <QKeyEvent>

namespace controls {

namespace {

/// Control and Alt together are no shortcut: it is how many keyboards reach their third characters, such as
/// "\".
bool IsShortcut(const QKeyEvent& event) {
    const bool withControl = event.modifiers() == Qt::ControlModifier ||
                             event.modifiers() == (Qt::ControlModifier | Qt::ShiftModifier);
    // Marks of the writing direction are typed with Control and Shift.
    return withControl && event.text().front().category() != QChar::Other_Format;
}

}  // namespace

QString TypedText(const QKeyEvent& event) {
    constexpr Qt::KeyboardModifiers Harmless = Qt::ShiftModifier | Qt::KeypadModifier;
    switch (event.key()) {
        case Qt::Key_Backspace:
            return (event.modifiers() & ~Harmless) == 0 ? BackspaceKey : QString();
        case Qt::Key_Tab:
        case Qt::Key_Backtab:
        case Qt::Key_Delete:
            return {};
        default:
            return event.text().isEmpty() || IsShortcut(event) ? QString() : event.text();
    }
}

}  // namespace controls
