#pragma once

#include "engine/jet/PageStore.h"

#include <vector>

namespace engine::jet {

/// What a group of statements does, as far as the order matters in which its pages reach the file. Programs
/// that know nothing of the journal may find the file in the middle of it, if this one is ended there.
enum class GroupKind {
    Adds,     ///< Inserts and updates: rows first, then the entries that lead to them.
    Removes,  ///< Deletions and wipes: entries first, then the rows.
};

/// A page that a group writes.
struct PageWrite {
    PageNumber number = 0;
    Page page{};
    const Page* before = nullptr;  ///< What the file has; null if the page was free or not there.
    bool isFreeMap = false;        ///< Tells which pages are free.
};

/// Puts the pages of a group in an order in which the file can be read after each of them: first what nobody
/// names yet, then who names it, last who has lost something to it. `pages` is the state with the group.
void OrderWrites(std::vector<PageWrite>& writes, GroupKind kind, PageStore& pages);

}  // namespace engine::jet
