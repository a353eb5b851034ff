#include "support/RecordingCanvas.h"

#include "platform/Failure.h"

namespace {

[[noreturn]] void Fail() {
    throw platform::Failure(482, QStringLiteral("The surface is gone"));
}

}  // namespace

std::ostream& operator<<(std::ostream& out, const DrawnLine& line) {
    constexpr const char* forms[] = {"line", "outline", "box"};
    return out << forms[static_cast<int>(line.form)] << " (" << line.x1 << ", " << line.Y1 << ") to ("
               << line.X2 << ", " << line.Y2 << ") in " << (line.colour & 255U) << ","
               << (line.colour >> 8U & 255U) << "," << (line.colour >> 16U & 255U);
}

void PrintTo(const DrawnLine& line, std::ostream* out) {
    *out << line;
}

int RecordingCanvas::Width() const {
    if (failsToTellItsSize) {
        Fail();
    }
    return width_ += growth;
}

int RecordingCanvas::Height() const {
    if (failsToTellItsSize) {
        Fail();
    }
    return height_ += growth;
}

int RecordingCanvas::BitsPerPixel() const {
    if (failsToTellItsDepth) {
        Fail();
    }
    return bitsPerPixel;
}

int RecordingCanvas::ColourPlanes() const {
    return colourPlanes;
}

void RecordingCanvas::SetDrawWidth(int pixels) {
    if (failsToTakeADrawWidth) {
        Fail();
    }
    drawWidths.push_back(pixels);
}

void RecordingCanvas::Line(double x1, double Y1, double X2, double Y2, controls::Colour colour,
                           controls::LineForm form) {
    if (failingLine > 0 && static_cast<int>(lines.size()) + 1 == failingLine) {
        Fail();
    }
    lines.push_back({x1, Y1, X2, Y2, colour, form});
}
