#pragma once

#include "Keys.h"

namespace engine::jet::filecheck {

/// Looks at all pages of an index, at its map, and whether its entries are those of the rows, one for each.
void CheckIndex(const Image& image, const Definition& table, const IndexOfFile& index,
                const std::vector<RowOfFile>& rows, PageOwners& owners, Findings& findings);

}  // namespace engine::jet::filecheck
