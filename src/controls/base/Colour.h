#pragma once

#include <QColor>

#include <cstdint>

namespace controls {

/// A colour as the controls keep it: red in the low byte, then green and blue; or, with the highest bit set,
/// the number of one of the desktop's own colours.
using Colour = std::uint32_t;

constexpr Colour RGB(std::uint32_t red, std::uint32_t green, std::uint32_t blue) {
    return red | green << 8U | blue << 16U;
}

constexpr Colour SystemColour(std::uint32_t number) {
    return 0x80000000U | number;
}

/// The desktop's colours that the controls use, by their numbers.
namespace SystemColours {
inline constexpr Colour ApplicationWorkspace = SystemColour(12);
inline constexpr Colour Highlight = SystemColour(13);
inline constexpr Colour ButtonFace = SystemColour(15);
inline constexpr Colour GreyText = SystemColour(17);
inline constexpr Colour DarkShadow = SystemColour(21);
inline constexpr Colour Light = SystemColour(22);
}  // namespace SystemColours

inline constexpr Colour Black = RGB(0, 0, 0);
inline constexpr Colour White = RGB(255, 255, 255);

/// What the colour is on the screen. The desktop's colours follow its theme, and a number that the controls
/// don't use gives black.
QColor ToQColor(Colour colour);
Colour ToColour(const QColor& colour);

/// The colour for text on a background: the wanted one, as long as it can be read there. On a desktop with a
/// dark theme, grey text on white or a shadow's black on a dark face can't; black or white, whichever stands
/// out, is mixed in until it can.
QColor ReadableOn(const QColor& background, const QColor& wanted);

}  // namespace controls
