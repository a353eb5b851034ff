#pragma once

#include "engine/jet/IndexCursor.h"
#include "engine/jet/TreePages.h"

#include <optional>

namespace engine::jet {

/// The entries of an index: the key of each row, and where the row is. They are ordered by key and, where
/// keys are the same, by row. Which rows may have which keys is not its business (see IndexRules.h).
///
/// Entries lie in leaves that are linked to one another, all on the same level, below nodes that tell the
/// last entry of each child. The root keeps its page. The last leaf of all may be a tail, of which its node
/// doesn't tell the last entry, so that rising keys change the leaf alone.
///
/// Trusts nothing that it keeps of the pages between two calls, so that a statement may be undone, or pages
/// be changed by others, at any time between them. A call that fails leaves changes behind that the
/// statement's undoing takes back. Damage that a call meets fails with DatabaseDamaged, in a sentence that
/// names the page.
class IndexTree {
public:
    /// `table` is the first page of the table's definition, and `root` what it names as the index's root.
    IndexTree(PageStore& store, IndexPages& pages, PageNumber table, PageNumber root)
        : pages_(store, pages, table, root) {}

    /// Fails (Other) for a key that is too long to be inserted: with the 4 bytes of its row, longer than
    /// IndexForm::LongestEntry.
    static void CheckLength(KeyView key);

    /// A row is told as its page times 256, and its number in it. An entry that stands there already is
    /// damage. Checks the length as well. True if no other entry has the key.
    bool Insert(KeyView key, std::uint32_t row);

    /// False if there is no such entry, which only a damaged file explains.
    [[nodiscard]] bool Remove(KeyView key, std::uint32_t row);

    /// Leaves the root as an empty leaf, and gives back all other pages of the tree.
    void Clear();

    /// Some row with this key, other than the one that is left out of account.
    std::optional<std::uint32_t> RowWith(KeyView key, std::optional<std::uint32_t> leftOut = {});

    IndexCursor First() const { return AtLeast({}); }
    IndexCursor Last() const;
    /// At the first entry whose key isn't smaller.
    IndexCursor AtLeast(KeyView key) const;
    /// At the last entry whose key is smaller.
    IndexCursor Before(KeyView key) const;

private:
    void MakeEntry(KeyView key, std::uint32_t row);
    bool HasEntry(const IndexPage& leaf) const;
    bool HasKeyBeside(const IndexPage& leaf, KeyView key);
    bool AtLeastHasKey(KeyView key) const;

    TreePages pages_;
    TreePath path_;
    Key entry_;
    Key neighbour_;
};

}  // namespace engine::jet
