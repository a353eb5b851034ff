#pragma once

#include "engine/jet/PageStore.h"

namespace engine::jet {

/// What a table's definition says of its rows, and what changes with them. Read from the file each time, so
/// that it is right after an undo as well.
class TableFigures {
public:
    /// `page` is the first one of the definition.
    TableFigures(PageStore& pages, PageNumber page) : pages_(pages), page_(page) {}

    std::uint32_t Rows() const;
    void SetRows(std::uint32_t rows);

    /// The number that an automatic column got last, 0 before the first.
    std::int32_t LastNumber() const;
    void SetLastNumber(std::int32_t number);

    /// About how many different keys an index has: what nobody may count on. `index` is its place in the list
    /// of real indexes.
    std::uint32_t DistinctKeys(int index) const;
    void SetDistinctKeys(int index, std::uint32_t keys);

private:
    std::uint32_t Figure(std::size_t at) const;
    void SetFigure(std::size_t at, std::uint32_t figure);

    PageStore& pages_;
    PageNumber page_;
};

}  // namespace engine::jet
