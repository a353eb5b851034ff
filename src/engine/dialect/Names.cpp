#include "engine/dialect/Names.h"

#include <algorithm>

namespace engine::dialect {

namespace {

template <class Character>
Character Small(Character character) {
    return character >= 'A' && character <= 'Z' ? static_cast<Character>(character | 0x20) : character;
}

}  // namespace

std::string QuotedName(std::string_view name) {
    std::string quoted = "\"";
    for (const char character : name) {
        quoted.append(character == '"' ? 2 : 1, character);
    }
    return quoted + '"';
}

std::string LowerCase(std::string_view name) {
    std::string lower(name);
    std::transform(lower.begin(), lower.end(), lower.begin(), Small<char>);
    return lower;
}

bool IsSameName(QStringView one, QStringView other) {
    return std::equal(one.begin(), one.end(), other.begin(), other.end(),
                      [](QChar a, QChar b) { return Small(a.unicode()) == Small(b.unicode()); });
}

}  // namespace engine::dialect
