#pragma once

#include "engine/jet/PageStore.h"

#include <memory>
#include <vector>

namespace engine::jet {

/// What a group of statements does, as far as the order matters in which its pages reach the file. Programs
/// that know nothing of the journal may find the file in the middle of it, if this one is ended there.
enum class GroupKind {
    Adds,     ///< Inserts and updates: rows first, then the entries that lead to them.
    Removes,  ///< Deletions and wipes: entries first, then the rows.
};

/// A page that a group writes. A group may have thousands, so none is copied that stays what it is until it's
/// written.
struct PageWrite {
    PageNumber number = 0;
    const Page* page = nullptr;
    const Page* before = nullptr;  ///< What the file has; null if the page was free or not there.
    bool isFreeMap = false;        ///< Tells which pages are free.
    std::unique_ptr<const Page>
        copy;  ///< Of a page that changes again before it's written: `page` is this one.
};

/// Puts the pages of a group in an order in which the file can be read after each of them: first what nobody
/// names yet, then who names it, last who has lost something to it. `pages` is the state with the group.
void OrderWrites(std::vector<PageWrite>& writes, GroupKind kind, PageStore& pages);

}  // namespace engine::jet
