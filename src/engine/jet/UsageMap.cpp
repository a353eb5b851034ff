#include "engine/jet/UsageMap.h"

#include "engine/jet/Damage.h"
#include "engine/jet/UsageBits.h"

#include <algorithm>

namespace engine::jet {

using namespace UsageMapForm;

namespace {

// Bits inline begin at a whole byte of the map of all pages.
constexpr PageNumber WindowStep = 8;
// Row pointers have room for no higher number, so that sums of pages and bits stay numbers.
constexpr PageNumber HighestPage = 0xFFFFFF;

std::size_t InlineBitCount(const Bytes& row) {
    return (row.Size() - InlineBitsAt) * 8;
}

}  // namespace

Bytes BitsOfPage(const Page& page, PageNumber number) {
    if (page[0] != PageKind::UsageBits) {
        RaiseDamaged(number,
                     QStringLiteral("is of kind %1, where bits of a usage map should be").arg(page[0]));
    }
    return Bytes(page, number).From(BitsPageHead);
}

ChangeableBytes BeginBitsPage(Page& page, PageNumber number) {
    page.fill(0);
    page[0] = PageKind::UsageBits;
    page[1] = 1;
    return ChangeableBytes(page, number).ChangeablePart(BitsPageHead, PageSize - BitsPageHead);
}

Bytes UsageMap::Row() const {
    const DataPage page(pages_.Read(place_.page), place_.page, PageOwner::Nobody);
    if (page.State(place_.row) != RowState::Here) {
        RaiseDamaged(place_.page,
                     QStringLiteral("has a usage map in row %1 that is deleted").arg(place_.row));
    }
    const Bytes row = page.Row(place_.row);
    const std::uint8_t kind = row.U8(0);
    if (kind > ByReference || (kind == Inline && row.From(InlineBitsAt).Size() == 0)) {
        RaiseDamaged(place_.page, QStringLiteral("has in row %1 no usage map").arg(place_.row));
    }
    if (kind == Inline && row.U32(FirstPageAt) > HighestPage) {
        RaiseDamaged(place_.page, QStringLiteral("has in row %1 a usage map that begins at page %2")
                                      .arg(place_.row)
                                      .arg(row.U32(FirstPageAt)));
    }
    return row;
}

ChangeableBytes UsageMap::ChangeRow() {
    ChangeableDataPage page(pages_.Change(place_.page), place_.page, PageOwner::Nobody);
    return page.ChangeableRow(place_.row);
}

PageNumber UsageMap::Inside(PageNumber page) const {
    if (page >= pages_.Count()) {
        RaiseDamaged(place_.page,
                     QStringLiteral("has in row %1 a usage map that names page %2, which isn't there")
                         .arg(place_.row)
                         .arg(page));
    }
    return page;
}

std::size_t UsageMap::ReferenceCount(const Bytes& row) const {
    return (row.Size() - ReferencesAt) / 4;
}

PageNumber UsageMap::Reference(const Bytes& row, std::size_t place) const {
    return row.U32(ReferencesAt + 4 * place);
}

bool UsageMap::Has(PageNumber page) const {
    return First(page) == page;
}

UsageMap::Learnt& UsageMap::LearntByNow() const {
    if (learnt_.state != pages_.StateOfMaps()) {
        learnt_ = {pages_.StateOfMaps(), std::nullopt, std::nullopt};
    }
    return learnt_;
}

std::optional<PageNumber> UsageMap::First(PageNumber from) const {
    Learnt& learnt = LearntByNow();
    if (learnt.has == from) {
        return from;
    }
    const auto found = Find(from);
    if (found) {
        learnt.has = found;
    }
    return found;
}

std::optional<PageNumber> UsageMap::Last() const {
    Learnt& learnt = LearntByNow();
    if (!learnt.last) {
        learnt.last = Last(pages_.Count());
    }
    return learnt.last;
}

std::optional<PageNumber> UsageMap::Find(PageNumber from) const {
    const Bytes row = Row();
    if (row.U8(0) == ByReference) {
        return FirstReferenced(row, from);
    }
    const PageNumber first = row.U32(FirstPageAt);
    const auto bit = FirstBit(row.From(InlineBitsAt), from > first ? from - first : 0);
    return bit ? std::optional(Inside(first + static_cast<PageNumber>(*bit))) : std::nullopt;
}

std::optional<PageNumber> UsageMap::FirstReferenced(const Bytes& row, PageNumber from) const {
    for (std::size_t place = from / PagesOfBitsPage; place < ReferenceCount(row); ++place) {
        const PageNumber bitsPage = Reference(row, place);
        if (bitsPage == 0) {
            continue;
        }
        const PageNumber first = static_cast<PageNumber>(place) * PagesOfBitsPage;
        const auto bit =
            FirstBit(BitsOfPage(pages_.Read(bitsPage), bitsPage), from > first ? from - first : 0);
        if (bit) {
            return Inside(first + static_cast<PageNumber>(*bit));
        }
    }
    return std::nullopt;
}

std::optional<PageNumber> UsageMap::Last(PageNumber below) const {
    const Bytes row = Row();
    if (row.U8(0) == ByReference) {
        return LastReferenced(row, below);
    }
    const PageNumber first = row.U32(FirstPageAt);
    const auto bit = LastBit(row.From(InlineBitsAt), below > first ? below - first : 0);
    return bit ? std::optional(first + static_cast<PageNumber>(*bit)) : std::nullopt;
}

std::optional<PageNumber> UsageMap::LastReferenced(const Bytes& row, PageNumber below) const {
    const std::size_t behind =
        std::min<std::size_t>(ReferenceCount(row), (below + PagesOfBitsPage - 1) / PagesOfBitsPage);
    for (std::size_t place = behind; place > 0; --place) {
        const PageNumber bitsPage = Reference(row, place - 1);
        if (bitsPage == 0) {
            continue;
        }
        const PageNumber first = static_cast<PageNumber>(place - 1) * PagesOfBitsPage;
        const auto bit = LastBit(BitsOfPage(pages_.Read(bitsPage), bitsPage), below - first);
        if (bit) {
            return first + static_cast<PageNumber>(*bit);
        }
    }
    return std::nullopt;
}

std::vector<PageNumber> UsageMap::All() const {
    std::vector<PageNumber> all;
    for (auto page = First(); page; page = First(*page + 1)) {
        all.push_back(*page);
    }
    return all;
}

void UsageMap::Add(PageNumber page) {
    Inside(page);
    const Bytes row = Row();
    if (row.U8(0) == Inline) {
        const PageNumber first = row.U32(FirstPageAt);
        const bool isReached = page >= first && page - first < InlineBitCount(row);
        if (!isReached && !MoveWindow(page)) {
            TurnIntoReferences();
        }
    }
    Set(page, true);
}

void UsageMap::Remove(PageNumber page) {
    if (Has(page)) {
        Set(page, false);
    }
}

void UsageMap::RemoveAll() {
    const Bytes row = Row();
    if (row.U8(0) == Inline) {
        ChangeRow().Fill(InlineBitsAt, row.Size() - InlineBitsAt, 0);
        return;
    }
    for (std::size_t place = 0; place < ReferenceCount(row); ++place) {
        if (const PageNumber bitsPage = Reference(row, place); bitsPage != 0) {
            BitsOfPage(pages_.Read(bitsPage), bitsPage);
            BeginBitsPage(pages_.Change(bitsPage), bitsPage);
        }
    }
}

void UsageMap::Set(PageNumber page, bool isSet) {
    const Bytes row = Row();
    if (row.U8(0) == ByReference) {
        SetReferenced(row, page, isSet);
        return;
    }
    const PageNumber first = row.U32(FirstPageAt);
    ChangeableBytes changed = ChangeRow();
    SetBit(changed.ChangeablePart(InlineBitsAt, changed.Size() - InlineBitsAt), page - first, isSet);
}

void UsageMap::SetReferenced(const Bytes& row, PageNumber page, bool isSet) {
    const std::size_t place = page / PagesOfBitsPage;
    if (place >= ReferenceCount(row)) {
        RaiseDamaged(
            place_.page,
            QStringLiteral("has in row %1 a usage map too short for page %2").arg(place_.row).arg(page));
    }
    PageNumber bitsPage = Reference(row, place);
    if (bitsPage == 0) {
        bitsPage = pages_.Take();
        BeginBitsPage(pages_.Change(bitsPage), bitsPage);
        ChangeRow().Put32(ReferencesAt + 4 * place, bitsPage);
    }
    BitsOfPage(pages_.Read(bitsPage), bitsPage);
    ChangeableBytes bits(pages_.Change(bitsPage), bitsPage);
    SetBit(bits.ChangeablePart(BitsPageHead, PageSize - BitsPageHead), page % PagesOfBitsPage, isSet);
}

// Whether all pages of the map and the further one lie close enough together for bits in the row.
bool UsageMap::MoveWindow(PageNumber toReach) {
    const std::vector<PageNumber> all = All();
    const PageNumber lowest = all.empty() ? toReach : std::min(all.front(), toReach);
    const PageNumber highest = all.empty() ? toReach : std::max(all.back(), toReach);
    const PageNumber first = lowest / WindowStep * WindowStep;
    if (highest - first >= InlineBitCount(Row())) {
        return false;
    }
    ChangeableBytes row = ChangeRow();
    row.Fill(InlineBitsAt, row.Size() - InlineBitsAt, 0);
    row.Put32(FirstPageAt, first);
    for (const PageNumber page : all) {
        SetBit(row.ChangeablePart(InlineBitsAt, row.Size() - InlineBitsAt), page - first, true);
    }
    return true;
}

void UsageMap::TurnIntoReferences() {
    const std::vector<PageNumber> all = All();
    ChangeableBytes row = ChangeRow();
    row.Fill(0, row.Size(), 0);
    row.Put8(0, ByReference);
    for (const PageNumber page : all) {
        Set(page, true);
    }
}

}  // namespace engine::jet
