#include "engine/jet/EntryEnds.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>

namespace engine::jet {

namespace {

using Word = std::uint64_t;

constexpr std::size_t WordBits = 64;
constexpr std::size_t WordSize = sizeof(Word);
constexpr std::size_t Words = (IndexForm::EndsSize + WordSize - 1) / WordSize;

static_assert(std::endian::native == std::endian::little, "bits are read as whole words");

// Of the last word only the lower part are ends; entries follow.
constexpr std::size_t LastWordSize = IndexForm::EndsSize - (Words - 1) * WordSize;
constexpr Word LastWordMask = ~Word{0} >> (WordBits - 8 * LastWordSize);

Word Load(const std::uint8_t* bits, std::size_t word) {
    Word value = 0;
    std::memcpy(&value, bits + word * WordSize, WordSize);
    return word == Words - 1 ? value & LastWordMask : value;
}

void Store(std::uint8_t* bits, std::size_t word, Word value) {
    std::memcpy(bits + word * WordSize, &value, word == Words - 1 ? LastWordSize : WordSize);
}

// Bits up to a place in its word, that of the place included.
Word UpToMask(std::size_t place) {
    return ~Word{0} >> (WordBits - 1 - place % WordBits);
}

// All words from one on, those behind the end as zeros, and a zero before each.
class Loaded {
public:
    Loaded(const std::uint8_t* bits, std::size_t first) {
        for (std::size_t word = first; word < Words; ++word) {
            words_[word + 1] = Load(bits, word);
        }
    }

    Word& operator[](std::size_t word) { return words_[word + 1]; }

    Word MovedOn(std::size_t word, std::size_t by) const {
        const std::size_t whole = by / WordBits;
        if (whole > word) {
            return 0;
        }
        const std::size_t from = word - whole + 1;
        const std::size_t bits = by % WordBits;
        return bits == 0 ? words_[from] : words_[from] << bits | words_[from - 1] >> (WordBits - bits);
    }

    Word MovedUp(std::size_t word, std::size_t by) const {
        const std::size_t from = word + by / WordBits + 1;
        const std::size_t bits = by % WordBits;
        if (from > Words) {
            return 0;
        }
        return bits == 0 ? words_[from] : words_[from] >> bits | words_[from + 1] << (WordBits - bits);
    }

private:
    std::array<Word, Words + 2> words_{};
};

}  // namespace

bool EntryEnds::HasAnyBehind(std::size_t place) const {
    static constexpr std::array<std::uint8_t, IndexForm::EndsSize> NoEnds{};
    const std::size_t byte = place / 8;
    const int inFirst = bits_[byte] >> (place % 8) >> 1;
    return inFirst != 0 || std::memcmp(bits_ + byte + 1, NoEnds.data(), IndexForm::EndsSize - byte - 1) != 0;
}

std::size_t EntryEnds::Behind(std::size_t place) const {
    std::size_t word = (place + 1) / WordBits;
    if (word >= Words) {
        return None;
    }
    Word ends = Load(bits_, word) >> ((place + 1) % WordBits) << ((place + 1) % WordBits);
    while (ends == 0) {
        if (++word == Words) {
            return None;
        }
        ends = Load(bits_, word);
    }
    return word * WordBits + static_cast<std::size_t>(std::countr_zero(ends));
}

std::size_t EntryEnds::UpTo(std::size_t place) const {
    std::size_t word = place / WordBits;
    Word ends = Load(bits_, word) & UpToMask(place);
    while (ends == 0) {
        if (word-- == 0) {
            return 0;
        }
        ends = Load(bits_, word);
    }
    return word * WordBits + WordBits - 1 - static_cast<std::size_t>(std::countl_zero(ends));
}

void AddEnd(Page& page, std::size_t place) {
    std::uint8_t& bits = page[IndexForm::EndsAt + place / 8];
    bits = static_cast<std::uint8_t>(bits | 1 << (place % 8));
}

void InsertEnd(Page& page, std::size_t place, std::size_t size) {
    std::uint8_t* const bits = page.data() + IndexForm::EndsAt;
    const std::size_t first = place / WordBits;
    Loaded words(bits, first);
    const Word kept = words[first] & UpToMask(place);
    words[first] &= ~UpToMask(place);
    for (std::size_t word = first; word < Words; ++word) {
        Store(bits, word, words.MovedOn(word, size) | (word == first ? kept : 0));
    }
    AddEnd(page, place + size);
}

void RemoveEnd(Page& page, std::size_t begin, std::size_t end) {
    std::uint8_t* const bits = page.data() + IndexForm::EndsAt;
    const std::size_t first = begin / WordBits;
    Loaded words(bits, first);
    const Word kept = words[first] & UpToMask(begin);
    for (std::size_t word = first; word < end / WordBits; ++word) {
        words[word] = 0;
    }
    words[end / WordBits] &= ~UpToMask(end);
    for (std::size_t word = first; word < Words; ++word) {
        Store(bits, word, words.MovedUp(word, end - begin) | (word == first ? kept : 0));
    }
}

}  // namespace engine::jet
