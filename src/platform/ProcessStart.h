#pragma once

namespace platform {

/// What a process needs before its program runs: a write that nobody takes fails and doesn't end it, and no
/// file gets the place of a standard stream that it was started without.
void PrepareProcess();

}  // namespace platform
