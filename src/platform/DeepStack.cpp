#include "platform/DeepStack.h"

#include "platform/StackOfSystem.h"

#include <exception>
#include <limits>
#include <new>

namespace platform {

namespace {

// What the callers and the callees of the action may need besides.
constexpr size_t Spare = size_t{1024} * 1024;

}  // namespace

void RunOnDeepStack(size_t bytes, const std::function<void()>& action) {
    // A second thread, even one that is only waited for, makes all memory dearer from then on.
    if (HasStackHere(bytes)) {
        action();
        return;
    }
    std::exception_ptr failure;
    const auto work = [&action, &failure] {
        try {
            action();
        } catch (...) {
            failure = std::current_exception();
        }
    };
    if (bytes > std::numeric_limits<size_t>::max() - Spare || !RunOnStack(bytes + Spare, work)) {
        throw std::bad_alloc();
    }
    if (failure) {
        std::rethrow_exception(failure);
    }
}

}  // namespace platform
