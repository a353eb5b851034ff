#pragma once

#include <QString>

class QKeyEvent;

namespace controls {

/// The character of the Backspace key, as TypedText tells it.
inline constexpr QChar BackspaceKey = QChar(8);

/// What a key types into an edit box, the control characters of Enter, Escape and Backspace included. Empty
/// for keys that move (arrows, Tab), for Delete, and for shortcuts such as Ctrl+C and Ctrl+Backspace, which
/// edit.
QString TypedText(const QKeyEvent& event);

}  // namespace controls
