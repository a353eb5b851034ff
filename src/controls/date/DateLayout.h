#pragma once

#include <array>

namespace controls {

/// Places and lengths in twips of what the closed date control is made of.
struct DateLayout {
    struct Box {
        int left;
        int width;
        int maximumLength;
    };

    std::array<Box, 3> boxes;

    /// The frame of a control that no form has resized.
    static constexpr int BorderWidth = 1575;
    static constexpr int BorderHeight = 285;
    /// Between the frame's edge and what stands within.
    static constexpr int BorderMargin = 30;
    static constexpr int BoxHeight = BorderHeight - 2 * BorderMargin;
    static constexpr int OpenButtonSize = 225;
};

/// The box of the year is the wide one. Where it comes first, what follows it stands further to the right.
inline constexpr int YearFirstShift = 135;
inline constexpr DateLayout YearLastLayout{.boxes = {{{30, 330, 2}, {480, 235, 2}, {840, 465, 4}}}};
inline constexpr DateLayout YearFirstLayout{
    .boxes = {{{30, 465, 4}, {480 + YearFirstShift, 235, 2}, {840 + YearFirstShift, 235, 2}}}};

}  // namespace controls
