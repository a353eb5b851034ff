#include "EngineTest.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QtEndian>

#include <sqlite3.h>
#include <sys/stat.h>
#include <unistd.h>

namespace engine {

namespace {

const QByteArray Magic("\xd9\xd5\x05\xf9\x20\xa1\x63\xd7", 8);

/// A database as a program leaves it that is killed in the middle of a large change, and what lies beside it.
class SideFilesTest : public EngineTest {
protected:
    SideFilesTest() {
        database->Execute(QStringLiteral("insert into notes(text) values('before')"));
        database.reset();
        sqlite3* other = nullptr;
        EXPECT_EQ(sqlite3_open(path.toUtf8().constData(), &other), SQLITE_OK);
        // With no room in memory, changed pages go to the file before the end of the change.
        EXPECT_EQ(sqlite3_exec(
                      other,
                      "pragma cache_size = 1; begin; delete from notes; with recursive n(x) as (select 1 "
                      "union all select x + 1 from n where x < 5000) insert into notes select 'half' from n",
                      nullptr, nullptr, nullptr),
                  SQLITE_OK);
        EXPECT_TRUE(QFile::copy(path, left_));
        EXPECT_TRUE(QFile::copy(path + QStringLiteral("-journal"), Journal()));
        sqlite3_close(other);
        journal_ = Contents(Journal());
        halfDone_ = Contents(left_);
        EXPECT_TRUE(journal_.startsWith(Magic));
    }

    QString Journal() const { return left_ + QStringLiteral("-journal"); }
    QString Log() const { return left_ + QStringLiteral("-wal"); }
    QString Index() const { return left_ + QStringLiteral("-shm"); }

    static QByteArray Contents(const QString& file) {
        QFile reading(file);
        EXPECT_TRUE(reading.open(QIODevice::ReadOnly));
        return reading.readAll();
    }

    static void Write(const QString& name, const QByteArray& bytes) {
        QFile file(name);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_EQ(file.write(bytes), bytes.size());
    }

    QByteArray JournalWith(int place, quint32 number) const {
        QByteArray changed = journal_;
        qToBigEndian(number, changed.data() + place);
        return changed;
    }

    /// The record that SQLite puts behind the journals of a change to several databases.
    static QByteArray NameOfAnother(const QByteArray& name) {
        QByteArray record(4, '\0');
        quint32 sum = 0;
        for (const char character : name) {
            sum += static_cast<quint32>(character);
        }
        QByteArray numbers(8, '\0');
        qToBigEndian(static_cast<quint32>(name.size()), numbers.data());
        qToBigEndian(sum, numbers.data() + 4);
        return record + name + numbers + Magic;
    }

    /// Expects that opening is refused with a sentence that names the file and says this, and that nothing
    /// has changed.
    void ExpectRefused(const QString& file, const char* found) {
        const QStringList names = QDir(directory.path()).entryList(QDir::AllEntries | QDir::System);
        try {
            DBEngine::Instance().OpenDatabase(left_);
            ADD_FAILURE() << "not refused: " << found;
        } catch (const Error& error) {
            EXPECT_EQ(error.Number(), ErrorNumber::DatabaseDamaged);
            EXPECT_TRUE(error.Description().contains(file)) << error.what();
            EXPECT_TRUE(error.Description().contains(QLatin1String(found))) << error.what();
        }
        EXPECT_EQ(Contents(left_), halfDone_);
        EXPECT_EQ(QDir(directory.path()).entryList(QDir::AllEntries | QDir::System), names);
    }

    void ExpectRefusedJournal(const QByteArray& bytes, const char* found) {
        Write(Journal(), bytes);
        ExpectRefused(Journal(), found);
        EXPECT_EQ(Contents(Journal()), bytes);
    }

    void ExpectRecovered() {
        DBEngine::Instance().OpenDatabase(left_);
        EXPECT_EQ(ReadRows(left_, "select text from notes"), QStringList{QStringLiteral("before")});
    }

    QString left_ = directory.filePath(QStringLiteral("left.mdb"));
    QByteArray journal_;
    QByteArray halfDone_;
};

TEST_F(SideFilesTest, AJournalOfAKilledProgramIsPlayedBack) {
    ExpectRecovered();
    EXPECT_FALSE(QFileInfo::exists(Journal()));
}

TEST_F(SideFilesTest, SoIsOneThatWasJustBeingContinued) {
    // The head of the next part, before it counts.
    Write(Journal(),
          journal_ + QByteArray(511 - (journal_.size() + 511) % 512, '\0') + QByteArray(12, '\0') + "1234");
    ExpectRecovered();
}

TEST_F(SideFilesTest, SoIsOneThatCountsToItsEnd) {
    Write(Journal(), JournalWith(8, 0xFFFFFFFF));
    ExpectRecovered();
}

TEST_F(SideFilesTest, AJournalThatIsDoneWithIsNoJournal) {
    QFile::remove(left_);
    ASSERT_TRUE(QFile::copy(path, left_));
    QByteArray done = journal_;
    for (const QByteArray& bytes :
         {QByteArray(), done.replace(0, 28, QByteArray(28, '\0')), QByteArray(5, '\0')}) {
        Write(Journal(), bytes);
        ExpectRecovered();
    }
}

TEST_F(SideFilesTest, AJournalThatNamesAnotherIsRefused) {
    const QString victim = directory.filePath(QStringLiteral("victim"));
    Write(victim, "precious");
    const QByteArray record = NameOfAnother(victim.toUtf8());
    ExpectRefusedJournal(journal_ + record, "it names another journal");
    ExpectRefusedJournal(QByteArray(28, '\0') + journal_.mid(28) + record, victim.toUtf8().constData());
    ExpectRefusedJournal(record, "it names another journal");
    ExpectRefusedJournal(journal_ + NameOfAnother(QByteArray(100000, 'x')), "it names another journal");
    ExpectRefusedJournal(Magic + Magic + Magic, "it names another journal");
}

TEST_F(SideFilesTest, AJournalMustMakeSense) {
    ExpectRefusedJournal("Dear tenant", "it is no journal");
    ExpectRefusedJournal(QByteArray(1, '\0') + "Dear tenant", "it is no journal");
    ExpectRefusedJournal(journal_.left(20), "it is no journal");
    ExpectRefusedJournal(JournalWith(8, 1000000), "it speaks of 1000000 pages and ends before them");
    ExpectRefusedJournal(journal_.left(journal_.size() - 5000), "ends before them");
    for (const quint32 size : {0U, 1U, 256U, 4095U, 131072U, 0x80000000U}) {
        ExpectRefusedJournal(JournalWith(20, size), "it speaks of pages");
        ExpectRefusedJournal(JournalWith(24, size), "it speaks of pages");
    }
}

TEST_F(SideFilesTest, OnlyRegularFilesMayHaveTheirNames) {
    QFile::remove(Journal());
    const QString elsewhere = directory.filePath(QStringLiteral("elsewhere"));
    for (const QString& file : {Journal(), Log(), Index()}) {
        const QByteArray name = QFile::encodeName(file);
        ASSERT_EQ(::mkfifo(name.constData(), 0600), 0);
        ExpectRefused(file, "it is a pipe");
        QFile::remove(file);
        ASSERT_TRUE(QDir().mkdir(file));
        ExpectRefused(file, "it is a folder");
        QDir().rmdir(file);
        for (const bool stands : {false, true}) {
            if (stands) {
                Write(elsewhere, QByteArray(28, '\0'));
            }
            ASSERT_TRUE(QFile::link(elsewhere, file));
            ExpectRefused(file, "it is a link");
            QFile::remove(file);
        }
        ASSERT_EQ(::link(QFile::encodeName(elsewhere).constData(), name.constData()), 0);
        ExpectRefused(file, "it has another name as well");
        QFile::remove(file);
        EXPECT_EQ(Contents(elsewhere), QByteArray(28, '\0'));
        QFile::remove(elsewhere);
    }
}

TEST_F(SideFilesTest, AFileThatIsNoLogIsLeftAlone) {
    QFile::remove(Journal());
    for (const QString& file : {Log(), Index()}) {
        Write(file, "Dear tenant, this is longer than the head of any log or index.");
        ExpectRefused(file, "it is no ");
        EXPECT_TRUE(Contents(file).startsWith("Dear tenant"));
        QFile::remove(file);
    }
}

TEST_F(SideFilesTest, ALogOfAKilledProgramIsUsed) {
    sqlite3* other = nullptr;
    ASSERT_EQ(sqlite3_open(path.toUtf8().constData(), &other), SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(other, "pragma journal_mode = wal; insert into notes values('logged')", nullptr,
                           nullptr, nullptr),
              SQLITE_OK);
    for (const char* end : {"", "-wal", "-shm"}) {
        const QString name = QLatin1String(end);
        QFile::remove(left_ + name);
        ASSERT_TRUE(QFile::copy(path + name, left_ + name));
    }
    sqlite3_close(other);
    QFile::remove(Journal());
    DBEngine::Instance().OpenDatabase(left_);
    EXPECT_EQ(ReadRows(left_, "select text from notes"),
              (QStringList{QStringLiteral("before"), QStringLiteral("logged")}));
}

// The names are those of the file itself, whichever name it is opened by.
TEST_F(SideFilesTest, ADatabaseBehindALinkIsGuardedAsWell) {
    const QString link = directory.filePath(QStringLiteral("link.mdb"));
    ASSERT_TRUE(QFile::link(left_, link));
    Write(Journal(), "Dear tenant");
    EXPECT_EQ(ErrorOf([&] { DBEngine::Instance().OpenDatabase(link); }), ErrorNumber::DatabaseDamaged);
    Write(Journal(), journal_);
    EXPECT_EQ(ErrorOf([&] { DBEngine::Instance().OpenDatabase(link); }), 0);
    ExpectRecovered();
}

}  // namespace

}  // namespace engine
