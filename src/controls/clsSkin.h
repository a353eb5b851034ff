#pragma once

#include "controls/base/Canvas.h"
#include "controls/skin/Gradient.h"
#include "controls/skin/GradientBands.h"

namespace controls {

/// Paints a gradient on any canvas, in bands of one colour each. Lengths are twips.
class clsSkin {
public:
    /// The direction: 0 top to bottom, 1 left to right, 2 from the middle line out to top and bottom, 3 from
    /// the middle line out to left and right, 4 diagonal. Any other value paints nothing.
    qint32 Style = 0;

    /// How many bands the long side is cut into. A side that is painted along must be at least as long as
    /// half of this number, or its bands have no size (see the failures); 15 twips a band are a good least
    /// size.
    qint16 ColourBandCount = 100;

    Colour StartColour() const { return gradient_.StartColour; }
    void SetStartColour(Colour colour);
    Colour EndColour() const { return gradient_.EndColour; }
    void SetEndColour(Colour colour);

    /// Paints the area from (x1, Y1) to (X2, Y2); nothing without a canvas. On a display of less than 16 bits
    /// the area becomes flat, in StartColour.
    ///
    /// The area is not a frame. The first band begins one twip inside it and the last one may run past its
    /// end. The bands of styles 0 to 3 reach across the whole canvas; styles 2, 3 and 4 begin at the canvas's
    /// edge and not at the area's; and style 4 leaves the canvas with lines as thick as a band. An area that
    /// is the whole canvas is what all this is made for.
    ///
    /// Failures are shown in a message box, with number and description, and end the painting; the settings
    /// here stay. Besides those of the canvas: 5 for bands of no size, 6 for a place beyond 16 bits (32,767
    /// twips), 11 for no bands at all, or for style 2 or 3 around a middle line at 0. Not to be called from a
    /// paint event, which can't show a box.
    void DrawGradient(Canvas* objCanvas, qint32 x1, qint32 Y1, qint32 X2, qint32 Y2);

    /// In spite of its name, the depth of the canvas's display in bits: 16 or 32 on usual ones. 0 if the
    /// canvas doesn't tell.
    static qint32 GetColourCount(const Canvas* objCanvas);

private:
    void DrawBands(Canvas& canvas, const Bands& bands) const;
    Colour ColourAt(qint16 place, double length) const;

    Gradient gradient_{White, RGB(255, 255, 0)};
};

}  // namespace controls
