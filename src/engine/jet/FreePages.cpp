#include "engine/jet/FreePages.h"

#include "engine/jet/Damage.h"
#include "engine/jet/RowPlace.h"
#include "engine/jet/UsageBits.h"
#include "engine/jet/UsageMap.h"

#include <algorithm>

namespace engine::jet {

using namespace UsageMapForm;

namespace {

// The header, this map, and the catalogue's definition.
constexpr PageNumber NeverFree = 3;
constexpr PageNumber HighestPage = 0xFFFFFF;
// The row grows by 32 pages at a time, as that of the original engine does.
constexpr std::size_t GrowthBytes = 4;

PageNumber FirstOf(std::size_t place) {
    return static_cast<PageNumber>(place) * PagesOfBitsPage;
}

}  // namespace

// A second row, an empty map, stands in every file. Nobody knows what for.
Page FreePages::MakeMapPage(PageNumber pages) {
    Page page{};
    ChangeableDataPage rows = ChangeableDataPage::Begin(page, MapPage, PageOwner::FreeMap);
    const QByteArray empty(UsualSize, '\0');
    for (int row = 0; row < 2; ++row) {
        rows.Add(BytesOf(empty, MapPage), RowState::Here);
    }
    ChangeableBytes map = rows.ChangeableRow(MapRow);
    const std::size_t bits = (UsualSize - InlineBitsAt) * 8;
    SetBits(map.ChangeablePart(InlineBitsAt, bits / 8), pages, bits, true);
    return page;
}

Bytes FreePages::Row() const {
    const DataPage page(pages_.Read(MapPage), MapPage, PageOwner::FreeMap);
    const Bytes row = page.Row(MapRow);
    const std::uint8_t kind = row.U8(0);
    if (page.State(MapRow) != RowState::Here || kind > ByReference ||
        (kind == Inline && (row.Size() < InlineBitsAt || row.U32(FirstPageAt) > HighestPage))) {
        RaiseDamaged(MapPage, QStringLiteral("has no map of the free pages"));
    }
    return row;
}

bool FreePages::IsInline() const {
    return Row().U8(0) == Inline;
}

FreePages::Reach FreePages::InlineReach() const {
    const Bytes row = Row();
    const PageNumber first = row.U32(FirstPageAt);
    return {first, first + static_cast<PageNumber>((row.Size() - InlineBitsAt) * 8)};
}

// References to pages behind the end of the file occur, and mean none.
std::vector<PageNumber> FreePages::References() const {
    const Bytes row = Row();
    std::vector<PageNumber> references;
    for (std::size_t at = ReferencesAt; at + 4 <= row.Size(); at += 4) {
        const PageNumber bitsPage = row.U32(at);
        references.push_back(bitsPage < pages_.Count() ? bitsPage : 0);
    }
    return references;
}

std::vector<PageNumber> FreePages::OwnPages() const {
    std::vector<PageNumber> own{MapPage};
    if (!IsInline()) {
        const std::vector<PageNumber> references = References();
        std::copy_if(references.begin(), references.end(), std::back_inserter(own),
                     [](PageNumber page) { return page != 0; });
    }
    return own;
}

std::optional<PageNumber> FreePages::LowestBehind(PageNumber page) const {
    return LowestFrom(std::max(page + 1, NeverFree));
}

bool FreePages::IsFree(PageNumber page) const {
    return page >= NeverFree && LowestFrom(page) == page;
}

std::optional<PageNumber> FreePages::LowestFrom(PageNumber from) const {
    std::optional<PageNumber> found;
    if (IsInline()) {
        const PageNumber first = InlineReach().first;
        if (const auto bit = FirstBit(Row().From(InlineBitsAt), from > first ? from - first : 0)) {
            found = first + static_cast<PageNumber>(*bit);
        }
    } else {
        const std::vector<PageNumber> references = References();
        for (std::size_t place = from / PagesOfBitsPage; place < references.size() && !found; ++place) {
            const PageNumber bitsPage = references[place];
            if (bitsPage == 0) {
                continue;
            }
            const PageNumber first = FirstOf(place);
            if (const auto bit =
                    FirstBit(BitsOfPage(pages_.Read(bitsPage), bitsPage), from > first ? from - first : 0)) {
                found = first + static_cast<PageNumber>(*bit);
            }
        }
    }
    return found && *found < pages_.Count() ? found : std::nullopt;
}

void FreePages::NoteUsed(PageNumber page) {
    Set(page, false);
}

void FreePages::NoteFree(PageNumber page) {
    Set(page, true);
}

void FreePages::Set(PageNumber page, bool isFree) {
    if (IsInline()) {
        const Reach reach = InlineReach();
        const bool isReached = page >= reach.first && page < reach.behind;
        if (!isReached && !Lengthen(page)) {
            TurnIntoReferences();
        }
    }
    ChangeableBytes bits = ChangeBits(page);
    SetBit(bits, IsInline() ? page - InlineReach().first : page % PagesOfBitsPage, isFree);
}

ChangeableBytes FreePages::ChangeBits(PageNumber page) {
    if (IsInline()) {
        ChangeableBytes row =
            ChangeableDataPage(pages_.Change(MapPage), MapPage, PageOwner::FreeMap).ChangeableRow(MapRow);
        return row.ChangeablePart(InlineBitsAt, row.Size() - InlineBitsAt);
    }
    const std::size_t place = page / PagesOfBitsPage;
    const std::vector<PageNumber> references = References();
    if (place >= references.size()) {
        RaiseDamaged(MapPage, QStringLiteral("has a map of the free pages too short for page %1").arg(page));
    }
    const PageNumber bitsPage = references[place] != 0 ? references[place] : AddBitsPage(place);
    BitsOfPage(pages_.Read(bitsPage), bitsPage);
    return ChangeableBytes(pages_.Change(bitsPage), bitsPage)
        .ChangeablePart(BitsPageHead, PageSize - BitsPageHead);
}

// Pages that the map didn't reach count as used where the file has them, and as free behind its end, as they
// do in the maps of the original engine.
bool FreePages::Lengthen(PageNumber toReach) {
    const Reach old = InlineReach();
    const PageNumber first = std::min(old.first, toReach / 8 * 8);
    const PageNumber behind = std::max(old.behind, toReach + 1);
    const std::size_t bitBytes = ((behind - first + 7) / 8 + GrowthBytes - 1) / GrowthBytes * GrowthBytes;
    const std::size_t size = InlineBitsAt + bitBytes;
    const bool isWhole = (old.first - first) % 8 == 0;
    if (!isWhole || !DataPage(pages_.Read(MapPage), MapPage, PageOwner::FreeMap).CanResize(MapRow, size)) {
        return false;
    }
    ChangeableDataPage page(pages_.Change(MapPage), MapPage, PageOwner::FreeMap);
    const QByteArray before = page.Row(MapRow).From(InlineBitsAt).Copy();
    page.Resize(MapRow, size);
    ChangeableBytes row = page.ChangeableRow(MapRow);
    row.Put32(FirstPageAt, first);
    row.Fill(InlineBitsAt, bitBytes, 0);
    ChangeableBytes bits = row.ChangeablePart(InlineBitsAt, bitBytes);
    bits.PutBytes((old.first - first) / 8, BytesOf(before, MapPage));
    const PageNumber meaningless = std::max({old.behind, pages_.Count(), first});
    SetBits(bits, std::min<std::size_t>(meaningless - first, bitBytes * 8), bitBytes * 8, true);
    return true;
}

void FreePages::TurnIntoReferences() {
    std::vector<PageNumber> free;
    for (auto page = Lowest(); page; page = LowestFrom(*page + 1)) {
        free.push_back(*page);
    }
    ChangeableDataPage page(pages_.Change(MapPage), MapPage, PageOwner::FreeMap);
    page.Resize(MapRow, UsualSize);
    ChangeableBytes row = page.ChangeableRow(MapRow);
    row.Fill(0, row.Size(), 0);
    row.Put8(0, ByReference);
    // One for each page that the file has; those behind come when it grows.
    for (std::size_t place = 0; FirstOf(place) < pages_.Count(); ++place) {
        if (References()[place] == 0) {
            AddBitsPage(place);
        }
    }
    for (const PageNumber freePage : free) {
        NoteFree(freePage);
    }
}

PageNumber FreePages::AddBitsPage(std::size_t place) {
    const PageNumber bitsPage = append_();
    ChangeableBytes bits = BeginBitsPage(pages_.Change(bitsPage), bitsPage);
    const PageNumber first = FirstOf(place);
    const PageNumber used = std::max(pages_.Count(), first) - first;
    SetBits(bits, std::min(used, PagesOfBitsPage), PagesOfBitsPage, true);
    ChangeableDataPage page(pages_.Change(MapPage), MapPage, PageOwner::FreeMap);
    page.ChangeableRow(MapRow).Put32(ReferencesAt + 4 * place, bitsPage);
    if (bitsPage / PagesOfBitsPage != place) {
        NoteUsed(bitsPage);
    }
    return bitsPage;
}

}  // namespace engine::jet
