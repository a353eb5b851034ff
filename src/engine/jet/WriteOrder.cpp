#include "engine/jet/WriteOrder.h"

#include "engine/jet/Bytes.h"
#include "engine/jet/DataPage.h"
#include "engine/jet/MoveOrder.h"

#include <algorithm>
#include <tuple>
#include <utility>

namespace engine::jet {

namespace {

// In the order in which they are written where rows are added. Where they are removed, indexes come before
// rows, as an entry must not lead to a row that isn't there, and maps behind all that leads to pages that
// they lose. Long values come before the rows that refer to them, and go after them.
enum Stage {
    New,
    FreeMap,
    IndexOfRemoved,
    LongValues,
    Map,
    Rows,
    LostLongValues,
    Index,
    MapOfRemoved,
    Definition
};

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
    const Page* page = write.page;
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

bool HasOtherEntries(const PageWrite& write) {
    const Page& now = *write.page;
    const Page& before = *write.before;
    return !std::equal(now.begin(), now.begin() + IndexLinksAt, before.begin()) ||
           !std::equal(now.begin() + IndexLinksEnd, now.end(), before.begin() + IndexLinksEnd);
}

bool IsRow(RowState state) {
    return state == RowState::Here || state == RowState::MovedHere;
}

// Whether a row that was here is no longer, or only where it has moved to.
bool HasLostRows(const PageWrite& write) {
    if ((*write.before)[0] != PageKind::Data) {
        return false;
    }
    const std::uint32_t owner = DataPage::OwnerOf(*write.page, write.number);
    const DataPage now(*write.page, write.number, owner);
    const DataPage before(*write.before, write.number, DataPage::OwnerOf(*write.before, write.number));
    for (int row = 0; row < before.RowCount(); ++row) {
        if (IsRow(before.State(row)) && (row >= now.RowCount() || !IsRow(now.State(row)))) {
            return true;
        }
    }
    return false;
}

Stage StageOfMap(GroupKind kind) {
    return kind == GroupKind::Removes ? MapOfRemoved : Map;
}

Stage StageOfData(const PageWrite& write, GroupKind kind) {
    const std::uint32_t owner = DataPage::OwnerOf(*write.page, write.number);
    if (owner == PageOwner::Nobody) {
        return StageOfMap(kind);
    }
    if (owner == PageOwner::LongValues) {
        return HasLostRows(write) ? LostLongValues : LongValues;
    }
    return Rows;
}

Stage StageOf(const PageWrite& write, GroupKind kind) {
    if (write.before == nullptr) {
        return New;
    }
    if (write.isFreeMap) {
        return FreeMap;
    }
    switch ((*write.page)[0]) {
        case PageKind::IndexNode:
        case PageKind::IndexLeaf:
            return kind == GroupKind::Removes ? IndexOfRemoved : Index;
        case PageKind::UsageBits:
            return StageOfMap(kind);
        case PageKind::Definition:
            return Definition;
        case PageKind::Data:
            return StageOfData(write, kind);
        default:
            return Rows;
    }
}

// Parents come before their children where entries come, and behind them where entries go: a node must tell
// of each child no smaller an entry than its last. Of the leaves, those that only have another neighbour come
// before those that have lost entries to it. A row is written where it has moved to before it goes from where
// it was. Maps that are longer than a row are mostly those of all pages of a table, and come before those
// with room.
int RankInStage(const PageWrite& write, Stage stage, PageStore& pages,
                const std::map<PageNumber, int>& moves) {
    switch (stage) {
        case IndexOfRemoved:
            return HeightOf(write, pages);
        case Index:
            return (*write.page)[0] == PageKind::IndexNode ? -HeightOf(write, pages)
                                                           : static_cast<int>(HasOtherEntries(write));
        case Rows: {
            const auto rank = moves.find(write.number);
            return rank == moves.end() ? 0 : rank->second;
        }
        case Map:
        case MapOfRemoved:
            return static_cast<int>((*write.page)[0] != PageKind::UsageBits);
        default:
            return 0;
    }
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
    const std::map<PageNumber, int> moves = RanksOfMoves(writes);
    std::vector<Place> order;
    for (std::size_t write = 0; write < writes.size(); ++write) {
        const Stage stage = StageOf(writes[write], kind);
        order.push_back(
            {stage, RankInStage(writes[write], stage, pages, moves), writes[write].number, write});
    }
    std::sort(order.begin(), order.end());
    std::vector<PageWrite> ordered;
    ordered.reserve(writes.size());
    for (const Place& place : order) {
        ordered.push_back(std::move(writes[place.write]));
    }
    writes = std::move(ordered);
}

}  // namespace engine::jet
