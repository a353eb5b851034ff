#pragma once

#include <functional>

namespace platform {

/// Something that must be done at each end of the process, such as bringing writes to the disk and closing
/// the database. May be called several times; the actions run in the opposite order.
void AtProcessEnd(std::function<void()> action);

/// Ends the process at once with this status: the actions of AtProcessEnd run, nothing else does.
[[noreturn]] void EndProcess(int status);

/// Ends the process because of the failure being handled right now: one message (number and description, in a
/// message box), then the end with status 1. For handlers behind which nothing could go on.
[[noreturn]] void EndByFailure();

/// Runs the program and is the last handler: a failure that nobody handled ends the process with one message
/// (number and description, in a message box) and status 1. A write to a closed pipe or beyond the size that
/// files may have fails and doesn't end it, as does one to a standard stream that it was started without.
[[noreturn]] void RunProcess(const std::function<int()>& program);

/// Lets SIGINT, SIGTERM and SIGHUP ask for the end instead of tearing the process down. EndIfRequested,
/// called at places where ending is safe, then ends it with 128 and the number of the signal.
void HandleEndSignals();
void EndIfRequested();

/// True after such a signal: whoever waits for something stops waiting.
bool IsEndRequested();

}  // namespace platform
