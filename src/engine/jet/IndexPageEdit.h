#pragma once

#include "engine/jet/IndexPage.h"

namespace engine::jet {

/// Changes of single entries within a page, as it stands: bytes are moved once, and nothing else is looked
/// at. Entries are whole ones, with key, row and, in nodes, child. Each returns false, and leaves the page
/// alone, where the page would have to be written anew (see EntryList).

/// For an entry that belongs at this place.
bool TryInsert(Page& page, const IndexPage& view, std::size_t place, KeyView entry);
bool TryErase(Page& page, const IndexPage& view, std::size_t place);
/// Puts an entry that belongs there in the place of another of the same length.
bool TryReplace(Page& page, const IndexPage& view, std::size_t place, KeyView entry);

/// Makes a page of an index that has no entries, and no neighbours.
void BeginIndexPage(Page& page, std::uint8_t kind, PageNumber owner, std::uint8_t height);

}  // namespace engine::jet
