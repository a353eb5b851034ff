#pragma once

#include "engine/jet/UsageMap.h"

namespace engine::jet {

/// The pages that rows of one kind lie on: the rows of a table, or the pieces of the long values of one of
/// its columns. Knows which pages these are and which of them have room, from the two maps.
class RowPages {
public:
    /// `owner` is what each of the pages says of itself. `room` with page 0: there is no such map.
    RowPages(PageStore& pages, std::uint32_t owner, RowPlace owned, RowPlace room);

    /// A row of the kind, wherever it lies; fails with DatabaseDamaged for a page of somebody else.
    DataPage PageOf(PageNumber page) const;
    /// Also fails for a page that the map doesn't have, so that nothing is changed that isn't ours.
    ChangeableDataPage ChangePageOf(PageNumber page);

    std::optional<PageNumber> FirstPage(PageNumber from = 0) const { return owned_.First(from); }
    bool Owns(PageNumber page) const { return owned_.Has(page); }

    /// Puts a row where there is room, on a new page if need be. It must not be longer than MostBytesOfPage.
    /// A new row of a table comes behind all others, so that whoever reads the table through meets rows in
    /// the order in which they were added.
    RowPlace Add(const Bytes& row, RowState state);
    /// Takes out the bytes of a row. Its number stays taken, so that it means no other row.
    void Delete(RowPlace place);
    /// Puts other bytes in a row's place if its page has room for them, or does nothing and says no.
    bool Replace(RowPlace place, const Bytes& with, RowState state);

    /// Gives a page back on which no row lives any more. Only where nobody keeps numbers of rows: those of a
    /// table's rows are kept by whoever has read them.
    void GiveBackIfEmpty(PageNumber page);

    enum class Keep { OnePage, NoPage };
    /// Gives all pages back, or all but the lowest, which then has no rows.
    void Wipe(Keep keep);

private:
    std::optional<PageNumber> FindRoomBehindAll(std::size_t size);
    std::optional<PageNumber> FindRoom(std::size_t size);
    PageNumber NewPage();
    void NoteIfFull(PageNumber page);
    void NoteRoom(PageNumber page, const DataPage& rows);

    PageStore& pages_;
    std::uint32_t owner_;
    UsageMap owned_;
    std::optional<UsageMap> room_;
};

}  // namespace engine::jet
