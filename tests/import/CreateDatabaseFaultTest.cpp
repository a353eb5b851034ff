#include "ImportJourney.h"
#include "platform/Failure.h"
#include "support/FaultyDisk.h"
#include "support/FormatUnderTest.h"
#include "tools/schema/CreateTool.h"

#include <QDir>

namespace {

class CreateDatabaseFaultTest : public ImportJourney,
                                public ::testing::WithParamInterface<FaultyDisk::Fault> {
protected:
    QString Path() const { return folder_.filePath(QStringLiteral("property.mdb")); }

    QStringList Everything() const {
        return QDir(folder_.path())
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    }

    bool IsMade() const {
        try {
            tools::CreateHearthbookDatabase(Path(), FormatUnderTest());
            return true;
        } catch (const platform::Failure&) {
            return false;
        }
    }

private:
    QTemporaryDir folder_;
};

}  // namespace

TEST_P(CreateDatabaseFaultTest, LeavesAWholeDatabaseOrNothing) {
    ASSERT_TRUE(IsMade());
    const QString whole = Contents(Path());
    EXPECT_TRUE(QFile::remove(Path()));

    FaultyDisk disk;
    int failures = 0;
    bool hasFailed = true;
    for (int n = 1; hasFailed; ++n) {
        disk.FailAt(n, GetParam());
        const bool isMade = IsMade();
        hasFailed = disk.Faults() > 0;
        const std::string where = disk.FirstFault() + " at operation " + std::to_string(n);
        disk.Repair();
        if (isMade) {
            EXPECT_EQ(Everything(), QStringList{QStringLiteral("property.mdb")}) << where;
            EXPECT_EQ(Contents(Path()), whole) << where;
            EXPECT_EQ(ReadRows(Path(), "pragma integrity_check"), QStringList{QStringLiteral("ok")}) << where;
            EXPECT_TRUE(QFile::remove(Path())) << where;
        } else {
            EXPECT_TRUE(hasFailed);
            EXPECT_EQ(Everything(), QStringList()) << where;
            ++failures;
        }
    }
    EXPECT_GT(failures, 10);
    EXPECT_TRUE(boxes.requests.empty()) << "a failure, and not a word on the way";
}

INSTANTIATE_TEST_SUITE_P(Faults, CreateDatabaseFaultTest,
                         ::testing::Values(FaultyDisk::Fault::Once, FaultyDisk::Fault::FromThenOn,
                                           FaultyDisk::Fault::FullFromThenOn));
