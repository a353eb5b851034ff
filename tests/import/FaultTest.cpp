#include "ImportJourney.h"
#include "PrefixFinder.h"
#include "database/CurrentDatabase.h"
#include "database/ErrorReport.h"
#include "engine/execution/WriteGroup.h"
#include "engine/jet/PagedFile.h"
#include "platform/Clock.h"
#include "platform/Failure.h"
#include "records/Collections.h"
#include "records/ImportRun.h"
#include "support/FaultyDisk.h"
#include "tools/portfolio/PortfolioReader.h"

#include <QFileInfo>
#include <QHash>
#include <QRegularExpression>
#include <QSet>

#include <algorithm>

namespace {

constexpr size_t WipeStatements = 37;

class FaultTest : public ImportJourney {
protected:
    struct Outcome {
        QHash<QString, QStringList> rows;  ///< That are in the file at the end.
        QStringList labels;                ///< Titles of the boxes shown before the look at the end.
        bool endedEarly = false;
        QStringList reports;  ///< In the error log, of the same.
        bool faulted = false;
        bool faultedAgain = false;
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
    Outcome ImportWithFaultAt(FaultyDisk& disk, int n, FaultyDisk::Fault fault,
                              engine::FileFormat format = FormatUnderTest()) {
        const QString path = FreshDatabase("faulty.mdb", format);
        EXPECT_TRUE(tools::ReadPortfolioFile(portfolio).empty());
        database::UseDatabaseFile(path);
        EXPECT_TRUE(database::StartDatabase());
        boxes.requests.clear();
        workplace.RemoveErrorLog();
        const int reportedBefore = database::ReportedErrors();

        Outcome outcome;
        disk.FailAt(n, fault);
        disk.FailAgainAfter(secondFault_.after, secondFault_.operations);
        disk.HoldAtMost(room_);
        try {
            records::ImportData(records::TheCollections());
        } catch (const platform::Failure&) {
            outcome.endedEarly = true;
        }
        database::SetCurrentDatabase(nullptr);
        outcome.faulted = disk.Faults() > 0;
        outcome.faultedAgain = disk.Faults() > 1;
        outcome.firstFault = disk.FirstFault();
        disk.Repair();
        disk.HoldAtMost(0);

        const int reported = database::ReportedErrors() - reportedBefore;
        EXPECT_EQ(workplace.ErrorLog().count(stamp_), reported) << "each failure is logged once";
        outcome.reports = workplace.ErrorLog().split(stamp_, Qt::SkipEmptyParts);
        for (const platform::MessageBoxRequest& request : boxes.requests) {
            outcome.labels += request.title;
        }
        SetLookAtTheEndAside(outcome, path);
        EXPECT_TRUE(IsSound(path));
        outcome.rows = ReadTables(path, Tables());
        return outcome;
    }

    /// The writes of an import that nothing disturbs. Both formats are given the same, and a trace tells all
    /// of those into a SQLite file.
    std::vector<TracedWrite> WritesOfImport() {
        std::vector<TracedWrite> writes;
        FaultyDisk disk;
        const WriteTrace trace([&writes](const TracedWrite& write) { writes.push_back(write); });
        EXPECT_TRUE(
            ImportWithFaultAt(disk, 0, FaultyDisk::Fault::Once, engine::FileFormat::Sqlite).labels.isEmpty());
        return writes;
    }

    /// What was lost has been told before the file is looked at, and nobody else has touched it. So the look
    /// finds nothing that differs. It can only fail itself, which costs nothing.
    static void SetLookAtTheEndAside(Outcome& outcome, const QString& path) {
        outcome.labels.removeAll(QStringLiteral("Import Data"));
        outcome.reports.removeIf([&path](const QString& report) {
            const bool isOfTheLook = report.trimmed().endsWith(path);
            EXPECT_TRUE(!isOfTheLook || report.contains(QStringLiteral("3043 - "))) << report.toStdString();
            return isOfTheLook;
        });
    }

    QString ContentsAfter(const std::vector<TracedWrite>& writes) {
        const QString path = FreshDatabase("expected.mdb", engine::FileFormat::Sqlite);
        QByteArray script = "begin;";
        for (const TracedWrite& write : writes) {
            script += write.sql.toUtf8() + ";";
        }
        EXPECT_TRUE(RunElsewhere(path, (script + "commit").constData()));
        return Contents(path);
    }

    /// A receipt as the last update leaves it.
    static QString AsDisbursed(const QString& receipt) {
        return receipt.endsWith(QLatin1String("|0")) ? receipt.chopped(1) + QStringLiteral("-1") : receipt;
    }

    /// How many statements of this kind, on this table, were told to be lost.
    static qsizetype LossesOf(const QString& kind, const QString& table, const QStringList& reports) {
        return std::count_if(reports.begin(), reports.end(), [&](const QString& report) {
            const QString statement = report.trimmed().section(QStringLiteral("\n\n"), -1);
            const bool isRowSets = kind == QLatin1String("insert") && statement.startsWith(u"new row in ");
            return (isRowSets || statement.startsWith(kind, Qt::CaseInsensitive)) &&
                   statement.section(u'(', 0, 0).contains(table, Qt::CaseInsensitive);
        });
    }

    /// Steps of row sets name no table.
    static bool IsStepTold(const QStringList& reports) {
        return std::any_of(reports.begin(), reports.end(),
                           [](const QString& report) { return report.trimmed().endsWith(u'.'); });
    }

    /// Whether an import that ran out of room has left all rows nevertheless. What is missing must have been
    /// told, and nothing else.
    static bool IsWhole(const Outcome& outcome, const QHash<QString, QStringList>& whole, int size) {
        const auto& left = outcome.rows;
        bool isWhole = true;
        for (const QString& table : Tables()) {
            const qsizetype losses = LossesOf(QStringLiteral("insert"), table, outcome.reports);
            // Where not even a journal finds room, the database isn't opened anew, and so nothing is deleted.
            const bool isWiped = LossesOf(QStringLiteral("delete"), table, outcome.reports) == 0 &&
                                 !outcome.labels.contains(QStringLiteral("Start ADO"));
            QStringList missing = whole[table];
            for (const QString& row : left[table]) {
                EXPECT_TRUE(missing.removeOne(row) || missing.removeOne(AsDisbursed(row)) || !isWiped ||
                            outcome.endedEarly)
                    << size << ": nobody meant " << row.toStdString() << " in " << table.toStdString();
            }
            if (!outcome.endedEarly) {
                EXPECT_TRUE(missing.isEmpty() || losses > 0 || IsStepTold(outcome.reports))
                    << size << ": nothing told of " << table.toStdString();
                EXPECT_TRUE(table != QLatin1String("rent_periods") || missing.size() == losses)
                    << size << ": " << missing.size() << " periods missing, " << losses << " told";
            }
            isWhole = isWhole && left[table] == whole[table];
        }
        if (!outcome.endedEarly) {
            EXPECT_EQ(outcome.reports.isEmpty(), isWhole) << size;
        }
        return isWhole;
    }

    struct {
        int after = 0;
        int operations = 0;
    } secondFault_;
    long long room_ = 0;  ///< Of the disk, if it has an end.
    QRegularExpression stamp_{QStringLiteral("\\d\\d/\\d\\d/\\d\\d \\d\\d:\\d\\d:\\d\\d ")};
};

// Each operation of the disk fails once in turn. What the user is told and what is in the file must agree:
// everything but the one write that was reported, or the state that a failure outside of the record layer
// leaves.
TEST_F(FaultTest, ASingleFaultCostsWhatIsReportedAndNothingElse) {
    const std::vector<TracedWrite> writes = WritesOfImport();
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
            EXPECT_EQ(AsText(outcome.rows), whole);
            EXPECT_GT(n, 10);
            RecordProperty("faults", n - 1);
            break;
        }
        if (outcome.endedEarly) {
            EXPECT_TRUE(outcome.labels.contains(QStringLiteral("Data Create Set"))) << where;
            EXPECT_TRUE(prefixes.contains(AsText(outcome.rows))) << where;
        } else if (outcome.labels == startFailed) {
            EXPECT_EQ(AsText(outcome.rows), notWiped) << where;
        } else if (outcome.labels.isEmpty()) {
            EXPECT_EQ(AsText(outcome.rows), whole) << where;
        } else {
            EXPECT_EQ(outcome.labels.size(), 1) << where;
            EXPECT_TRUE(withoutOne.contains(AsText(outcome.rows))) << where;
            ++losses;
        }
    }
    // A group of a Jet file stays in memory until it's whole in the file, and so can always be tried again.
    EXPECT_EQ(losses > 0, FormatUnderTest() == engine::FileFormat::Sqlite);
}

// A disk that fails when there is nothing left but to clear the journal has cost nothing, and nobody is told.
// On a Jet file the journal is only cleared when the disk says so: until then a loss of power may bring it
// back, and with it the file as it was. With balances, so that the last update has receipts to change: a
// failed one would otherwise be told and cost nothing.
TEST_F(FaultTest, ADiskThatFailsForGoodOrFillsUpEndsInReportsNotInACrash) {
    UsePortfolio({.tenants = 3, .start = QDate(2026, 10, 5), .balances = true});
    FaultyDisk disk;
    const QString whole = AsText(ImportWithFaultAt(disk, 0, FaultyDisk::Fault::Once).rows);
    for (const auto fault : {FaultyDisk::Fault::FromThenOn, FaultyDisk::Fault::FullFromThenOn}) {
        for (int n = 1;; ++n) {
            const Outcome outcome = ImportWithFaultAt(disk, n, fault);
            if (!outcome.faulted) {
                EXPECT_GT(n, 10);
                break;
            }
            const bool told = !outcome.labels.isEmpty() || outcome.endedEarly;
            const bool isWhole = AsText(outcome.rows) == whole;
            const bool mayComeBack =
                FormatUnderTest() == engine::FileFormat::Jet && outcome.firstFault == "sync";
            EXPECT_TRUE(told != isWhole || (told && mayComeBack))
                << outcome.firstFault << " at operation " << n;
        }
    }
}

// Balances of zero, so that rows are made by one statement each and changed by the last one alone.
TEST_F(FaultTest, ADiskOfAnySizeHoldsAllRowsButThoseThatWereTold) {
    UsePortfolio({.tenants = 30, .start = QDate(2024, 1, 1)});
    const qint64 smallest = QFileInfo(FreshDatabase("size.mdb")).size();
    FaultyDisk disk;
    const Outcome undisturbed = ImportWithFaultAt(disk, 0, FaultyDisk::Fault::Once);
    ASSERT_TRUE(undisturbed.labels.isEmpty());
    const auto& whole = undisturbed.rows;
    const qint64 largest = QFileInfo(workplace.Path(QStringLiteral("faulty.mdb"))).size();
    ASSERT_GT(largest, smallest + 200'000);

    int partly = 0;
    int wholly = 0;
    constexpr int Sizes = 10;
    for (int size = 0; size < Sizes; ++size) {
        // From one without room for a journal to one that holds everything twice.
        room_ = smallest + (2 * largest - smallest) * size / (Sizes - 1);
        const Outcome outcome = ImportWithFaultAt(disk, 0, FaultyDisk::Fault::Once);
        const bool isWhole = IsWhole(outcome, whole, size);
        (isWhole ? wholly : partly) += 1;
    }
    EXPECT_GT(partly, 3);
    EXPECT_GT(wholly, 1);
}

// The format allows 2 GiB. With less, a small import comes to the limit as well.
TEST_F(FaultTest, AFileThatMayNotGrowHoldsAllRowsButThoseThatWereTold) {
    using namespace engine::jet;
    constexpr auto Format = engine::FileFormat::Jet;
    UsePortfolio({.tenants = 30, .start = QDate(2024, 1, 1), .balances = false});
    const auto pagesOf = [](const QString& path) {
        return static_cast<PageNumber>(QFileInfo(path).size() / qint64{PageSize});
    };
    const auto smallest = pagesOf(FreshDatabase("size.mdb", Format));
    FaultyDisk disk;
    const auto whole = ImportWithFaultAt(disk, 0, FaultyDisk::Fault::Once, Format).rows;
    const auto largest = pagesOf(workplace.Path(QStringLiteral("faulty.mdb")));
    ASSERT_GT(largest, smallest + 50);

    constexpr int Sizes = 6;
    for (int size = 0; size < Sizes; ++size) {
        PagedFile::LimitTo(smallest + (largest - smallest) * static_cast<unsigned>(size) / (Sizes - 1));
        const Outcome outcome = ImportWithFaultAt(disk, 0, FaultyDisk::Fault::Once, Format);
        PagedFile::LimitTo(MostPages);
        EXPECT_FALSE(outcome.endedEarly);
        EXPECT_EQ(IsWhole(outcome, whole, size), size == Sizes - 1);
        for (const QString& report : outcome.reports) {
            EXPECT_TRUE(report.contains(QStringLiteral("3183 - Disk full")) &&
                        report.contains(QStringLiteral("has the largest size that its format allows")))
                << report.toStdString();
        }
    }
}

/// Everything that the rows of a small import were at some time, and what they are at its end.
class MeantRows {
public:
    MeantRows(const QString& database, const std::vector<TracedWrite>& writes) {
        AddAll(database);
        for (const TracedWrite& write : writes) {
            EXPECT_TRUE(
                RunElsewhere(database, ("pragma synchronous = off;" + write.sql.toUtf8()).constData()));
            AddAll(database);
            if (write.changedRows == 0) {
                idle_ += write.sql.section(QLatin1Char(' '), 0, 2);
            }
        }
        last_ = RowsOf(database);
    }

    /// A removal that is lost leaves rows to later statements.
    void AlsoWithoutWipe(const QString& database, const std::vector<TracedWrite>& writes) {
        for (const TracedWrite& write : writes) {
            if (write.sql.startsWith(QLatin1String("update")) &&
                !write.sql.contains(QLatin1String("rowid"))) {
                EXPECT_TRUE(RunElsewhere(database, write.sql.toUtf8().constData()));
            }
        }
        AddAll(database);
    }

    /// The rows of a table, as many times as they are there.
    using Rows = QHash<QString, QStringList>;
    static Rows RowsOf(const QString& database) { return ReadTables(database, ImportJourney::Tables()); }

    /// Holds what an import with faults has left against what it told.
    void Check(const Rows& rows, const QStringList& reports, const std::string& where) const {
        bool isWhole = true;
        for (const QString& table : ImportJourney::Tables()) {
            QStringList missing = last_[table];
            for (const QString& row : rows[table]) {
                EXPECT_TRUE(ever_[table].contains(row))
                    << where << ": nobody meant " << row.toStdString() << " in " << table.toStdString();
                missing.removeOne(row);
            }
            const bool isTableWhole = missing.isEmpty() && rows[table].size() == last_[table].size();
            EXPECT_TRUE(isTableWhole || IsTold(table, reports))
                << where << ": nothing told of " << table.toStdString() << " without "
                << missing.join(QLatin1Char('\n')).toStdString();
            isWhole = isWhole && isTableWhole;
        }
        for (const QString& report : reports) {
            EXPECT_FALSE(isWhole && !IsIdle(report))
                << where << ": told, but there is " << report.toStdString();
        }
    }

private:
    void AddAll(const QString& database) {
        const Rows rows = RowsOf(database);
        for (const QString& table : ImportJourney::Tables()) {
            for (const QString& row : rows[table]) {
                ever_[table].insert(row);
            }
        }
    }

    // A failed step of a row set names no table.
    static bool IsTold(const QString& table, const QStringList& reports) {
        return std::any_of(reports.begin(), reports.end(), [&table](const QString& report) {
            return report.contains(table, Qt::CaseInsensitive) || report.trimmed().endsWith(QLatin1Char('.'));
        });
    }

    bool IsIdle(const QString& report) const {
        return std::any_of(idle_.begin(), idle_.end(), [&report](QString begin) {
            return report.contains(
                begin.remove(QLatin1Char('[')).remove(QLatin1Char(']')).remove(QLatin1Char('"')),
                Qt::CaseInsensitive);
        });
    }

    QHash<QString, QSet<QString>> ever_;
    Rows last_;
    QStringList idle_;  ///< How statements begin that find no rows.
};

/// The second failure is one of so many operations in a row. Time ends no group: what is lost with one group
/// isn't there for the routines of the next one, which go by what they find, and where a busy machine ends a
/// group nobody can tell.
class PairsOfFaultsTest : public FaultTest, public ::testing::WithParamInterface<int> {
protected:
    PairsOfFaultsTest() { engine::execution::WriteGroup::EndAfter(SIZE_MAX); }
    ~PairsOfFaultsTest() override { engine::execution::WriteGroup::EndAfter({}); }
};

INSTANTIATE_TEST_SUITE_P(Operations, PairsOfFaultsTest, ::testing::Values(1, 6));

// All pairs take minutes: WRENFIELD_FAULT_STRIDE=1 tries them, otherwise it is every 23rd, or every 101st on
// a Jet file, which takes longer to be looked through.
TEST_P(PairsOfFaultsTest, NoPairCostsMoreThanIsReportedOrPutsAnythingIntoARowThatWasNotMeantForIt) {
    UsePortfolio({.tenants = 4, .start = QDate(2026, 10, 26), .balances = true});
    const std::vector<TracedWrite> writes = WritesOfImport();
    MeantRows meant(FreshDatabase("expected.mdb", engine::FileFormat::Sqlite), writes);
    meant.AlsoWithoutWipe(FreshDatabase("unwiped.mdb", engine::FileFormat::Sqlite), writes);
    FaultyDisk disk;
    int imports = 0;
    const int asked = qEnvironmentVariableIntValue("WRENFIELD_FAULT_STRIDE");
    const int usual = FormatUnderTest() == engine::FileFormat::Jet ? 101 : 23;
    const int stride = asked > 0 ? asked : usual;
    for (int first = 1;; ++first) {
        bool isFirstReached = false;
        for (int second = 1 + first % stride;; second += stride, ++imports) {
            secondFault_ = {second, GetParam()};
            const Outcome outcome = ImportWithFaultAt(disk, first, FaultyDisk::Fault::Once);
            isFirstReached = outcome.faulted;
            const std::string where = outcome.firstFault + " at operation " + std::to_string(first) +
                                      " and " + std::to_string(second) + " after it";
            if (!outcome.endedEarly && !outcome.labels.contains(QStringLiteral("Start ADO"))) {
                meant.Check(outcome.rows, outcome.reports, where);
            }
            if (!outcome.faultedAgain) {
                break;
            }
        }
        if (!isFirstReached) {
            EXPECT_GT(first, 10);
            break;
        }
    }
    EXPECT_GT(imports, 20);
    RecordProperty("pairs", imports);
}

}  // namespace
