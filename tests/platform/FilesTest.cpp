#include "platform/Files.h"
#include "support/PrintQt.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <sys/stat.h>

namespace {

QByteArray Contents(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("unreadable");
}

TEST(ProgramDirectory, IsWhereTheProgramLies) {
    EXPECT_EQ(platform::ProgramDirectory(), QCoreApplication::applicationDirPath());
    EXPECT_FALSE(platform::ProgramDirectory().endsWith(QLatin1Char('/')));
}

TEST(ProgramDirectory, CanBeElsewhereForTests) {
    platform::SetProgramDirectory(QStringLiteral("/somewhere/else"));
    EXPECT_EQ(platform::ProgramDirectory(), QStringLiteral("/somewhere/else"));
    platform::SetProgramDirectory(QString());
    EXPECT_EQ(platform::ProgramDirectory(), QCoreApplication::applicationDirPath());
}

TEST(WithPlatformSeparators, TurnsEveryBackslash) {
    EXPECT_EQ(platform::WithPlatformSeparators(QStringLiteral("\\\\server\\data\\property.mdb")),
              QStringLiteral("//server/data/property.mdb"));
    EXPECT_EQ(platform::WithPlatformSeparators(QStringLiteral("/a/b c")), QStringLiteral("/a/b c"));
    EXPECT_EQ(platform::WithPlatformSeparators(QString()), QString());
}

TEST(AbsoluteName, NamesTheFileFromTheRootOn) {
    const QString here = QDir::currentPath();
    for (const char* name : {"x", "file:x", ":x:", "-x", " x", "x?y#z%20", "../x", "./x/", "\uFEFFx"}) {
        const QString relative = QString::fromUtf8("|").append(QString::fromUtf8(name)).sliced(1);
        EXPECT_EQ(platform::AbsoluteName(relative), here + QLatin1Char('/') + relative);
    }
    EXPECT_EQ(platform::AbsoluteName(QStringLiteral("/a/../b//c")), QStringLiteral("/a/../b//c"))
        << "a link may make another file of what looks simpler";
}

TEST(AbsoluteName, IsNotGuessed) {
    EXPECT_EQ(platform::AbsoluteName(QString()), std::nullopt);
    EXPECT_EQ(platform::AbsoluteName(QStringLiteral("/x\uFFFD")), std::nullopt);
    EXPECT_EQ(platform::AbsoluteName(QStringLiteral("/x") + QChar(0xD800)), std::nullopt);
    EXPECT_EQ(platform::AbsoluteName(QStringLiteral("/x") + QChar(0) + QLatin1Char('y')), std::nullopt);
    EXPECT_FALSE(platform::WhyNoName().isEmpty());
}

TEST(AbsoluteName, NeedsAWorkingFolderForAPlainName) {
    const QString before = QDir::currentPath();
    {
        const QTemporaryDir folder;
        ASSERT_TRUE(QDir::setCurrent(folder.path()));
    }
    EXPECT_EQ(platform::AbsoluteName(QStringLiteral("x")), std::nullopt);
    EXPECT_EQ(platform::AbsoluteName(QStringLiteral("/x")), QStringLiteral("/x"));
    ASSERT_TRUE(QDir::setCurrent(before));
}

TEST(FileExists, OnlyForFiles) {
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("a file"));
    EXPECT_FALSE(platform::FileExists(path));
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    EXPECT_TRUE(platform::FileExists(path));
    EXPECT_FALSE(platform::FileExists(folder.path()));
}

TEST(FileExists, IsAskedOfTheVeryFile) {
    const QTemporaryDir folder;
    const QString before = QDir::currentPath();
    ASSERT_TRUE(QDir::setCurrent(folder.path()));
    QFile file(folder.path() + QStringLiteral("/:a file:"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    EXPECT_TRUE(platform::FileExists(QStringLiteral(":a file:")));
    ASSERT_TRUE(QDir::setCurrent(before));
}

TEST(FileExists, NotForATestThatFails) {
    EXPECT_FALSE(platform::FileExists(QString()));
    EXPECT_FALSE(platform::FileExists(QString(5000, QLatin1Char('x'))));
    EXPECT_FALSE(platform::FileExists(QStringLiteral("/etc/passwd/below a file")));
}

TEST(AppendLine, CreatesTheFileAndAddsToIt) {
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("log"));
    EXPECT_TRUE(platform::AppendLine(path, QStringLiteral("first")));
    EXPECT_EQ(Contents(path), "first\n");
    EXPECT_TRUE(platform::AppendLine(path, QStringLiteral("Zürich\nin two lines")));
    EXPECT_EQ(Contents(path), "first\nZürich\nin two lines\n");
}

TEST(AppendLine, SaysWhenItCanNot) {
    const QTemporaryDir folder;
    EXPECT_FALSE(platform::AppendLine(folder.path(), QStringLiteral("into a folder")));
    EXPECT_FALSE(platform::AppendLine(folder.filePath(QStringLiteral("no/such/folder/log")), QString()));
}

TEST(AppendLine, DoesNotWaitForAReader) {
    const QTemporaryDir folder;
    const QString pipe = folder.filePath(QStringLiteral("log"));
    ASSERT_EQ(::mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    EXPECT_FALSE(platform::AppendLine(pipe, QStringLiteral("text")));
}

TEST(AppendLine, SaysWhenTheDiskIsFull) {
    EXPECT_FALSE(platform::AppendLine(QStringLiteral("/dev/full"), QStringLiteral("text")));
}

}  // namespace
