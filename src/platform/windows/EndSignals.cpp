#include "platform/EndRequest.h"
#include "platform/Process.h"

#include <windows.h>

namespace platform {

namespace {

// The numbers that the same events have as signals elsewhere, so that an exit status means the same.
constexpr int Hangup = 1;
constexpr int Interrupt = 2;
constexpr int Termination = 15;

// Runs on a thread of its own. When it returns from one of the last three, the system ends the process at
// once, so it leaves that to the process, which the system gives some seconds.
BOOL WINAPI NoteEvent(DWORD event) {
    switch (event) {
        case CTRL_C_EVENT:
        case CTRL_BREAK_EVENT:
            RequestEnd(Interrupt);
            return TRUE;
        case CTRL_CLOSE_EVENT:
            RequestEnd(Hangup);
            break;
        default:
            RequestEnd(Termination);
            break;
    }
    Sleep(INFINITE);
    return TRUE;
}

}  // namespace

// Where Ctrl+C is ignored, as by whoever wants the program to outlive it, the system calls no handler.
void HandleEndSignals() {
    SetConsoleCtrlHandler(NoteEvent, TRUE);
}

}  // namespace platform
