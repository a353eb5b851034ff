#pragma once

#include "controls/base/Display.h"

#include <QImage>
#include <QWidget>

#include <set>
#include <vector>

/// Lets a test stand on a display of another density while it lives.
class AnotherDensity {
public:
    explicit AnotherDensity(int twipsPerPixel) { controls::PinTwipsPerPixel(twipsPerPixel); }
    AnotherDensity(const AnotherDensity&) = delete;
    AnotherDensity& operator=(const AnotherDensity&) = delete;
    ~AnotherDensity() { controls::PinTwipsPerPixel(0); }
};

/// Shows the widget's window, makes it the active one and waits until it is.
void ShowAndActivate(QWidget& widget);

/// What the widget looks like now, one image pixel to a device-independent pixel, or more at another scale
/// factor.
QImage Picture(QWidget& widget, double scaleFactor = 1);

/// What it looks like on a display of double density.
QImage DensePicture(QWidget& widget);

/// The colours of a picture.
std::set<QRgb> Colours(const QImage& picture);

/// How many pixels of a colour stand beside one another, for each group of them from left to right along a
/// row, or from top to bottom along a column.
std::vector<int> RunsInRow(const QImage& picture, int y, const QColor& colour);
std::vector<int> RunsInColumn(const QImage& picture, int x, const QColor& colour);

/// One pixel of it.
QColor PixelAt(QWidget& widget, int x, int y);

/// Counts how often the widget painted itself.
class PaintCounter : public QObject {
public:
    explicit PaintCounter(QWidget& widget) { widget.installEventFilter(this); }

    /// How often since the last call; what is still to be painted is painted first.
    int Take();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    int count_ = 0;
};
