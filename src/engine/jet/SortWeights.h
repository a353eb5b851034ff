#pragma once

#include <array>
#include <cstdint>
#include <span>

namespace engine::jet {

/// What one UTF-16 unit adds to the key of a text, in the order that Jet calls General. Zero stands for
/// nothing in every field, and many units have nothing at all.
struct SortWeight {
    /// One byte below 256, else two with the upper one first.
    std::uint16_t primary = 0;
    std::uint8_t diacritic = 0;
    /// Added to the diacritic weight before it.
    std::uint8_t change = 0;
    /// Code of a unit that only its place in the text tells, such as an apostrophe.
    std::uint8_t place = 0;
    /// 2 or 3 for kana, or Odd.
    std::uint8_t width = 0;

    /// Both weights have more bytes than fit here: see OddWeightOf.
    static constexpr std::uint8_t Odd = 0xFF;

    bool IsPrimaryAlone() const { return (diacritic | change | place | width) == 0; }
};

struct OddWeight {
    std::span<const std::uint8_t> primary;
    std::span<const std::uint8_t> diacritic;
};

using SortWeights = std::array<SortWeight, 0x10000>;

/// By UTF-16 unit, halves of surrogate pairs included. Made at the first call.
const SortWeights& GeneralWeights();

/// Of a unit whose width class is Odd.
OddWeight OddWeightOf(char16_t unit);

}  // namespace engine::jet
