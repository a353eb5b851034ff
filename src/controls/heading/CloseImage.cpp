#include "controls/heading/CloseImage.h"

#include "controls/base/Colour.h"

#include <QPainter>

#include <algorithm>

namespace controls {

namespace {

// Dark enough for the white cross to stand out, whatever the gradient behind does.
constexpr Colour ground = RGB(58, 104, 156);
constexpr Colour groundUnderTheMouse = RGB(74, 124, 180);
constexpr Colour groundPressed = RGB(37, 79, 167);

// In fractions of the image's side.
constexpr double roundness = 0.15;
constexpr double crossFrom = 0.31;
constexpr double crossThickness = 0.095;

}  // namespace

CloseImage::CloseImage(QWidget* parent) : QAbstractButton(parent) {
    setFocusPolicy(Qt::NoFocus);
    setAttribute(Qt::WA_Hover);
    setAccessibleName(QStringLiteral("Close"));
}

void CloseImage::paintEvent(QPaintEvent* /*event*/) {
    const double side = std::min(width(), height());
    Colour colour = ground;
    if (isDown()) {
        colour = groundPressed;
    } else if (underMouse()) {
        colour = groundUnderTheMouse;
    }
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(ToQColor(colour));
    painter.drawRoundedRect(QRectF(0, 0, side, side), side * roundness, side * roundness);
    painter.setPen(QPen(Qt::white, side * crossThickness, Qt::SolidLine, Qt::RoundCap));
    const double from = side * crossFrom;
    const double to = side - from;
    painter.drawLine(QPointF(from, from), QPointF(to, to));
    painter.drawLine(QPointF(from, to), QPointF(to, from));
}

}  // namespace controls
