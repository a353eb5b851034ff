#include "ImportJourney.h"
#include "PrefixFinder.h"
#include "support/WorkTime.h"
#include "support/WriteTrace.h"

#include <QFileInfo>

#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <csignal>
#include <random>
#include <thread>
#include <vector>

namespace {

using namespace std::chrono_literals;
using Moment = std::chrono::steady_clock::time_point;

// Writes that were done but are not in the file when the process is killed: those of one group, and no more
// than the process can do in this time.
constexpr std::chrono::nanoseconds LongestLoss = 50ms;

// Whether a group is due is looked at before each write, and the rows that waited to go in together with it
// go in first. These two statements a busy machine may hold up for as long as it likes after that look.
constexpr size_t StatementsAfterTheLook = 2;

// WRENFIELD_KILLS asks for another number than 200, or than 40 of an import into a Jet file, which takes
// longer to be looked through.
int Kills() {
    const int asked = qEnvironmentVariableIntValue("WRENFIELD_KILLS");
    const int usual = FormatUnderTest() == engine::FileFormat::Jet ? 40 : 200;
    return asked > 0 ? asked : usual;
}

/// A write of the import, by the clock on the wall and by the time the process itself had worked.
struct Done {
    Moment at;
    std::int64_t worked = 0;  ///< In nanoseconds.
    std::int64_t waited = 0;  ///< For a core, in nanoseconds.
};

/// What a child process has written so far, in memory that outlives it.
class SharedProgress {
public:
    static constexpr size_t Room = 1'000'000;

    SharedProgress()
        : progress_(static_cast<Progress*>(
              mmap(nullptr, sizeof(Progress), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0))) {}
    ~SharedProgress() { munmap(progress_, sizeof(Progress)); }
    SharedProgress(const SharedProgress&) = delete;
    SharedProgress& operator=(const SharedProgress&) = delete;

    void Clear() const {
        progress_->writes = 0;
        progress_->committed = 0;
    }
    size_t Writes() const { return progress_->writes; }
    /// How many of the writes were done when the last group had come to the disk.
    size_t Committed() const { return progress_->committed; }
    std::vector<Done> AllDone() const {
        return {progress_->done.begin(), progress_->done.begin() + static_cast<std::ptrdiff_t>(Writes())};
    }

    void AddWrite(const TracedWrite& write) const {
        if (progress_->writes < Room) {
            progress_->done[progress_->writes] = {write.doneAt, WorkedNanoseconds(),
                                                  WaitedForCoreNanoseconds()};
            ++progress_->writes;
        }
    }

    void AddCommit() const { progress_->committed = progress_->writes.load(); }

private:
    struct Progress {
        std::atomic<size_t> writes;
        std::atomic<size_t> committed;
        std::array<Done, Room> done;
    };
    Progress* progress_;
};

struct KilledImport {
    LeftBehind left;
    size_t committed = 0;
    std::vector<Done> done;
};

/// The last of the writes after which it was looked at whether their group is due; the first of the lost ones
/// if there is none.
const Done& LastLookedAt(const std::vector<Done>& done, size_t firstLost) {
    size_t write = done.size() - 1;
    for (size_t statement = 0; statement < StatementsAfterTheLook; ++statement) {
        const Moment own = done[write].at;
        while (write > firstLost && done[write].at == own) {
            --write;
        }
    }
    return done[write];
}

/// How many of the first writes a trace tells of. What they are comes from an import into a SQLite file,
/// which tells of all: both formats are given the same.
size_t CountTold(const std::vector<TracedWrite>& writes, size_t first) {
    if (FormatUnderTest() == engine::FileFormat::Sqlite) {
        return first;
    }
    return static_cast<size_t>(std::count_if(
        writes.begin(), writes.begin() + static_cast<std::ptrdiff_t>(first), [](const TracedWrite& write) {
            return !write.sql.startsWith(QLatin1String("delete")) ||
                   write.sql.contains(QLatin1String(" where "));
        }));
}

// Nothing lies beside the file that is part of it.
bool StandsAlone(const QString& database) {
    const QStringList ends = EndsOfFilesBeside();
    return std::none_of(ends.begin(), ends.end(),
                        [&database](const QString& end) { return QFileInfo::exists(database + end); });
}

using KillTest = ImportJourney;

TEST_F(KillTest, AnImportKilledAtAnyMomentLeavesAPrefixOfItsWrites) {
    UsePortfolio({.tenants = 60, .start = QDate(2022, 1, 3)});

    // The writes in their order, from an import that nobody disturbs.
    std::vector<TracedWrite> writes;
    const QString whole = FreshDatabase("whole.mdb", engine::FileFormat::Sqlite);
    {
        const WriteTrace trace([&writes](const TracedWrite& write) { writes.push_back(write); });
        ASSERT_EQ(Import(whole), 0);
    }
    ASSERT_GT(writes.size(), 5000U);

    const SharedProgress progress;
    const WriteTrace trace([&progress](const TracedWrite& write) { progress.AddWrite(write); },
                           [&progress] { progress.AddCommit(); });
    std::mt19937_64 random(20261121);
    // By what is done and not by the clock, so that kills fall into the import on a busy machine as well;
    // then anywhere in the life of a group.
    std::uniform_int_distribution<size_t> anyWrite(0, writes.size());
    std::uniform_int_distribution<int> anyMoment(0, 45'000);
    std::vector<KilledImport> imports;
    const int kills = Kills();
    int midway = 0;
    for (int kill = 0; kill < kills; ++kill) {
        const QString database = FreshDatabase("killed.mdb");
        progress.Clear();
        const int child = StartImport(database);
        ASSERT_GT(child, 0);
        const size_t wanted = anyWrite(random);
        int status = 0;
        bool hasEnded = false;
        while (progress.Writes() < CountTold(writes, wanted) && !hasEnded) {
            std::this_thread::sleep_for(std::chrono::microseconds(50));
            hasEnded = waitpid(child, &status, WNOHANG) == child;
        }
        std::this_thread::sleep_for(std::chrono::microseconds(anyMoment(random)));
        if (!hasEnded) {
            ::kill(child, SIGKILL);
            waitpid(child, &status, 0);
        }
        midway += WIFSIGNALED(status) && progress.Writes() > 0 &&
                          progress.Writes() < CountTold(writes, writes.size())
                      ? 1
                      : 0;

        EXPECT_TRUE(IsSound(database));
        KilledImport import{LeftIn(database), progress.Committed(), progress.AllDone()};
        // An unfinished group has been put back by the first reader; what else is left goes with the next
        // write.
        EXPECT_TRUE(RunElsewhere(database, "update options set taxincrate = 1"));
        EXPECT_TRUE(StandsAlone(database));
        imports.push_back(std::move(import));
    }
    EXPECT_GT(midway, kills / 3) << "the kills must fall into the import, not before or after it";

    std::vector<LeftBehind*> left;
    for (KilledImport& import : imports) {
        left.push_back(&import.left);
    }
    FindPrefixes(FreshDatabase("replica.mdb", engine::FileFormat::Sqlite), writes, left);
    for (const KilledImport& import : imports) {
        const std::vector<Done>& done = import.done;
        ASSERT_GE(import.left.prefix, 0)
            << "what is in the file is no prefix of the import's writes; done: " << done.size();
        const size_t stored = CountTold(writes, static_cast<size_t>(import.left.prefix));
        EXPECT_GE(stored, import.committed) << "writes of a finished group are lost";
        if (stored < done.size()) {
            const Done& last = LastLookedAt(done, stored);
            const std::chrono::nanoseconds waited(last.waited - done[stored].waited);
            EXPECT_LE(last.at - done[stored].at - waited, LongestLoss)
                << done.size() - stored << " writes lost";
            // Others' work does not count here, so that this holds for the last statements as well.
            EXPECT_LE(std::chrono::nanoseconds(done.back().worked - done[stored].worked), LongestLoss)
                << done.size() - stored << " writes lost";
        }
    }
}

// Whoever asks an import to end finds in the file what it had done by then, to the row.
TEST_F(KillTest, AnImportThatIsAskedToEndLeavesAllThatItHasDone) {
    UsePortfolio({.tenants = 60, .start = QDate(2022, 1, 3)});
    std::vector<TracedWrite> writes;
    {
        const WriteTrace trace([&writes](const TracedWrite& write) { writes.push_back(write); });
        ASSERT_EQ(Import(FreshDatabase("whole.mdb", engine::FileFormat::Sqlite)), 0);
    }
    const SharedProgress progress;
    const WriteTrace trace([&progress](const TracedWrite& write) { progress.AddWrite(write); });
    std::vector<KilledImport> imports;
    constexpr size_t Moments = 8;
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        for (size_t moment = 0; moment < Moments; ++moment) {
            const QString database = FreshDatabase("ended.mdb");
            progress.Clear();
            const int child = StartImport(database);
            ASSERT_GT(child, 0);
            while (progress.Writes() < 1 + moment * CountTold(writes, writes.size()) / Moments) {
                std::this_thread::sleep_for(std::chrono::microseconds(50));
            }
            ::kill(child, signal);
            int status = 0;
            waitpid(child, &status, 0);
            const bool hasEnded = progress.Writes() == CountTold(writes, writes.size());
            EXPECT_EQ(WEXITSTATUS(status), hasEnded ? 0 : 128 + signal) << "at moment " << moment;
            EXPECT_TRUE(IsSound(database));
            EXPECT_TRUE(StandsAlone(database));
            imports.push_back({LeftIn(database), progress.Committed(), progress.AllDone()});
        }
    }
    std::vector<LeftBehind*> left;
    for (KilledImport& import : imports) {
        left.push_back(&import.left);
    }
    FindPrefixes(FreshDatabase("replica.mdb", engine::FileFormat::Sqlite), writes, left);
    for (const KilledImport& import : imports) {
        ASSERT_GE(import.left.prefix, 0);
        EXPECT_EQ(CountTold(writes, static_cast<size_t>(import.left.prefix)), import.done.size());
    }
}

}  // namespace
