#include "engine/jet/IndexPageEdit.h"

#include "engine/jet/PageNumbers.h"

#include <algorithm>
#include <cstring>

namespace engine::jet {

namespace {

std::uint8_t* At(Page& page, std::size_t place) {
    return page.data() + IndexForm::EntriesAt + place;
}

void PutUsed(Page& page, std::size_t used) {
    PutNumber(page, IndexForm::FreeBytesAt, 2, static_cast<std::uint32_t>(IndexForm::Room - used));
}

bool BeginsWith(KeyView entry, KeyView prefix) {
    return entry.size() > prefix.size() && std::equal(prefix.begin(), prefix.end(), entry.begin());
}

// What of an entry would be stored at a place, nothing if it can't be without changing others.
KeyView StoredPart(const IndexPage& view, std::size_t place, KeyView entry) {
    if (view.PrefixSize() == 0 || view.IsEmpty()) {
        return entry;
    }
    // The entry that is first now would have to give away what it shares.
    if (place == 0 || !BeginsWith(entry, view.Prefix())) {
        return {};
    }
    return entry.subspan(view.PrefixSize());
}

}  // namespace

bool TryInsert(Page& page, const IndexPage& view, std::size_t place, KeyView entry) {
    const KeyView stored = StoredPart(view, place, entry);
    const std::size_t used = view.Used();
    if (stored.empty() || stored.size() > IndexForm::Room - used) {
        return false;
    }
    if (used == 0) {
        PutNumber(page, IndexForm::PrefixAt, 2, 0);
    }
    std::memmove(At(page, place + stored.size()), At(page, place), used - place);
    std::memcpy(At(page, place), stored.data(), stored.size());
    if (place == used) {
        AddEnd(page, used + stored.size());
    } else {
        InsertEnd(page, place, stored.size());
    }
    PutUsed(page, used + stored.size());
    return true;
}

bool TryErase(Page& page, const IndexPage& view, std::size_t place) {
    if (place == 0 && view.PrefixSize() > 0) {
        return false;
    }
    const std::size_t end = view.Behind(place);
    const std::size_t used = view.Used();
    std::memmove(At(page, place), At(page, end), used - end);
    RemoveEnd(page, place, end);
    PutUsed(page, used - (end - place));
    return true;
}

bool TryReplace(Page& page, const IndexPage& view, std::size_t place, KeyView entry) {
    const bool isFirst = place == 0;
    if (isFirst && !BeginsWith(entry, view.Prefix())) {
        return false;
    }
    const KeyView stored = isFirst ? entry : StoredPart(view, place, entry);
    if (stored.empty() || stored.size() != view.Behind(place) - place) {
        return false;
    }
    std::memcpy(At(page, place), stored.data(), stored.size());
    return true;
}

void BeginIndexPage(Page& page, std::uint8_t kind, PageNumber owner, std::uint8_t height) {
    page.fill(0);
    page[IndexForm::KindAt] = kind;
    page[IndexForm::MarkAt] = IndexForm::Mark;
    page[IndexForm::HeightAt] = height;
    PutNumber(page, IndexForm::OwnerAt, 4, owner);
    PutUsed(page, 0);
}

}  // namespace engine::jet
