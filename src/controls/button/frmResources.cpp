#include "controls/button/frmResources.h"

#include "controls/base/Canvas.h"
#include "controls/base/Display.h"

#include <cmath>
#include <cstddef>

namespace controls {

namespace {

/// A row, counted from 1 at the top, whose colour is known; the rows between two of them follow their run.
struct KnownRow {
    int row;
    Colour colour;
};

using KnownRows = std::array<KnownRow, 5>;

std::uint32_t Between(std::uint32_t from, std::uint32_t to, double share) {
    const auto start = static_cast<double>(from);
    return static_cast<std::uint32_t>(std::lround(start + (static_cast<double>(to) - start) * share));
}

Colour Between(const KnownRow& above, const KnownRow& below, int row) {
    const double share = static_cast<double>(row - above.row) / (below.row - above.row);
    const auto channel = [&](unsigned shift) {
        return Between(above.colour >> shift & 255U, below.colour >> shift & 255U, share);
    };
    return RGB(channel(0), channel(8), channel(16));
}

ButtonPicture Gradient(const KnownRows& known) {
    ButtonPicture picture{};
    for (std::size_t span = 1; span < known.size(); ++span) {
        const KnownRow& above = known[span - 1];
        const KnownRow& below = known[span];
        for (int row = above.row; row <= below.row; ++row) {
            picture.Rows[static_cast<std::size_t>(row - 1)] = Between(above, below, row);
        }
    }
    return picture;
}

}  // namespace

void ButtonPicture::DrawOn(Canvas& canvas) const {
    const int right = ToTwips(PixelWidth - 1);
    int top = 0;
    for (const Colour colour : Rows) {
        canvas.Line(0, top, right, top, colour, LineForm::FilledBox);
        top += ToTwips(1);
    }
}

const ButtonPicture& frmResources::picButtonNormal() {
    static const ButtonPicture picture = Gradient({{{1, RGB(216, 233, 252)},
                                                    {2, RGB(212, 230, 251)},
                                                    {13, RGB(175, 203, 240)},
                                                    {24, RGB(136, 174, 228)},
                                                    {25, RGB(134, 172, 228)}}});
    return picture;
}

const ButtonPicture& frmResources::picButtonHover() {
    static const ButtonPicture picture = Gradient({{{1, RGB(255, 242, 201)},
                                                    {2, RGB(255, 241, 198)},
                                                    {13, RGB(255, 226, 175)},
                                                    {24, RGB(255, 211, 150)},
                                                    {25, RGB(255, 210, 148)}}});
    return picture;
}

const ButtonPicture& frmResources::picButtonDown() {
    static const ButtonPicture picture = Gradient({{{1, RGB(254, 148, 81)},
                                                    {2, RGB(254, 151, 84)},
                                                    {13, RGB(255, 178, 110)},
                                                    {24, RGB(255, 206, 137)},
                                                    {25, RGB(255, 208, 139)}}});
    return picture;
}

}  // namespace controls
