#include "platform/ProcessStart.h"

#include <fcntl.h>
#include <unistd.h>

#include <csignal>
#include <initializer_list>

namespace platform {

namespace {

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

}  // namespace

void PrepareProcess() {
    LetWritesFail();
    HoldStandardStreams();
}

}  // namespace platform
