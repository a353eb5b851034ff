#include "platform/Failure.h"
#include "platform/FileLock.h"
#include "platform/Launch.h"
#include "support/OtherProcess.h"
#include "support/PrintQt.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QThread>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <linux/magic.h>
#include <sys/file.h>
#include <sys/syscall.h>
#include <sys/vfs.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>

namespace {

/// What the file system of these tests is like.
struct {
    bool hasNoFileLocks = false;
    long kind = 0;  ///< 0: what it really is.
} fileSystem;

}  // namespace

// In the place of the system's own calls, in this test program only.

extern "C" int flock(int file, int operation) {
    if (fileSystem.hasNoFileLocks) {
        errno = ENOLCK;
        return -1;
    }
    return static_cast<int>(syscall(SYS_flock, file, operation));
}

extern "C" int fstatfs(int file, struct statfs* status) noexcept {
    const auto result = static_cast<int>(syscall(SYS_fstatfs, file, status));
    if (fileSystem.kind != 0) {
        status->f_type = fileSystem.kind;
    }
    return result;
}

namespace {

using platform::FileLock;

class FileLockTest : public ::testing::Test {
protected:
    FileLockTest() { Write(path); }
    ~FileLockTest() override { fileSystem = {}; }

    static void Write(const QString& file) {
        QFile writing(file);
        EXPECT_TRUE(writing.open(QIODevice::WriteOnly));
    }

    bool CanTake() const { return FileLock(path).TryTake(); }

    /// Takes the lock and keeps it to the end of the process.
    bool TakeForGood() const { return (new FileLock(path))->TryTake(); }

    /// Whether an engine of this process could lock bytes of its own in the file.
    bool AreBytesFree() const {
        const int file = open(path.toLocal8Bit().constData(), O_RDWR | O_CLOEXEC);
        struct flock bytes {};
        bytes.l_type = F_WRLCK;
        bytes.l_start = 1 << 30;
        bytes.l_len = 512;
        const bool free = fcntl(file, F_SETLK, &bytes) == 0;
        close(file);
        return free;
    }

    QTemporaryDir folder;
    QString path = folder.filePath(QStringLiteral("property.mdb"));
};

TEST_F(FileLockTest, OneProcessHasItAtATime) {
    OtherProcess other([&] { return TakeForGood(); });
    ASSERT_TRUE(other.Succeeded());
    EXPECT_FALSE(CanTake());
    other.Kill();
    EXPECT_TRUE(CanTake()) << "whoever is gone keeps nobody out";
}

TEST_F(FileLockTest, WhoeverHasItMayAskAgain) {
    const FileLock lock(path);
    EXPECT_TRUE(lock.TryTake());
    EXPECT_TRUE(lock.TryTake());
    EXPECT_FALSE(CanTake());
}

TEST_F(FileLockTest, EndsWithItsObject) {
    {
        const bool taken = FileLock(path).TryTake();
        EXPECT_TRUE(taken);
    }
    EXPECT_TRUE(OtherProcess([&] { return TakeForGood(); }).Succeeded());
}

TEST_F(FileLockTest, IsOfTheFileAndNotOfItsName) {
    const FileLock lock(path);
    ASSERT_TRUE(lock.TryTake());
    const QString link = folder.filePath(QStringLiteral("link.mdb"));
    ASSERT_TRUE(QFile::link(path, link));
    EXPECT_EQ(FileLock(link).File(), lock.File());
    EXPECT_EQ(platform::IdentityOf(link), lock.File());
    EXPECT_FALSE(FileLock(link).TryTake());

    ASSERT_TRUE(QFile::rename(path, folder.filePath(QStringLiteral("old.mdb"))));
    EXPECT_EQ(platform::IdentityOf(path), std::nullopt);
    Write(path);
    EXPECT_NE(platform::IdentityOf(path), lock.File());
    EXPECT_TRUE(CanTake());
}

TEST_F(FileLockTest, NamesWhoHasIt) {
    const FileLock lock(path);
    EXPECT_FALSE(lock.Holder());
    const OtherProcess other([&] { return TakeForGood(); });
    const auto holder = lock.Holder();
    ASSERT_TRUE(holder);
    EXPECT_EQ(holder->process, other.Number());
    EXPECT_EQ(holder->program, QFileInfo(QCoreApplication::applicationFilePath()).fileName());
}

TEST_F(FileLockTest, AStartedProgramDoesNotInheritIt) {
    const QString started = folder.filePath(QStringLiteral("started"));
    const QString program = folder.filePath(QStringLiteral("Hearthbook.exe"));
    QFile script(program);
    ASSERT_TRUE(script.open(QIODevice::WriteOnly));
    script.write("#!/bin/sh\necho $$ > '" + started.toLocal8Bit() + ".part'\nmv '" + started.toLocal8Bit() +
                 ".part' '" + started.toLocal8Bit() + "'\nexec sleep 60\n");
    script.close();
    script.setPermissions(QFile::ReadOwner | QFile::ExeOwner);
    {
        const FileLock lock(path);
        ASSERT_TRUE(lock.TryTake());
        ASSERT_TRUE(platform::StartProgram(program));
        const QDeadlineTimer deadline(10000);
        while (!QFile::exists(started) && !deadline.hasExpired()) {
            QThread::msleep(2);
        }
    }
    EXPECT_TRUE(CanTake());
    QFile number(started);
    ASSERT_TRUE(number.open(QIODevice::ReadOnly));
    EXPECT_EQ(kill(number.readAll().trimmed().toInt(), SIGTERM), 0) << "the program was still running";
}

TEST_F(FileLockTest, LeavesTheBytesToTheDatabaseEngine) {
    for (const long kind : {0L, static_cast<long>(NFS_SUPER_MAGIC), static_cast<long>(CIFS_SUPER_MAGIC)}) {
        fileSystem.kind = kind;
        const OtherProcess other([&] { return TakeForGood(); });
        ASSERT_TRUE(other.Succeeded());
        EXPECT_TRUE(AreBytesFree()) << kind;
    }
}

// A database engine opens and closes the same file as it likes.
TEST_F(FileLockTest, ClosingTheFileElsewhereInItsProcessLetsNobodyIn) {
    for (const long kind : {0L, static_cast<long>(NFS_SUPER_MAGIC)}) {
        fileSystem.kind = kind;
        const OtherProcess other([&] { return TakeForGood() && AreBytesFree(); });
        ASSERT_TRUE(other.Succeeded());
        EXPECT_FALSE(CanTake()) << kind;
    }
}

// A lock of the whole file is there one of all its bytes: it must not be asked for at all.
TEST_F(FileLockTest, OnANetworkFileSystemIsALockOfOneByte) {
    fileSystem.kind = NFS_SUPER_MAGIC;
    OtherProcess other([&] { return TakeForGood(); });
    ASSERT_TRUE(other.Succeeded());
    EXPECT_FALSE(CanTake());
    EXPECT_FALSE(FileLock(path).Holder());
    {
        const int file = open(path.toLocal8Bit().constData(), O_RDWR | O_CLOEXEC);
        EXPECT_EQ(flock(file, LOCK_EX | LOCK_NB), 0);
        close(file);
    }
    other.Kill();
    EXPECT_TRUE(CanTake());
}

TEST_F(FileLockTest, WithoutLocksOfFilesIsALockOfOneByte) {
    fileSystem.hasNoFileLocks = true;
    OtherProcess other([&] { return TakeForGood(); });
    ASSERT_TRUE(other.Succeeded());
    EXPECT_FALSE(CanTake());
    other.Kill();
    EXPECT_TRUE(CanTake());
}

TEST_F(FileLockTest, AFileThatIsNotThereIsAFailure) {
    try {
        const FileLock lock(folder.filePath(QStringLiteral("none.mdb")));
        FAIL() << "Nothing was raised";
    } catch (const platform::Failure& failure) {
        EXPECT_EQ(failure.Number(), platform::FailureNumber::FileNotFound);
        EXPECT_TRUE(failure.Description().contains(QStringLiteral("none.mdb")));
    }
}

}  // namespace
