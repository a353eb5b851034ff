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

constexpr int dividingRow = UpDownImage::pixelHeight / 2;
constexpr int arrowRows = 4;
/// Rows between the tip of an arrow and the nearer edge of the picture.
constexpr int tipDistance = 3;
constexpr Colour disabledArrow = RGB(150, 150, 150);

void FillRow(PaintedCanvas& canvas, int left, int right, int row, Colour colour) {
    canvas.Line(ToTwips(left), ToTwips(row), ToTwips(right), ToTwips(row), colour, LineForm::FilledBox);
}

/// The arrows of DrawArrows between the outer edges of their pixels.
void DrawSmoothArrows(QPainter& painter, const QColor& colour) {
    const auto draw = [&](double tip, double base) {
        constexpr double middle = UpDownImage::pixelWidth / 2.0;
        FillTriangle(painter, {middle - arrowRows, base}, {middle + arrowRows, base}, {middle, tip}, colour);
    };
    constexpr int bottom = UpDownImage::pixelHeight;
    draw(tipDistance, tipDistance + arrowRows);
    draw(bottom - tipDistance, bottom - tipDistance - arrowRows);
}

/// Row by row, each a pixel wider at both ends than the one nearer to the tip.
void DrawArrows(PaintedCanvas& canvas, Colour colour) {
    constexpr int middleRight = UpDownImage::pixelWidth / 2;
    for (int step = 0; step < arrowRows; ++step) {
        const int left = middleRight - 1 - step;
        const int right = middleRight + step;
        FillRow(canvas, left, right, tipDistance + step, colour);
        FillRow(canvas, left, right, UpDownImage::pixelHeight - 1 - tipDistance - step, colour);
    }
}

}  // namespace

UpDownButton::UpDownButton(UpDownImage* image, UpDownHalf half) : QObject(image), image_(image), half_(half) {
    RegisterAccessible<UpDownButton, UpDownButtonAccessible>();
}

UpDownImage::UpDownImage(QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("imgUpDown"));
    resize(pixelWidth, pixelHeight);
    RegisterAccessible<UpDownImage, UpDownAccessible>();
}

void UpDownImage::SetLabel(const QString& label) {
    label_ = label;
}

UpDownHalf UpDownImage::HalfAt(double y) const {
    return y > pixelHeight / 2.0 ? UpDownHalf::Down : UpDownHalf::Up;
}

UpDownButton& UpDownImage::Button(UpDownHalf half) {
    return half == UpDownHalf::Up ? up_ : down_;
}

QRect UpDownImage::HalfPixels(UpDownHalf half) const {
    return half == UpDownHalf::Up ? QRect(0, 0, pixelWidth, dividingRow + 1)
                                  : QRect(0, dividingRow + 1, pixelWidth, pixelHeight - dividingRow - 1);
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
    PaintedCanvas canvas(&painter, pixelWidth, pixelHeight);
    const Palette& colours = ThePalette();
    canvas.Line(0, 0, ToTwips(pixelWidth - 1), ToTwips(pixelHeight - 1), colours.Heading,
                LineForm::FilledBox);
    canvas.Line(0, 0, ToTwips(pixelWidth - 1), ToTwips(pixelHeight - 1), colours.Frame, LineForm::Outline);
    FillRow(canvas, 0, pixelWidth - 1, dividingRow, colours.Frame);
    const Colour arrows = isEnabled() ? colours.ButtonOutline : disabledArrow;
    if (IsDense(painter)) {
        DrawSmoothArrows(painter, ToQColor(arrows));
    } else {
        DrawArrows(canvas, arrows);
    }
}

}  // namespace controls
