#include "platform/FilePlaces.h"
#include "platform/FileStatus.h"
#include "platform/Files.h"
#include "support/PrintQt.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

QByteArray Contents(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("unreadable");
}

void Write(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly)) << path.toStdString();
    file.write(bytes);
}

class Files : public ::testing::Test {
protected:
    QString At(const char* name) const { return folder.filePath(QString::fromUtf8(name)); }

    QTemporaryDir folder;
};

TEST_F(Files, TheProgramsDirectoryIsWhereItLies) {
    EXPECT_EQ(platform::ProgramDirectory(), QCoreApplication::applicationDirPath());
}

TEST_F(Files, BackslashesStay) {
    EXPECT_EQ(platform::WithPlatformSeparators(QStringLiteral("C:\\a\\b")), QStringLiteral("C:\\a\\b"));
}

TEST_F(Files, NamesFromTheRootOnStayAsTheyAre) {
    for (const char* name : {"C:\\a\\b c", "C:/a/b", "\\\\server\\data\\property.mdb", "//server/data/x"}) {
        EXPECT_EQ(platform::AbsoluteName(QLatin1String(name)), QLatin1String(name));
    }
}

TEST_F(Files, OthersAreMeantFromTheWorkingFolder) {
    const QString before = QDir::currentPath();
    ASSERT_TRUE(QDir::setCurrent(folder.path()));
    const QString here = QDir::toNativeSeparators(QDir::currentPath());
    EXPECT_EQ(platform::AbsoluteName(QStringLiteral("x")), here + QStringLiteral("\\x"));
    EXPECT_EQ(platform::AbsoluteName(QString::fromUtf8("sub/Ж.mdb")),
              here + QString::fromUtf8("\\sub\\Ж.mdb"));
    EXPECT_EQ(platform::AbsoluteName(QStringLiteral("\\x")), here.left(2) + QStringLiteral("\\x"));
    ASSERT_TRUE(QDir::setCurrent(before));
}

TEST_F(Files, WhatIsNoFilesNameIsNotGuessed) {
    for (const char* name : {"", "C:\\a:b", "C:\\a\uFFFD", "NUL", "\\\\.\\COM1"}) {
        EXPECT_EQ(platform::AbsoluteName(QString::fromUtf8(name)), std::nullopt) << name;
    }
    EXPECT_EQ(platform::AbsoluteName(QStringLiteral("C:\\x") + QChar(0xD800)), std::nullopt);
    EXPECT_FALSE(platform::WhyNoName().isEmpty());
}

TEST_F(Files, SpellingsThatTheSystemTakesForOneAreTheSame) {
    EXPECT_TRUE(platform::IsSameName(QStringLiteral("C:\\A\\b.mdb"), QStringLiteral("c:/a/B.MDB")));
    EXPECT_FALSE(platform::IsSameName(QStringLiteral("C:\\a\\b.mdb"), QStringLiteral("C:\\a\\c.mdb")));
}

TEST_F(Files, LinesAreAppendedWithAPlainLineEnd) {
    EXPECT_TRUE(platform::AppendLine(At("log"), QStringLiteral("first")));
    EXPECT_TRUE(platform::AppendLine(At("log"), QString::fromUtf8("Zürich Ж")));
    EXPECT_EQ(Contents(At("log")), "first\nZürich Ж\n");
    EXPECT_FALSE(platform::AppendLine(folder.path(), QStringLiteral("into a folder")));
    EXPECT_FALSE(platform::AppendLine(At("no/such/folder/log"), QString()));
}

TEST_F(Files, ARenamedFileReplacesNone) {
    Write(At("one"), "1");
    Write(At("two"), "2");
    EXPECT_EQ(platform::RenameWithoutReplacing(At("one"), At("two")), std::errc::file_exists);
    EXPECT_EQ(Contents(At("two")), "2");
    EXPECT_FALSE(platform::RenameWithoutReplacing(At("one"), At("three")));
    EXPECT_EQ(Contents(At("three")), "1");
    EXPECT_EQ(platform::LookFor(At("one")), std::errc::no_such_file_or_directory);
}

TEST_F(Files, NamesMayBeLong) {
    QString place = folder.path();
    for (int level = 0; level < 6; ++level) {
        place += QLatin1Char('/') + QString(60, QLatin1Char('x'));
    }
    ASSERT_TRUE(QDir().mkpath(place));
    const QString log = place + QStringLiteral("/log");
    EXPECT_TRUE(platform::AppendLine(log, QStringLiteral("far down")));
    EXPECT_FALSE(platform::LookFor(log));
    EXPECT_TRUE(platform::FileExists(log));
    EXPECT_TRUE(platform::IdentityOf(log));
    EXPECT_FALSE(platform::RemoveFile(log));
}

TEST_F(Files, PrivateFoldersDifferFromEachOther) {
    QString one = At(".new-");
    QString two = At(".new-");
    EXPECT_FALSE(platform::MakePrivateFolder(one));
    EXPECT_FALSE(platform::MakePrivateFolder(two));
    EXPECT_NE(one, two);
    EXPECT_TRUE(QDir(one).exists() && QDir(two).exists());
}

TEST_F(Files, AChangedFileHasAnotherStatus) {
    Write(At("a"), "1");
    const auto before = platform::StatusOf(At("a"));
    ASSERT_TRUE(before);
    EXPECT_EQ(platform::StatusOf(At("a")), before);
    Write(At("a"), "12");
    EXPECT_NE(platform::StatusOf(At("a")), before);
    EXPECT_EQ(platform::StatusOf(At("none")), std::nullopt);
}

TEST_F(Files, FoldersAreToldFromFiles) {
    Write(At("a"), "1");
    EXPECT_EQ(platform::WhatHasName(At("a"))->kind, platform::FileKind::Regular);
    EXPECT_EQ(platform::WhatHasName(folder.path())->kind, platform::FileKind::Folder);
    EXPECT_FALSE(platform::WhatHasName(At("none")));
}

}  // namespace
