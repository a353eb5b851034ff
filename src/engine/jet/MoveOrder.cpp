#include "engine/jet/MoveOrder.h"

#include "engine/jet/DataPage.h"
#include "engine/jet/RowPlace.h"

#include <algorithm>
#include <optional>
#include <set>

namespace engine::jet {

namespace {

DataPage RowsOf(const Page& page, PageNumber number) {
    return {page, number, DataPage::OwnerOf(page, number)};
}

std::optional<RowPlace> MovedTo(const DataPage& page, int row) {
    const bool isMoved = row < page.RowCount() && page.State(row) == RowState::MovedAway &&
                         page.Row(row).Size() >= RowPlaceSize;
    return isMoved ? std::optional(ReadRowPlace(page.Row(row), 0)) : std::nullopt;
}

/// Which pages come before which, and how deep that goes.
class Moves {
public:
    explicit Moves(const std::vector<PageWrite>& writes) {
        for (const PageWrite& write : writes) {
            if ((*write.page)[0] == PageKind::Data) {
                Note(write);
            }
        }
    }

    std::map<PageNumber, int> Ranks() {
        for (const auto& [page, others] : first_) {
            RankOf(page);
        }
        return std::move(ranks_);
    }

private:
    void Note(const PageWrite& write) {
        const DataPage now = RowsOf(*write.page, write.number);
        std::optional<DataPage> before;
        if (write.before != nullptr && (*write.before)[0] == PageKind::Data) {
            before = RowsOf(*write.before, write.number);
        }
        const int rows = std::max(now.RowCount(), before ? before->RowCount() : 0);
        for (int row = 0; row < rows; ++row) {
            const auto to = MovedTo(now, row);
            const auto from = before ? MovedTo(*before, row) : std::nullopt;
            if (to == from) {
                continue;
            }
            if (to) {
                first_[write.number].insert(to->page);
            }
            if (from) {
                first_[from->page].insert(write.number);
            }
        }
    }

    // A page that is met within itself ends the way there.
    int RankOf(PageNumber page) {
        const auto [known, isNew] = ranks_.emplace(page, 0);
        if (isNew && first_.contains(page)) {
            int rank = 0;
            for (const PageNumber other : first_[page]) {
                rank = std::max(rank, other == page ? 0 : 1 + RankOf(other));
            }
            known->second = rank;
        }
        return known->second;
    }

    std::map<PageNumber, std::set<PageNumber>> first_;  ///< What is written before each page.
    std::map<PageNumber, int> ranks_;
};

}  // namespace

std::map<PageNumber, int> RanksOfMoves(const std::vector<PageWrite>& writes) {
    return Moves(writes).Ranks();
}

}  // namespace engine::jet
