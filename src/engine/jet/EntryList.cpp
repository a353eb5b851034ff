#include "engine/jet/EntryList.h"

#include "engine/jet/PageNumbers.h"

#include <algorithm>
#include <cassert>
#include <cstring>

namespace engine::jet {

EntryList::EntryList(const IndexPage& page, std::size_t place, std::size_t removed,
                     std::span<const KeyView> added)
    : bytes_(2 * PageSize) {
    AddFrom(page, 0, place);
    std::for_each(added.begin(), added.end(), [this](KeyView entry) { Add(entry); });
    for (; removed > 0; --removed) {
        place = page.Behind(place);
    }
    AddFrom(page, place, page.Used());
}

// The entries between two places.
void EntryList::AddFrom(const IndexPage& page, std::size_t from, std::size_t to) {
    while (from < to) {
        const std::size_t behind = page.Behind(from);
        if (from != 0) {
            Append(page.Prefix());
        }
        Add(page.StoredBetween(from, behind));
        from = behind;
    }
}

void EntryList::Add(KeyView entry) {
    Append(entry);
    ends_.push_back(used_);
}

void EntryList::Append(KeyView bytes) {
    if (bytes.size() > bytes_.size() - used_) {
        bytes_.resize(2 * (used_ + bytes.size()));
    }
    std::copy(bytes.begin(), bytes.end(), bytes_.begin() + static_cast<std::ptrdiff_t>(used_));
    used_ += bytes.size();
}

KeyView EntryList::Entry(std::size_t number) const {
    const std::size_t begin = BytesUpTo(number);
    return KeyView(bytes_).subspan(begin, ends_[number] - begin);
}

// The bytes with which all begin; the last byte of each is never among them. Entries are in order, so that
// what the first and the last one share is shared by all.
std::size_t EntryList::SharedBytes(std::size_t from, std::size_t to) const {
    const KeyView first = Entry(from);
    const KeyView last = Entry(to - 1);
    const auto differ = std::mismatch(first.begin(), first.end(), last.begin(), last.end()).first;
    auto shared = static_cast<std::size_t>(differ - first.begin());
    for (std::size_t number = from; number < to; ++number) {
        shared = std::min(shared, Entry(number).size() - 1);
    }
    return shared;
}

std::size_t EntryList::StoredSize(std::size_t from, std::size_t to, std::size_t prefix) const {
    return BytesUpTo(to) - BytesUpTo(from) - prefix * (to - from - 1);
}

bool EntryList::Fits(std::size_t from, std::size_t to) const {
    return from == to || StoredSize(from, to, 0) <= IndexForm::Room ||
           StoredSize(from, to, SharedBytes(from, to)) <= IndexForm::Room;
}

void EntryList::Write(Page& page, std::size_t from, std::size_t to) const {
    assert(Fits(from, to));
    std::memset(page.data() + IndexForm::EndsAt, 0, IndexForm::EndsSize);
    const std::size_t prefix =
        from == to || StoredSize(from, to, 0) <= IndexForm::Room ? 0 : SharedBytes(from, to);
    std::size_t used = 0;
    for (std::size_t number = from; number < to; ++number) {
        const KeyView stored = Entry(number).subspan(number == from ? 0 : prefix);
        std::memcpy(page.data() + IndexForm::EntriesAt + used, stored.data(), stored.size());
        used += stored.size();
        AddEnd(page, used);
    }
    PutNumber(page, IndexForm::PrefixAt, 2, static_cast<std::uint32_t>(prefix));
    PutNumber(page, IndexForm::FreeBytesAt, 2, static_cast<std::uint32_t>(IndexForm::Room - used));
}

bool EntryList::CanDivide(std::size_t at) const {
    return at > 0 && at < Count() && Fits(0, at) && Fits(at, Count());
}

std::size_t EntryList::Middle() const {
    const auto half = std::lower_bound(ends_.begin(), ends_.end(), used_ / 2);
    const auto middle = static_cast<std::size_t>(half - ends_.begin());
    for (std::size_t distance = 0; distance <= Count(); ++distance) {
        if (CanDivide(middle + distance)) {
            return middle + distance;
        }
        if (distance < middle && CanDivide(middle - distance)) {
            return middle - distance;
        }
    }
    return 0;
}

std::size_t EntryList::MostFirst() const {
    for (std::size_t at = Count() - 1; at > 0; --at) {
        if (CanDivide(at)) {
            return at;
        }
    }
    return 0;
}

}  // namespace engine::jet
