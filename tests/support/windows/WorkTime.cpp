#include "support/WorkTime.h"

std::optional<std::int64_t> WaitedForCoreNanoseconds() {
    return {};
}
