#include "platform/Failure.h"
#include "platform/FileLock.h"
#include "support/PrintQt.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

using platform::FileLock;

class FileLockTest : public ::testing::Test {
protected:
    FileLockTest() {
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("rows");
    }

    QTemporaryDir folder;
    QString path = folder.filePath(QStringLiteral("property.mdb"));
};

TEST_F(FileLockTest, OneHasItAtATime) {
    {
        const FileLock lock(path);
        EXPECT_TRUE(lock.TryTake());
        EXPECT_TRUE(lock.TryTake()) << "whoever has it may ask again";
        EXPECT_FALSE(FileLock(path).TryTake());
    }
    EXPECT_TRUE(FileLock(path).TryTake());
}

TEST_F(FileLockTest, HindersNobodyWhoReadsAndWrites) {
    const FileLock lock(path);
    ASSERT_TRUE(lock.TryTake());
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    EXPECT_EQ(file.readAll(), "rows");
    EXPECT_EQ(file.write("more"), 4);
}

TEST_F(FileLockTest, KnowsTheFileByAnyName) {
    const FileLock lock(path);
    EXPECT_EQ(platform::IdentityOf(path), lock.File());
    EXPECT_EQ(platform::IdentityOf(path.toUpper()), lock.File());
    EXPECT_EQ(platform::IdentityOf(folder.filePath(QStringLiteral("none"))), std::nullopt);
    EXPECT_NE(platform::IdentityOf(folder.path()), lock.File());
}

TEST_F(FileLockTest, AFileThatIsNotThereIsAFailure) {
    try {
        const FileLock lock(folder.filePath(QStringLiteral("none.mdb")));
        FAIL() << "Nothing was raised";
    } catch (const platform::Failure& failure) {
        EXPECT_EQ(failure.Number(), platform::FailureNumber::FileNotFound);
    }
}

}  // namespace
