#pragma once

#include "engine/jet/TableLayout.h"

namespace engine::jet {

/// Writes the definition of a new table without rows: on the page that the layout names, which is taken
/// already, and on further ones where it is longer.
void WriteDefinition(PageStore& pages, const TableLayout& layout);

}  // namespace engine::jet
