#include "Hex.h"
#include "engine/jet/TextKey.h"

#include <QString>

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <map>
#include <string>
#include <vector>

namespace engine::jet {

namespace {

// The rule told plainly, for a few units of each kind. Weights are hexadecimal digits.
struct PlainWeight {
    std::string primary;
    std::string diacritic = {};
    int change = 0;
    int place = 0;
    int width = 0;
};

const std::map<char16_t, PlainWeight> PlainWeights = {
    {u'\0', {""}},
    {u' ', {"07"}},
    {u'0', {"36"}},
    {u'a', {"4A"}},
    {u'B', {"4C"}},
    {u'z', {"78"}},
    {u'\'', {"", "", 0, 0x80}},
    {u'-', {"", "", 0, 0x82}},
    {u'\x01', {"", "", 0, 0x03}},
    {u'\xAD', {"", "", 0, 0x83}},
    {u'\x064B', {"", "", 0, 0xA0}},
    {u'\xE9', {"51", "0E"}},
    {u'\xC4', {"4A", "13"}},
    {u'\xC6', {"4A51"}},
    {u'\x01E3', {"4A51", "1717"}},
    {u'\x05F0', {"79997999"}},
    {u'\xFB03', {"535359"}},
    {u'\x0301', {"", "", 0x0C}},
    {u'\x0308', {"", "", 0x11}},
    {u'\x0312', {"", "", 0x45}},
    {u'\x3041', {"7F02", "", 0, 0, 2}},
    {u'\x3042', {"7F02", "", 0, 0, 3}},
    {u'\x304C', {"7F0A", "03", 0, 0, 3}},
    {u'\x4E00', {"9F02"}},
    {u'\xAC00', {"8103"}},
    {u'\xD800', {"B002", "3F"}},
    {u'\xDC08', {"B502", "3F"}},
};

std::string Digits(int byte) {
    return HexOf(Key{static_cast<std::uint8_t>(byte)});
}

class PlainTextKey {
public:
    explicit PlainTextKey(std::u16string text) {
        text = text.substr(0, 255);
        text.erase(text.find_last_not_of(u' ') + 1);
        for (const char16_t unit : text) {
            Add(PlainWeights.at(unit));
        }
    }

    std::string Written() const {
        return main_ + "01" + DiacriticsWithoutEnd() + (hasWidths_ || !places_.empty() ? "0101" : "") +
               Widths() + (places_.empty() ? "" : "01" + places_) + "00";
    }

private:
    void Add(const PlainWeight& weight) {
        if (weight.change != 0) {
            Change(weight.change);
        }
        if (weight.place != 0) {
            const int place = 0x8000 + 7 + 4 * BytesOfUnits();
            places_ += Digits(place >> 8) + Digits(place) + "06" + Digits(weight.place);
        }
        if (weight.width != 0) {
            hasWidths_ = true;
            widths_.push_back(weight.width);
        }
        if (!weight.primary.empty()) {
            main_ += weight.primary;
            const Key own = FromHex(weight.diacritic.c_str());
            units_.push_back(own.empty() ? std::vector<int>{2} : std::vector<int>(own.begin(), own.end()));
        }
    }

    // What combines with nothing before it stands in front of all units.
    void Change(int change) {
        int& changed = units_.empty() ? lead_ : units_.back().back();
        changed = (changed + change) & 0xFF;
        hasLead_ = hasLead_ || units_.empty();
    }

    int BytesOfUnits() const {
        int bytes = 0;
        for (const std::vector<int>& unit : units_) {
            bytes += static_cast<int>(unit.size());
        }
        return bytes;
    }

    std::string DiacriticsWithoutEnd() const {
        std::vector<int> all;
        if (hasLead_) {
            all.push_back(lead_);
        }
        for (const std::vector<int>& unit : units_) {
            all.insert(all.end(), unit.begin(), unit.end());
        }
        while (!all.empty() && all.back() <= 2) {
            all.pop_back();
        }
        std::string digits;
        for (const int byte : all) {
            digits += Digits(byte);
        }
        return digits;
    }

    std::string Widths() const {
        if (!hasWidths_) {
            return "";
        }
        std::vector<int> widths = widths_;
        while (!widths.empty() && widths.back() == 3) {
            widths.pop_back();
        }
        std::string digits;
        while (!widths.empty()) {
            widths.resize(std::max<size_t>(widths.size(), 3));
            digits += Digits(128 + 16 * widths[0] + 4 * widths[1] + widths[2]);
            widths.erase(widths.begin(), widths.begin() + 3);
        }
        return digits + "FF0280FF80" + (places_.empty() ? "" : "FF");
    }

    std::string main_;
    bool hasLead_ = false;
    int lead_ = 0;
    std::vector<std::vector<int>> units_;
    std::string places_;
    bool hasWidths_ = false;
    std::vector<int> widths_;
};

std::string HexKeyOf(const std::u16string& text, Order order) {
    Key key;
    AppendTextKey(key, QStringView(text), order);
    return HexOf(key);
}

rc::Gen<std::u16string> AnyText() {
    const auto unit = rc::gen::map(rc::gen::inRange<size_t>(0, PlainWeights.size()), [](size_t place) {
        return std::next(PlainWeights.begin(), static_cast<std::ptrdiff_t>(place))->first;
    });
    return rc::gen::map(rc::gen::pair(rc::gen::inRange(0, 8), rc::gen::container<std::u16string>(unit)),
                        [](std::pair<int, std::u16string> made) {
                            // Some are longer than what counts.
                            const std::u16string once = made.second;
                            for (int times = 0; made.first == 0 && times < 20; ++times) {
                                made.second += once;
                            }
                            return made.second;
                        });
}

RC_GTEST_PROP(TextKeyProperty, TheKeyIsThatOfTheRuleToldPlainly, ()) {
    for (int times = 0; times < 50; ++times) {
        const std::u16string text = *AnyText();
        RC_ASSERT(HexKeyOf(text, Order::Ascending) == PlainTextKey(text).Written());
    }
}

RC_GTEST_PROP(TextKeyProperty, DescendingKeysAreInTheOppositeOrder, ()) {
    const std::u16string left = *AnyText();
    const std::u16string right = *AnyText();
    const bool rises = HexKeyOf(left, Order::Ascending) < HexKeyOf(right, Order::Ascending);
    const bool isSame = HexKeyOf(left, Order::Ascending) == HexKeyOf(right, Order::Ascending);
    RC_ASSERT((HexKeyOf(left, Order::Descending) > HexKeyOf(right, Order::Descending)) == rises);
    RC_ASSERT((HexKeyOf(left, Order::Descending) == HexKeyOf(right, Order::Descending)) == isSame);
}

}  // namespace

}  // namespace engine::jet
