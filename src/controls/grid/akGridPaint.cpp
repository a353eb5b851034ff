#include "controls/akGrid.h"
#include "controls/base/Canvas.h"
#include "controls/base/Display.h"

#include <QPainter>

namespace controls {

namespace {

/// The highlight of some desktops can hardly be told from the ground.
Colour FocusColourOn(Colour ground) {
    return ToColour(ReadableOn(ToQColor(ground), ToQColor(SystemColours::Highlight)));
}

}  // namespace

void akGrid::SetBackColor(Colour colour) {
    backColor_ = colour;
    update();
}

void akGrid::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    PaintedCanvas canvas(&painter, width(), height());
    const int right = ToTwips(width() - 1);
    const int bottom = ToTwips(height() - 1);
    canvas.Line(0, 0, right, bottom, backColor_, LineForm::FilledBox);
    if (hasFocus()) {
        canvas.Line(0, 0, right, bottom, FocusColourOn(backColor_), LineForm::Outline);
    }
    const GridLook look = isEnabled() ? GridLook::Enabled : GridLook::Disabled;
    for (const GridLabel& heading : headings_) {
        DrawLabel(&painter, heading, look);
    }
    for (const GridLabel& cell : cells_) {
        DrawLabel(&painter, cell, look);
    }
}

}  // namespace controls
