#pragma once

#include "engine/jet/IndexPage.h"

#include <vector>

namespace engine::jet {

/// A page on the way from the root to a leaf, and a place in it: in a node that of the child (Used() for its
/// tail), in a leaf that of an entry (Used() for none).
struct TreeStep {
    PageNumber page = 0;
    std::size_t place = 0;
};
using TreePath = std::vector<TreeStep>;

/// Finds ways through the tree of an index. Whatever its pages say, a way ends: damage fails with
/// DatabaseDamaged, in a sentence that names the page.
class TreeReader {
public:
    /// `table` is the first page of the table's definition.
    TreeReader(PageStore& store, PageNumber table, PageNumber root)
        : store_(store), table_(table), root_(root) {}

    IndexPage Open(PageNumber page) const {
        const IndexPage view(store_.Read(page), page, table_, store_.HasShape(page, PageShape::Entries));
        store_.NoteShape(page, PageShape::Entries);
        return view;
    }

    /// No walk from page to page meets more of them.
    PageNumber PageCount() const { return store_.Count(); }

    /// Leads the path to the leaf where an entry belongs, and there to the first entry that isn't smaller.
    /// Returns the leaf. What the path held before is taken for a guess and may be anything: an entry that
    /// belongs beside the last one is found at once.
    IndexPage FindPlace(TreePath& path, KeyView entry) const;
    /// The same for the place behind all entries.
    IndexPage FindEnd(TreePath& path) const;

    /// Whether the place in a node is that of its last child.
    static bool IsLastChild(const IndexPage& node, std::size_t place);

    /// None for a leaf.
    std::vector<PageNumber> ChildrenOf(PageNumber page) const;
    /// All pages of the tree but the root. Fails with DatabaseDamaged if one is met twice or is none.
    std::vector<PageNumber> AllBelowRoot() const;

    /// The last entry below a page; empty if there is none.
    Key LastEntryOf(PageNumber page) const;

protected:
    PageStore& Store() const { return store_; }
    PageNumber Table() const { return table_; }
    PageNumber Root() const { return root_; }

private:
    template <class Choose>
    IndexPage Descend(TreePath& path, Choose choose) const;

    PageStore& store_;
    PageNumber table_;
    PageNumber root_;
};

}  // namespace engine::jet
