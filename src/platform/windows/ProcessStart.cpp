#include "platform/ProcessStart.h"

#include <windows.h>

namespace platform {

// Writes fail by themselves here, and the standard streams aren't files that others could take the places of.
// What is left is the system's own box about a missing disk, which would hold a program up.
void PrepareProcess() {
    SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX);
}

}  // namespace platform
