#include "engine/jet/SortWeights.h"

#include <algorithm>
#include <memory>
#include <string_view>

namespace engine::jet {

namespace {

struct OddLiteral {
    char16_t unit;
    std::string_view primary;
    std::string_view diacritic;
};

namespace general {
#include "engine/jet/GeneralOrder.inc"
}  // namespace general

// In numbers of weights a second byte of 0 or 1 is left out, since there is none.
std::uint16_t PrimaryOf(std::int32_t number) {
    if (number < 256) {
        return static_cast<std::uint16_t>(number);
    }
    const std::int32_t place = number - 256;
    return static_cast<std::uint16_t>((place / 254) << 8 | (place % 254 + 2));
}

template <class Take>
void ForEach(std::span<const std::int32_t> runs, Take take) {
    std::size_t unit = 0;
    std::int32_t number = 0;
    for (; !runs.empty(); runs = runs.subspan(4)) {
        unit += static_cast<std::size_t>(runs[0]);
        number += runs[2];
        for (std::int32_t place = 0; place < runs[1]; ++place, ++unit) {
            number += place == 0 ? 0 : runs[3];
            take(unit, number);
        }
    }
}

// By how much less a low surrogate weighs than its number: weights pass over the second bytes 0 and 1.
int LowSurrogateGap(int place) {
    return 9992 - 2 * ((place + 246) / 254);
}

void AddSurrogates(SortWeights& weights) {
    constexpr std::uint8_t Diacritic = 0x3F;
    for (int unit = 0xD800; unit < 0xDC00; ++unit) {
        weights[static_cast<std::size_t>(unit)] = {.primary = static_cast<std::uint16_t>(unit - 10238),
                                                   .diacritic = Diacritic};
    }
    for (int unit = 0xDC00; unit < 0xE000; ++unit) {
        weights[static_cast<std::size_t>(unit)] = {
            .primary = static_cast<std::uint16_t>(unit - LowSurrogateGap(unit - 0xDC00)),
            .diacritic = Diacritic};
    }
}

std::unique_ptr<const SortWeights> MakeGeneralWeights() {
    auto made = std::make_unique<SortWeights>();
    SortWeights& weights = *made;
    const auto byte = [](std::int32_t number) { return static_cast<std::uint8_t>(number); };
    ForEach(general::Primaries, [&](auto unit, auto number) { weights[unit].primary = PrimaryOf(number); });
    ForEach(general::Diacritics, [&](auto unit, auto number) { weights[unit].diacritic = byte(number); });
    ForEach(general::Changes, [&](auto unit, auto number) { weights[unit].change = byte(number); });
    ForEach(general::Places, [&](auto unit, auto number) { weights[unit].place = byte(number); });
    ForEach(general::Widths, [&](auto unit, auto number) { weights[unit].width = byte(number); });
    for (const OddLiteral& odd : general::OddLiterals) {
        weights[odd.unit].width = SortWeight::Odd;
    }
    AddSurrogates(weights);
    return made;
}

std::span<const std::uint8_t> BytesOf(std::string_view text) {
    return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}

}  // namespace

const SortWeights& GeneralWeights() {
    static const std::unique_ptr<const SortWeights> weights = MakeGeneralWeights();
    return *weights;
}

OddWeight OddWeightOf(char16_t unit) {
    const auto* odd = std::find_if(std::begin(general::OddLiterals), std::end(general::OddLiterals),
                                   [&](const OddLiteral& literal) { return literal.unit == unit; });
    return {BytesOf(odd->primary), BytesOf(odd->diacritic)};
}

}  // namespace engine::jet
