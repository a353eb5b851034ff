#include "platform/StackOfSystem.h"

#include <pthread.h>
#include <sys/resource.h>

namespace platform {

namespace {

void* Do(void* work) {
    (**static_cast<const std::function<void()>**>(work))();
    return nullptr;
}

}  // namespace

bool HasStackHere(size_t bytes) {
    rlimit limit{};
    return getrlimit(RLIMIT_STACK, &limit) == 0 && limit.rlim_cur != RLIM_INFINITY &&
           bytes < limit.rlim_cur / 2;
}

bool RunOnStack(size_t bytes, const std::function<void()>& work) {
    const std::function<void()>* what = &work;
    pthread_attr_t attributes;
    pthread_attr_init(&attributes);
    pthread_t thread{};
    const bool runs = pthread_attr_setstacksize(&attributes, bytes) == 0 &&
                      pthread_create(&thread, &attributes, Do, &what) == 0;
    pthread_attr_destroy(&attributes);
    if (runs) {
        pthread_join(thread, nullptr);
    }
    return runs;
}

}  // namespace platform
