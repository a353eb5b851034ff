#include "Texts.h"

#include <QString>

#include <algorithm>

namespace engine::jet::filecheck {

namespace {

constexpr std::uint32_t CompressedMark = 0xFEFF;

}  // namespace

bool IsCompressed(const View& bytes) {
    return bytes.Size() >= 2 && bytes.Low(0, 2) == CompressedMark;
}

std::u16string PlainUnits(const View& bytes) {
    if (bytes.Size() % 2 != 0) {
        throw Unreadable("a text is cut within a character");
    }
    std::u16string units;
    for (std::size_t at = 0; at < bytes.Size(); at += 2) {
        units += static_cast<char16_t>(bytes.Low(at, 2));
    }
    return units;
}

std::u16string TextUnits(const View& bytes) {
    if (!IsCompressed(bytes)) {
        return PlainUnits(bytes);
    }
    std::u16string units;
    bool isPacked = true;
    for (std::size_t at = 2; at < bytes.Size();) {
        const std::uint8_t byte = bytes.Byte(at);
        if (byte == 0) {
            isPacked = !isPacked;
            ++at;
        } else if (isPacked) {
            units += char16_t{byte};
            ++at;
        } else {
            units += static_cast<char16_t>(bytes.Low(at, 2));
            at += 2;
        }
    }
    return units;
}

bool IsStoredAsUsual(const View& bytes, bool mayBeCompressed) {
    const std::u16string units = TextUnits(bytes);
    const bool isNarrow =
        std::all_of(units.begin(), units.end(), [](char16_t unit) { return unit > 0 && unit <= 0xFF; });
    // A text that begins with the mark itself would be taken for a compressed one.
    const bool beginsAsCompressed = !units.empty() && units.front() == CompressedMark;
    return IsCompressed(bytes) == ((mayBeCompressed && isNarrow && units.size() > 2) || beginsAsCompressed);
}

std::string ToUtf8(const std::u16string& text) {
    return QString::fromStdU16String(text).toStdString();
}

std::string WithoutCase(const std::string& text) {
    return QString::fromStdString(text).toCaseFolded().toStdString();
}

}  // namespace engine::jet::filecheck
