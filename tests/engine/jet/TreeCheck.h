#pragma once

#include "engine/jet/PageStore.h"

#include <cstdint>
#include <set>
#include <string>
#include <vector>

namespace engine::jet {

/// What a walk through all pages of an index finds.
struct TreeFindings {
    /// One line for each thing that isn't as it must be.
    std::vector<std::string> faults;
    /// All entries, with key and row, in the order of the leaves.
    std::vector<std::vector<std::uint8_t>> entries;
    int levels = 0;
    int leaves = 0;
    int nodes = 0;
    int tails = 0;
    int pagesWithPrefix = 0;
};

/// Looks at each byte that says something, with nothing of the engine but the store: kinds and owners, free
/// bytes, ends and prefixes, the order of entries, those of nodes, neighbours, tails, heights, and that the
/// pages of the tree are exactly those of the list.
TreeFindings CheckTree(PageStore& store, PageNumber table, PageNumber root,
                       const std::set<PageNumber>& pages);

}  // namespace engine::jet
