#include "platform/Process.h"

#include "platform/Failure.h"
#include "platform/MessageBox.h"

#include <fcntl.h>
#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <vector>

#ifdef WRENFIELD_COVERAGE
extern "C" void __gcov_dump(void);
#endif

namespace platform {

namespace {

volatile std::sig_atomic_t requestedEnd = 0;

std::vector<std::function<void()>>& EndActions() {
    static std::vector<std::function<void()>> actions;
    return actions;
}

void NoteEndSignal(int signalNumber) {
    requestedEnd = signalNumber;
}

// A reader that went away, or a file that grew too large for its owner's limit, makes the one write fail and
// must not tear the process down in the middle of its work. A handler, unlike an ignored signal, isn't handed
// on to programs that are started.
void LetWritesFail() {
    struct sigaction action {};
    action.sa_handler = [](int) {};
    action.sa_flags = SA_RESTART;
    sigemptyset(&action.sa_mask);
    for (const int signalNumber : {SIGPIPE, SIGXFSZ}) {
        sigaction(signalNumber, &action, nullptr);
    }
}

// The first files that are opened would take the places of streams that the program was started without, and
// what is printed would go into them. Nothing can be written to what stands there now.
void HoldStandardStreams() {
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        if (fcntl(stream, F_GETFD) == -1) {
            static_cast<void>(open("/dev/null", O_RDONLY));
        }
    }
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
    LetWritesFail();
    HoldStandardStreams();
    try {
        EndProcess(program());
    } catch (...) {
        EndByFailure();
    }
}

void HandleEndSignals() {
    for (const int signalNumber : {SIGINT, SIGTERM, SIGHUP}) {
        struct sigaction before {};
        sigaction(signalNumber, nullptr, &before);
        // Whoever started the program with a signal ignored (nohup) wants it to outlive that.
        if (before.sa_handler == SIG_IGN) {
            continue;
        }
        // Without SA_RESTART: a question that waits for its answer has to end too.
        struct sigaction action {};
        action.sa_handler = NoteEndSignal;
        sigemptyset(&action.sa_mask);
        sigaction(signalNumber, &action, nullptr);
    }
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
