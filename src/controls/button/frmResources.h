#pragma once

#include "controls/base/Colour.h"

#include <array>

namespace controls {

class Canvas;

/// A picture of 150 by 25 pixels in which each row has one colour: a gradient that runs down.
struct ButtonPicture {
    static constexpr int PixelWidth = 150;
    static constexpr int PixelHeight = 25;

    /// The colours of the rows from the top.
    std::array<Colour, PixelHeight> Rows;

    /// Draws it at the top left of the canvas at its own size; what doesn't fit is cut off. It is drawn row
    /// by row, so that at any scale factor of the display each row has a sharp edge and joins the next.
    void DrawOn(Canvas& canvas) const;
};

/// The pictures that all buttons share. Each is made once, on first use.
namespace frmResources {

/// A button at rest: pale to mid blue.
const ButtonPicture& picButtonNormal();
/// A button under the mouse or with the focus: pale to deeper yellow.
const ButtonPicture& picButtonHover();
/// A button held down: orange at the top, paler at the bottom, as if lit from the other side.
const ButtonPicture& picButtonDown();

}  // namespace frmResources

}  // namespace controls
