#pragma once

#include <QString>

class QKeyEvent;

namespace controls {

/// The character of the Backspace key, as TypedText tells it.
inline constexpr char16_t BackspaceCharacter = 8;

/// What a key types into an edit box, control characters such as Enter, Escape and Backspace included. Empty
/// for keys that move (arrows, Tab), for Delete, and for shortcuts such as Ctrl+C, which edit or belong to
/// the window.
QString TypedText(const QKeyEvent& event);

}  // namespace controls
