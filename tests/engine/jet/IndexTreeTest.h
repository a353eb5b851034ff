#pragma once

#include "Hex.h"
#include "TreeCheck.h"
#include "WatchedPages.h"
#include "engine/jet/IndexPageEdit.h"
#include "engine/jet/IndexTree.h"

#include <gtest/gtest.h>

#include <set>

namespace engine::jet {

/// An empty index in memory.
class OwnIndex {
public:
    OwnIndex() {
        store.Take();
        table = store.Take();
        root = store.Take();
        pages.pages.insert(root);
        BeginIndexPage(store.Change(root), IndexForm::Leaf, table, 0);
        tree.emplace(store, pages, table, root);
    }

    TreeFindings Check() { return CheckTree(store, table, root, pages.pages); }

    WatchedPages store;
    PageSet pages;
    PageNumber table = 0;
    PageNumber root = 0;
    std::optional<IndexTree> tree;
};

inline Key WithRow(Key key, std::uint32_t row) {
    AppendNumber(key, row);
    return key;
}

}  // namespace engine::jet
