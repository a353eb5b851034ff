#include "controls/base/Display.h"

#include <QGuiApplication>
#include <QScreen>

#include <algorithm>
#include <cmath>

namespace controls {

namespace {

constexpr double TwipsPerInch = 1440.0;
constexpr int UsualTwipsPerPixel = 15;

int pinnedTwips = 0;

}  // namespace

int TwipsPerPixel() {
    if (pinnedTwips > 0) {
        return pinnedTwips;
    }
    const QScreen* screen = QGuiApplication::primaryScreen();
    if (screen == nullptr || screen->logicalDotsPerInch() <= 0) {
        return UsualTwipsPerPixel;
    }
    return std::max(1, static_cast<int>(std::lround(TwipsPerInch / screen->logicalDotsPerInch())));
}

void PinTwipsPerPixel(int twips) {
    pinnedTwips = twips;
}

int ToPixels(double twips) {
    return static_cast<int>(std::lround(twips / TwipsPerPixel()));
}

int ToTwips(int pixels) {
    return pixels * TwipsPerPixel();
}

}  // namespace controls
