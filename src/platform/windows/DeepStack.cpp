#include "platform/DeepStack.h"

#include "platform/windows/Handle.h"

#include <exception>
#include <limits>
#include <new>

namespace platform {

namespace {

// What the callers and the callees of the action may need besides.
constexpr size_t Spare = size_t{1024} * 1024;

struct Work {
    const std::function<void()>& action;
    std::exception_ptr failure;
};

DWORD WINAPI Do(void* work) {
    auto* mine = static_cast<Work*>(work);
    try {
        mine->action();
    } catch (...) {
        mine->failure = std::current_exception();
    }
    return 0;
}

bool HasRoomHere(size_t bytes) {
    ULONG_PTR low = 0;
    ULONG_PTR high = 0;
    GetCurrentThreadStackLimits(&low, &high);
    return bytes < (high - low) / 2;
}

}  // namespace

void RunOnDeepStack(size_t bytes, const std::function<void()>& action) {
    if (HasRoomHere(bytes)) {
        action();
        return;
    }
    if (bytes > std::numeric_limits<size_t>::max() - Spare) {
        throw std::bad_alloc();
    }
    Work work{action, nullptr};
    const Handle thread(
        CreateThread(nullptr, bytes + Spare, Do, &work, STACK_SIZE_PARAM_IS_A_RESERVATION, nullptr));
    if (!thread.IsOpen()) {
        throw std::bad_alloc();
    }
    WaitForSingleObject(thread.Get(), INFINITE);
    if (work.failure) {
        std::rethrow_exception(work.failure);
    }
}

}  // namespace platform
