#pragma once

#include "controls/base/Canvas.h"

#include <ostream>
#include <vector>

/// One thing that was drawn, in twips.
struct DrawnLine {
    double x1 = 0;
    double Y1 = 0;
    double X2 = 0;
    double Y2 = 0;
    controls::Colour colour = 0;
    controls::LineForm form = controls::LineForm::Line;

    bool operator==(const DrawnLine&) const = default;
};

/// Shows it in the messages of the test runner.
void PrintTo(const DrawnLine& line, std::ostream* out);
std::ostream& operator<<(std::ostream& out, const DrawnLine& line);

/// A canvas that notes what is drawn on it, and fails where it is told to.
class RecordingCanvas : public controls::Canvas {
public:
    RecordingCanvas(int width, int height) : width_(width), height_(height) {}

    int Width() const override;
    int Height() const override;
    int BitsPerPixel() const override;
    int ColourPlanes() const override;
    void SetDrawWidth(int pixels) override;
    void Line(double x1, double Y1, double X2, double Y2, controls::Colour colour,
              controls::LineForm form) override;

    int bitsPerPixel = 32;
    int colourPlanes = 1;
    /// What the canvas gains in width and height each time it is asked for them.
    int growth = 0;
    /// The call of Line that fails, counted from 1; 0 for none.
    int failingLine = 0;
    bool failsToTellItsDepth = false;
    bool failsToTellItsSize = false;
    bool failsToTakeADrawWidth = false;

    std::vector<DrawnLine> lines;
    std::vector<int> drawWidths;

private:
    mutable int width_;
    mutable int height_;
};
