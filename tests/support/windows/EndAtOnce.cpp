#include "support/EndAtOnce.h"

#include <windows.h>

#include <cstdlib>

// The usual end lets each library tidy up.
void EndAtOnce(int status) {
    TerminateProcess(GetCurrentProcess(), static_cast<UINT>(status));
    std::abort();
}
