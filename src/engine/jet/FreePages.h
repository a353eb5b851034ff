#pragma once

#include "engine/jet/DataPage.h"

#include <functional>
#include <optional>
#include <vector>

namespace engine::jet {

/// The map of all pages of a file that nobody uses. Like other usage maps it lies in a row, of page 1; unlike
/// them it grows with the file, and what it says of pages behind the end of the file means nothing.
class FreePages {
public:
    static constexpr PageNumber MapPage = 1;
    static constexpr int MapRow = 0;

    /// The page of the map, in a new file of so many pages.
    static Page MakeMapPage(PageNumber pages);

    /// `append` gives a further page at the end of the file, of which the map need not know.
    FreePages(PageStore& pages, std::function<PageNumber()> append)
        : pages_(pages), append_(std::move(append)) {}

    /// The lowest free page of the file with a higher number than this one, none if all are in use.
    std::optional<PageNumber> LowestBehind(PageNumber page) const;
    std::optional<PageNumber> Lowest() const { return LowestBehind(0); }
    bool IsFree(PageNumber page) const;

    void NoteUsed(PageNumber page);
    void NoteFree(PageNumber page);

    /// The pages that the map itself lies on.
    std::vector<PageNumber> OwnPages() const;

private:
    struct Reach {
        PageNumber first = 0;
        PageNumber behind = 0;
    };

    Bytes Row() const;
    bool IsInline() const;
    Reach InlineReach() const;
    std::vector<PageNumber> References() const;
    std::optional<PageNumber> LowestFrom(PageNumber from) const;
    void Set(PageNumber page, bool isFree);
    ChangeableBytes ChangeBits(PageNumber page);
    bool Lengthen(PageNumber toReach);
    void TurnIntoReferences();
    PageNumber AddBitsPage(std::size_t place);

    PageStore& pages_;
    std::function<PageNumber()> append_;
};

}  // namespace engine::jet
