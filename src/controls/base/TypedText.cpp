#include "controls/base/TypedText.h"

#include <QKeyEvent>

namespace controls {

QString TypedText(const QKeyEvent& event) {
    switch (event.key()) {
        case Qt::Key_Backspace:
            return {QChar(BackspaceCharacter)};
        case Qt::Key_Tab:
        case Qt::Key_Backtab:
        case Qt::Key_Delete:
            return {};
        default:
            break;
    }
    // Ctrl and Alt together are how some keyboards reach "\".
    constexpr Qt::KeyboardModifiers rightAlt = Qt::ControlModifier | Qt::AltModifier;
    const Qt::KeyboardModifiers held =
        event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    return held == Qt::NoModifier || held == rightAlt ? event.text() : QString();
}

}  // namespace controls
