#pragma once

#include "engine/jet/EntryList.h"
#include "engine/jet/TreePages.h"

namespace engine::jet {

/// Changes the entry that a path leads to, and all that has to follow: pages that are divided or given up,
/// and the nodes above, up to the root.
///
/// Each node tells the last entry of its children, exactly. It follows when that changes, so an entry that
/// comes last in a leaf, or leaves it, may change nodes up to the root.
class TreeEditor {
public:
    /// The path leads from the root to a leaf, and there to where the entry belongs or is. Afterwards it's
    /// but a guess, and the view of the leaf stands no longer.
    TreeEditor(TreePages& pages, TreePath& path) : pages_(pages), path_(path) {}

    void Insert(const IndexPage& leaf, KeyView entry);
    void Remove(const IndexPage& leaf);

private:
    /// What a page's parent has to know of a change.
    struct Change {
        /// Whether the last entry below the page is another one now.
        bool isLast = false;
        /// A new page that has taken a part of the entries, and whether it is the part behind.
        PageNumber divided = 0;
        bool isDividedBehind = false;
    };

    /// A change of entries: these come to a place, where one may be removed.
    struct Splice {
        std::size_t place;
        std::size_t removed;
        std::span<const KeyView> added;
    };

    PageNumber PageOf(std::size_t level) const { return path_[level].page; }

    void Apply(std::size_t level, const Splice& splice, bool isLast);
    void Rewrite(std::size_t level, const Splice& splice, bool isLast);
    [[nodiscard]] bool TryInPlace(PageNumber number, const Splice& splice);
    Change Divide(PageNumber number, const EntryList& entries, bool rises);
    void LowerRoot();
    bool Rises(std::size_t level, const Splice& splice) const;

    void TellParent(std::size_t level, const Change& change);
    std::vector<Key> EntriesAbove(std::size_t level, const Change& change, bool isTail, bool isNewTail) const;
    Key ChildEntry(PageNumber child) const;

    void EraseAt(PageNumber number, std::size_t place);
    void Drop(std::size_t level);
    void ForgetChild(std::size_t level);
    void PutOnlyEntry(PageNumber node, PageNumber child);
    void GiveTailAnEntry(std::size_t level);
    void RaiseOnlyChild();

    TreePages& pages_;
    TreePath& path_;
};

}  // namespace engine::jet
