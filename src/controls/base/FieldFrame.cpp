#include "controls/base/FieldFrame.h"

#include "controls/base/Canvas.h"
#include "controls/base/Display.h"
#include "controls/base/Palette.h"

#include <QWidget>

namespace controls {

namespace {

constexpr Colour DisabledGround = RGB(232, 232, 232);
/// Can still be read on a disabled field, and yet differs from black.
constexpr Colour DisabledText = RGB(96, 96, 96);

Colour GroundOf(FieldState state) {
    return state == FieldState::Disabled ? DisabledGround : White;
}

}  // namespace

FieldState FieldStateOf(const QWidget& field, bool hasFocus) {
    if (!field.isEnabled()) {
        return FieldState::Disabled;
    }
    return hasFocus ? FieldState::Focused : FieldState::Enabled;
}

void DrawFieldGround(PaintedCanvas& canvas, int width, int height, FieldState state) {
    canvas.Line(0, 0, width - TwipsPerPixel(), height - TwipsPerPixel(), GroundOf(state),
                LineForm::FilledBox);
}

void DrawFieldFrame(PaintedCanvas& canvas, int width, int height, FieldState state) {
    const bool isFocused = state == FieldState::Focused;
    canvas.SetDrawWidth(isFocused ? 2 : 1);
    canvas.Line(0, 0, width - TwipsPerPixel(), height - TwipsPerPixel(),
                isFocused ? ThePalette().ButtonOutline : ThePalette().Frame, LineForm::Outline);
    canvas.SetDrawWidth(1);
}

QColor FieldGround(FieldState state) {
    return ToQColor(GroundOf(state));
}

QColor FieldText(FieldState state) {
    return ToQColor(state == FieldState::Disabled ? DisabledText : Black);
}

}  // namespace controls
