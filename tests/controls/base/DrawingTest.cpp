#include "controls/base/Drawing.h"
#include "support/RecordingCanvas.h"

#include <gtest/gtest.h>

namespace {

using namespace controls;

TEST(Drawing, IsPaintedAsItWasDrawnAsOftenAsWanted) {
    Drawing drawing;
    drawing.Begin(300, 200, 24);
    EXPECT_EQ(drawing.Width(), 300);
    EXPECT_EQ(drawing.Height(), 200);
    EXPECT_EQ(drawing.BitsPerPixel() * drawing.ColourPlanes(), 24);
    drawing.Line(1, 2, 3, 4, RGB(5, 6, 7), LineForm::FilledBox);
    drawing.SetDrawWidth(9);
    drawing.Line(0.5, 2, 3, 4, RGB(8, 9, 10), LineForm::Outline);
    RecordingCanvas canvas(0, 0);
    drawing.DrawOn(canvas);
    drawing.DrawOn(canvas);
    const DrawnLine first{1, 2, 3, 4, RGB(5, 6, 7), LineForm::FilledBox};
    const DrawnLine second{0.5, 2, 3, 4, RGB(8, 9, 10), LineForm::Outline};
    EXPECT_EQ(canvas.lines, (std::vector<DrawnLine>{first, second, first, second}));
    EXPECT_EQ(canvas.drawWidths, (std::vector<int>{1, 9, 1, 9}));
}

TEST(Drawing, BeginsAnewWithNothingAndThinLines) {
    Drawing drawing;
    drawing.Begin(300, 200, 24);
    drawing.SetDrawWidth(9);
    drawing.Line(1, 2, 3, 4, Black, LineForm::Line);
    drawing.Begin(30, 20, 32);
    drawing.Line(5, 6, 7, 8, White, LineForm::Line);
    RecordingCanvas canvas(0, 0);
    drawing.DrawOn(canvas);
    EXPECT_EQ(canvas.lines, (std::vector<DrawnLine>{{5, 6, 7, 8, White, LineForm::Line}}));
    EXPECT_EQ(canvas.drawWidths, std::vector<int>{1});
    EXPECT_EQ(drawing.Width(), 30);
}

}  // namespace
