#include "ImportJourney.h"
#include "support/WorkTime.h"
#include "support/WriteTrace.h"

#include <algorithm>
#include <limits>
#include <optional>

namespace {

constexpr std::int64_t Promised = 50'000'000;

/// What a trace tells of an import: the longest time that a write waited for the disk, in nanoseconds of
/// work, and the number of groups.
struct GroupTimes {
    std::int64_t longest = 0;
    int groups = 0;
};

// In work of this process, since a busy machine may hold up anything; and the best of some imports, since
// other programs can only make work dearer. The long steps of an import come behind writes that have their
// own time: the copies of many receipts, and the last update of all of them.
class GroupTimeTest : public ImportJourney {
protected:
    static constexpr int Imports = 3;

    GroupTimes ImportTimed(const QString& database) {
        GroupTimes times;
        std::optional<std::int64_t> oldest;
        {
            const WriteTrace trace(
                [&](const TracedWrite&) {
                    if (!oldest) {
                        oldest = WorkedNanoseconds();
                    }
                },
                [&] {
                    if (oldest) {
                        times.longest = std::max(times.longest, WorkedNanoseconds() - *oldest);
                        ++times.groups;
                    }
                    oldest.reset();
                });
            EXPECT_EQ(Import(database), 0);
        }
        EXPECT_FALSE(oldest) << "everything is on the disk at the end";
        return times;
    }
};

TEST_F(GroupTimeTest, NoWriteWaitsForTheDiskLongerThanPromised) {
    UsePortfolio({.tenants = 40, .start = QDate(2006, 1, 2), .frequency = "Day"});
    auto least = std::numeric_limits<std::int64_t>::max();
    for (int import = 0; import < Imports && least > Promised; ++import) {
        const QString database = FreshDatabase("long.mdb");
        const GroupTimes times = ImportTimed(database);
        EXPECT_GT(times.groups, 10) << "writes come to the disk in groups; the faster the machine, the fewer";
        EXPECT_GT(ReadRows(database, "select count(*) from revenues where disburse_id = -1").value(0).toInt(),
                  100'000)
            << "the last update has to be long";
        least = std::min(least, times.longest);
    }
    RecordProperty("microseconds", static_cast<int>(least / 1000));
    EXPECT_LE(least, Promised);
}

}  // namespace
