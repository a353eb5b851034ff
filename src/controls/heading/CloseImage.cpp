#include "controls/heading/CloseImage.h"

#include "controls/base/Colour.h"

#include <QPainter>

#include <algorithm>

namespace controls {

namespace {

// Dark enough for the white cross to stand out, whatever the gradient behind does.
constexpr Colour Ground = RGB(58, 104, 156);
constexpr Colour GroundUnderTheMouse = RGB(74, 124, 180);
constexpr Colour GroundPressed = RGB(37, 79, 167);

// In fractions of the image's side.
constexpr double Roundness = 0.15;
constexpr double CrossFrom = 0.31;
constexpr double CrossThickness = 0.095;

}  // namespace

CloseImage::CloseImage(QWidget* parent) : QAbstractButton(parent) {
    setFocusPolicy(Qt::NoFocus);
    setAttribute(Qt::WA_Hover);
    setAccessibleName(QStringLiteral("Close"));
}

void CloseImage::paintEvent(QPaintEvent* /*event*/) {
    const double side = std::min(width(), height());
    Colour colour = Ground;
    if (isDown()) {
        colour = GroundPressed;
    } else if (underMouse()) {
        colour = GroundUnderTheMouse;
    }
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(ToQColor(colour));
    painter.drawRoundedRect(QRectF(0, 0, side, side), side * Roundness, side * Roundness);
    painter.setPen(QPen(Qt::white, side * CrossThickness, Qt::SolidLine, Qt::RoundCap));
    const double from = side * CrossFrom;
    const double to = side - from;
    painter.drawLine(QPointF(from, from), QPointF(to, to));
    painter.drawLine(QPointF(from, to), QPointF(to, from));
}

}  // namespace controls
