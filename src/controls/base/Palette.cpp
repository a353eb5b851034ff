#include "controls/base/Palette.h"

namespace controls {

Palette& ThePalette() {
    static Palette palette;
    return palette;
}

void InitialiseColours() {
    ThePalette() = {
        .Window = White,
        .SelectedRow = RGB(204, 220, 252),
        .SelectedTab = RGB(204, 220, 252),
        .Heading = RGB(221, 234, 243),
        .TitleEnd = RGB(221, 234, 243),
        .TitleStart = RGB(163, 195, 224),
        .ButtonFace = RGB(134, 172, 238),
        .ButtonOutline = RGB(37, 79, 167),
        .Row = RGB(231, 244, 249),
        .BannerStart = RGB(102, 154, 204),
        .BannerEnd = RGB(193, 219, 244),
        .Frame = RGB(121, 151, 177),
    };
}

}  // namespace controls
