#include "engine/jet/TextKey.h"

#include "engine/jet/SortWeights.h"

#include <array>

namespace engine::jet {

namespace {

constexpr std::uint8_t PartEnd = 0x01;
constexpr std::uint8_t KeyEnd = 0x00;
constexpr std::uint8_t PlainDiacritic = 0x02;
constexpr std::uint8_t PlaceMark = 0x06;
constexpr std::uint8_t PlainWidth = 3;
constexpr std::array<std::uint8_t, 5> WidthsEnd = {0xFF, 0x02, 0x80, 0xFF, 0x80};
constexpr std::uint8_t WidthsBeforePlaces = 0xFF;

QStringView CutForKey(QStringView text) {
    text = text.left(UnitsInKey);
    while (text.endsWith(u' ')) {
        text.chop(1);
    }
    return text;
}

// Diacritic weights, one for each unit from the first on, as far as there are any.
class Diacritics {
public:
    // Of the unit that the text now has, behind so many others.
    void Add(std::size_t before, KeyView weight) {
        FillUpTo(before);
        Append(weights_, weight);
        ++units_;
    }

    void Change(std::size_t before, std::uint8_t change) {
        FillUpTo(before);
        if (weights_.empty()) {
            weights_.push_back(change);
            beginsWithChange_ = true;
        } else {
            weights_.back() = static_cast<std::uint8_t>(weights_.back() + change);
        }
    }

    // How many weights a place behind so many units counts.
    std::size_t PlaceBehind(std::size_t units) const {
        return weights_.size() + units - units_ - (beginsWithChange_ ? 1 : 0);
    }

    // Plain ones at the end say nothing.
    KeyView Written() const {
        KeyView written = weights_;
        while (!written.empty() && written.back() <= PlainDiacritic) {
            written = written.first(written.size() - 1);
        }
        return written;
    }

private:
    void FillUpTo(std::size_t units) {
        for (; units_ < units; ++units_) {
            weights_.push_back(PlainDiacritic);
        }
    }

    Key weights_;
    std::size_t units_ = 0;
    bool beginsWithChange_ = false;
};

class TextKey {
public:
    explicit TextKey(Key& key) : key_(key) {}

    void Add(QStringView text) {
        const SortWeights& weights = GeneralWeights();
        for (const QChar character : text) {
            const SortWeight& weight = weights[character.unicode()];
            if (weight.IsPrimaryAlone()) {
                AddPrimary(weight.primary);
            } else if (weight.width == SortWeight::Odd) {
                AddOdd(OddWeightOf(character.unicode()));
            } else {
                AddWhole(weight);
            }
        }
        AddParts();
    }

private:
    void AddPrimary(std::uint16_t weight) {
        if (weight == 0) {
            return;
        }
        if (weight > 0xFF) {
            key_.push_back(static_cast<std::uint8_t>(weight >> 8));
        }
        key_.push_back(static_cast<std::uint8_t>(weight));
        ++units_;
    }

    void AddOdd(const OddWeight& weight) {
        Append(key_, weight.primary);
        if (!weight.diacritic.empty()) {
            diacritics_.Add(units_, weight.diacritic);
        }
        ++units_;
    }

    void AddWhole(const SortWeight& weight) {
        if (weight.diacritic != 0) {
            diacritics_.Add(units_, KeyView(&weight.diacritic, 1));
        }
        if (weight.change != 0) {
            diacritics_.Change(units_, weight.change);
        }
        if (weight.place != 0) {
            AddPlace(weight.place);
        }
        if (weight.width != 0) {
            widths_.push_back(weight.width);
        }
        AddPrimary(weight.primary);
    }

    void AddPlace(std::uint8_t code) {
        const std::size_t place = 0x8000 + 7 + 4 * diacritics_.PlaceBehind(units_);
        const std::array<std::uint8_t, 4> written = {static_cast<std::uint8_t>(place >> 8),
                                                     static_cast<std::uint8_t>(place), PlaceMark, code};
        Append(places_, written);
    }

    void AddParts() {
        key_.push_back(PartEnd);
        Append(key_, diacritics_.Written());
        if (!widths_.empty() || !places_.empty()) {
            key_.insert(key_.end(), {PartEnd, PartEnd});
        }
        if (!widths_.empty()) {
            AddWidths();
        }
        if (!places_.empty()) {
            key_.push_back(PartEnd);
            Append(key_, places_);
        }
        key_.push_back(KeyEnd);
    }

    // Three to a byte.
    void AddWidths() {
        const bool arePlacesBehind = !places_.empty();
        while (!widths_.empty() && widths_.back() == PlainWidth) {
            widths_.pop_back();
        }
        widths_.resize((widths_.size() + 2) / 3 * 3);
        for (std::size_t at = 0; at < widths_.size(); at += 3) {
            key_.push_back(
                static_cast<std::uint8_t>(0x80 + widths_[at] * 16 + widths_[at + 1] * 4 + widths_[at + 2]));
        }
        Append(key_, WidthsEnd);
        if (arePlacesBehind) {
            key_.push_back(WidthsBeforePlaces);
        }
    }

    Key& key_;
    std::size_t units_ = 0;
    Diacritics diacritics_;
    Key places_;
    Key widths_;
};

}  // namespace

void AppendTextKey(Key& key, QStringView text, Order order) {
    const std::size_t begin = key.size();
    TextKey(key).Add(CutForKey(text));
    if (order == Order::Descending) {
        for (std::size_t at = begin; at < key.size(); ++at) {
            key[at] = static_cast<std::uint8_t>(~key[at]);
        }
        key.push_back(KeyEnd);
    }
}

}  // namespace engine::jet
