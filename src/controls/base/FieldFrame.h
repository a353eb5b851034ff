#pragma once

#include <QColor>

class QWidget;

namespace controls {

class PaintedCanvas;

/// What the user can do in a field now.
enum class FieldState { Enabled, Focused, Disabled };

FieldState FieldStateOf(const QWidget& field, bool hasFocus);

/// The one look of all fields that something is entered into or chosen from, so that text boxes, dates and
/// lists can stand in one column. A field begins at the top left of the canvas; its lengths are twips.
///
/// The ground is white, and grey while the field is disabled.
void DrawFieldGround(PaintedCanvas& canvas, int width, int height, FieldState state);

/// The frame is a pixel thick, with the focus two and darker. What stands in the field keeps that distance.
void DrawFieldFrame(PaintedCanvas& canvas, int width, int height, FieldState state);

/// The ground's colour and that of text on it.
QColor FieldGround(FieldState state);
QColor FieldText(FieldState state);

}  // namespace controls
