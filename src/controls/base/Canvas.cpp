#include "controls/base/Canvas.h"

#include "controls/base/Display.h"

#include <QFontMetrics>
#include <QPaintDevice>
#include <QPainter>

#include <algorithm>

namespace controls {

namespace {

QRect PixelsBetween(double x1, double Y1, double X2, double Y2) {
    const int left = ToPixels(std::min(x1, X2));
    const int top = ToPixels(std::min(Y1, Y2));
    const int right = ToPixels(std::max(x1, X2));
    const int bottom = ToPixels(std::max(Y1, Y2));
    return {left, top, right - left + 1, bottom - top + 1};
}

/// Edges are filled rectangles and not strokes: at a scale factor between whole numbers a stroke can fall
/// between two device pixels, a rectangle never vanishes.
void FillOutline(QPainter* painter, const QRect& box, int thickness, const QColor& colour) {
    painter->fillRect(QRect(box.left(), box.top(), box.width(), thickness), colour);
    painter->fillRect(QRect(box.left(), box.bottom() - thickness + 1, box.width(), thickness), colour);
    painter->fillRect(QRect(box.left(), box.top(), thickness, box.height()), colour);
    painter->fillRect(QRect(box.right() - thickness + 1, box.top(), thickness, box.height()), colour);
}

}  // namespace

PaintedCanvas::PaintedCanvas(QPainter* painter, int pixelWidth, int pixelHeight)
    : painter_(painter), pixelWidth_(pixelWidth), pixelHeight_(pixelHeight) {
}

int PaintedCanvas::Width() const {
    return ToTwips(pixelWidth_);
}

int PaintedCanvas::Height() const {
    return ToTwips(pixelHeight_);
}

int PaintedCanvas::BitsPerPixel() const {
    return painter_->device()->depth();
}

int PaintedCanvas::ColourPlanes() const {
    return 1;
}

void PaintedCanvas::SetDrawWidth(int pixels) {
    drawWidth_ = std::max(1, pixels);
}

void PaintedCanvas::Line(double x1, double Y1, double X2, double Y2, Colour colour, LineForm form) {
    const QRect box = PixelsBetween(x1, Y1, X2, Y2);
    const QColor paint = ToQColor(colour);
    switch (form) {
        case LineForm::FilledBox:
            painter_->fillRect(box, paint);
            return;
        case LineForm::Outline:
            FillOutline(painter_, box, drawWidth_, paint);
            return;
        case LineForm::Line:
            break;
    }
    if (drawWidth_ == 1 && (box.width() == 1 || box.height() == 1)) {
        painter_->fillRect(box, paint);
        return;
    }
    painter_->setPen(QPen(paint, drawWidth_));
    painter_->drawLine(ToPixels(x1), ToPixels(Y1), ToPixels(X2), ToPixels(Y2));
}

void PaintedCanvas::SetFont(const QFont& font) {
    painter_->setFont(font);
}

int PaintedCanvas::TextWidth(const QString& text) const {
    return ToTwips(painter_->fontMetrics().horizontalAdvance(text));
}

int PaintedCanvas::TextHeight(const QString& /*text*/) const {
    return ToTwips(painter_->fontMetrics().height());
}

QString PaintedCanvas::Elided(const QString& text, int width) const {
    return painter_->fontMetrics().elidedText(text, Qt::ElideRight, ToPixels(width));
}

void PaintedCanvas::Print(double x, double y, const QString& text, const QColor& colour) {
    painter_->setPen(colour);
    painter_->drawText(ToPixels(x), ToPixels(y) + painter_->fontMetrics().ascent(), text);
}

void PaintedCanvas::Disc(double x, double y, double radius, Colour colour) {
    const double pixelRadius = radius / TwipsPerPixel();
    // The middle of the pixel that the position falls on.
    const QPointF centre(ToPixels(x) + 0.5, ToPixels(y) + 0.5);
    painter_->save();
    painter_->setRenderHint(QPainter::Antialiasing);
    painter_->setPen(Qt::NoPen);
    painter_->setBrush(ToQColor(colour));
    painter_->drawEllipse(centre, pixelRadius, pixelRadius);
    painter_->restore();
}

}  // namespace controls
