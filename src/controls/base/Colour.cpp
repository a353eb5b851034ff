#include "controls/base/Colour.h"

#include <QGuiApplication>
#include <QPalette>

#include <algorithm>
#include <cmath>

namespace controls {

namespace {

constexpr Colour SystemColourBit = 0x80000000U;

/// Text of large letters and the edges of controls can be told apart from this ratio on.
constexpr double LeastContrast = 3.0;

double Linear(double channel) {
    return channel <= 0.03928 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double Luminance(const QColor& colour) {
    return 0.2126 * Linear(colour.redF()) + 0.7152 * Linear(colour.greenF()) +
           0.0722 * Linear(colour.blueF());
}

double Contrast(const QColor& one, const QColor& other) {
    const double first = Luminance(one);
    const double second = Luminance(other);
    return (std::max(first, second) + 0.05) / (std::min(first, second) + 0.05);
}

QColor Mixed(const QColor& one, const QColor& other, double share) {
    const auto mix = [share](int from, int to) { return static_cast<int>(from + (to - from) * share); };
    return {mix(one.red(), other.red()), mix(one.green(), other.green()), mix(one.blue(), other.blue())};
}

QColor DesktopColour(Colour colour) {
    const QPalette palette = QGuiApplication::palette();
    switch (colour) {
        case SystemColours::ApplicationWorkspace:
            return palette.color(QPalette::Mid);
        case SystemColours::Highlight:
            return palette.color(QPalette::Highlight);
        case SystemColours::ButtonFace:
            return palette.color(QPalette::Button);
        case SystemColours::GreyText:
            return palette.color(QPalette::Disabled, QPalette::ButtonText);
        case SystemColours::DarkShadow:
            return palette.color(QPalette::Shadow);
        case SystemColours::Light:
            return palette.color(QPalette::Midlight);
        default:
            return Qt::black;
    }
}

}  // namespace

QColor ToQColor(Colour colour) {
    if ((colour & SystemColourBit) != 0) {
        return DesktopColour(colour);
    }
    return {static_cast<int>(colour & 255U), static_cast<int>(colour >> 8U & 255U),
            static_cast<int>(colour >> 16U & 255U)};
}

Colour ToColour(const QColor& colour) {
    return RGB(static_cast<std::uint32_t>(colour.red()), static_cast<std::uint32_t>(colour.green()),
               static_cast<std::uint32_t>(colour.blue()));
}

QColor ReadableOn(const QColor& background, const QColor& wanted) {
    const QColor strongest = Contrast(background, Qt::white) > Contrast(background, Qt::black)
                                 ? QColor(Qt::white)
                                 : QColor(Qt::black);
    constexpr int Steps = 8;
    for (int step = 0; step < Steps; ++step) {
        const QColor mixed = Mixed(wanted, strongest, static_cast<double>(step) / Steps);
        if (Contrast(background, mixed) >= LeastContrast) {
            return mixed;
        }
    }
    return strongest;
}

}  // namespace controls
