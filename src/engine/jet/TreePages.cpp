#include "engine/jet/TreePages.h"

#include "engine/jet/IndexPageEdit.h"
#include "engine/jet/PageNumbers.h"

namespace engine::jet {

PageNumber TreePages::TakeLike(PageNumber other) {
    const PageNumber page = Store().Take();
    const Page& like = Store().Read(other);
    BeginIndexPage(Change(page), like[IndexForm::KindAt], Table(), like[IndexForm::HeightAt]);
    pages_.Came(page);
    return page;
}

void TreePages::GiveBack(PageNumber page) {
    pages_.Went(page);
    Store().GiveBack(page);
}

void TreePages::BeginRoot() {
    BeginIndexPage(Change(Root()), IndexForm::Leaf, Table(), 0);
}

PageNumber TreePages::LowerRoot() {
    const PageNumber lowered = TakeLike(Root());
    Page& root = Change(Root());
    Change(lowered) = root;
    const auto height = static_cast<std::uint8_t>(root[IndexForm::HeightAt] + 1);
    BeginIndexPage(root, IndexForm::Node, Table(), height);
    return lowered;
}

void TreePages::RaiseToRoot(PageNumber page) {
    if (page == Root()) {
        RaiseDamagedIndex(page, QStringLiteral("is its own child"));
    }
    Open(page);
    Page& root = Change(Root());
    root = Store().Read(page);
    PutNumber(root, IndexForm::PreviousAt, 4, 0);
    PutNumber(root, IndexForm::NextAt, 4, 0);
    // Where pages lead in a circle, it's met again and has to be known for none of the tree.
    Change(page)[IndexForm::KindAt] = 0;
    GiveBack(page);
}

void TreePages::PutTail(PageNumber node, PageNumber tail) {
    PutNumber(Change(node), IndexForm::TailAt, 4, tail);
}

// Neighbours of a leaf have to know it. Those of nodes serve nobody, and other programs link them only in
// part: what doesn't know the node is none.
bool TreePages::AreNeighbours(const IndexPage& page, PageNumber other, bool isBehind) const {
    if (other == 0) {
        return false;
    }
    const IndexPage neighbour = Open(other);
    const PageNumber back = isBehind ? neighbour.Previous() : neighbour.Next();
    const bool areNeighbours = back == page.Number() && neighbour.IsLeaf() == page.IsLeaf();
    if (!areNeighbours && page.IsLeaf()) {
        RaiseDamagedIndex(page.Number(),
                          QStringLiteral("has page %1 for a neighbour, which has not").arg(other));
    }
    return areNeighbours;
}

PageNumber TreePages::Previous(const IndexPage& page) const {
    return AreNeighbours(page, page.Previous(), false) ? page.Previous() : 0;
}

PageNumber TreePages::Next(const IndexPage& page) const {
    return AreNeighbours(page, page.Next(), true) ? page.Next() : 0;
}

// Either may be 0, for none.
void TreePages::Join(PageNumber left, PageNumber right) {
    if (left != 0) {
        PutNumber(Change(left), IndexForm::NextAt, 4, right);
    }
    if (right != 0) {
        PutNumber(Change(right), IndexForm::PreviousAt, 4, left);
    }
}

void TreePages::LinkBefore(PageNumber page, const IndexPage& other) {
    Join(Previous(other), page);
    Join(page, other.Number());
}

void TreePages::LinkBehind(PageNumber page, const IndexPage& other) {
    Join(page, Next(other));
    Join(other.Number(), page);
}

void TreePages::Unlink(const IndexPage& page) {
    Join(Previous(page), Next(page));
}

}  // namespace engine::jet
