#include "ImportJourney.h"
#include "PrefixFinder.h"

#include <atomic>
#include <thread>

namespace {

using ConcurrentWriterTest = ImportJourney;

// Hearthbook may be running: it writes to the same file, to a table that the import leaves alone.
TEST_F(ConcurrentWriterTest, AnotherProgramThatWritesAllTheWhileLosesNothingAndCostsNothing) {
    UsePortfolio({.tenants = 300, .start = QDate(2020, 1, 6)});
    const QString alone = FreshDatabase("alone.mdb");
    ASSERT_EQ(Import(alone), 0);

    const QString shared = FreshDatabase("shared.mdb");
    OtherImport import(OrderFor(shared));
    std::atomic<bool> done = false;
    int written = 0;
    int refused = 0;
    std::thread other([&] {
        while (!done) {
            (RunElsewhere(shared, "insert into contractor(contractornumber) values(77)") ? written
                                                                                         : refused) += 1;
        }
    });
    const int status = import.ExitStatus();
    done = true;
    other.join();

    EXPECT_EQ(status, 0) << "the import had nothing to report";
    EXPECT_EQ(refused, 0);
    EXPECT_GT(written, 0);
    EXPECT_EQ(ReadRows(shared, "select count(*) from contractor where contractornumber = 77"),
              QStringList{QString::number(written)});
    ASSERT_TRUE(RunElsewhere(shared, "delete from contractor where contractornumber = 77"));
    EXPECT_EQ(LeftIn(shared).rowCounts, LeftIn(alone).rowCounts);
    EXPECT_EQ(Contents(shared), Contents(alone));
}

}  // namespace
