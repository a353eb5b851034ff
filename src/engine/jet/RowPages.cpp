#include "engine/jet/RowPages.h"

#include "engine/jet/Damage.h"

namespace engine::jet {

namespace {

// A page with less room than this, which is about what the original engine leaves as well, is no longer
// looked at; one with more is kept for a shorter row.
constexpr std::size_t WorthLookingAt = 256;
// How many pages with too little room are looked at before a new one is taken.
constexpr int MostLooks = 16;

std::optional<UsageMap> RoomMap(PageStore& pages, RowPlace room) {
    return room.page == 0 ? std::nullopt : std::optional<UsageMap>(std::in_place, pages, room);
}

}  // namespace

RowPages::RowPages(PageStore& pages, std::uint32_t owner, RowPlace owned, RowPlace room)
    : pages_(pages), owner_(owner), owned_(pages, owned), room_(RoomMap(pages, room)) {
}

DataPage RowPages::PageOf(PageNumber page) const {
    return {pages_.Read(page), page, owner_};
}

ChangeableDataPage RowPages::ChangePageOf(PageNumber page) {
    if (!Owns(page)) {
        RaiseDamaged(page, QStringLiteral("is not among the pages of the rows that lead there"));
    }
    return ChangeOwn(page);
}

ChangeableDataPage RowPages::ChangeOwn(PageNumber page) {
    // Looked at before it counts as changed.
    PageOf(page);
    const ChangeableDataPage rows(pages_.Change(page), page, owner_, pages_.HasShape(page, PageShape::Rows));
    pages_.NoteShape(page, PageShape::Rows);
    return rows;
}

RowPlace RowPages::Add(const Bytes& row, RowState state) {
    const bool isNewRow = state == RowState::Here && owner_ != PageOwner::LongValues;
    const auto found = isNewRow ? FindRoomBehindAll(row.Size()) : FindRoom(row.Size());
    const PageNumber page = found ? *found : NewPage();
    // A new row's page comes from the map of the own ones.
    ChangeableDataPage rows = isNewRow ? ChangeOwn(page) : ChangePageOf(page);
    return {page, static_cast<std::uint8_t>(rows.Add(row, state))};
}

std::optional<PageNumber> RowPages::FindRoomBehindAll(std::size_t size) {
    const auto last = owned_.Last();
    if (!last || PageOf(*last).HasRoomFor(size)) {
        return last;
    }
    if (room_ && room_->Has(*last)) {
        NoteIfFull(*last);
    }
    return std::nullopt;
}

void RowPages::NoteIfFull(PageNumber page) {
    if (!PageOf(page).HasRoomFor(WorthLookingAt)) {
        room_->Remove(page);
    }
}

std::optional<PageNumber> RowPages::FindRoom(std::size_t size) {
    if (!room_) {
        return FindRoomBehindAll(size);
    }
    auto page = room_->Last();
    for (int looks = 0; page && looks < MostLooks; ++looks) {
        if (PageOf(*page).HasRoomFor(size)) {
            return page;
        }
        NoteIfFull(*page);
        page = room_->Last(*page);
    }
    return std::nullopt;
}

// Long values have no order, and so take the pages that earlier ones gave back.
PageNumber RowPages::NewPage() {
    const bool isOrdered = owner_ != PageOwner::LongValues;
    const PageNumber page = pages_.TakeBehind(isOrdered ? owned_.Last().value_or(0) : 0);
    ChangeableDataPage::Begin(pages_.Change(page), page, owner_);
    owned_.Add(page);
    if (room_) {
        room_->Add(page);
    }
    return page;
}

void RowPages::Delete(RowPlace place) {
    ChangeableDataPage rows = ChangePageOf(place.page);
    rows.Delete(place.row);
    NoteRoom(place.page, rows);
}

bool RowPages::Replace(RowPlace place, const Bytes& with, RowState state) {
    if (!PageOf(place.page).CanResize(place.row, with.Size())) {
        return false;
    }
    ChangeableDataPage rows = ChangePageOf(place.page);
    rows.Replace(place.row, with, state);
    NoteRoom(place.page, rows);
    return true;
}

void RowPages::GiveBackIfEmpty(PageNumber page) {
    if (!PageOf(page).IsAllDeleted()) {
        return;
    }
    owned_.Remove(page);
    if (room_) {
        room_->Remove(page);
    }
    pages_.GiveBack(page);
}

void RowPages::NoteRoom(PageNumber page, const DataPage& rows) {
    if (room_ && rows.HasRoomFor(WorthLookingAt) && !room_->Has(page)) {
        room_->Add(page);
    }
}

void RowPages::Wipe(Keep keep) {
    std::vector<PageNumber> given = owned_.All();
    std::optional<PageNumber> kept;
    if (keep == Keep::OnePage && !given.empty()) {
        kept = given.front();
        given.erase(given.begin());
        ChangePageOf(*kept);
        ChangeableDataPage::Begin(pages_.Change(*kept), *kept, owner_);
    }
    // Nothing is given back that somebody else uses, whatever the map says.
    for (const PageNumber page : given) {
        PageOf(page);
    }
    owned_.RemoveAll();
    if (room_) {
        room_->RemoveAll();
    }
    if (kept) {
        owned_.Add(*kept);
        if (room_) {
            room_->Add(*kept);
        }
    }
    for (const PageNumber page : given) {
        pages_.GiveBack(page);
    }
}

}  // namespace engine::jet
