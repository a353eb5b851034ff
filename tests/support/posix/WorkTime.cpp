#include "support/WorkTime.h"

#include <cstdio>

std::optional<std::int64_t> WaitedForCoreNanoseconds() {
    long long worked = 0;
    long long waited = 0;
    std::FILE* schedule = std::fopen("/proc/self/schedstat", "r");
    if (schedule == nullptr) {
        return {};
    }
    const bool isTold = std::fscanf(schedule, "%lld %lld", &worked, &waited) == 2;
    std::fclose(schedule);
    return isTold ? std::optional<std::int64_t>(waited) : std::nullopt;
}
