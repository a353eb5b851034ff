#include "engine/jet/TreeEditor.h"

#include "engine/Error.h"
#include "engine/jet/IndexPageEdit.h"

#include <array>
#include <vector>

namespace engine::jet {

void TreeEditor::Insert(const IndexPage& leaf, KeyView entry) {
    const std::size_t level = path_.size() - 1;
    const std::size_t place = path_.back().place;
    const bool isLast = place == leaf.Used();
    if (TryInsert(pages_.Change(leaf.Number()), leaf, place, entry)) {
        TellParent(level, {.isLast = isLast});
    } else {
        Rewrite(level, {place, 0, std::array{entry}}, isLast);
    }
}

void TreeEditor::Apply(std::size_t level, const Splice& splice, bool isLast) {
    if (TryInPlace(PageOf(level), splice)) {
        TellParent(level, {.isLast = isLast});
    } else {
        Rewrite(level, splice, isLast);
    }
}

// Puts all entries anew, into one page or two.
void TreeEditor::Rewrite(std::size_t level, const Splice& splice, bool isLast) {
    const EntryList entries(pages_.Open(PageOf(level)), splice.place, splice.removed, splice.added);
    if (entries.Fits(0, entries.Count())) {
        entries.Write(pages_.Change(PageOf(level)), 0, entries.Count());
        TellParent(level, {.isLast = isLast});
        return;
    }
    const bool rises = Rises(level, splice);
    if (level == 0) {
        LowerRoot();
        ++level;
    }
    Change change = Divide(PageOf(level), entries, rises);
    change.isLast = isLast;
    TellParent(level, change);
}

bool TreeEditor::TryInPlace(PageNumber number, const Splice& splice) {
    if (splice.added.size() > 1) {
        return false;
    }
    const IndexPage view = pages_.Open(number);
    Page& page = pages_.Change(number);
    return splice.removed == 0 ? TryInsert(page, view, splice.place, splice.added.front())
                               : TryReplace(page, view, splice.place, splice.added.front());
}

// Whether the splice is at the end of the last page of its level. Rising keys then fill one page after the
// other, which halving would leave half empty for good.
bool TreeEditor::Rises(std::size_t level, const Splice& splice) const {
    const IndexPage page = pages_.Open(PageOf(level));
    bool rises = (splice.removed == 0 ? splice.place : page.Behind(splice.place)) == page.Used();
    for (std::size_t above = 0; above < level; ++above) {
        rises = rises && TreeReader::IsLastChild(pages_.Open(PageOf(above)), path_[above].place);
    }
    return rises;
}

// The old page keeps the part that its parent's entry tells of: the one behind, if it is halved.
TreeEditor::Change TreeEditor::Divide(PageNumber number, const EntryList& entries, bool rises) {
    const std::size_t at = rises ? entries.MostFirst() : entries.Middle();
    if (at == 0) {
        throw Error(
            ErrorNumber::Other,
            QStringLiteral("The entries of page %1 of an index are too long to divide it.").arg(number));
    }
    const IndexPage old = pages_.Open(number);
    const PageNumber divided = pages_.TakeLike(number);
    if (rises) {
        pages_.LinkBehind(divided, old);
        entries.Write(pages_.Change(divided), at, entries.Count());
        entries.Write(pages_.Change(number), 0, at);
        if (old.Tail() != 0) {
            pages_.PutTail(divided, old.Tail());
            pages_.PutTail(number, 0);
        }
    } else {
        pages_.LinkBefore(divided, old);
        entries.Write(pages_.Change(divided), 0, at);
        entries.Write(pages_.Change(number), at, entries.Count());
    }
    return {.divided = divided, .isDividedBehind = rises};
}

// A leaf becomes the new root's tail; above leaves no other program has tails.
void TreeEditor::LowerRoot() {
    const PageNumber root = PageOf(0);
    const PageNumber lowered = pages_.LowerRoot();
    path_[0].page = lowered;
    path_.insert(path_.begin(), {root, 0});
    if (pages_.Open(lowered).IsLeaf()) {
        pages_.PutTail(root, lowered);
    } else {
        PutOnlyEntry(root, lowered);
    }
}

// The entry that a child has in a node.
Key TreeEditor::ChildEntry(PageNumber child) const {
    Key entry = pages_.LastEntryOf(child);
    AppendNumber(entry, child);
    return entry;
}

void TreeEditor::TellParent(std::size_t level, const Change& change) {
    if (level == 0 || (!change.isLast && change.divided == 0)) {
        return;
    }
    const TreeStep parent = path_[level - 1];
    const IndexPage node = pages_.Open(parent.page);
    const bool isLast = change.isLast && TreeReader::IsLastChild(node, parent.place);
    const bool isTail = parent.place == node.Used();
    if (isTail && change.divided == 0) {
        TellParent(level - 1, {.isLast = isLast});
        return;
    }
    if (change.divided == 0) {
        const Key entry = ChildEntry(PageOf(level));
        Apply(level - 1, {parent.place, 1, std::array<KeyView, 1>{entry}}, isLast);
        return;
    }
    const bool isNewTail = change.isDividedBehind && pages_.Open(change.divided).IsLeaf();
    const std::vector<Key> entries = EntriesAbove(level, change, isTail, isNewTail);
    if (isNewTail) {
        pages_.PutTail(parent.page, change.divided);
    }
    const bool replacesOwn = !isTail && (change.isLast || change.isDividedBehind);
    const std::vector<KeyView> added(entries.begin(), entries.end());
    Apply(level - 1, {parent.place, replacesOwn ? 1U : 0U, added}, isLast);
}

// The entries that a page and the one that was divided from it have in their parent, as far as they are new.
std::vector<Key> TreeEditor::EntriesAbove(std::size_t level, const Change& change, bool isTail,
                                          bool isNewTail) const {
    std::vector<Key> entries;
    // What is divided behind a tail takes its place; any other child has an entry already.
    if (isTail ? isNewTail : change.isLast || change.isDividedBehind) {
        entries.push_back(ChildEntry(PageOf(level)));
    }
    if (!isNewTail) {
        entries.insert(change.isDividedBehind ? entries.end() : entries.begin(), ChildEntry(change.divided));
    }
    return entries;
}

void TreeEditor::Remove(const IndexPage& leaf) {
    const std::size_t level = path_.size() - 1;
    const std::size_t place = path_.back().place;
    const bool isLast = leaf.Behind(place) == leaf.Used();
    const bool isOnly = isLast && place == 0;
    if (isOnly && level > 0) {
        Drop(level);
        return;
    }
    EraseAt(leaf.Number(), place);
    TellParent(level, {.isLast = isLast});
}

// What is left never takes more room than before: where the first entry goes, the second is stored whole
// instead.
void TreeEditor::EraseAt(PageNumber number, std::size_t place) {
    const IndexPage view = pages_.Open(number);
    Page& page = pages_.Change(number);
    if (!TryErase(page, view, place)) {
        const EntryList entries(view, place, 1, {});
        entries.Write(page, 0, entries.Count());
    }
}

// Gives up a page that has lost its last entry or child.
void TreeEditor::Drop(std::size_t level) {
    if (level == 0) {
        pages_.BeginRoot();
        return;
    }
    pages_.Unlink(pages_.Open(PageOf(level)));
    pages_.GiveBack(PageOf(level));
    ForgetChild(level - 1);
}

void TreeEditor::ForgetChild(std::size_t level) {
    const auto [number, place] = path_[level];
    const IndexPage node = pages_.Open(number);
    const bool wasTail = place == node.Used();
    const bool wasLast = TreeReader::IsLastChild(node, place);
    if (wasTail) {
        pages_.PutTail(number, 0);
    } else {
        EraseAt(number, place);
    }
    const IndexPage left = pages_.Open(number);
    if (left.IsEmpty() && left.Tail() == 0) {
        Drop(level);
        return;
    }
    if (level == 0) {
        RaiseOnlyChild();
        return;
    }
    if (left.IsEmpty()) {
        GiveTailAnEntry(level);
        return;
    }
    TellParent(level, {.isLast = wasLast});
}

void TreeEditor::PutOnlyEntry(PageNumber node, PageNumber child) {
    const Key entry = ChildEntry(child);
    if (!TryInPlace(node, {0, 0, std::array<KeyView, 1>{entry}})) {
        RaiseDamagedIndex(child, QStringLiteral("has an entry that is too long"));
    }
}

// A node without any entry is nothing that other programs make; and they may leave leaves without entries.
void TreeEditor::GiveTailAnEntry(std::size_t level) {
    const PageNumber tail = pages_.Open(PageOf(level)).Tail();
    if (pages_.LastEntryOf(tail).empty()) {
        path_.resize(level + 1);
        path_[level].place = 0;
        path_.push_back({tail, 0});
        Drop(level + 1);
        return;
    }
    pages_.PutTail(PageOf(level), 0);
    PutOnlyEntry(PageOf(level), tail);
}

// As long as the root has one child alone, that takes its place.
void TreeEditor::RaiseOnlyChild() {
    const PageNumber root = PageOf(0);
    for (std::vector<PageNumber> children = pages_.ChildrenOf(root); children.size() == 1;
         children = pages_.ChildrenOf(root)) {
        pages_.RaiseToRoot(children.front());
    }
}

}  // namespace engine::jet
