#include "support/OnScreen.h"

#include <QApplication>
#include <QEvent>
#include <QPainter>
#include <QTest>

void ShowAndActivate(QWidget& widget) {
    widget.window()->show();
    widget.window()->activateWindow();
    const bool active = QTest::qWaitForWindowActive(widget.window());
    Q_ASSERT(active);
    static_cast<void>(active);
}

QImage Picture(QWidget& widget, double scaleFactor) {
    QImage image((QSizeF(widget.size()) * scaleFactor).toSize(), QImage::Format_RGB32);
    image.setDevicePixelRatio(scaleFactor);
    image.fill(Qt::white);
    QPainter painter(&image);
    widget.render(&painter);
    painter.end();
    return image;
}

QImage DensePicture(QWidget& widget) {
    QImage image(2 * widget.size(), QImage::Format_RGB32);
    image.setDevicePixelRatio(2);
    image.fill(Qt::white);
    QPainter painter(&image);
    widget.render(&painter);
    painter.end();
    image.setDevicePixelRatio(1);
    return image;
}

std::set<QRgb> Colours(const QImage& picture) {
    std::set<QRgb> colours;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            colours.insert(picture.pixel(x, y));
        }
    }
    return colours;
}

namespace {

template <class IsOfColour>
std::vector<int> Runs(int length, IsOfColour isOfColour) {
    std::vector<int> runs;
    for (int place = 0; place < length; ++place) {
        if (!isOfColour(place)) {
            continue;
        }
        if (place == 0 || !isOfColour(place - 1)) {
            runs.push_back(0);
        }
        ++runs.back();
    }
    return runs;
}

}  // namespace

std::vector<int> RunsInRow(const QImage& picture, int y, const QColor& colour) {
    return Runs(picture.width(), [&](int x) { return picture.pixelColor(x, y) == colour; });
}

std::vector<int> RunsInColumn(const QImage& picture, int x, const QColor& colour) {
    return Runs(picture.height(), [&](int y) { return picture.pixelColor(x, y) == colour; });
}

QColor PixelAt(QWidget& widget, int x, int y) {
    return Picture(widget).pixelColor(x, y);
}

int PaintCounter::Take() {
    QCoreApplication::processEvents();
    return std::exchange(count_, 0);
}

bool PaintCounter::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Paint) {
        ++count_;
    }
    return QObject::eventFilter(watched, event);
}
