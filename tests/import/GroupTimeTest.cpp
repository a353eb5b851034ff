#include "ImportJourney.h"
#include "support/WorkTime.h"
#include "support/WriteTrace.h"

#include <algorithm>
#include <optional>

namespace {

constexpr std::int64_t Promised = 50'000'000;

using GroupTimeTest = ImportJourney;

// In work of this process, since a busy machine may hold up anything. The long steps of an import come behind
// writes that have their own time: the copies of many receipts, and the last update of all of them.
TEST_F(GroupTimeTest, NoWriteWaitsForTheDiskLongerThanPromised) {
    UsePortfolio({.tenants = 40, .start = QDate(2006, 1, 2), .frequency = "Day"});
    const QString database = FreshDatabase("long.mdb");
    std::optional<std::int64_t> oldest;
    std::int64_t longest = 0;
    int groups = 0;
    {
        const WriteTrace trace(
            [&](const TracedWrite&) {
                if (!oldest) {
                    oldest = WorkedNanoseconds();
                }
            },
            [&] {
                if (oldest) {
                    longest = std::max(longest, WorkedNanoseconds() - *oldest);
                    ++groups;
                }
                oldest.reset();
            });
        ASSERT_EQ(Import(database), 0);
    }
    EXPECT_FALSE(oldest) << "everything is on the disk at the end";
    EXPECT_GT(groups, 10) << "writes come to the disk in groups; the faster the machine, the fewer";
    EXPECT_GT(ReadRows(database, "select count(*) from revenues where disburse_id = -1").value(0).toInt(),
              100'000)
        << "the last update has to be long";
    EXPECT_LE(longest, Promised);
}

}  // namespace
