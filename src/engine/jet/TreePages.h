#pragma once

#include "engine/jet/TreeReader.h"

namespace engine::jet {

/// Whoever keeps the list of an index's own pages. The root is in it from the beginning and never leaves it.
class IndexPages {
public:
    IndexPages() = default;
    IndexPages(const IndexPages&) = delete;
    IndexPages& operator=(const IndexPages&) = delete;
    virtual ~IndexPages() = default;

    /// The page has just been taken from the store.
    virtual void Came(PageNumber page) = 0;
    /// The page is given back to the store next.
    virtual void Went(PageNumber page) = 0;
};

/// Pages that come to a tree and leave it, and what they say of one another.
class TreePages : public TreeReader {
public:
    TreePages(PageStore& store, IndexPages& pages, PageNumber table, PageNumber root)
        : TreeReader(store, table, root), pages_(pages) {}

    Page& Change(PageNumber page) { return Store().Change(page); }
    /// A page without entries, of the same kind and height as another.
    PageNumber TakeLike(PageNumber other);
    void GiveBack(PageNumber page);
    /// Makes an empty leaf of the root.
    void BeginRoot();
    /// Moves all that the root has to a new page, and makes a node without children of the root.
    PageNumber LowerRoot();
    /// Moves all that a page has to the root. It must be the root's only child.
    void RaiseToRoot(PageNumber page);

    void PutTail(PageNumber node, PageNumber tail);

    /// Puts a new page into the row of its level, right before or right behind another.
    void LinkBefore(PageNumber page, const IndexPage& other);
    void LinkBehind(PageNumber page, const IndexPage& other);
    /// Makes neighbours of the two that the page stands between.
    void Unlink(const IndexPage& page);

private:
    PageNumber Previous(const IndexPage& page) const;
    PageNumber Next(const IndexPage& page) const;
    bool AreNeighbours(const IndexPage& page, PageNumber other, bool isBehind) const;
    void Join(PageNumber left, PageNumber right);

    IndexPages& pages_;
};

}  // namespace engine::jet
