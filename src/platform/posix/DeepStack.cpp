#include "platform/DeepStack.h"

#include <pthread.h>
#include <sys/resource.h>

#include <exception>
#include <new>

namespace platform {

namespace {

// What the callers and the callees of the action may need besides.
constexpr size_t Spare = size_t{1024} * 1024;

struct Work {
    const std::function<void()>& action;
    std::exception_ptr failure;
};

void* Do(void* work) {
    auto* mine = static_cast<Work*>(work);
    try {
        mine->action();
    } catch (...) {
        mine->failure = std::current_exception();
    }
    return nullptr;
}

bool HasRoomHere(size_t bytes) {
    rlimit limit{};
    return getrlimit(RLIMIT_STACK, &limit) == 0 && limit.rlim_cur != RLIM_INFINITY &&
           bytes < limit.rlim_cur / 2;
}

}  // namespace

void RunOnDeepStack(size_t bytes, const std::function<void()>& action) {
    // A second thread, even one that is only waited for, makes all memory dearer from then on.
    if (HasRoomHere(bytes)) {
        action();
        return;
    }
    Work work{action, nullptr};
    pthread_attr_t attributes;
    pthread_attr_init(&attributes);
    pthread_t thread{};
    const bool runs = pthread_attr_setstacksize(&attributes, bytes + Spare) == 0 &&
                      pthread_create(&thread, &attributes, Do, &work) == 0;
    pthread_attr_destroy(&attributes);
    if (!runs) {
        throw std::bad_alloc();
    }
    pthread_join(thread, nullptr);
    if (work.failure) {
        std::rethrow_exception(work.failure);
    }
}

}  // namespace platform
