#pragma once

#include <QByteArrayView>
#include <QStringView>

#include <algorithm>
#include <string_view>
#include <vector>

namespace engine::dialect {

/// Room for characters that are written one behind the other. The room is settled beforehand and kept from
/// one use to the next, so that writing a character is no more than that: a million statements are taken
/// apart in here.
class CharacterRoom {
public:
    /// Begins anew, with room for this many characters.
    void StartOver(size_t most) {
        if (room_.size() < most) {
            room_.resize(most);
        }
        size_ = 0;
    }

    void Put(char character) { room_[size_++] = character; }

    void Put(QByteArrayView characters) {
        std::copy(characters.begin(), characters.end(), room_.begin() + static_cast<std::ptrdiff_t>(size_));
        size_ += static_cast<size_t>(characters.size());
    }

    /// Characters below 0x80.
    void PutAscii(QStringView characters) {
        std::transform(characters.begin(), characters.end(), Extend(static_cast<size_t>(characters.size())),
                       [](QChar character) { return static_cast<char>(character.unicode()); });
    }

    /// Room for this many characters more, to be written by the caller.
    char* Extend(size_t characters) {
        char* const place = room_.data() + size_;
        size_ += characters;
        return place;
    }

    size_t Size() const { return size_; }
    std::string_view View() const { return {room_.data(), size_}; }

private:
    std::vector<char> room_;
    size_t size_ = 0;
};

}  // namespace engine::dialect
