#pragma once

#include "engine/jet/EntryEnds.h"
#include "engine/jet/Key.h"

#include <QString>

namespace engine::jet {

/// Fails with DatabaseDamaged, in a sentence that names the page: `what` stands behind "page 17 of an index".
[[noreturn]] void RaiseDamagedIndex(PageNumber page, const QString& what);

/// A page of an index as it lies in the file. An entry is named by its place: where it begins, counted from
/// where the first one does. The place behind the last one is Used().
///
/// A view: it stands for as long as the page isn't changed.
class IndexPage {
public:
    /// Fails with DatabaseDamaged unless this is an index page of the table whose definition begins on page
    /// `owner`, and the places of its entries agree with one another. That they do may be known (PageShape).
    IndexPage(const Page& page, PageNumber number, PageNumber owner, bool isKnown = false);

    PageNumber Number() const { return number_; }
    bool IsLeaf() const { return (*page_)[IndexForm::KindAt] == IndexForm::Leaf; }
    /// The neighbours on the same level, 0 for none. Those of nodes may be missing.
    PageNumber Previous() const;
    PageNumber Next() const;
    /// Of a node: its last child, where that has no entry in it; else 0.
    PageNumber Tail() const { return tail_; }

    std::size_t Used() const { return used_; }
    bool IsEmpty() const { return used_ == 0; }
    std::size_t PrefixSize() const { return prefix_; }

    /// The place behind the entry at one.
    std::size_t Behind(std::size_t place) const { return ends_.Behind(place); }
    /// The place of the entry before one, which isn't the first.
    std::size_t Before(std::size_t place) const { return ends_.UpTo(place - 1); }

    /// The place of the first entry that isn't smaller, Used() if there is none. In nodes the number of the
    /// child doesn't count. It's found at once if it is near the guess, which may be any number.
    std::size_t FirstNotLess(KeyView entry, std::size_t guess) const;

    /// Whether this entry stands at a place.
    bool IsEntryAt(std::size_t place, KeyView entry) const;

    /// The whole entry with key and row, without the child of a node's. Fails with DatabaseDamaged if it is
    /// too short to have both, and so does ChildAt.
    void CopyEntry(std::size_t place, Key& into) const;
    Key EntryAt(std::size_t place) const;
    PageNumber ChildAt(std::size_t place) const;

    /// The bytes as they are stored: all entries but the first without the first PrefixSize() ones.
    KeyView StoredAt(std::size_t place) const { return StoredBetween(place, Behind(place)); }
    /// The same where it is known which place is behind.
    KeyView StoredBetween(std::size_t place, std::size_t behind) const;
    KeyView Prefix() const;

private:
    /// What stands behind the key and the row.
    std::size_t ChildSize() const { return IsLeaf() ? 0 : IndexForm::ChildSize; }
    void CopyWhole(std::size_t place, Key& into) const;
    int Compare(std::size_t place, std::size_t behind, KeyView entry) const;
    void CheckEnds() const;

    const Page* page_;
    PageNumber number_;
    EntryEnds ends_;
    std::size_t used_;
    std::size_t prefix_ = 0;
    PageNumber tail_;
};

}  // namespace engine::jet
