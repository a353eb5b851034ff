#include "engine/jet/IndexPage.h"

#include "engine/Error.h"
#include "engine/jet/PageNumbers.h"

#include <algorithm>

namespace engine::jet {

void RaiseDamagedIndex(PageNumber page, const QString& what) {
    throw Error(ErrorNumber::DatabaseDamaged,
                QStringLiteral("The database is damaged: page %1 of an index %2.").arg(page).arg(what));
}

IndexPage::IndexPage(const Page& page, PageNumber number, PageNumber owner, bool isKnown)
    : page_(&page), number_(number), ends_(page) {
    if (!IsLeaf() && page[IndexForm::KindAt] != IndexForm::Node) {
        RaiseDamagedIndex(number, QStringLiteral("is none"));
    }
    if (NumberAt(page, IndexForm::OwnerAt, 4) != owner) {
        RaiseDamagedIndex(number, QStringLiteral("belongs to another table"));
    }
    const std::size_t free = NumberAt(page, IndexForm::FreeBytesAt, 2);
    if (free > IndexForm::Room) {
        RaiseDamagedIndex(number, QStringLiteral("has more free bytes than bytes"));
    }
    used_ = IndexForm::Room - free;
    tail_ = IsLeaf() ? 0 : NumberAt(page, IndexForm::TailAt, 4);
    if (!isKnown) {
        CheckEnds();
    }
    if (used_ > 0) {
        prefix_ = NumberAt(page, IndexForm::PrefixAt, 2);
        if (prefix_ >= Behind(0)) {
            RaiseDamagedIndex(number, QStringLiteral("has entries shorter than what they share"));
        }
    }
}

void IndexPage::CheckEnds() const {
    if (ends_.Has(0) || (used_ > 0 && !ends_.Has(used_)) || ends_.HasAnyBehind(used_)) {
        RaiseDamagedIndex(number_, QStringLiteral("has entries that end elsewhere than its bytes"));
    }
}

PageNumber IndexPage::Previous() const {
    return NumberAt(*page_, IndexForm::PreviousAt, 4);
}

PageNumber IndexPage::Next() const {
    return NumberAt(*page_, IndexForm::NextAt, 4);
}

KeyView IndexPage::StoredBetween(std::size_t place, std::size_t behind) const {
    return {page_->data() + IndexForm::EntriesAt + place, behind - place};
}

KeyView IndexPage::Prefix() const {
    return StoredBetween(0, prefix_);
}

// Looks at the guess and at its neighbour first. Goes on halfway between two places, wherever an entry lies
// there, so that no list of places is needed.
std::size_t IndexPage::FirstNotLess(KeyView entry, std::size_t guess) const {
    std::size_t begin = 0;
    std::size_t end = used_;
    std::size_t middle = guess;
    for (bool isGuess = true; begin < end; isGuess = false) {
        const std::size_t place = ends_.UpTo(std::min(middle, end - 1));
        const std::size_t behind = Behind(place);
        std::size_t neighbour = 0;
        if (Compare(place, behind, entry) < 0) {
            begin = neighbour = behind;
        } else {
            end = place;
            neighbour = place - 1;
        }
        middle = isGuess ? neighbour : (begin + end) / 2;
    }
    return begin;
}

bool IndexPage::IsEntryAt(std::size_t place, KeyView entry) const {
    return Compare(place, Behind(place), entry) == 0;
}

int IndexPage::Compare(std::size_t place, std::size_t behind, KeyView entry) const {
    const KeyView stored = StoredBetween(place, behind);
    const KeyView shared = place == 0 ? KeyView() : Prefix();
    const std::size_t whole = shared.size() + stored.size();
    const std::size_t size = whole - std::min(whole, ChildSize());
    if (shared.empty()) {
        return jet::Compare(stored.first(size), entry);
    }
    const KeyView front = shared.first(std::min(shared.size(), size));
    const int order = jet::Compare(front, entry.first(std::min(front.size(), entry.size())));
    if (order != 0) {
        return order;
    }
    return jet::Compare(stored.first(size - front.size()), entry.subspan(front.size()));
}

void IndexPage::CopyWhole(std::size_t place, Key& into) const {
    const KeyView shared = place == 0 ? KeyView() : Prefix();
    const KeyView stored = StoredAt(place);
    into.resize(shared.size() + stored.size());
    std::copy(shared.begin(), shared.end(), into.begin());
    std::copy(stored.begin(), stored.end(), into.begin() + static_cast<std::ptrdiff_t>(shared.size()));
    if (into.size() <= IndexForm::RowSize + ChildSize()) {
        RaiseDamagedIndex(number_, QStringLiteral("has an entry without a key"));
    }
}

void IndexPage::CopyEntry(std::size_t place, Key& into) const {
    CopyWhole(place, into);
    into.erase(into.end() - static_cast<std::ptrdiff_t>(ChildSize()), into.end());
}

Key IndexPage::EntryAt(std::size_t place) const {
    Key entry;
    CopyEntry(place, entry);
    return entry;
}

PageNumber IndexPage::ChildAt(std::size_t place) const {
    const KeyView stored = StoredAt(place);
    if (stored.size() > IndexForm::RowSize + IndexForm::ChildSize) {
        return NumberOf(stored.last(IndexForm::ChildSize));
    }
    Key whole;
    CopyWhole(place, whole);
    return NumberOf(KeyView(whole).last(IndexForm::ChildSize));
}

}  // namespace engine::jet
