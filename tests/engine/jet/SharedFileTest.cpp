#include "IsSound.h"
#include "engine/DBEngine.h"
#include "engine/jet/FileUsers.h"
#include "engine/jet/Journal.h"
#include "engine/jet/sql/JetFile.h"
#include "support/FaultyDisk.h"
#include "support/HalfWritten.h"
#include "support/PrintQt.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

namespace engine::jet {
namespace {

/// A file with a table of texts, for as many databases of this process as like.
class JetSharedFile : public ::testing::Test {
protected:
    JetSharedFile() {
        DBEngine::Instance().CreateDatabase(
            path, FileFormat::Jet, {{QStringLiteral("notes"), {{QStringLiteral("text"), dbText, 50}}, {}}});
    }

    static std::unique_ptr<Database> Open(const QString& name) {
        return DBEngine::Instance().OpenDatabase(name);
    }
    static void Insert(Database& database, const char* text) {
        database.Execute(QStringLiteral("insert into notes(text) values('%1')").arg(QLatin1String(text)));
    }
    static QStringList NotesIn(Database& database) {
        QStringList notes;
        const auto rows =
            database.OpenRecordset(QStringLiteral("select text from notes"), dbOpenForwardOnly, dbReadOnly);
        for (; !rows->Eof(); rows->MoveNext()) {
            notes += ToText(rows->Fields(0).Get());
        }
        return notes;
    }
    static QByteArray Content(const QString& name) {
        QFile file(name);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll();
    }
    QStringList FilesBeside() const {
        return QDir(directory.path()).entryList(QDir::Files | QDir::NoSymLinks);
    }

    QTemporaryDir directory;
    QString path = directory.filePath(QStringLiteral("notes.mdb"));
    QString link = directory.filePath(QStringLiteral("link.mdb"));
};

TEST_F(JetSharedFile, WhatOneDatabaseWritesIsSeenByTheOther) {
    ASSERT_TRUE(QFile::link(path, link));
    const auto one = Open(path);
    const auto other = Open(link);
    Insert(*one, "by one");
    one->Flush();
    EXPECT_EQ(NotesIn(*other), QStringList{QStringLiteral("by one")});
    Insert(*other, "by the other");
    other->Flush();
    EXPECT_EQ(NotesIn(*one), (QStringList{QStringLiteral("by one"), QStringLiteral("by the other")}));
    one->Execute(QStringLiteral("delete from notes"));
    EXPECT_EQ(NotesIn(*other), QStringList()) << "before it has come to the disk";
}

// The file has one group, and each database counts on its own.
TEST_F(JetSharedFile, WhatOneDatabaseLosesCostsTheOtherNothing) {
    FaultyDisk disk;
    const auto one = Open(path);
    const auto other = Open(path);
    QStringList lost;
    for (Database* database : {one.get(), other.get()}) {
        database->OnLostWrite([&lost](const Error& /*error*/, const QString& write) { lost += write; });
    }
    const auto notes = one->OpenRecordset(QStringLiteral("select * from notes"), dbOpenDynaset, dbOptimistic);
    notes->AddNew();
    notes->Fields(0).Set(QStringLiteral("by one"));
    notes->Update();
    Insert(*other, "by the other");
    disk.FailOnBytes("by the other");
    other->Flush();
    disk.Repair();
    one->Flush();
    ASSERT_EQ(lost.size(), 1);
    EXPECT_TRUE(lost[0].contains(QStringLiteral("by the other"))) << lost[0].toStdString();
    EXPECT_EQ(NotesIn(*one), QStringList{QStringLiteral("by one")});
    EXPECT_TRUE(IsSound(Content(path)));
}

TEST_F(JetSharedFile, TheFileIsOneUntilTheLastDatabaseIsClosed) {
    ASSERT_TRUE(QFile::link(path, link));
    const QString users = FileUsers::LockFileFor(path);
    auto one = JetFile::Of(path);
    auto other = JetFile::Of(link);
    EXPECT_EQ(one, other);
    const std::weak_ptr<JetFile> known = one;
    one.reset();
    EXPECT_TRUE(QFile::exists(users)) << "one of two is left";
    EXPECT_EQ(JetFile::Of(path), other);
    other.reset();
    EXPECT_TRUE(known.expired());
    EXPECT_EQ(FilesBeside(), QStringList{QStringLiteral("notes.mdb")});
}

TEST_F(JetSharedFile, AFileThatWasClosedIsReadAnew) {
    const QByteArray empty = Content(path);
    Insert(*Open(path), "gone");
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(empty);
    file.close();
    EXPECT_EQ(NotesIn(*Open(path)), QStringList());
}

TEST_F(JetSharedFile, AJournalThatAKilledProgramLeftIsTakenBackAtOpeningAndRemoved) {
    const QByteArray before = Content(path);
    LeaveHalfWritten(path, QStringLiteral("insert into notes(text) values('half')"));
    ASSERT_NE(Content(path), before);
    ASSERT_TRUE(QFile::exists(Journal::NameFor(path)));
    const auto database = Open(path);
    EXPECT_FALSE(QFile::exists(Journal::NameFor(path)));
    EXPECT_EQ(Content(path), before);
    EXPECT_EQ(NotesIn(*database), QStringList());
}

}  // namespace
}  // namespace engine::jet
