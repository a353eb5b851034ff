#include "ImportJourney.h"
#include "PrefixFinder.h"
#include "database/Database.h"
#include "database/RecordAccess.h"
#include "platform/Clock.h"
#include "platform/Failure.h"
#include "records/ImportRun.h"
#include "support/FaultyDisk.h"
#include "tools_core/portfolio/PortfolioReader.h"

#include <QHash>
#include <QRegularExpression>

namespace {

constexpr size_t WipeStatements = 37;

class FaultTest : public ImportJourney {
protected:
    struct Outcome {
        QString contents;
        QStringList labels;  ///< Titles of the boxes shown.
        bool endedEarly = false;
        bool faulted = false;
        std::string firstFault;
    };

    FaultTest() {
        UsePortfolio({.tenants = 3, .start = QDate(2026, 10, 5), .balances = false});
        platform::PinToday(QDate(2026, 11, 21));
    }
    ~FaultTest() override {
        database::SetCurrentDatabase(nullptr);
        platform::PinToday(QDate());
    }

    /// Imports into a database that is already open, on a disk that fails at its n-th operation.
    Outcome ImportWithFaultAt(FaultyDisk& disk, int n, FaultyDisk::Fault fault) {
        const QString path = FreshDatabase("faulty.mdb");
        EXPECT_TRUE(tools::ReadPortfolioFile(portfolio).empty());
        database::UseDatabaseFile(path);
        EXPECT_TRUE(database::StartDatabase());
        boxes.requests.clear();
        workplace.RemoveErrorLog();
        const int reportedBefore = database::ReportedErrors();

        Outcome outcome;
        disk.FailAt(n, fault);
        try {
            records::ImportData();
        } catch (const platform::Failure&) {
            outcome.endedEarly = true;
        }
        database::SetCurrentDatabase(nullptr);
        outcome.faulted = disk.Faults() > 0;
        outcome.firstFault = disk.FirstFault();
        disk.Repair();

        const int reported = database::ReportedErrors() - reportedBefore;
        EXPECT_EQ(workplace.ErrorLog().count(stamp_), reported) << "each failure is logged once";
        for (const platform::MessageBoxRequest& request : boxes.requests) {
            outcome.labels += request.title;
        }
        EXPECT_EQ(ReadRows(path, "pragma integrity_check"), QStringList{QStringLiteral("ok")});
        outcome.contents = Contents(path);
        return outcome;
    }

    QString ContentsAfter(const std::vector<TracedWrite>& writes) {
        const QString path = FreshDatabase("expected.mdb");
        QByteArray script = "begin;";
        for (const TracedWrite& write : writes) {
            script += write.sql.toUtf8() + ";";
        }
        EXPECT_TRUE(RunElsewhere(path, (script + "commit").constData()));
        return Contents(path);
    }

    QRegularExpression stamp_{QStringLiteral("\\d\\d/\\d\\d/\\d\\d \\d\\d:\\d\\d:\\d\\d ")};
};

// Each operation of the disk fails once in turn. What the user is told and what is in the file must agree:
// everything but the one write that was reported, or the state that a failure outside of the record layer
// leaves.
TEST_F(FaultTest, ASingleFaultCostsWhatIsReportedAndNothingElse) {
    std::vector<TracedWrite> writes;
    {
        FaultyDisk disk;
        const WriteTrace trace([&writes](const TracedWrite& write) { writes.push_back(write); });
        EXPECT_TRUE(ImportWithFaultAt(disk, 0, FaultyDisk::Fault::Once).labels.isEmpty());
    }
    ASSERT_GT(writes.size(), WipeStatements + 20);

    const QString whole = ContentsAfter(writes);
    const QString notWiped = ContentsAfter({writes.begin() + WipeStatements, writes.end()});
    QHash<QString, size_t> withoutOne;
    QHash<QString, size_t> prefixes;
    for (size_t place = 0; place < writes.size(); ++place) {
        auto others = writes;
        others.erase(others.begin() + static_cast<std::ptrdiff_t>(place));
        withoutOne.insert(ContentsAfter(others), place);
        prefixes.insert(ContentsAfter({writes.begin(), writes.begin() + static_cast<std::ptrdiff_t>(place)}),
                        place);
    }

    FaultyDisk disk;
    const QStringList startFailed = {QStringLiteral("Start ADO"), platform::ApplicationTitle()};
    int losses = 0;
    for (int n = 1;; ++n) {
        const Outcome outcome = ImportWithFaultAt(disk, n, FaultyDisk::Fault::Once);
        const std::string where = outcome.firstFault + " at operation " + std::to_string(n) + ": " +
                                  outcome.labels.join(QStringLiteral(", ")).toStdString();
        if (!outcome.faulted) {
            EXPECT_EQ(outcome.contents, whole);
            EXPECT_GT(n, 10);
            break;
        }
        if (outcome.endedEarly) {
            EXPECT_TRUE(outcome.labels.contains(QStringLiteral("Data Create Set"))) << where;
            EXPECT_TRUE(prefixes.contains(outcome.contents)) << where;
        } else if (outcome.labels == startFailed) {
            EXPECT_EQ(outcome.contents, notWiped) << where;
        } else if (outcome.labels.isEmpty()) {
            EXPECT_EQ(outcome.contents, whole) << where;
        } else {
            EXPECT_EQ(outcome.labels.size(), 1) << where;
            EXPECT_TRUE(withoutOne.contains(outcome.contents)) << where;
            ++losses;
        }
    }
    EXPECT_GT(losses, 0) << "some fault must have cost a write";
}

// A disk that fails when there is nothing left but to clear the journal has cost nothing, and nobody is told.
// With balances, so that the last update has receipts to change: a failed one would otherwise be told and
// cost nothing.
TEST_F(FaultTest, ADiskThatFailsForGoodOrFillsUpEndsInReportsNotInACrash) {
    UsePortfolio({.tenants = 3, .start = QDate(2026, 10, 5), .balances = true});
    FaultyDisk disk;
    const QString whole = ImportWithFaultAt(disk, 0, FaultyDisk::Fault::Once).contents;
    for (const auto fault : {FaultyDisk::Fault::FromThenOn, FaultyDisk::Fault::FullFromThenOn}) {
        for (int n = 1;; ++n) {
            const Outcome outcome = ImportWithFaultAt(disk, n, fault);
            if (!outcome.faulted) {
                EXPECT_GT(n, 10);
                break;
            }
            const bool told = !outcome.labels.isEmpty() || outcome.endedEarly;
            EXPECT_NE(told, outcome.contents == whole) << outcome.firstFault << " at operation " << n;
        }
    }
}

}  // namespace
