#pragma once

class QWidget;

namespace controls {

// What an assistive program does for its user goes the way of a click.

/// Whether a click could reach the widget: it can be seen and is enabled, and no dialog in front of its
/// window keeps the user away.
bool CanBeActedOn(const QWidget& widget);

/// Moves the focus to the widget before anything is done to it, so that whatever the user leaves is put right
/// and stored by its own rules. While another window is the active one the focus can't come, but the boxes of
/// the widget's window are left all the same.
void BringFocus(QWidget& widget);

}  // namespace controls
