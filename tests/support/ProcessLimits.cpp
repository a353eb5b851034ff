#include "ProcessLimits.h"

#include <pthread.h>
#include <sys/resource.h>

namespace {

void Limit(int resource, rlim_t most) {
    const rlimit limit{most, most};
    setrlimit(static_cast<__rlimit_resource>(resource), &limit);
}

void LimitWork() {
    constexpr rlim_t seconds = 300;
    Limit(RLIMIT_CPU, seconds);
}

}  // namespace

void LimitProcesses() {
#ifndef __SANITIZE_ADDRESS__
    constexpr rlim_t bytes = 4'000'000'000;
    Limit(RLIMIT_AS, bytes);
#endif
    pthread_atfork(nullptr, nullptr, LimitWork);
}
