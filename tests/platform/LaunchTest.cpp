#include "platform/Failure.h"
#include "platform/Launch.h"
#include "support/PrintQt.h"

#include <QDeadlineTimer>
#include <QFile>
#include <QTemporaryDir>
#include <QThread>

#include <gtest/gtest.h>

namespace {

/// A folder that is the only place where programs are found, and whose programs note what they are called
/// with.
class LaunchTest : public ::testing::Test {
protected:
    LaunchTest() : path_(qgetenv("PATH")) { qputenv("PATH", folder.path().toLocal8Bit()); }
    ~LaunchTest() override { qputenv("PATH", path_); }

    QString AddProgram(const QString& name) {
        const QString file = folder.filePath(name);
        QFile program(file);
        EXPECT_TRUE(program.open(QIODevice::WriteOnly));
        program.write("#!/bin/sh\nprintf '%s\\n' \"$PWD\" \"$#\" \"$@\" > '" + NoteFile().toLocal8Bit() +
                      ".part'\n/bin/mv '" + NoteFile().toLocal8Bit() + ".part' '" + NoteFile().toLocal8Bit() +
                      "'\n");
        program.close();
        program.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        return file;
    }

    /// What the program noted: its working folder, the number of its arguments, and these.
    QString Note() {
        const QDeadlineTimer deadline(10000);
        while (!QFile::exists(NoteFile()) && !deadline.hasExpired()) {
            QThread::msleep(2);
        }
        QFile note(NoteFile());
        return note.open(QIODevice::ReadOnly) ? QString::fromLocal8Bit(note.readAll()) : QString();
    }

    QString NoteFile() const { return folder.filePath(QStringLiteral("note")); }

    QTemporaryDir folder;

private:
    QByteArray path_;
};

TEST_F(LaunchTest, AWebPageIsHandedToTheDesktop) {
    AddProgram(QStringLiteral("xdg-open"));
    EXPECT_TRUE(platform::OpenWebPage(QStringLiteral("https://www.hearthbook.example/a b?c=1&d")));
    EXPECT_EQ(Note(), QStringLiteral("/\n1\nhttps://www.hearthbook.example/a b?c=1&d\n"));
}

TEST_F(LaunchTest, WithoutAProgramThatOpensLinksTheCallSaysSoAndStartsNoOther) {
    for (const char* browser :
         {"firefox", "sensible-browser", "www-browser", "x-www-browser", "gio", "kde-open"}) {
        AddProgram(QLatin1String(browser));
    }
    EXPECT_FALSE(platform::OpenWebPage(QStringLiteral("https://www.hearthbook.example/")));
    QThread::msleep(50);
    EXPECT_FALSE(QFile::exists(NoteFile()));
}

TEST_F(LaunchTest, AProgramIsStartedWithoutArguments) {
    EXPECT_TRUE(platform::StartProgram(AddProgram(QStringLiteral("Hearthbook.exe"))));
    EXPECT_EQ(Note(), QStringLiteral("/\n0\n"));
}

TEST_F(LaunchTest, AFileThatIsNoProgramIsNotStarted) {
    EXPECT_FALSE(platform::StartProgram(folder.filePath(QStringLiteral("nothing"))));
}

TEST_F(LaunchTest, HelpOpensAtATopic) {
    AddProgram(QStringLiteral("xchm"));
    platform::OpenHelp(QStringLiteral("/opt/help.chm"), 6);
    EXPECT_EQ(Note(), QStringLiteral("/\n2\n--contextid=6\n/opt/help.chm\n"));
}

TEST_F(LaunchTest, HelpOpensAtItsContents) {
    AddProgram(QStringLiteral("xchm"));
    platform::OpenHelp(QStringLiteral("/opt/help.chm"), std::nullopt);
    EXPECT_EQ(Note(), QStringLiteral("/\n1\n/opt/help.chm\n"));
}

TEST_F(LaunchTest, WithoutAProgramThatShowsHelpTheCallFails) {
    try {
        platform::OpenHelp(QStringLiteral("/opt/help.chm"), 1);
        FAIL() << "Nothing was raised";
    } catch (const platform::Failure& failure) {
        EXPECT_EQ(failure.Number(), 53);
        EXPECT_EQ(failure.Description(), QStringLiteral("File not found: xchm"));
    }
}

}  // namespace
