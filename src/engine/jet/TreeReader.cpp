#include "engine/jet/TreeReader.h"

#include <algorithm>
#include <unordered_set>

namespace engine::jet {

namespace {

// A node has at least two children but for few that have lost theirs, so that no file has room for more
// levels.
constexpr std::size_t MostLevels = 40;

// Of a place in a node. The last child also takes what is larger than all entries.
std::size_t ChildPlace(const IndexPage& node, std::size_t place) {
    if (place < node.Used() || node.Tail() != 0) {
        return place;
    }
    if (node.IsEmpty()) {
        RaiseDamagedIndex(node.Number(), QStringLiteral("leads nowhere"));
    }
    return node.Before(place);
}

PageNumber ChildAt(const IndexPage& node, std::size_t place) {
    return place < node.Used() ? node.ChildAt(place) : node.Tail();
}

}  // namespace

template <class Choose>
IndexPage TreeReader::Descend(TreePath& path, Choose choose) const {
    PageNumber number = root_;
    for (std::size_t level = 0; level < MostLevels; ++level) {
        const IndexPage page = Open(number);
        path.resize(std::max(path.size(), level + 1));
        TreeStep& step = path[level];
        const std::size_t guess = step.page == number ? step.place : page.Used();
        step = {number, choose(page, guess)};
        if (page.IsLeaf()) {
            path.resize(level + 1);
            return page;
        }
        step.place = ChildPlace(page, step.place);
        number = ChildAt(page, step.place);
    }
    RaiseDamagedIndex(root_, QStringLiteral("has no leaf below it"));
}

IndexPage TreeReader::FindPlace(TreePath& path, KeyView entry) const {
    return Descend(path,
                   [&](const IndexPage& page, std::size_t guess) { return page.FirstNotLess(entry, guess); });
}

IndexPage TreeReader::FindEnd(TreePath& path) const {
    return Descend(path, [](const IndexPage& page, std::size_t) { return page.Used(); });
}

bool TreeReader::IsLastChild(const IndexPage& node, std::size_t place) {
    return place == node.Used() || (node.Tail() == 0 && node.Behind(place) == node.Used());
}

std::vector<PageNumber> TreeReader::ChildrenOf(PageNumber number) const {
    const IndexPage page = Open(number);
    std::vector<PageNumber> children;
    for (std::size_t place = 0; !page.IsLeaf() && place < page.Used(); place = page.Behind(place)) {
        children.push_back(page.ChildAt(place));
    }
    if (page.Tail() != 0) {
        children.push_back(page.Tail());
    }
    return children;
}

std::vector<PageNumber> TreeReader::AllBelowRoot() const {
    std::vector<PageNumber> pages = {root_};
    std::unordered_set<PageNumber> seen(pages.begin(), pages.end());
    for (std::size_t next = 0; next < pages.size(); ++next) {
        for (const PageNumber child : ChildrenOf(pages[next])) {
            if (!seen.insert(child).second) {
                RaiseDamagedIndex(child, QStringLiteral("is met twice in its tree"));
            }
            pages.push_back(child);
        }
    }
    pages.erase(pages.begin());
    return pages;
}

// A tail may have lost its entries; then the last one of its node is the last.
Key TreeReader::LastEntryOf(PageNumber page) const {
    Key last;
    for (std::size_t level = 0; level < MostLevels; ++level) {
        const IndexPage view = Open(page);
        if (!view.IsEmpty()) {
            view.CopyEntry(view.Before(view.Used()), last);
        }
        if (view.IsLeaf() || view.Tail() == 0) {
            return last;
        }
        page = view.Tail();
    }
    RaiseDamagedIndex(page, QStringLiteral("has no leaf below it"));
}

}  // namespace engine::jet
