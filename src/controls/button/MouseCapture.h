#pragma once

class QWidget;

namespace controls {

/// The mouse capture: the window that holds it is also told of mouse moves (with no button held) that lie
/// outside of it, as far as they lie over this program's windows. At most one window of the program holds it.
///
/// While a mouse button is held, the toolkit itself sends everything that the mouse does to the window that
/// was pressed. For the rest, an event filter over the whole program looks after the capture. The desktop's
/// own grab is left alone on purpose: it takes the mouse from every other program, so that with the pointer
/// resting on a button no screen could be locked, and during a long import nothing on the desktop could be
/// clicked.
///
/// Nothing that the user does is lost through a capture:
/// - A press anywhere else ends it and goes where it was aimed at.
/// - It ends when the pointer leaves its window with no button held, however that came about.
/// - It ends when its window is hidden, disabled, given another parent or destroyed, when that window's form
///   stops being the active one, and when a modal dialog or a popup opens.
///
/// A window that loses the capture, also by ReleaseMouseCapture, gets a QEvent::UngrabMouse.

/// Takes the capture for a window. True only when no window held it before. Where one does (this one itself
/// counts, and so do a popup and a window with the toolkit's own mouse grab), or the window isn't visible,
/// all stays as it is.
bool SetMouseCapture(QWidget* window);

/// Ends the capture, whoever holds it.
void ReleaseMouseCapture();

/// Tells whether a point, in pixels from the window's top left, lies in the window. Parts of pixels are
/// rounded, ties to even. The right and bottom edges count as inside, so the pixel just beyond the last one
/// does too. False without a window; failure 6 (overflow) for what isn't a place on any screen.
bool IsPointInWindow(double x, double y, const QWidget* window);

/// Tells whether the left or the right mouse button is held, as of the event being handled. Other buttons
/// don't count.
bool IsMouseButtonDown();

}  // namespace controls
