#pragma once

#include "Rows.h"

#include <optional>

namespace engine::jet::filecheck {

using KeyBytes = std::vector<std::uint8_t>;

/// The key of a row in an index, made from the bytes of its columns by the rules told plainly. Of the engine
/// it uses nothing but the table of weights. None for a value of which nobody knows the key.
std::optional<KeyBytes> KeyOf(const Definition& table, const IndexOfFile& index, const RowOfFile& row);

/// Whether all columns of the index are null in the row, or any of them.
bool IsAllNull(const Definition& table, const IndexOfFile& index, const RowOfFile& row);
bool HasNull(const Definition& table, const IndexOfFile& index, const RowOfFile& row);

}  // namespace engine::jet::filecheck
