#pragma once

#include <cstddef>
#include <functional>

namespace platform {

/// Runs an action that may call itself very deeply, on a stack with room for at least so many bytes, and
/// comes back when it has ended. What it throws is thrown here. Room that isn't used takes no memory.
/// Fails with 7 if there is no such room.
void RunOnDeepStack(size_t bytes, const std::function<void()>& action);

}  // namespace platform
