#pragma once

#include "engine/jet/IndexPage.h"

#include <vector>

namespace engine::jet {

/// Whole entries of a page, and others among them, on their way into one page or two.
class EntryList {
public:
    /// The entries of a page with a change: from a place on, so many are left out and these come instead.
    EntryList(const IndexPage& page, std::size_t place, std::size_t removed, std::span<const KeyView> added);

    std::size_t Count() const { return ends_.size(); }

    /// Whether the entries from one up to another, that one not included, fit a page.
    bool Fits(std::size_t from, std::size_t to) const;

    /// Makes them the entries of a page that they fit, and leaves everything else of it as it is. They are
    /// stored whole if there is room; otherwise the bytes with which all begin are stored once.
    void Write(Page& page, std::size_t from, std::size_t to) const;

    /// Before which entry to divide the list, so that both parts fit a page: either halves, or as many as can
    /// stay in the first, for entries that rise. 0 if it can't be divided.
    std::size_t Middle() const;
    std::size_t MostFirst() const;

private:
    KeyView Entry(std::size_t number) const;
    std::size_t BytesUpTo(std::size_t number) const { return number == 0 ? 0 : ends_[number - 1]; }
    bool CanDivide(std::size_t at) const;
    std::size_t SharedBytes(std::size_t from, std::size_t to) const;
    std::size_t StoredSize(std::size_t from, std::size_t to, std::size_t prefix) const;
    void Add(KeyView entry);
    void AddFrom(const IndexPage& page, std::size_t from, std::size_t to);
    void Append(KeyView bytes);

    Key bytes_;  ///< Longer than what is used of them.
    std::size_t used_ = 0;
    std::vector<std::size_t> ends_;
};

}  // namespace engine::jet
