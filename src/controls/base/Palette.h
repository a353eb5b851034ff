#pragma once

#include "controls/base/Colour.h"

namespace controls {

/// The wizard's own colours, set once at the start and read by the controls, each named after what it paints.
/// All of them are 0 until InitialiseColours has run. The entries without a reader belong to Hearthbook's set
/// of colours, which is taken over whole.
struct Palette {
    Colour Window = 0;         ///< Ground of the group box.
    Colour SelectedRow = 0;    ///< No reader.
    Colour SelectedTab = 0;    ///< No reader.
    Colour Heading = 0;        ///< Heading of a grid that was never loaded, an enabled tab.
    Colour TitleEnd = 0;       ///< Lower end of a group box's title.
    Colour TitleStart = 0;     ///< Upper end of a group box's title.
    Colour ButtonFace = 0;     ///< No reader.
    Colour ButtonOutline = 0;  ///< Outline of a button at rest.
    Colour Row = 0;            ///< No reader.
    Colour BannerStart = 0;    ///< Upper end of the page heading.
    Colour BannerEnd = 0;      ///< Lower end of the page heading.
    Colour Frame = 0;          ///< Frames: the group box, the current tab, the wizard itself.
};

/// The process's one palette.
Palette& ThePalette();

/// Fills the palette. Running it again changes nothing.
void InitialiseColours();

}  // namespace controls
