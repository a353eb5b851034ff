#pragma once

namespace platform {

/// Asks the process to end as by this signal, where ending is safe. May be called at any moment, in handlers
/// of signals and on other threads.
void RequestEnd(int signalNumber);

}  // namespace platform
