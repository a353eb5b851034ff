#include "ProcessLimits.h"

#include "AddressSanitizer.h"

#include <pthread.h>
#include <sys/resource.h>

namespace {

void Limit(int resource, rlim_t most) {
    const rlimit limit{most, most};
    setrlimit(static_cast<__rlimit_resource>(resource), &limit);
}

void LimitWork() {
    constexpr rlim_t Seconds = 300;
    Limit(RLIMIT_CPU, Seconds);
}

}  // namespace

void LimitProcesses() {
#ifndef WITH_ADDRESS_SANITIZER
    constexpr rlim_t Bytes = 4'000'000'000;
    Limit(RLIMIT_AS, Bytes);
#endif
    pthread_atfork(nullptr, nullptr, LimitWork);
}
