#include "controls/base/Control.h"

#include "controls/base/Display.h"

#include <cmath>

namespace controls {

int Control::Width() const {
    return ToTwips(width());
}

int Control::Height() const {
    return ToTwips(height());
}

void Control::SetWidth(int twips) {
    resize(ToPixels(twips), height());
}

void Control::SetHeight(int twips) {
    resize(width(), ToPixels(twips));
}

void Control::Move(int left, int top, int width, int height) {
    setGeometry(ToPixels(left), ToPixels(top), ToPixels(width), ToPixels(height));
}

void Control::Move(int left, int top) {
    move(ToPixels(left), ToPixels(top));
}

int TwipsAt(double pixels) {
    return static_cast<int>(std::floor(pixels * TwipsPerPixel()));
}

}  // namespace controls
