#include "platform/StackOfSystem.h"

#include "platform/windows/Handle.h"

namespace platform {

namespace {

DWORD WINAPI Do(void* work) {
    (**static_cast<const std::function<void()>**>(work))();
    return 0;
}

}  // namespace

bool HasStackHere(size_t bytes) {
    ULONG_PTR low = 0;
    ULONG_PTR high = 0;
    GetCurrentThreadStackLimits(&low, &high);
    return bytes < (high - low) / 2;
}

bool RunOnStack(size_t bytes, const std::function<void()>& work) {
    const std::function<void()>* what = &work;
    const Handle thread(CreateThread(nullptr, bytes, Do, &what, STACK_SIZE_PARAM_IS_A_RESERVATION, nullptr));
    if (!thread.IsOpen()) {
        return false;
    }
    WaitForSingleObject(thread.Get(), INFINITE);
    return true;
}

}  // namespace platform
