#include "engine/jet/WriteOrder.h"

#include "engine/jet/Bytes.h"
#include "engine/jet/DataPage.h"

#include <algorithm>
#include <tuple>
#include <utility>

namespace engine::jet {

namespace {

// In the order in which they are written where rows are added. Where they are removed, indexes come before
// maps and rows: an entry must not lead to a row that isn't there.
enum Stage { New, FreeMap, IndexOfRemoved, Map, Rows, Index, Definition };

constexpr std::size_t IndexLinksAt = 12;
constexpr std::size_t IndexLinksEnd = 20;
constexpr std::size_t IndexTailAt = 20;
constexpr std::size_t IndexMaskAt = 27;
constexpr std::size_t IndexEntriesAt = 480;
constexpr int HighestTree = 16;

// The first child of a node: the last 4 bytes of its first entry, with the highest byte first.
PageNumber FirstChild(const Page& node, PageNumber number) {
    const Bytes bytes(node, number);
    for (std::size_t at = 0; at < (IndexEntriesAt - IndexMaskAt) * 8; ++at) {
        const bool endsHere = (bytes.U8(IndexMaskAt + at / 8) >> at % 8 & 1) != 0;
        const std::size_t end = IndexEntriesAt + at;
        if (endsHere && end <= PageSize) {
            return static_cast<PageNumber>(bytes.U8(end - 4) << 24 | bytes.U8(end - 3) << 16 |
                                           bytes.U8(end - 2) << 8 | bytes.U8(end - 1));
        }
    }
    return bytes.U32(IndexTailAt);
}

// Above the leaves, as far as the pages tell: a tree that is damaged has no right order.
int HeightOf(const PageWrite& write, PageStore& pages) {
    int height = 0;
    const Page* page = &write.page;
    PageNumber number = write.number;
    while ((*page)[0] == PageKind::IndexNode && height < HighestTree) {
        ++height;
        number = FirstChild(*page, number);
        if (number >= pages.Count()) {
            break;
        }
        page = &pages.Read(number);
    }
    return height;
}

bool IsIndex(const PageWrite& write) {
    return write.page[0] == PageKind::IndexNode || write.page[0] == PageKind::IndexLeaf;
}

bool HasOtherEntries(const PageWrite& write) {
    const Page& now = write.page;
    const Page& before = *write.before;
    return !std::equal(now.begin(), now.begin() + IndexLinksAt, before.begin()) ||
           !std::equal(now.begin() + IndexLinksEnd, now.end(), before.begin() + IndexLinksEnd);
}

Stage StageOf(const PageWrite& write, GroupKind kind) {
    if (write.before == nullptr) {
        return New;
    }
    if (write.isFreeMap) {
        return FreeMap;
    }
    if (IsIndex(write)) {
        return kind == GroupKind::Removes ? IndexOfRemoved : Index;
    }
    const Bytes bytes(write.page, write.number);
    const bool isMap = bytes.U8(0) == PageKind::UsageBits ||
                       (bytes.U8(0) == PageKind::Data && bytes.U32(4) == PageOwner::Nobody);
    if (isMap) {
        return Map;
    }
    return bytes.U8(0) == PageKind::Definition ? Definition : Rows;
}

// Parents come before their children. Of the leaves, those that only have another neighbour come before those
// that have lost entries to it.
int RankInStage(const PageWrite& write, PageStore& pages) {
    if (write.before == nullptr || !IsIndex(write)) {
        return 0;
    }
    if (write.page[0] == PageKind::IndexNode) {
        return -HeightOf(write, pages);
    }
    return HasOtherEntries(write) ? 1 : 0;
}

}  // namespace

void OrderWrites(std::vector<PageWrite>& writes, GroupKind kind, PageStore& pages) {
    struct Place {
        Stage stage;
        int rank;
        PageNumber number;
        std::size_t write;

        bool operator<(const Place& other) const {
            return std::tie(stage, rank, number) < std::tie(other.stage, other.rank, other.number);
        }
    };
    std::vector<Place> order;
    for (std::size_t write = 0; write < writes.size(); ++write) {
        order.push_back(
            {StageOf(writes[write], kind), RankInStage(writes[write], pages), writes[write].number, write});
    }
    std::sort(order.begin(), order.end());
    std::vector<PageWrite> ordered;
    for (const Place& place : order) {
        ordered.push_back(std::move(writes[place.write]));
    }
    writes = std::move(ordered);
}

}  // namespace engine::jet
