#include "engine/jet/IndexTree.h"

#include "engine/Error.h"
#include "engine/jet/TreeEditor.h"

namespace engine::jet {

void IndexTree::MakeEntry(KeyView key, std::uint32_t row) {
    entry_.assign(key.begin(), key.end());
    AppendNumber(entry_, row);
}

// Whether the entry stands where the path leads.
bool IndexTree::HasEntry(const IndexPage& leaf) const {
    const std::size_t place = path_.back().place;
    return place < leaf.Used() && leaf.IsEntryAt(place, entry_);
}

void IndexTree::CheckLength(KeyView key) {
    if (key.size() > IndexForm::LongestEntry - IndexForm::RowSize) {
        throw Error(ErrorNumber::Other,
                    QStringLiteral("A key of %1 bytes is too long for an index.").arg(key.size()));
    }
}

// Whether an entry with the key stands right before or behind the place where the path leads; if so, mostly
// before it, as rows come in their order.
bool IndexTree::HasKeyBeside(const IndexPage& leaf, KeyView key) {
    const std::size_t place = path_.back().place;
    const auto hasKey = [&](std::size_t other) {
        leaf.CopyEntry(other, neighbour_);
        return Compare(KeyView(neighbour_).first(neighbour_.size() - IndexForm::RowSize), key) == 0;
    };
    if (place > 0 && hasKey(leaf.Before(place))) {
        return true;
    }
    if (place < leaf.Used() && hasKey(place)) {
        return true;
    }
    const bool isWithin = (place > 0 || leaf.Previous() == 0) && (place < leaf.Used() || leaf.Next() == 0);
    return !isWithin && AtLeastHasKey(key);
}

bool IndexTree::AtLeastHasKey(KeyView key) const {
    const IndexCursor first = AtLeast(key);
    return first.HasEntry() && Compare(first.EntryKey(), key) == 0;
}

bool IndexTree::Insert(KeyView key, std::uint32_t row) {
    CheckLength(key);
    MakeEntry(key, row);
    const IndexPage leaf = pages_.FindPlace(path_, entry_);
    if (HasEntry(leaf)) {
        RaiseDamagedIndex(leaf.Number(), QStringLiteral("has an entry already for a row that is new"));
    }
    const bool isNewKey = !HasKeyBeside(leaf, key);
    TreeEditor(pages_, path_).Insert(leaf, entry_);
    return isNewKey;
}

bool IndexTree::Remove(KeyView key, std::uint32_t row) {
    MakeEntry(key, row);
    const IndexPage leaf = pages_.FindPlace(path_, entry_);
    if (!HasEntry(leaf)) {
        return false;
    }
    TreeEditor(pages_, path_).Remove(leaf);
    return true;
}

// Every page is looked at before any is given back, so that a damaged tree gives up no page of others.
void IndexTree::Clear() {
    const std::vector<PageNumber> pages = pages_.AllBelowRoot();
    pages_.BeginRoot();
    for (const PageNumber page : pages) {
        pages_.GiveBack(page);
    }
}

IndexCursor IndexTree::AtLeast(KeyView key) const {
    TreePath path;
    pages_.FindPlace(path, key);
    return {pages_, path.back()};
}

IndexCursor IndexTree::Before(KeyView key) const {
    TreePath path;
    pages_.FindPlace(path, key);
    return IndexCursor::Before(pages_, path.back());
}

IndexCursor IndexTree::Last() const {
    TreePath path;
    pages_.FindEnd(path);
    return IndexCursor::Before(pages_, path.back());
}

std::optional<std::uint32_t> IndexTree::RowWith(KeyView key, std::optional<std::uint32_t> leftOut) {
    pages_.FindPlace(path_, key);
    for (IndexCursor at(pages_, path_.back()); at.HasEntry() && Compare(at.EntryKey(), key) == 0; at.Next()) {
        if (at.Row() != leftOut) {
            return at.Row();
        }
    }
    return std::nullopt;
}

}  // namespace engine::jet
