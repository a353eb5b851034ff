#pragma once

#include "engine/DBEngine.h"

#include <vector>

namespace tools {

/// The tables of a Hearthbook database that the import wipes, fills or reads.
std::vector<engine::TableDefinition> HearthbookTables();

/// Writes the rows that a fresh Hearthbook database holds.
void FillFreshDatabase(engine::Database& database);

}  // namespace tools
