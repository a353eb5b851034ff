#include "platform/Process.h"

#include "platform/EndRequest.h"
#include "platform/Failure.h"
#include "platform/MessageBox.h"
#include "platform/ProcessStart.h"

#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <vector>

#ifdef WRENFIELD_COVERAGE
extern "C" void __gcov_dump(void);
#endif

namespace platform {

namespace {

// Without a lock, which a handler of signals couldn't wait for.
std::atomic<int> requestedEnd = 0;
static_assert(std::atomic<int>::is_always_lock_free);

std::vector<std::function<void()>>& EndActions() {
    static std::vector<std::function<void()>> actions;
    return actions;
}

void RunEndActions() {
    // Each one is taken off before it runs, so that an action that ends the process goes on with the others.
    while (!EndActions().empty()) {
        const std::function<void()> action = std::move(EndActions().back());
        EndActions().pop_back();
        try {
            action();
        } catch (...) {
            // The end can't be stopped any more, and the actions left matter as much.
        }
    }
}

void TellUnhandledFailure() {
    try {
        const Failure failure = CurrentFailure().value();
        ShowMessageBox(QStringLiteral("%1: %2").arg(failure.Number()).arg(failure.Description()));
    } catch (...) {
        // A failure that can't even be told must not keep the database from being closed in order.
    }
}

}  // namespace

void AtProcessEnd(std::function<void()> action) {
    EndActions().push_back(std::move(action));
}

void EndProcess(int status) {
    RunEndActions();
    std::cout.flush();
    std::cerr.flush();
    std::fflush(nullptr);
#ifdef WRENFIELD_COVERAGE
    __gcov_dump();
#endif
    // No destructors of static objects: windows and databases that are in use up the stack may be among them.
    std::_Exit(status);
}

void EndByFailure() {
    TellUnhandledFailure();
    EndProcess(1);
}

void RunProcess(const std::function<int()>& program) {
    PrepareProcess();
    try {
        EndProcess(program());
    } catch (...) {
        EndByFailure();
    }
}

void RequestEnd(int signalNumber) {
    requestedEnd = signalNumber;
}

bool IsEndRequested() {
    return requestedEnd != 0;
}

void EndIfRequested() {
    if (requestedEnd != 0) {
        EndProcess(128 + requestedEnd);
    }
}

}  // namespace platform
