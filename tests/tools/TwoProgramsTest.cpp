#include "Program.h"
#include "platform/FileLock.h"
#include "support/PrintQt.h"

#include <QDeadlineTimer>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QThread>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>

namespace {

/// Another import stands in the middle of its work, at a message that nobody takes from it.
class TwoPrograms : public testing::Test {
protected:
    TwoPrograms() {
        EXPECT_EQ(mkfifo(messages_.toLocal8Bit().constData(), 0600), 0);
        fullPipe_ = open(messages_.toLocal8Bit().constData(), O_RDWR | O_NONBLOCK | O_CLOEXEC);
        const std::array<char, 4096> anything{};
        while (write(fullPipe_, anything.data(), anything.size()) > 0) {
        }
        first_.setStandardErrorFile(messages_);
        first_.start(QStringLiteral(IMPORT_PROGRAM), Arguments({}));
        const platform::FileLock lock(database_);
        const QDeadlineTimer deadline(60000);
        while (!lock.Holder() && !deadline.hasExpired()) {
            QThread::msleep(2);
        }
    }
    ~TwoPrograms() override {
        first_.kill();
        first_.waitForFinished();
        close(fullPipe_);
    }

    /// A database in which one statement of the wipe fails.
    QString MakeDatabase(const char* name) const {
        const QString path = Path(name);
        CopyFreshDatabase(path);
        EXPECT_EQ(
            RunProgram(QStringLiteral("sqlite3"), {path, QStringLiteral("drop table mileage")}, {}).status,
            0);
        return path;
    }

    QString Path(const char* name) const { return directory_.filePath(QLatin1String(name)); }

    QStringList Arguments(const QStringList& more, const QString& database) const {
        return QStringList{
                   ExamplePortfolio(),      QStringLiteral("--database"), database,
                   QStringLiteral("--yes"), QStringLiteral("--today"),    QStringLiteral("2026-11-21")} +
               more;
    }
    QStringList Arguments(const QStringList& more) const { return Arguments(more, database_); }

    int EndOfFirst() {
        std::array<char, 4096> taken{};
        while (read(fullPipe_, taken.data(), taken.size()) > 0) {
        }
        EXPECT_TRUE(first_.waitForFinished());
        return first_.exitCode();
    }

    static QByteArray Dump(const QString& database) {
        return QueryDatabase(database, QStringLiteral(".dump"));
    }

    QTemporaryDir directory_;
    QString database_ = MakeDatabase("property.mdb");
    QString messages_ = Path("messages");
    int fullPipe_ = -1;
    QProcess first_;
};

}  // namespace

TEST_F(TwoPrograms, TheSecondNamesTheFirstAndChangesNothing) {
    const ProgramResult second = RunImport(Arguments({QStringLiteral("--backup"), Path("backup.mdb")}));
    EXPECT_EQ(second.status, 2);
    EXPECT_EQ(second.errors,
              "wrenfield-import: nothing was changed: 3260 - Couldn't write; another import is "
              "filling the database: wrenfield-import, process " +
                  QByteArray::number(first_.processId()) + ".\n");
    EXPECT_EQ(second.output, "");
    EXPECT_FALSE(QFile::exists(Path("backup.mdb")));

    EXPECT_EQ(EndOfFirst(), 1) << "the one statement, and nothing else";
    const QString alone = MakeDatabase("alone.mdb");
    ASSERT_EQ(RunImport(Arguments({}, alone)).status, 1);
    EXPECT_TRUE(Dump(database_) == Dump(alone));
}

TEST_F(TwoPrograms, ADryRunIsNotStoppedAndStopsNobody) {
    const ProgramResult dryRun = RunImport(Arguments({QStringLiteral("--dry-run")}));
    EXPECT_EQ(dryRun.status, 0) << dryRun.errors.constData();
    EXPECT_EQ(EndOfFirst(), 1);
}

TEST_F(TwoPrograms, AKilledImportKeepsNobodyOut) {
    first_.kill();
    first_.waitForFinished();
    EXPECT_EQ(RunImport(Arguments({})).status, 1) << "the one statement, and nothing else";
    EXPECT_EQ(QueryDatabase(database_, QStringLiteral("select count(*) from tenancy")), "30");
}
