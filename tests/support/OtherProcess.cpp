#include "support/OtherProcess.h"

#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <cstdlib>

OtherProcess::OtherProcess(const std::function<bool()>& work) {
    std::array<int, 2> ends{};
    if (pipe(ends.data()) != 0) {
        std::abort();
    }
    number_ = fork();
    if (number_ == 0) {
        const char result = work() ? 1 : 0;
        if (write(ends[1], &result, 1) != 1) {
            std::_Exit(1);
        }
        for (;;) {
            pause();
        }
    }
    close(ends[1]);
    char result = 0;
    succeeded_ = read(ends[0], &result, 1) == 1 && result == 1;
    close(ends[0]);
}

void OtherProcess::Kill() {
    if (number_ > 0) {
        kill(number_, SIGKILL);
        waitpid(number_, nullptr, 0);
    }
    number_ = 0;
}
