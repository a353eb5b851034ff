#pragma once

#include "engine/jet/WriteOrder.h"

#include <map>

namespace engine::jet {

/// In which order the pages of a group are written among which rows have moved: those with a lower rank
/// first. A row is where it has moved to before its key leads there, and is gone from where it was only when
/// the key no longer leads there. Where rows have moved between two pages in both directions, no order does
/// all of that, and these have some rank.
///
/// Pages that aren't named here have none to keep to.
std::map<PageNumber, int> RanksOfMoves(const std::vector<PageWrite>& writes);

}  // namespace engine::jet
