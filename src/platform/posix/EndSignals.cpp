#include "platform/EndRequest.h"
#include "platform/Process.h"

#include <csignal>

namespace platform {

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
        action.sa_handler = RequestEnd;
        sigemptyset(&action.sa_mask);
        sigaction(signalNumber, &action, nullptr);
    }
}

}  // namespace platform
