#include "TextKeys.h"

#include "engine/jet/SortWeights.h"

namespace engine::jet::filecheck {

namespace {

using Bytes = std::vector<std::uint8_t>;

constexpr std::uint8_t PlainDiacritic = 2;

/// The parts of a key.
struct Parts {
    Bytes primary;
    Bytes diacritics;  ///< Of all units with a primary weight, a plain one where they have none.
    Bytes lead;        ///< Of what combines with nothing before it.
    Bytes places;
    Bytes widths;
};

template <class Added>
void Add(Bytes& bytes, const Added& added) {
    bytes.insert(bytes.end(), std::begin(added), std::end(added));
}

void ChangeLast(Parts& parts, std::uint8_t change) {
    if (parts.diacritics.empty() && parts.lead.empty()) {
        parts.lead.push_back(0);
    }
    std::uint8_t& last = parts.diacritics.empty() ? parts.lead.back() : parts.diacritics.back();
    last = static_cast<std::uint8_t>(last + change);
}

void AddPlace(Parts& parts, std::uint8_t code) {
    const std::size_t place = 0x8000 + 7 + 4 * parts.diacritics.size();
    Add(parts.places,
        Bytes{static_cast<std::uint8_t>(place >> 8), static_cast<std::uint8_t>(place), 0x06, code});
}

void AddPrimary(Parts& parts, const SortWeight& weight) {
    if (weight.primary > 0xFF) {
        parts.primary.push_back(static_cast<std::uint8_t>(weight.primary >> 8));
    }
    if (weight.primary > 0) {
        parts.primary.push_back(static_cast<std::uint8_t>(weight.primary));
        parts.diacritics.push_back(weight.diacritic > 0 ? weight.diacritic : PlainDiacritic);
    }
}

void AddOdd(Parts& parts, const OddWeight& weight) {
    Add(parts.primary, weight.primary);
    if (weight.diacritic.empty()) {
        parts.diacritics.push_back(PlainDiacritic);
    }
    Add(parts.diacritics, weight.diacritic);
}

Parts PartsOf(const std::u16string& text) {
    Parts parts;
    for (const char16_t unit : text) {
        const SortWeight& weight = GeneralWeights()[unit];
        if (weight.width == SortWeight::Odd) {
            AddOdd(parts, OddWeightOf(unit));
            continue;
        }
        if (weight.change != 0) {
            ChangeLast(parts, weight.change);
        }
        if (weight.place != 0) {
            AddPlace(parts, weight.place);
        }
        if (weight.width != 0) {
            parts.widths.push_back(weight.width);
        }
        AddPrimary(parts, weight);
    }
    return parts;
}

Bytes SecondPart(const Parts& parts) {
    Bytes all = parts.lead;
    Add(all, parts.diacritics);
    while (!all.empty() && all.back() <= PlainDiacritic) {
        all.pop_back();
    }
    return all;
}

Bytes WidthPart(Bytes widths) {
    while (!widths.empty() && widths.back() == 3) {
        widths.pop_back();
    }
    Bytes packed;
    for (std::size_t at = 0; at < widths.size(); at += 3) {
        unsigned byte = 0x80;
        for (std::size_t place = 0; place < 3 && at + place < widths.size(); ++place) {
            byte += static_cast<unsigned>(widths[at + place]) << (4 - 2 * place);
        }
        packed.push_back(static_cast<std::uint8_t>(byte));
    }
    Add(packed, Bytes{0xFF, 0x02, 0x80, 0xFF, 0x80});
    return packed;
}

}  // namespace

std::vector<std::uint8_t> TextKeyOf(std::u16string text, bool ascending) {
    text = text.substr(0, 255);
    text.erase(text.find_last_not_of(u' ') + 1);
    const Parts parts = PartsOf(text);
    Bytes key = parts.primary;
    key.push_back(1);
    Add(key, SecondPart(parts));
    if (!parts.widths.empty() || !parts.places.empty()) {
        Add(key, Bytes{1, 1});
    }
    if (!parts.widths.empty()) {
        Add(key, WidthPart(parts.widths));
        if (!parts.places.empty()) {
            key.push_back(0xFF);
        }
    }
    if (!parts.places.empty()) {
        key.push_back(1);
        Add(key, parts.places);
    }
    key.push_back(0);
    if (!ascending) {
        for (std::uint8_t& byte : key) {
            byte = static_cast<std::uint8_t>(255 - byte);
        }
        key.push_back(0);
    }
    return key;
}

}  // namespace engine::jet::filecheck
