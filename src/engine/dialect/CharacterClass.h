#pragma once

#include <QtGlobal>

#include <array>

namespace engine::dialect {

enum CharacterClass : quint8 { Blank = 1, Digit = 2, NameStart = 4 };

inline constexpr std::array<quint8, 128> ClassesOfCharacters = [] {
    std::array<quint8, 128> classes{};
    for (size_t character = 0; character < classes.size(); ++character) {
        const bool blank = character == ' ' || (character >= '\t' && character <= '\r');
        const bool digit = character >= '0' && character <= '9';
        const size_t lower = character | 0x20;
        const bool nameStart = (lower >= 'a' && lower <= 'z') || character == '_';
        classes[character] = blank ? Blank : digit ? Digit : nameStart ? NameStart : 0;
    }
    return classes;
}();

// Letters beyond ASCII may stand in names; what they are is for the engine's table of names to say.
constexpr bool Is(char16_t character, int classes) {
    return ((character < 128 ? ClassesOfCharacters[character] : quint8{NameStart}) & classes) != 0;
}

constexpr bool IsBlank(char16_t character) {
    return Is(character, Blank);
}

constexpr bool IsDigit(char16_t character) {
    return character >= u'0' && character <= u'9';
}

constexpr bool IsNameStart(char16_t character) {
    return Is(character, NameStart);
}

}  // namespace engine::dialect
