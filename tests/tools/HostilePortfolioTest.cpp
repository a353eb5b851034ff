#include "Program.h"

#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <sys/stat.h>

namespace {

/// Files that are too large, or no text, to lie in a repository. Each has one fault.
class HostilePortfolio : public testing::Test {
protected:
    void ExpectRefused(const QByteArray& bytes, const QByteArray& fault) {
        const QString portfolio = directory_.filePath(QStringLiteral("portfolio.json"));
        const QString database = directory_.filePath(QStringLiteral("property.mdb"));
        WriteFile(portfolio, bytes);
        CopyFreshDatabase(database);
        const QByteArray before = FileBytes(database);
        const ProgramResult result =
            RunImport({portfolio, QStringLiteral("--database"), database, QStringLiteral("--yes")});
        EXPECT_EQ(result.status, 2);
        const QByteArray firstLine = result.errors.left(result.errors.indexOf('\n'));
        EXPECT_EQ(firstLine.toStdString(), (portfolio.toUtf8() + ": " + fault).toStdString());
        EXPECT_TRUE(result.errors.contains("the portfolio has faults (1)"));
        EXPECT_TRUE(FileBytes(database) == before);
    }

    QTemporaryDir directory_;
};

constexpr qsizetype HundredMegabytes = 100'000'000;

}  // namespace

TEST_F(HostilePortfolio, AHundredMegabytesOfBracketsAreRefusedSoon) {
    QElapsedTimer clock;
    clock.start();
    ExpectRefused(QByteArray(HundredMegabytes, '['),
                  QByteArray("/0").repeated(64) + ": Values are nested at most 64 deep (found more)");
    EXPECT_LT(clock.elapsed(), 30000);
}

TEST_F(HostilePortfolio, AHundredMegabytesOfOpenObjects) {
    ExpectRefused(QByteArray("{\"a\":").repeated(HundredMegabytes / 5),
                  QByteArray("/a").repeated(64) + ": Values are nested at most 64 deep (found more)");
}

TEST_F(HostilePortfolio, MillionsOfValues) {
    ExpectRefused("[" + QByteArray("0,").repeated(5'000'000) + "0]",
                  "/4000000: A portfolio holds at most 4000000 values (found more)");
}

TEST_F(HostilePortfolio, NotUtf8) {
    ExpectRefused("{\"UserType\": \"M\xE4nager\"}",
                  "line 1, column 16: this isn't UTF-8 text (found the byte 0xe4)");
}

TEST_F(HostilePortfolio, Utf16) {
    ExpectRefused(QByteArray("\xFF\xFE{\0}\0", 6),
                  "line 1, column 1: this isn't UTF-8 text (found the byte 0xff)");
}

TEST_F(HostilePortfolio, OverlongAndSurrogateUtf8) {
    ExpectRefused("{\"UserType\": \"\xC0\x80\"}",
                  "line 1, column 15: this isn't UTF-8 text (found the byte 0xc0)");
    QFile::remove(directory_.filePath(QStringLiteral("property.mdb")));
    ExpectRefused("{\"UserType\": \"\xED\xA0\x80\"}",
                  "line 1, column 15: this isn't UTF-8 text (found the byte 0xed)");
}

TEST_F(HostilePortfolio, NullBytesOutsideOfTexts) {
    ExpectRefused(QByteArray("{\0}", 3), "line 1, column 2: this isn't valid JSON (found \"\\u0000\")");
}

TEST_F(HostilePortfolio, ANumberOfAHundredThousandDigits) {
    ExpectRefused("{\"ManagementFee\": " + QByteArray(100000, '9') + "}",
                  "/ManagementFee: The number is too large (found " + QByteArray(60, '9') + "...)");
}

TEST(UnreadablePortfolio, APipeIsNotWaitedFor) {
    const QTemporaryDir directory;
    const QString pipe = directory.filePath(QStringLiteral("portfolio.json"));
    ASSERT_EQ(::mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    for (const QString& path : {pipe, QStringLiteral("/dev/zero")}) {
        const ProgramResult result = RunImport({path, QStringLiteral("--yes")});
        EXPECT_EQ(result.status, 2);
        EXPECT_TRUE(
            result.errors.startsWith(path.toUtf8() + ": The file can't be read: it is not a regular file"));
    }
}

TEST(UnreadablePortfolio, MissingFilesAndFoldersAreRefused) {
    const QTemporaryDir directory;
    const QString missing = directory.filePath(QStringLiteral("none.json"));
    const ProgramResult noFile = RunImport({missing, QStringLiteral("--yes")});
    EXPECT_EQ(noFile.status, 2);
    EXPECT_TRUE(noFile.errors.startsWith(missing.toUtf8() + ": The file can't be read: No such file"));
    const ProgramResult aFolder = RunImport({directory.path(), QStringLiteral("--yes")});
    EXPECT_EQ(aFolder.status, 2);
    EXPECT_TRUE(
        aFolder.errors.startsWith(directory.path().toUtf8() + ": The file can't be read: it is a folder"));
}
