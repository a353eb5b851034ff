#include "TreeCheck.h"

#include <algorithm>
#include <map>

namespace engine::jet {

namespace {

using Entry = std::vector<std::uint8_t>;

unsigned Low(const Page& page, int at, int size) {
    unsigned number = 0;
    for (int byte = size - 1; byte >= 0; --byte) {
        number = number * 256 + page[static_cast<std::size_t>(at + byte)];
    }
    return number;
}

class TreeWalk {
public:
    TreeWalk(PageStore& store, PageNumber table, TreeFindings& found)
        : store_(store), table_(table), found_(found) {}

    void Walk(PageNumber root, const std::set<PageNumber>& pages) {
        Visit(root, 0, true);
        CheckLevels();
        CheckLeafOrder();
        Require(seen_ == pages, root, "is the root of other pages than those of the list");
        found_.levels = static_cast<int>(levels_.size());
    }

private:
    // Returns the last entry below the page.
    Entry Visit(PageNumber number, int depth, bool isRightmost) {
        if (!Require(seen_.insert(number).second, number, "is met twice")) {
            return {};
        }
        const Page& page = store_.Read(number);
        levels_[depth].push_back(number);
        Require(Low(page, 0, 2) == 0x0103 || Low(page, 0, 2) == 0x0104, number, "is no page of an index");
        Require(Low(page, 4, 4) == table_, number, "belongs to another table");
        Require(Low(page, 8, 4) == 0, number, "has something at 8");
        const std::vector<Entry> entries = Entries(number, page);
        return page[0] == 4 ? VisitLeaf(number, page, depth, entries)
                            : VisitNode(number, page, depth, entries, isRightmost);
    }

    Entry VisitLeaf(PageNumber number, const Page& page, int depth, const std::vector<Entry>& entries) {
        ++found_.leaves;
        Require(leafDepth_ < 0 || leafDepth_ == depth, number, "is a leaf on another level");
        leafDepth_ = depth;
        Require(page[26] == 0, number, "is a leaf with a height");
        Require(Low(page, 20, 4) == 0, number, "is a leaf with a tail");
        Require(!entries.empty() || depth == 0, number, "is a leaf without entries");
        found_.entries.insert(found_.entries.end(), entries.begin(), entries.end());
        return entries.empty() ? Entry() : entries.back();
    }

    Entry VisitNode(PageNumber number, const Page& page, int depth, const std::vector<Entry>& entries,
                    bool isRightmost) {
        ++found_.nodes;
        const PageNumber tail = Low(page, 20, 4);
        Require(!entries.empty(), number, "is a node without entries");
        Require(depth > 0 || entries.size() + (tail != 0 ? 1 : 0) > 1, number, "is a root with one child");
        Entry last;
        for (std::size_t at = 0; at < entries.size(); ++at) {
            const Entry& entry = entries[at];
            if (!Require(entry.size() > 8, number, "has a short entry")) {
                continue;
            }
            PageNumber child = 0;
            for (std::size_t byte = entry.size() - 4; byte < entry.size(); ++byte) {
                child = child * 256 + entry[byte];
            }
            last = Visit(child, depth + 1, isRightmost && tail == 0 && at + 1 == entries.size());
            Require(last == Entry(entry.begin(), entry.end() - 4), number, "tells another last entry");
        }
        if (tail != 0) {
            ++found_.tails;
            Require(isRightmost, number, "has a tail and isn't the last of its level");
            Require(store_.Read(tail)[0] == 4, number, "has a tail that is no leaf");
            last = Visit(tail, depth + 1, true);
        }
        Require(page[26] == leafDepth_ - depth, number, "has another height");
        return last;
    }

    // With their prefix put back.
    std::vector<Entry> Entries(PageNumber number, const Page& page) {
        const int prefix = static_cast<int>(Low(page, 24, 2));
        std::vector<Entry> entries;
        int begin = 0;
        for (int end = 0; end < 453 * 8; ++end) {
            if ((page[static_cast<std::size_t>(27 + end / 8)] & (1 << end % 8)) == 0) {
                continue;
            }
            if (!Require(end > 0 && end <= 3616, number, "has an end outside")) {
                break;
            }
            Entry entry;
            if (!entries.empty()) {
                entry.assign(entries[0].begin(), entries[0].begin() + prefix);
            }
            entry.insert(entry.end(), page.begin() + 480 + begin, page.begin() + 480 + end);
            Require(static_cast<int>(entry.size()) > prefix, number, "has an entry within its prefix");
            Require(entries.empty() || entries.back() < entry, number, "has entries out of order");
            entries.push_back(entry);
            begin = end;
        }
        Require(static_cast<int>(Low(page, 2, 2)) == 3616 - begin, number,
                "has a wrong number of free bytes");
        found_.pagesWithPrefix += prefix > 0 ? 1 : 0;
        return entries;
    }

    void CheckLevels() {
        for (const auto& [depth, pages] : levels_) {
            for (std::size_t at = 0; at < pages.size(); ++at) {
                const Page& page = store_.Read(pages[at]);
                const PageNumber before = at > 0 ? pages[at - 1] : 0;
                const PageNumber behind = at + 1 < pages.size() ? pages[at + 1] : 0;
                Require(Low(page, 12, 4) == before, pages[at], "has another page before it");
                Require(Low(page, 16, 4) == behind, pages[at], "has another page behind it");
            }
        }
    }

    void CheckLeafOrder() {
        const auto& entries = found_.entries;
        const auto disorder = std::adjacent_find(entries.begin(), entries.end(),
                                                 [](const Entry& a, const Entry& b) { return a >= b; });
        if (disorder != entries.end()) {
            found_.faults.push_back("leaves are out of order");
        }
    }

    bool Require(bool holds, PageNumber number, const char* what) {
        if (!holds) {
            found_.faults.push_back("page " + std::to_string(number) + " " + what);
        }
        return holds;
    }

    PageStore& store_;
    PageNumber table_;
    TreeFindings& found_;
    std::set<PageNumber> seen_;
    std::map<int, std::vector<PageNumber>> levels_;
    int leafDepth_ = -1;
};

}  // namespace

TreeFindings CheckTree(PageStore& store, PageNumber table, PageNumber root,
                       const std::set<PageNumber>& pages) {
    TreeFindings found;
    TreeWalk(store, table, found).Walk(root, pages);
    return found;
}

}  // namespace engine::jet
