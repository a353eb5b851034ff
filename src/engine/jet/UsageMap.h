#pragma once

#include "engine/jet/DataPage.h"
#include "engine/jet/RowPlace.h"

#include <optional>
#include <vector>

namespace engine::jet {

/// A usage map lies in a row: either its bits themselves, for pages from a first one on, or the numbers of
/// pages with bits, each for as many pages as it has bits.
namespace UsageMapForm {
inline constexpr std::uint8_t Inline = 0;
inline constexpr std::size_t FirstPageAt = 1;
inline constexpr std::size_t InlineBitsAt = 5;
inline constexpr std::uint8_t ByReference = 1;
inline constexpr std::size_t ReferencesAt = 1;
inline constexpr std::size_t BitsPageHead = 4;
inline constexpr PageNumber PagesOfBitsPage = (PageSize - BitsPageHead) * 8;
/// The usual length of the row: 512 bits inline, or 17 references, which reach every page a file can have.
inline constexpr std::size_t UsualSize = 69;
}  // namespace UsageMapForm

/// The bits of a page of them.
Bytes BitsOfPage(const Page& page, PageNumber number);
/// Makes a page of bits, none of them set, of whatever it was.
ChangeableBytes BeginBitsPage(Page& page, PageNumber number);

/// A set of pages of the file: those that belong to a table, an index or a column of long values, or those
/// of them that have room.
///
/// What was learnt from the pages holds until maps change (PageStore::StateOfMaps), so that it is right after
/// an undo as well. A map that isn't one, or names pages that the file doesn't have, fails with
/// DatabaseDamaged.
class UsageMap {
public:
    UsageMap(PageStore& pages, RowPlace place) : pages_(pages), place_(place) {}

    bool Has(PageNumber page) const;
    /// The lowest page from `from` on, and the highest one below `below`.
    std::optional<PageNumber> First(PageNumber from = 0) const;
    std::optional<PageNumber> Last(PageNumber below) const;
    std::optional<PageNumber> Last() const;
    std::vector<PageNumber> All() const;

    /// Takes further pages where the bits don't fit the row any more.
    void Add(PageNumber page);
    void Remove(PageNumber page);
    void RemoveAll();

private:
    /// Rows are read and added one by one, mostly many of them on one page.
    struct Learnt {
        std::uint64_t state = 0;
        std::optional<PageNumber> has;   ///< A page of the map.
        std::optional<PageNumber> last;  ///< Its last one.
    };

    Learnt& LearntByNow() const;
    std::optional<PageNumber> Find(PageNumber from) const;
    Bytes Row() const;
    ChangeableBytes ChangeRow();
    PageNumber Inside(PageNumber page) const;
    std::size_t ReferenceCount(const Bytes& row) const;
    PageNumber Reference(const Bytes& row, std::size_t place) const;
    std::optional<PageNumber> FirstReferenced(const Bytes& row, PageNumber from) const;
    std::optional<PageNumber> LastReferenced(const Bytes& row, PageNumber below) const;
    void Set(PageNumber page, bool isSet);
    void SetReferenced(const Bytes& row, PageNumber page, bool isSet);
    bool MoveWindow(PageNumber toReach);
    void TurnIntoReferences();

    PageStore& pages_;
    RowPlace place_;
    mutable Learnt learnt_;
};

}  // namespace engine::jet
