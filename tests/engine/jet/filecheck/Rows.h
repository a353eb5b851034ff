#pragma once

#include "Definition.h"
#include "PageOwners.h"

#include <deque>

namespace engine::jet::filecheck {

/// What a row holds in a column; of a long value its own bytes.
struct CellOfFile {
    bool isThere = false;  ///< Of a boolean: whether it is true.
    View bytes;
};

struct RowOfFile {
    Place key;
    std::vector<CellOfFile> cells;
};

/// The rows of a table, and the bytes of their long values.
struct RowsOfTable {
    std::vector<RowOfFile> rows;
    std::deque<std::vector<std::uint8_t>> longValues;
};

/// Whether a data page has so much room that our own files always know it as one with room.
bool HasKnownRoom(const Image& image, std::uint32_t page);

/// Reads all rows of a table and notes what is wrong with them, with its pages and with those of its long
/// values.
RowsOfTable ReadRows(const Image& image, const Definition& table, PageOwners& owners, Findings& findings);

}  // namespace engine::jet::filecheck
