#pragma once

#include "controls/base/Canvas.h"

#include <vector>

namespace controls {

/// A drawing that is kept and painted as often as the screen needs it, as sharp on every display.
///
/// Controls make it when their size changes and not in their paint event: what fails while it is made can
/// then be told in a message box, which would itself ask for painting.
class Drawing : public Canvas {
public:
    /// Throws away what was drawn. The size is in twips; lines are one pixel thick again.
    void Begin(int width, int height, int bitsPerPixel);

    int Width() const override { return width_; }
    int Height() const override { return height_; }
    int BitsPerPixel() const override { return bitsPerPixel_; }
    int ColourPlanes() const override { return 1; }
    void SetDrawWidth(int pixels) override { drawWidth_ = pixels; }
    void Line(double x1, double Y1, double X2, double Y2, Colour colour, LineForm form) override;

    /// Leaves the canvas with lines as thick as they were last drawn.
    void DrawOn(Canvas& canvas) const;

private:
    struct Stroke {
        double x1;
        double Y1;
        double X2;
        double Y2;
        Colour colour;
        LineForm form;
        int drawWidth;
    };

    int width_ = 0;
    int height_ = 0;
    int bitsPerPixel_ = 0;
    int drawWidth_ = 1;
    std::vector<Stroke> strokes_;
};

}  // namespace controls
