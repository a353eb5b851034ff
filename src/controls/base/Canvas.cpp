#include "controls/base/Canvas.h"

#include "controls/base/Display.h"

#include <QFontMetrics>
#include <QPaintDevice>
#include <QPainter>
#include <QTransform>

#include <algorithm>
#include <cmath>

namespace controls {

namespace {

QRect PixelsBetween(double x1, double Y1, double X2, double Y2) {
    const int left = ToPixels(std::min(x1, X2));
    const int top = ToPixels(std::min(Y1, Y2));
    const int right = ToPixels(std::max(x1, X2));
    const int bottom = ToPixels(std::max(Y1, Y2));
    return {left, top, right - left + 1, bottom - top + 1};
}

/// Where pixels fall on the display along one direction. At a scale factor between whole numbers some cover
/// one device pixel more than others, and lines that took all of what their pixel covers would come out
/// uneven.
class DevicePixels {
public:
    DevicePixels(double factor, double offset) : factor_(factor), offset_(offset) {}

    /// The device pixel that a pixel begins with. By the same rounding the toolkit fills boxes and cuts
    /// widgets out.
    int Begin(int pixel) const { return static_cast<int>(std::lround(pixel * factor_ + offset_)); }

    /// The same for all lines, and no more than the least that their pixels can cover.
    int Thickness(int pixels) const { return std::max(1, static_cast<int>(pixels * factor_)); }

    int EndOfLine(int pixel) const { return Begin(pixel) + Thickness(1); }

private:
    double factor_;
    double offset_;
};

/// Whole device pixels, from the first ones up to the last ones, which are left out.
void FillDevicePixels(QPainter* painter, int left, int top, int right, int bottom, const QColor& colour) {
    const QRectF device(QPointF(left, top), QPointF(right, bottom));
    painter->fillRect(painter->deviceTransform().inverted().mapRect(device), colour);
}

DevicePixels Across(const QPainter& painter) {
    return {painter.deviceTransform().m11(), painter.deviceTransform().dx()};
}

DevicePixels Down(const QPainter& painter) {
    return {painter.deviceTransform().m22(), painter.deviceTransform().dy()};
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
            FillOutline(box, paint);
            return;
        case LineForm::Line:
            break;
    }
    if (drawWidth_ == 1 && (box.width() == 1 || box.height() == 1)) {
        FillThinLine(box, paint);
        return;
    }
    painter_->setPen(QPen(paint, drawWidth_));
    painter_->drawLine(ToPixels(x1), ToPixels(Y1), ToPixels(X2), ToPixels(Y2));
}

void PaintedCanvas::FillOutline(const QRect& box, const QColor& colour) {
    const DevicePixels across = Across(*painter_);
    const DevicePixels down = Down(*painter_);
    const int left = across.Begin(box.left());
    const int right = across.Begin(box.right() + 1);
    const int top = down.Begin(box.top());
    const int bottom = down.Begin(box.bottom() + 1);
    const int width = across.Thickness(drawWidth_);
    const int height = down.Thickness(drawWidth_);
    FillDevicePixels(painter_, left, top, right, top + height, colour);
    FillDevicePixels(painter_, left, bottom - height, right, bottom, colour);
    FillDevicePixels(painter_, left, top, left + width, bottom, colour);
    FillDevicePixels(painter_, right - width, top, right, bottom, colour);
}

void PaintedCanvas::FillThinLine(const QRect& line, const QColor& colour) {
    const DevicePixels across = Across(*painter_);
    const DevicePixels down = Down(*painter_);
    FillDevicePixels(painter_, across.Begin(line.left()), down.Begin(line.top()),
                     across.EndOfLine(line.right()), down.EndOfLine(line.bottom()), colour);
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
    // Places are reckoned from the left, and "1/12 Main Road" stays in order on a desktop that writes from
    // the right.
    painter_->setLayoutDirection(Qt::LeftToRight);
    painter_->setPen(colour);
    painter_->drawText(ToPixels(x), ToPixels(y) + painter_->fontMetrics().ascent(), text);
}

void PaintedCanvas::PrintAround(double x, double y, const QString& text, const QColor& colour) {
    const QRect ink = painter_->fontMetrics().tightBoundingRect(text);
    Print(x - ToTwips(ink.width()) / 2.0 - ToTwips(ink.left()), y, text, colour);
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
