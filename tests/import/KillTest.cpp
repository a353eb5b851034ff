#include "ImportJourney.h"
#include "ImportProgress.h"
#include "PrefixFinder.h"
#include "support/WriteTrace.h"

#include <QFileInfo>

#include <algorithm>
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

class KillTest : public ImportJourney {
protected:
    ImportOrder OrderFor(const QString& database, const ImportProgress& progress) const {
        ImportOrder order = ImportJourney::OrderFor(database);
        order.progress = progress.Path();
        return order;
    }
};

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

    const ImportProgress progress(workplace.Path(QStringLiteral("progress")));
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
        OtherImport import(OrderFor(database, progress));
        const size_t wanted = anyWrite(random);
        while (progress.Writes() < CountTold(writes, wanted) && !import.HasEnded()) {
            std::this_thread::sleep_for(std::chrono::microseconds(50));
        }
        std::this_thread::sleep_for(std::chrono::microseconds(anyMoment(random)));
        import.Kill();
        midway += import.ExitStatus() == -1 && progress.Writes() > 0 &&
                          progress.Writes() < CountTold(writes, writes.size())
                      ? 1
                      : 0;

        EXPECT_TRUE(IsSound(database));
        KilledImport killed{LeftIn(database), progress.Committed(), progress.AllDone()};
        // An unfinished group has been put back by the first reader; what else is left goes with the next
        // write.
        EXPECT_TRUE(RunElsewhere(database, "update options set taxincrate = 1"));
        EXPECT_TRUE(StandsAlone(database));
        imports.push_back(std::move(killed));
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
            if (last.waited) {
                const std::chrono::nanoseconds waited(*last.waited - done[stored].waited.value());
                EXPECT_LE(last.at - done[stored].at - waited, LongestLoss)
                    << done.size() - stored << " writes lost";
            }
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
    const ImportProgress progress(workplace.Path(QStringLiteral("progress")));
    std::vector<KilledImport> imports;
    constexpr size_t Moments = 8;
    for (const int request : OtherImport::Requests()) {
        for (size_t moment = 0; moment < Moments; ++moment) {
            const QString database = FreshDatabase("ended.mdb");
            progress.Clear();
            OtherImport import(OrderFor(database, progress));
            while (progress.Writes() < 1 + moment * CountTold(writes, writes.size()) / Moments &&
                   !import.HasEnded()) {
                std::this_thread::sleep_for(std::chrono::microseconds(50));
            }
            import.AskToEnd(request);
            const int status = import.ExitStatus();
            const bool hasEnded = progress.Writes() == CountTold(writes, writes.size());
            EXPECT_EQ(status, hasEnded ? 0 : 128 + request) << "at moment " << moment;
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
