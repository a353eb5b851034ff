#pragma once

#include "Definition.h"
#include "PageOwners.h"

#include <map>

namespace engine::jet::filecheck {

/// The pages of one column's long values. Each of their rows is part of exactly one value.
class LongPieces {
public:
    /// Reads the maps of the column.
    LongPieces(const Image& image, const std::string& table, const ColumnOfFile& column, PageOwners& owners,
               Findings& findings);

    /// The bytes of the value that a row refers to. Unreadable if it isn't whole, or another one's, too.
    std::vector<std::uint8_t> Read(const View& reference, const Place& row);

    /// When all values have been read: that none of the rows is left.
    void CheckAllNamed() const;

private:
    Slot Take(const Place& place, const Place& row);
    void CheckPages();

    const Image& image_;
    const ColumnOfFile& column_;
    std::string whose_;
    PageOwners& owners_;
    Findings& findings_;
    Pages pages_;
    Pages room_;
    std::map<Place, Place> rows_;  ///< Which row has a piece.
};

}  // namespace engine::jet::filecheck
