#pragma once

#include "engine/Recordset.h"

namespace records {

/// Gives every column of a row just begun a value by its type: 0, an empty text, today or false, so that no
/// column that the wizard doesn't know holds a null, which Hearthbook's screens can't take. The user is told
/// of each column of another type; it stays as it is.
void SetFieldDefaults(engine::Recordset& row);

}  // namespace records
