#pragma once

#include "engine/Error.h"
#include "engine/execution/Connection.h"
#include "platform/FileLock.h"

#include <vector>

namespace engine::execution {

/// What keeps the file that the path leads to now from being the one that was written, with all that the
/// transactions on the connection have left in it. None may be open. Fails if the file can't be read.
std::vector<Error> CheckWritten(Connection& connection, const Transaction& transaction, const QString& path,
                                const platform::FileIdentity& written);

}  // namespace engine::execution
