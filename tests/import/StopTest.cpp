#include "ImportJourney.h"
#include "PrefixFinder.h"
#include "engine/execution/WriteGroup.h"
#include "engine/jet/FileCheck.h"
#include "engine/jet/StopFaults.h"
#include "support/JetReader.h"
#include "support/WriteTrace.h"

#include <QCryptographicHash>

#include <algorithm>
#include <map>
#include <set>

namespace {

QByteArray DigestOf(const QString& path) {
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return QCryptographicHash::hash(file.readAll(), QCryptographicHash::Sha1);
}

/// Small imports that are killed at an operation of the disk. Time ends no group, so that each import asks
/// the same of the disk.
class StopTest : public ImportJourney, public ::testing::WithParamInterface<FaultyDisk::Fault> {
protected:
    StopTest() { engine::execution::WriteGroup::EndAfter(WritesOfGroup); }
    ~StopTest() override { engine::execution::WriteGroup::EndAfter({}); }

    static constexpr size_t WritesOfGroup = 50;

    /// WRENFIELD_STOP_STRIDE=7 stops at every 7th operation, where each start takes long.
    static int Stride() { return std::max(1, qEnvironmentVariableIntValue("WRENFIELD_STOP_STRIDE")); }

    /// A database that a larger portfolio has been imported into: so the next import has rows to wipe and
    /// finds pages that are free.
    QString UsedDatabase(const char* name, engine::FileFormat format = FormatUnderTest()) {
        UsePortfolio({.tenants = 40, .start = QDate(2025, 1, 6)});
        const QString path = FreshDatabase(name, format);
        EXPECT_EQ(Import(path), 0);
        UsePortfolio({.tenants = 8, .start = QDate(2026, 5, 4)});
        return path;
    }

    /// The writes of an import that nobody stops. Both formats are given the same, and a trace tells all of
    /// those into a SQLite file.
    std::vector<TracedWrite> WritesOfImport() {
        std::vector<TracedWrite> writes;
        const QString database = UsedDatabase("whole.mdb", engine::FileFormat::Sqlite);
        const WriteTrace trace([&writes](const TracedWrite& write) { writes.push_back(write); });
        EXPECT_EQ(Import(database), 0);
        return writes;
    }

    /// In how many groups they come to the disk.
    size_t GroupsOfImport() {
        size_t groups = 0;
        const QString database = UsedDatabase("whole.mdb");
        const WriteTrace trace([](const TracedWrite&) {}, [&groups] { ++groups; });
        EXPECT_EQ(Import(database), 0);
        return groups;
    }

    /// Imports into a copy of the database. False if the import reached its end before the n-th operation.
    bool IsStoppedAt(int n, const QString& original, const QString& copy) {
        QFile::remove(copy);
        for (const QString& end : EndsOfFilesBeside()) {
            QFile::remove(copy + end);
        }
        EXPECT_TRUE(QFile::copy(original, copy));
        ImportOrder order = OrderFor(copy);
        order.endAt = n;
        order.end = GetParam();
        order.writesOfGroup = WritesOfGroup;
        const int status = OtherImport(order).ExitStatus();
        EXPECT_TRUE(status == FaultyDisk::EndStatus || status == 0) << status;
        return status == FaultyDisk::EndStatus;
    }

    /// By a program that knows nothing of the journal. It's no help where half a page was written.
    static void CheckWithoutTakingBack(const QString& database) {
        if (IsJetFile(database) && GetParam() == FaultyDisk::Fault::EndBefore) {
            EXPECT_EQ(engine::jet::OtherThanOfAStop(
                          engine::jet::FaultsOfFile(database, engine::jet::FileOf::Others)),
                      std::vector<std::string>());
        }
    }
};

// Every program knows the journal of a SQLite file, and takes back all that may have been written.
std::vector<FaultyDisk::Fault> EndsToTry() {
    return FormatUnderTest() == engine::FileFormat::Jet
               ? std::vector{FaultyDisk::Fault::EndBefore, FaultyDisk::Fault::EndWithin}
               : std::vector{FaultyDisk::Fault::EndWithin};
}

INSTANTIATE_TEST_SUITE_P(Ends, StopTest, ::testing::ValuesIn(EndsToTry()));

// In most of the files that the imports leave there are the same bytes, and these are looked at once.
TEST_P(StopTest, AnImportStoppedAtAnyOperationOfTheDiskLeavesTheFirstOfItsGroups) {
    const std::vector<TracedWrite> writes = WritesOfImport();
    const size_t groups = GroupsOfImport();
    const QString replica = UsedDatabase("replica.mdb", engine::FileFormat::Sqlite);
    const QString original = UsedDatabase("used.mdb");
    const QString database = workplace.Path(QStringLiteral("stopped.mdb"));
    std::map<QByteArray, LeftBehind> states;
    std::vector<const LeftBehind*> inOrder;
    for (bool isStopped = true; isStopped;) {
        const int n = 1 + Stride() * static_cast<int>(inOrder.size());
        isStopped = IsStoppedAt(n, original, database);
        CheckWithoutTakingBack(database);
        EXPECT_TRUE(IsSound(database));
        const auto [state, isNew] = states.try_emplace(DigestOf(database));
        if (isNew) {
            state->second = LeftIn(database);
        }
        inOrder.push_back(&state->second);
        ASSERT_FALSE(HasFailure()) << "at operation " << n;
    }
    EXPECT_GT(inOrder.size() * static_cast<size_t>(Stride()), 100U);

    std::vector<LeftBehind*> left;
    for (auto& [digest, state] : states) {
        left.push_back(&state);
    }
    FindPrefixes(replica, writes, left);
    std::set<int> prefixes;
    for (const LeftBehind* state : inOrder) {
        ASSERT_GE(state->prefix, 0) << "what is in the file is no prefix of the import's writes";
        EXPECT_TRUE(prefixes.empty() || state->prefix >= *prefixes.rbegin()) << "a group was there already";
        prefixes.insert(state->prefix);
    }
    // Those of no group, and of each.
    EXPECT_TRUE(prefixes.size() == 1 + groups || Stride() > 1) << prefixes.size() << " of " << 1 + groups;
    EXPECT_EQ(*prefixes.rbegin(), static_cast<int>(writes.size()));
}

}  // namespace
