#include "support/NaiveGradient.h"

#include <cmath>
#include <cstdlib>

namespace {

using controls::Colour;
using controls::LineForm;

/// The channel at a fraction, by taking the fraction apart into the whole numbers that it is made of.
int NaiveChannel(int from, int to, float fraction) {
    int exponent = 0;
    auto mantissa = static_cast<std::int64_t>(std::ldexp(std::frexp(fraction, &exponent), 24));
    exponent -= 24;
    // Below this a fraction is far too small to move a channel, and its power of two would not fit.
    if (exponent < -50) {
        mantissa = 0;
        exponent = 0;
    }
    while (exponent > 0) {
        mantissa *= 2;
        --exponent;
    }
    const std::int64_t denominator = std::int64_t{1} << -exponent;
    const std::int64_t whole = NaiveQuotient(mantissa * (to - from) + from * denominator, denominator);
    if (whole < 0) {
        return 0;
    }
    return whole > 255 ? 255 : static_cast<int>(whole);
}

}  // namespace

std::int64_t NaiveQuotient(std::int64_t numerator, std::int64_t denominator) {
    std::int64_t below = numerator / denominator;
    if (below * denominator > numerator) {
        --below;
    }
    const std::int64_t rest = numerator - below * denominator;
    if (rest > denominator - rest) {
        return below + 1;
    }
    if (rest == denominator - rest && below % 2 != 0) {
        return below + 1;
    }
    return below;
}

Colour NaiveColourAt(const NaiveColours& colours, float fraction) {
    const int red = NaiveChannel(colours.startRed, colours.endRed, fraction);
    const int green = NaiveChannel(colours.startGreen, colours.endGreen, fraction);
    const int blue = NaiveChannel(colours.startBlue, colours.endBlue, fraction);
    return static_cast<Colour>(red + 256 * green + 65536 * blue);
}

std::vector<DrawnLine> NaiveSkin(const NaiveArea& area, const NaiveColours& colours) {
    const int W = area.X2 - area.x1;
    const int H = area.Y2 - area.Y1;
    const int CW = area.canvasWidth;
    const int CH = area.canvasHeight;
    const auto sx = static_cast<int>(NaiveQuotient(W, area.bandCount));
    const auto sy = static_cast<int>(NaiveQuotient(H, area.bandCount));
    std::vector<DrawnLine> drawn;
    const auto box = [&](int x1, int Y1, int X2, int Y2, int part, int whole) {
        const float fraction = static_cast<float>(static_cast<double>(part) / whole);
        drawn.push_back({static_cast<double>(x1), static_cast<double>(Y1), static_cast<double>(X2),
                         static_cast<double>(Y2), NaiveColourAt(colours, fraction), LineForm::FilledBox});
    };
    if (area.style == 0) {
        for (int i = 1; i <= H; i += sy) {
            box(area.x1, area.Y1 + i, CW, area.Y1 + i + sy, i, H);
        }
    }
    if (area.style == 1) {
        for (int i = 1; i <= W; i += sx) {
            box(area.x1 + i, area.Y1, area.x1 + i + sx, area.Y1 + CH, i, W);
        }
    }
    if (area.style == 2) {
        const auto m = static_cast<int>(NaiveQuotient(H + 2 * area.Y1, 2));
        for (int i = 1; i <= NaiveQuotient(H, 2); i += sy) {
            box(0, m - i, CW, m - i - sy, i, m);
            box(0, m + i, CW, m + i + sy, i, m);
        }
    }
    if (area.style == 3) {
        const auto m = static_cast<int>(NaiveQuotient(W + 2 * area.x1, 2));
        for (int i = 1; i <= NaiveQuotient(W, 2); i += sx) {
            box(m - i, 0, m - i - sx, CH, i, m);
            box(m + i, 0, m + i + sx, CH, i, m);
        }
    }
    if (area.style == 4) {
        for (int i = 1; i <= 2 * W; i += sx) {
            box(i, 0, i - CW, CH, i, 2 * W);
            drawn.back().form = LineForm::Line;
        }
    }
    return drawn;
}
