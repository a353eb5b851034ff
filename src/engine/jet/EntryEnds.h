#pragma once

#include "engine/jet/IndexForm.h"
#include "engine/jet/PageStore.h"

namespace engine::jet {

/// Where the entries of an index page end, counted from where the first one begins: each but the first begins
/// where the one before it ends. Found bit by bit from any place, so that nobody has to read them all.
class EntryEnds {
public:
    explicit EntryEnds(const Page& page) : bits_(page.data() + IndexForm::EndsAt) {}

    bool Has(std::size_t place) const { return (bits_[place / 8] >> (place % 8) & 1) != 0; }
    bool HasAnyBehind(std::size_t place) const;

    /// The first end behind a place, None if there is none.
    std::size_t Behind(std::size_t place) const;
    /// The last end that isn't behind a place; 0 if there is none, since the first entry begins there.
    std::size_t UpTo(std::size_t place) const;

    static constexpr std::size_t None = IndexForm::EndsSize * 8;

private:
    const std::uint8_t* bits_;
};

/// For an entry of this size that is put at a place where another begins: all ends behind the place move on
/// by the size, and its own is added.
void InsertEnd(Page& page, std::size_t place, std::size_t size);
/// For an entry that is put behind all others.
void AddEnd(Page& page, std::size_t place);

/// Takes out the entry that lies between two places: all ends behind it move up.
void RemoveEnd(Page& page, std::size_t begin, std::size_t end);

}  // namespace engine::jet
