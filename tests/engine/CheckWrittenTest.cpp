#include "EngineTest.h"
#include "support/FaultyDisk.h"

#include <QFile>

#include <sqlite3.h>

namespace engine {

namespace {

class CheckWrittenTest : public EngineTest {
protected:
    void Insert(int rows) {
        for (int row = 0; row < rows; ++row) {
            database->Execute(QStringLiteral("insert into notes(text) values('n%1')").arg(row));
        }
    }

    void AddThing(const char* code) {
        const auto things = Dynaset("select code from things");
        things->AddNew();
        things->Fields(0).Set(QString::fromLatin1(code));
        things->Update();
    }

    /// What the check finds, each with its number.
    QStringList Differences() {
        QStringList differences;
        for (const Error& error : database->CheckWritten()) {
            differences += QStringLiteral("%1 - %2").arg(error.Number()).arg(error.Description());
        }
        return differences;
    }

    static QString Missing(const char* table, int written, int found) {
        return QStringLiteral("3167 - Rows of the table '%1' are missing: %2 were written, %3 are there.")
            .arg(QString::fromLatin1(table), QString::number(written), QString::number(found));
    }

    static QStringList MissingNotes(int written, int found) { return {Missing("notes", written, found)}; }

    QString Overwritten() const {
        return QStringLiteral("3049 - Another program has overwritten file '%1' while it was being written.")
            .arg(path);
    }

    /// As a copying program does, which asks for no lock: other bytes in the same file.
    void CopyOver(const QString& source) const {
        QFile from(source);
        QFile to(path);
        ASSERT_TRUE(from.open(QIODevice::ReadOnly));
        ASSERT_TRUE(to.open(QIODevice::WriteOnly));
        to.write(from.readAll());
    }

    static void CopyBytes(const QString& source, const QString& target, qint64 offset, qint64 size) {
        QFile from(source);
        QFile to(target);
        ASSERT_TRUE(from.open(QIODevice::ReadOnly) && from.seek(offset));
        ASSERT_TRUE(to.open(QIODevice::ReadWrite) && to.seek(offset));
        ASSERT_EQ(to.write(from.read(size)), size);
    }

    /// A copy of the database that knows of so many commits more.
    QString CopyAfter(int commits) const {
        const QString copy = directory.filePath(QStringLiteral("copy.mdb"));
        QFile::remove(copy);
        EXPECT_TRUE(QFile::copy(path, copy));
        for (int commit = 0; commit < commits; ++commit) {
            EXPECT_TRUE(RunElsewhere(copy, "insert into notes(text) values('theirs')"));
        }
        return copy;
    }
};

TEST_F(CheckWrittenTest, NothingDiffersWhereAllIsThere) {
    EXPECT_EQ(Differences(), QStringList()) << "nothing was written";
    Insert(40);
    AddThing("a");
    database->Execute(QStringLiteral("insert into things(memo) select text from notes"));
    EXPECT_EQ(Differences(), QStringList());
    ASSERT_TRUE(
        RunElsewhere(path, "insert into notes(text) values('theirs'); insert into things(code) values('b')"));
    Insert(1);
    EXPECT_EQ(Differences(), QStringList()) << "others may add rows";
}

TEST_F(CheckWrittenTest, RowsThatOthersRemoveAreToldByTable) {
    Insert(40);
    AddThing("a");
    database->Flush();
    ASSERT_TRUE(RunElsewhere(path, "delete from notes where text < 'n3'; delete from things"));
    EXPECT_EQ(Differences(), (QStringList{Missing("notes", 40, 17), Missing("things", 1, 0)}));
}

TEST_F(CheckWrittenTest, RowsThatWereCopiedWithinTheFileCount) {
    Insert(3);
    database->Execute(QStringLiteral("insert into things(memo) select text from notes"));
    database->Flush();
    ASSERT_TRUE(RunElsewhere(path, "delete from things where memo = 'n1'"));
    EXPECT_EQ(Differences(), QStringList{Missing("things", 3, 2)});
}

TEST_F(CheckWrittenTest, RowsThatWereRemovedAgainAreNotLookedFor) {
    Insert(5);
    database->Execute(QStringLiteral("delete from notes where text = 'n1'"));
    Dynaset("select * from notes")->Delete();
    EXPECT_EQ(Differences(), QStringList());
    ASSERT_TRUE(RunElsewhere(path, "delete from notes where text = 'n2'"));
    EXPECT_EQ(Differences(), MissingNotes(3, 2));
}

TEST_F(CheckWrittenTest, AfterAllRowsWereRemovedThereIsNothingToLookFor) {
    Insert(5);
    database->Execute(QStringLiteral("delete from notes"));
    Insert(1);
    EXPECT_EQ(Differences(), QStringList());
    ASSERT_TRUE(RunElsewhere(path, "delete from notes"));
    EXPECT_EQ(Differences(), MissingNotes(1, 0));
}

TEST_F(CheckWrittenTest, RowsFromBeforeAreNotOnesOwn) {
    ASSERT_TRUE(RunElsewhere(path,
                             "insert into notes(text) values('old');insert into notes(text) "
                             "values('old');insert into notes(text) values('old')"));
    database->Execute(QStringLiteral("delete from notes where text = 'old'"));
    Insert(2);
    database->Flush();
    ASSERT_TRUE(RunElsewhere(path, "delete from notes where text = 'n0'"));
    EXPECT_EQ(Differences(), MissingNotes(2, 1));
}

TEST_F(CheckWrittenTest, AStatementThatFailsHalfwayHasWrittenNothing) {
    ASSERT_TRUE(RunElsewhere(path,
                             "insert into notes(text) values('x');insert into notes(text) values('y');insert "
                             "into notes(text) values('x')"));
    AddThing("a");
    EXPECT_EQ(ExecuteError("insert into things(code) select text from notes"), ErrorNumber::DuplicateKey);
    EXPECT_EQ(Differences(), QStringList());
}

// The disk fails at each operation in turn: what could not be stored has been told, and is not missed.
TEST_F(CheckWrittenTest, AWriteThatWasLostIsNotLookedFor) {
    database.reset();
    FaultyDisk disk;
    for (const auto fault : {FaultyDisk::Fault::Once, FaultyDisk::Fault::FullFromThenOn}) {
        for (int n = 1;; ++n) {
            ASSERT_TRUE(RunElsewhere(path, "delete from notes; delete from things"));
            database = DBEngine::Instance().OpenDatabase(path);
            int lost = 0;
            database->OnLostWrite([&lost](const Error&, const QString&) { ++lost; });
            disk.FailAt(n, fault);
            int refused = 0;
            for (int row = 0; row < 20; ++row) {
                refused += ErrorOf([&] { Insert(1); }) == 0 ? 0 : 1;
                if (row == 10) {
                    ErrorOf([&] { database->Flush(); });
                }
            }
            refused += ErrorOf([&] { AddThing("a"); }) == 0 ? 0 : 1;
            ErrorOf([&] { database->Flush(); });
            const bool hasFailed = disk.Faults() > 0;
            disk.Repair();
            EXPECT_EQ(Differences(), QStringList()) << disk.FirstFault() << " at operation " << n;
            const int stored = 21 - refused - lost;
            ASSERT_TRUE(RunElsewhere(path, "delete from notes; delete from things"));
            int missed = 0;
            for (const Error& error : database->CheckWritten()) {
                missed += error.Description().section(QStringLiteral(": "), 1).section(u' ', 0, 0).toInt();
            }
            EXPECT_EQ(missed, stored) << "operation " << n;
            database.reset();
            if (!hasFailed) {
                EXPECT_GT(n, 5);
                break;
            }
        }
    }
}

// The group runs again by halves, and what the tries in between have taken back counts for nothing.
TEST_F(CheckWrittenTest, ARowThatCannotBeStoredIsNotLookedForAndAllOthersAre) {
    database.reset();
    FaultyDisk disk;
    database = DBEngine::Instance().OpenDatabase(path);
    int lost = 0;
    database->OnLostWrite([&lost](const Error&, const QString&) { ++lost; });
    disk.FailOnBytes("unstorable");
    Insert(40);
    ErrorOf([&] { database->Execute(QStringLiteral("insert into notes(text) values('unstorable')")); });
    ErrorOf([&] { database->Execute(QStringLiteral("insert into things(memo) select text from notes")); });
    database->Execute(QStringLiteral("delete from notes where text = 'n1'"));
    Insert(2);
    database->Flush();
    disk.Repair();
    EXPECT_EQ(Differences(), QStringList());
    EXPECT_EQ(Rows("select count(*) from notes"), QStringList{QStringLiteral("41")});
    const int copied = Rows("select count(*) from things").first().toInt();
    ASSERT_TRUE(RunElsewhere(path, "delete from notes; delete from things"));
    QStringList missing = MissingNotes(41, 0);
    if (copied > 0) {
        missing += Missing("things", copied, 0);
    }
    EXPECT_EQ(Differences(), missing);
}

TEST_F(CheckWrittenTest, AFileThatIsGoneIsTold) {
    Insert(1);
    database->Flush();
    ASSERT_TRUE(QFile::rename(path, directory.filePath(QStringLiteral("elsewhere.mdb"))));
    EXPECT_EQ(Differences(),
              QStringList{
                  QStringLiteral("3024 - Could not find file '%1' any more: it was moved or removed while it "
                                 "was being written.")
                      .arg(path)});
}

TEST_F(CheckWrittenTest, AnotherFileOfTheSameNameIsTold) {
    Insert(1);
    database->Flush();
    const QString copy = CopyAfter(0);
    ASSERT_TRUE(QFile::remove(path));
    ASSERT_TRUE(QFile::rename(copy, path));
    EXPECT_EQ(Differences(),
              QStringList{QStringLiteral("3024 - File '%1' is not the one that was written: another "
                                         "one has taken its place meanwhile.")
                              .arg(path)});
}

TEST_F(CheckWrittenTest, AFileThatIsOverwrittenWithinAGroupIsTold) {
    Insert(1);
    database->Flush();
    const QString later = CopyAfter(20);
    Insert(1);
    CopyOver(later);
    database->Flush();
    EXPECT_EQ(Differences(), QStringList{Overwritten()});
}

TEST_F(CheckWrittenTest, AFileThatIsCutOffWithinAGroupIsTold) {
    Insert(1);
    database->Flush();
    Insert(1);
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    ASSERT_TRUE(file.resize(0));
    database->Flush();
    EXPECT_EQ(Differences(), QStringList{Overwritten()});
}

TEST_F(CheckWrittenTest, AnOlderFileBetweenTwoGroupsIsTold) {
    const QString earlier = CopyAfter(0);
    for (int group = 0; group < 3; ++group) {
        Insert(1);
        database->Flush();
    }
    CopyOver(earlier);
    Insert(1);
    EXPECT_EQ(Differences(), QStringList{Overwritten()});
}

// The database still knows its pages by heart then.
TEST_F(CheckWrittenTest, RowsAreLookedForInTheFileItself) {
    Insert(10);
    database->Flush();
    const QString fewer = CopyAfter(0);
    ASSERT_TRUE(RunElsewhere(fewer, "delete from notes"));
    // By these bytes a connection knows that its pages are still those of the file.
    CopyBytes(path, fewer, 24, 16);
    CopyOver(fewer);
    EXPECT_EQ(Differences(), MissingNotes(10, 0));
}

TEST_F(CheckWrittenTest, WhatCannotBeReadIsTold) {
    Insert(1);
    database->Flush();
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    file.write("Dear tenant, this is no database");
    file.close();
    EXPECT_EQ(ErrorOf([&] { database->CheckWritten(); }), ErrorNumber::UnrecognizedFormat);
}

// It brings pages to the file before it is committed.
TEST_F(CheckWrittenTest, ALargeGroupIsNotTakenForAnotherProgram) {
    ASSERT_TRUE(
        RunElsewhere(path,
                     "with recursive n(i) as (select 1 union all select i + 1 from n where i < 200000)"
                     "insert into notes select printf('%045d', i) from n"));
    database->Execute(
        QStringLiteral("delete from notes where text < '%1'").arg(150000, 45, 10, QLatin1Char('0')));
    database->Execute(QStringLiteral("insert into things(memo) select text from notes"));
    database->Execute(QStringLiteral("insert into notes(text) select memo from things"));
    EXPECT_EQ(Differences(), QStringList());
}

TEST_F(CheckWrittenTest, OtherProgramsThatKeepToTheLocksAreNotTold) {
    for (int group = 0; group < 3; ++group) {
        Insert(1);
        database->Flush();
        ASSERT_TRUE(RunElsewhere(path, "insert into things(memo) values('theirs')"));
        ASSERT_TRUE(RunElsewhere(path, "vacuum"));
    }
    EXPECT_EQ(Differences(), QStringList());
}

TEST_F(CheckWrittenTest, AFileInWriteAheadModeCountsInAnotherWay) {
    // Somebody who has the file open keeps it in this mode.
    sqlite3* other = nullptr;
    ASSERT_EQ(sqlite3_open(path.toUtf8().constData(), &other), SQLITE_OK);
    ASSERT_EQ(
        sqlite3_exec(other, "pragma journal_mode = wal; select * from notes", nullptr, nullptr, nullptr),
        SQLITE_OK);
    Insert(2000);
    database->Flush();
    Insert(1);
    // What the first group wrote reaches the file itself only now.
    EXPECT_EQ(sqlite3_wal_checkpoint_v2(other, nullptr, SQLITE_CHECKPOINT_PASSIVE, nullptr, nullptr),
              SQLITE_OK);
    EXPECT_EQ(Differences(), QStringList());
    sqlite3_close(other);
    ASSERT_TRUE(RunElsewhere(path, "delete from notes"));
    EXPECT_EQ(Differences(), MissingNotes(2001, 0));
}

}  // namespace

}  // namespace engine
