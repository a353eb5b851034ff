#include "controls/base/ArrowFace.h"

#include "controls/base/Canvas.h"
#include "controls/base/Colour.h"
#include "controls/base/Display.h"
#include "controls/base/Triangle.h"

#include <QPainter>

#include <algorithm>

namespace controls {

namespace {

/// Where a triangle's tip points.
enum class Tip { Left, Right, Down };

/// The triangle of FillArrow between the outer edges of its pixels.
void FillSmoothArrow(QPainter& painter, QPoint baseMiddle, int size, Tip tip, const QColor& colour) {
    const QPointF middle = QPointF(baseMiddle) + QPointF(0.5, 0.5);
    const double half = size - 0.5;
    if (tip == Tip::Down) {
        const QPointF base(middle.x(), baseMiddle.y());
        FillTriangle(painter, base - QPointF(half, 0), base + QPointF(half, 0), base + QPointF(0, size),
                     colour);
        return;
    }
    const QPointF base(tip == Tip::Right ? baseMiddle.x() : baseMiddle.x() + 1, middle.y());
    FillTriangle(painter, base - QPointF(0, half), base + QPointF(0, half),
                 base + QPointF(tip == Tip::Right ? size : -size, 0), colour);
}

/// A triangle of rows or columns of whole pixels, so that its edges are sharp. Size is its height from base
/// to tip; the base is twice that less one.
void FillArrow(QPainter& painter, QPoint baseMiddle, int size, Tip tip, const QColor& colour) {
    if (IsDense(painter)) {
        FillSmoothArrow(painter, baseMiddle, size, tip, colour);
        return;
    }
    for (int step = 0; step < size; ++step) {
        const int half = size - 1 - step;
        const int length = 2 * half + 1;
        switch (tip) {
            case Tip::Down:
                painter.fillRect(baseMiddle.x() - half, baseMiddle.y() + step, length, 1, colour);
                break;
            case Tip::Left:
                painter.fillRect(baseMiddle.x() - step, baseMiddle.y() - half, 1, length, colour);
                break;
            case Tip::Right:
                painter.fillRect(baseMiddle.x() + step, baseMiddle.y() - half, 1, length, colour);
                break;
        }
    }
}

/// As many triangles beside one another as asked for, as a group in the middle of the button.
void FillArrows(QPainter& painter, const QRect& button, int count, Tip tip, const QColor& colour) {
    // A quarter of the button's height stands for its size: 4 pixels on the usual display.
    const int size = std::max(2, button.height() / 4 + (count == 1 ? 1 : 0));
    const QPoint middle = button.center();
    if (tip == Tip::Down) {
        FillArrow(painter, {middle.x(), middle.y() - (size - 1) / 2}, size, tip, colour);
        return;
    }
    const int gap = count - 1;
    const int left = button.left() + (button.width() - count * size - gap) / 2;
    for (int place = 0; place < count; ++place) {
        const int start = left + place * (size + 1);
        const int base = tip == Tip::Right ? start : start + size - 1;
        FillArrow(painter, {base, middle.y()}, size, tip, colour);
    }
}

void FrameRectangle(PaintedCanvas& canvas, const QRect& box, Colour colour) {
    canvas.Line(ToTwips(box.left()), ToTwips(box.top()), ToTwips(box.right()), ToTwips(box.bottom()), colour,
                LineForm::Outline);
}

/// Pictures stand out from the desktop's faces, dark or light, and those of disabled buttons half as much.
QColor InkOn(const QColor& face, bool isEnabled) {
    const QColor strong = ToQColor(qGray(face.rgb()) < 128 ? White : Black);
    const auto halfway = [](int one, int other) { return (one + other) / 2; };
    return isEnabled ? strong
                     : QColor(halfway(face.red(), strong.red()), halfway(face.green(), strong.green()),
                              halfway(face.blue(), strong.blue()));
}

}  // namespace

void DrawArrowFace(QPainter& painter, const QRect& place, const ArrowFace& look) {
    PaintedCanvas canvas(&painter, place.width(), place.height());
    const QColor face = ToQColor(SystemColours::ButtonFace);
    canvas.Line(ToTwips(place.left()), ToTwips(place.top()), ToTwips(place.right()), ToTwips(place.bottom()),
                ToColour(look.IsDown ? face.darker(120) : face), LineForm::FilledBox);
    FrameRectangle(canvas, place, ToColour(ReadableOn(face, ToQColor(SystemColours::DarkShadow))));
    if (look.HasFocus) {
        FrameRectangle(canvas, place.adjusted(1, 1, -1, -1), SystemColours::Highlight);
    }
    const QRect arrows = look.IsDown ? place.translated(1, 1) : place;
    const QColor ink = InkOn(face, look.Enabled);
    switch (look.Picture) {
        case Arrows::Down:
            FillArrows(painter, arrows, 1, Tip::Down, ink);
            break;
        case Arrows::Left:
            FillArrows(painter, arrows, 1, Tip::Left, ink);
            break;
        case Arrows::Right:
            FillArrows(painter, arrows, 1, Tip::Right, ink);
            break;
        case Arrows::TwoLeft:
            FillArrows(painter, arrows, 2, Tip::Left, ink);
            break;
        case Arrows::TwoRight:
            FillArrows(painter, arrows, 2, Tip::Right, ink);
            break;
    }
}

}  // namespace controls
