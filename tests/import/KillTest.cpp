#include "ImportJourney.h"
#include "PrefixFinder.h"
#include "support/WriteTrace.h"

#include <QFileInfo>

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <cstdlib>
#include <random>
#include <thread>
#include <vector>

namespace {

// Writes that were done but are not in the file when the process is killed: those of one group, no more.
constexpr std::int64_t LongestLoss = 50'000'000;
constexpr int Kills = 200;

/// The moments of the writes of a child process, without the time that it waited for a core, in memory that
/// outlives it.
class SharedMoments {
public:
    static constexpr size_t Room = 1'000'000;

    SharedMoments()
        : moments_(
              static_cast<std::int64_t*>(mmap(nullptr, Room * sizeof(std::int64_t), PROT_READ | PROT_WRITE,
                                              MAP_SHARED | MAP_ANONYMOUS, -1, 0))) {}
    ~SharedMoments() { munmap(moments_, Room * sizeof(std::int64_t)); }
    SharedMoments(const SharedMoments&) = delete;
    SharedMoments& operator=(const SharedMoments&) = delete;

    void Clear() const { moments_[0] = 0; }
    size_t Count() const { return static_cast<size_t>(moments_[0]); }
    std::int64_t At(size_t write) const { return moments_[1 + write]; }

    void Add(std::int64_t moment) const {
        const auto count = static_cast<size_t>(moments_[0]);
        if (count + 2 < Room) {
            moments_[1 + count] = moment;
            moments_[0] = static_cast<std::int64_t>(count) + 1;
        }
    }

private:
    std::int64_t* moments_;
};

/// How long this process has been ready to run while every core was busy with others, in nanoseconds. Such
/// time is the machine's and not the import's: nobody can write then.
std::int64_t WaitedForACore() {
    static int file = -1;
    static pid_t owner = 0;
    if (owner != getpid()) {
        file = open("/proc/self/schedstat", O_RDONLY | O_CLOEXEC);
        owner = getpid();
    }
    // Time on a core, time waiting for one, number of turns.
    std::array<char, 128> line{};
    if (pread(file, line.data(), line.size() - 1, 0) <= 0) {
        return 0;
    }
    char* rest = nullptr;
    std::strtoll(line.data(), &rest, 10);
    return std::strtoll(rest, nullptr, 10);
}

struct KilledImport {
    LeftBehind left;
    std::vector<std::int64_t> moments;  ///< Of the writes that it had done.
};

using KillTest = ImportJourney;

TEST_F(KillTest, AnImportKilledAtAnyMomentLeavesAPrefixOfItsWrites) {
    UsePortfolio({.tenants = 60, .start = QDate(2022, 1, 3)});

    // The writes in their order, from an import that nobody disturbs.
    std::vector<TracedWrite> writes;
    const QString whole = FreshDatabase("whole.mdb");
    {
        const WriteTrace trace([&writes](const TracedWrite& write) { writes.push_back(write); });
        ASSERT_EQ(Import(whole), 0);
    }
    ASSERT_GT(writes.size(), 5000U);

    const SharedMoments moments;
    const WriteTrace trace(
        [&moments](const TracedWrite& write) { moments.Add(write.moment - WaitedForACore()); });
    std::mt19937_64 random(20261121);
    // By what is done and not by the clock, so that kills fall into the import on a busy machine as well;
    // then anywhere in the life of a group.
    std::uniform_int_distribution<size_t> anyWrite(0, writes.size());
    std::uniform_int_distribution<int> anyMoment(0, 45'000);
    std::vector<KilledImport> imports;
    int midway = 0;
    for (int kill = 0; kill < Kills; ++kill) {
        const QString database = FreshDatabase("killed.mdb");
        moments.Clear();
        const int child = StartImport(database);
        ASSERT_GT(child, 0);
        const size_t wanted = anyWrite(random);
        int status = 0;
        bool hasEnded = false;
        while (moments.Count() < wanted && !hasEnded) {
            std::this_thread::sleep_for(std::chrono::microseconds(50));
            hasEnded = waitpid(child, &status, WNOHANG) == child;
        }
        std::this_thread::sleep_for(std::chrono::microseconds(anyMoment(random)));
        if (!hasEnded) {
            ::kill(child, SIGKILL);
            waitpid(child, &status, 0);
        }
        midway += WIFSIGNALED(status) && moments.Count() > 0 && moments.Count() < writes.size() ? 1 : 0;

        EXPECT_EQ(ReadRows(database, "pragma integrity_check"), QStringList{QStringLiteral("ok")});
        EXPECT_FALSE(QFileInfo::exists(database + QStringLiteral("-wal")));
        KilledImport import{{RowCounts(database), Contents(database)}, {}};
        for (size_t write = 0; write < moments.Count(); ++write) {
            import.moments.push_back(moments.At(write));
        }
        // An unfinished group has been put back by the first reader; what else is left goes with the next
        // write.
        EXPECT_TRUE(RunElsewhere(database, "update options set taxincrate = taxincrate + 1"));
        EXPECT_FALSE(QFileInfo::exists(database + QStringLiteral("-journal")));
        imports.push_back(std::move(import));
    }
    EXPECT_GT(midway, Kills / 3) << "the kills must fall into the import, not before or after it";

    std::vector<LeftBehind*> left;
    for (KilledImport& import : imports) {
        left.push_back(&import.left);
    }
    FindPrefixes(FreshDatabase("replica.mdb"), writes, left);
    for (const KilledImport& import : imports) {
        const size_t done = import.moments.size();
        ASSERT_GE(import.left.prefix, 0)
            << "what is in the file is no prefix of the import's writes; done: " << done;
        const auto stored = static_cast<size_t>(import.left.prefix);
        if (stored < done) {
            EXPECT_LE(import.moments[done - 1] - import.moments[stored], LongestLoss)
                << done - stored << " writes lost";
        }
    }
}

}  // namespace
