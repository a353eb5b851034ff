#include "platform/Failure.h"
#include "platform/MessageBox.h"
#include "platform/Process.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <iostream>
#include <stdexcept>

namespace {

using platform::AtProcessEnd;
using platform::EndProcess;
using platform::RunProcess;
using ::testing::ExitedWithCode;

TEST(EndProcess, EndsWithTheStatus) {
    EXPECT_EXIT(EndProcess(0), ExitedWithCode(0), "^$");
    EXPECT_EXIT(EndProcess(3), ExitedWithCode(3), "^$");
}

TEST(EndProcess, RunsTheActionsInTheOppositeOrder) {
    EXPECT_EXIT(
        {
            AtProcessEnd([] { std::cerr << "first"; });
            AtProcessEnd([] { std::cerr << "second "; });
            EndProcess(0);
        },
        ExitedWithCode(0), "^second first$");
}

TEST(EndProcess, IgnoresAnActionThatFails) {
    EXPECT_EXIT(
        {
            AtProcessEnd([] { std::cerr << "first"; });
            AtProcessEnd([] { throw std::runtime_error("no"); });
            EndProcess(4);
        },
        ExitedWithCode(4), "^first$");
}

TEST(EndProcess, FromAnActionGoesOnWithTheOtherActions) {
    EXPECT_EXIT(
        {
            AtProcessEnd([] { std::cerr << "first"; });
            AtProcessEnd([] {
                std::cerr << "second ";
                EndProcess(5);
            });
            EndProcess(0);
        },
        ExitedWithCode(5), "^second first$");
}

TEST(EndProcess, LeavesNothingInTheOutputsBuffers) {
    EXPECT_EXIT(
        {
            std::setvbuf(stdout, nullptr, _IOFBF, 4096);
            dup2(STDERR_FILENO, STDOUT_FILENO);
            std::fputs("kept back", stdout);
            EndProcess(0);
        },
        ExitedWithCode(0), "^kept back$");
}

struct Mourner {
    ~Mourner() { std::cerr << "destroyed"; }
};

TEST(EndProcess, RunsNothingButTheActions) {
    EXPECT_EXIT(
        {
            static const Mourner staticMourner;
            const Mourner mourner;
            std::atexit([] { std::cerr << "at exit"; });
            EndProcess(0);
        },
        ExitedWithCode(0), "^$");
}

TEST(RunProcess, EndsWithTheProgramsStatus) {
    EXPECT_EXIT(
        {
            AtProcessEnd([] { std::cerr << "ended"; });
            RunProcess([] { return 2; });
        },
        ExitedWithCode(2), "^ended$");
}

TEST(RunProcess, AWriteThatCannotBeDoneFailsAndDoesNotEndTheProcess) {
    const auto writeInVain = [] {
        std::array<int, 2> ends{};
        const bool doesPipeRefuse =
            pipe(ends.data()) == 0 && close(ends[0]) == 0 && write(ends[1], "x", 1) < 0;
        const rlimit nothing{0, 0};
        std::FILE* file = std::tmpfile();
        const bool doesFileRefuse =
            setrlimit(RLIMIT_FSIZE, &nothing) == 0 && write(fileno(file), "x", 1) < 0 && errno == EFBIG;
        return doesPipeRefuse && doesFileRefuse ? 0 : 1;
    };
    EXPECT_EXIT(RunProcess(writeInVain), ExitedWithCode(0), "^$");
}

TEST(RunProcess, TellsAnUnhandledFailureOnceAndEndsInOrder) {
    EXPECT_EXIT(
        {
            platform::BeforeMessageBox([] { std::cerr << "to the disk\n"; });
            AtProcessEnd([] { std::cerr << "ended"; });
            RunProcess([]() -> int { platform::RaiseOverflow(); });
        },
        ExitedWithCode(1), "^to the disk\nWrenfield Wizard: 6: Overflow\nended$");
}

TEST(RunProcess, TellsFailuresThatAreNotOurs) {
    EXPECT_EXIT(RunProcess([]() -> int { throw std::runtime_error("out of paper"); }), ExitedWithCode(1),
                "^Wrenfield Wizard: 51: out of paper\n$");
    EXPECT_EXIT(RunProcess([]() -> int { throw 42; }), ExitedWithCode(1), "^Wrenfield Wizard: 51: ");
}

TEST(RunProcess, LetsNoFileTakeThePlaceOfAStreamThatIsClosed) {
    const auto runWithoutStreams = [] {
        ::close(STDIN_FILENO);
        ::close(STDOUT_FILENO);
        RunProcess([] {
            const int file = ::open("/dev/null", O_RDWR);
            return file > STDERR_FILENO && ::write(STDOUT_FILENO, "lost", 4) == -1 ? 0 : 1;
        });
    };
    EXPECT_EXIT(runWithoutStreams(), ::testing::ExitedWithCode(0), "");
}

TEST(EndByFailure, TellsTheFailureBeingHandled) {
    EXPECT_EXIT(
        {
            AtProcessEnd([] { std::cerr << "ended"; });
            try {
                platform::RaiseOverflow();
            } catch (...) {
                platform::EndByFailure();
            }
        },
        ExitedWithCode(1), "^Wrenfield Wizard: 6: Overflow\nended$");
}

class BrokenMessageBoxes : public platform::MessageBoxPort {
public:
    platform::Answer Show(const platform::MessageBoxRequest&) override {
        throw std::runtime_error("no display");
    }
};

TEST(RunProcess, EndsInOrderEvenIfTheFailureCanNotBeTold) {
    EXPECT_EXIT(
        {
            BrokenMessageBoxes boxes;
            platform::SetMessageBoxPort(&boxes);
            AtProcessEnd([] { std::cerr << "ended"; });
            RunProcess([]() -> int { platform::RaiseOverflow(); });
        },
        ExitedWithCode(1), "^ended$");
}

class EndSignal : public ::testing::TestWithParam<int> {};

TEST_P(EndSignal, EndsWhereEndingIsSafe) {
    EXPECT_EXIT(
        {
            AtProcessEnd([] { std::cerr << "ended"; });
            platform::HandleEndSignals();
            std::raise(GetParam());
            std::cerr << "still here ";
            platform::EndIfRequested();
        },
        ExitedWithCode(128 + GetParam()), "^still here ended$");
}

INSTANTIATE_TEST_SUITE_P(All, EndSignal, ::testing::Values(SIGINT, SIGTERM, SIGHUP));

TEST(EndSignals, WithoutOneTheProcessGoesOn) {
    EXPECT_EXIT(
        {
            platform::HandleEndSignals();
            platform::EndIfRequested();
            std::_Exit(7);
        },
        ExitedWithCode(7), "^$");
}

TEST(EndSignals, IgnoredOnesStayIgnored) {
    EXPECT_EXIT(
        {
            std::signal(SIGHUP, SIG_IGN);
            platform::HandleEndSignals();
            std::raise(SIGHUP);
            platform::EndIfRequested();
            std::_Exit(7);
        },
        ExitedWithCode(7), "^$");
}

}  // namespace
