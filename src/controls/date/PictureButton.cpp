#include "controls/date/PictureButton.h"

#include "controls/base/Accessible.h"
#include "controls/base/ClickableAccessible.h"
#include "controls/base/Colour.h"
#include "controls/base/Display.h"
#include "controls/base/Triangle.h"

#include <QKeyEvent>
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

void FrameRectangle(QPainter& painter, const QRect& box, const QColor& colour) {
    painter.fillRect(box.left(), box.top(), box.width(), 1, colour);
    painter.fillRect(box.left(), box.bottom(), box.width(), 1, colour);
    painter.fillRect(box.left(), box.top(), 1, box.height(), colour);
    painter.fillRect(box.right(), box.top(), 1, box.height(), colour);
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

PictureButton::PictureButton(Picture picture, QWidget* parent) : QPushButton(parent), picture_(picture) {
    RegisterAccessible<PictureButton, ClickableAccessible>();
    // Enter belongs to the button that has the focus and to no other of the dialog.
    setAutoDefault(false);
    setFocusPolicy(Qt::StrongFocus);
}

void PictureButton::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        click();
        return;
    }
    QPushButton::keyPressEvent(event);
}

void PictureButton::mouseDoubleClickEvent(QMouseEvent* event) {
    if (picture_ != Picture::ArrowDown) {
        QPushButton::mouseDoubleClickEvent(event);
    }
}

void PictureButton::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    const QColor face = ToQColor(SystemColours::ButtonFace);
    painter.fillRect(rect(), isDown() ? face.darker(120) : face);
    const QColor ink = InkOn(face, isEnabled());
    FrameRectangle(painter, rect(), ReadableOn(face, ToQColor(SystemColours::DarkShadow)));
    if (hasFocus()) {
        FrameRectangle(painter, rect().adjusted(1, 1, -1, -1), ToQColor(SystemColours::Highlight));
    }
    const QRect place = isDown() ? rect().translated(1, 1) : rect();
    switch (picture_) {
        case Picture::ArrowDown:
            FillArrows(painter, place, 1, Tip::Down, ink);
            break;
        case Picture::ArrowLeft:
            FillArrows(painter, place, 1, Tip::Left, ink);
            break;
        case Picture::ArrowRight:
            FillArrows(painter, place, 1, Tip::Right, ink);
            break;
        case Picture::TwoArrowsLeft:
            FillArrows(painter, place, 2, Tip::Left, ink);
            break;
        case Picture::TwoArrowsRight:
            FillArrows(painter, place, 2, Tip::Right, ink);
            break;
    }
}

}  // namespace controls
