#pragma once

#include <cstddef>
#include <functional>

namespace platform {

/// Whether the stack of this thread has room for so many bytes, and for as many again.
bool HasStackHere(size_t bytes);

/// Runs what throws nothing on a stack of so many bytes, and comes back when it has ended. False if there is
/// no room for such a stack.
bool RunOnStack(size_t bytes, const std::function<void()>& work);

}  // namespace platform
