#pragma once

#include <algorithm>
#include <cstdint>
#include <ctime>
#include <limits>
#include <optional>

/// How long this process has been at work on the machine's cores, in nanoseconds. Unlike the time on the wall
/// it stands still while other programs have the cores or the disk is busy.
inline std::int64_t WorkedNanoseconds() {
    timespec worked{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &worked);
    return std::int64_t{worked.tv_sec} * 1'000'000'000 + worked.tv_nsec;
}

/// How long this process's first thread has waited for a core that others had, in nanoseconds, where the
/// system tells it.
std::optional<std::int64_t> WaitedForCoreNanoseconds();

/// The work of the cheapest of some runs, in nanoseconds: other programs can only make a run dearer, as they
/// take its place in the caches.
template <typename Work>
std::int64_t LeastWork(int runs, Work work) {
    auto least = std::numeric_limits<std::int64_t>::max();
    for (int run = 0; run < runs; ++run) {
        const std::int64_t before = WorkedNanoseconds();
        work();
        least = std::min(least, WorkedNanoseconds() - before);
    }
    return least;
}
