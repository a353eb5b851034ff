#include "controls/text/UpDownImage.h"

#include "controls/base/Accessible.h"
#include "controls/base/Canvas.h"
#include "controls/base/Display.h"
#include "controls/base/Palette.h"
#include "controls/base/Triangle.h"
#include "controls/text/UpDownAccessible.h"

#include <QMouseEvent>
#include <QPainter>

namespace controls {

namespace {

constexpr int DividingRow = UpDownImage::PixelHeight / 2;
constexpr int ArrowRows = 4;
/// Rows between the tip of an arrow and the nearer edge of the picture.
constexpr int TipDistance = 3;
constexpr Colour DisabledArrow = RGB(150, 150, 150);

void FillRow(PaintedCanvas& canvas, int left, int right, int row, Colour colour) {
    canvas.Line(ToTwips(left), ToTwips(row), ToTwips(right), ToTwips(row), colour, LineForm::FilledBox);
}

/// The arrows of DrawArrows between the outer edges of their pixels.
void DrawSmoothArrows(QPainter& painter, const QColor& colour) {
    const auto draw = [&](double tip, double base) {
        constexpr double Middle = UpDownImage::PixelWidth / 2.0;
        FillTriangle(painter, {Middle - ArrowRows, base}, {Middle + ArrowRows, base}, {Middle, tip}, colour);
    };
    constexpr int Bottom = UpDownImage::PixelHeight;
    draw(TipDistance, TipDistance + ArrowRows);
    draw(Bottom - TipDistance, Bottom - TipDistance - ArrowRows);
}

/// Row by row, each a pixel wider at both ends than the one nearer to the tip.
void DrawArrows(PaintedCanvas& canvas, Colour colour) {
    constexpr int MiddleRight = UpDownImage::PixelWidth / 2;
    for (int step = 0; step < ArrowRows; ++step) {
        const int left = MiddleRight - 1 - step;
        const int right = MiddleRight + step;
        FillRow(canvas, left, right, TipDistance + step, colour);
        FillRow(canvas, left, right, UpDownImage::PixelHeight - 1 - TipDistance - step, colour);
    }
}

}  // namespace

UpDownButton::UpDownButton(UpDownImage* image, UpDownHalf half) : QObject(image), image_(image), half_(half) {
    RegisterAccessible<UpDownButton, UpDownButtonAccessible>();
}

UpDownImage::UpDownImage(QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("imgUpDown"));
    resize(PixelWidth, PixelHeight);
    RegisterAccessible<UpDownImage, UpDownAccessible>();
}

void UpDownImage::SetLabel(const QString& label) {
    label_ = label;
}

UpDownHalf UpDownImage::HalfAt(double y) const {
    return y > PixelHeight / 2.0 ? UpDownHalf::Down : UpDownHalf::Up;
}

UpDownButton& UpDownImage::Button(UpDownHalf half) {
    return half == UpDownHalf::Up ? up_ : down_;
}

QRect UpDownImage::HalfPixels(UpDownHalf half) const {
    return half == UpDownHalf::Up ? QRect(0, 0, PixelWidth, DividingRow + 1)
                                  : QRect(0, DividingRow + 1, PixelWidth, PixelHeight - DividingRow - 1);
}

void UpDownImage::Press(UpDownHalf half) {
    Q_EMIT Pressed(half);
}

void UpDownImage::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) {
        Press(HalfAt(event->position().y()));
    }
}

void UpDownImage::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    PaintedCanvas canvas(&painter, PixelWidth, PixelHeight);
    const Palette& colours = ThePalette();
    canvas.Line(0, 0, ToTwips(PixelWidth - 1), ToTwips(PixelHeight - 1), colours.Heading,
                LineForm::FilledBox);
    canvas.Line(0, 0, ToTwips(PixelWidth - 1), ToTwips(PixelHeight - 1), colours.Frame, LineForm::Outline);
    canvas.Line(0, ToTwips(DividingRow), ToTwips(PixelWidth - 1), ToTwips(DividingRow), colours.Frame,
                LineForm::Line);
    const Colour arrows = isEnabled() ? colours.ButtonOutline : DisabledArrow;
    if (IsDense(painter)) {
        DrawSmoothArrows(painter, ToQColor(arrows));
    } else {
        DrawArrows(canvas, arrows);
    }
}

}  // namespace controls
