#include "controls/base/Drawing.h"

namespace controls {

void Drawing::Begin(int width, int height, int bitsPerPixel) {
    width_ = width;
    height_ = height;
    bitsPerPixel_ = bitsPerPixel;
    drawWidth_ = 1;
    strokes_.clear();
}

void Drawing::Line(double x1, double Y1, double X2, double Y2, Colour colour, LineForm form) {
    strokes_.push_back({x1, Y1, X2, Y2, colour, form, drawWidth_});
}

void Drawing::DrawOn(Canvas& canvas) const {
    for (const Stroke& stroke : strokes_) {
        canvas.SetDrawWidth(stroke.drawWidth);
        canvas.Line(stroke.x1, stroke.Y1, stroke.X2, stroke.Y2, stroke.colour, stroke.form);
    }
}

}  // namespace controls
