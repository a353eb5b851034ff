#pragma once

#include "platform/FileLock.h"

#include <windows.h>

namespace platform {

FileIdentity IdentityIn(const BY_HANDLE_FILE_INFORMATION& information);

}  // namespace platform
