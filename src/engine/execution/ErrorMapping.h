#pragma once

#include "engine/Error.h"

#include <sqlite3.h>

namespace engine::execution {

/// The engine error for a result code of SQLite. The connection may be null.
Error ToError(sqlite3* connection, int resultCode);

}  // namespace engine::execution
