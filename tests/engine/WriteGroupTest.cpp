#include "WriteGroupTest.h"

#include "engine/execution/WriteGroup.h"
#include "platform/MessageBox.h"
#include "support/FaultyDisk.h"
#include "support/WriteTrace.h"

#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>

namespace engine {

namespace {

TEST_F(WriteGroupTest, WritesReachTheDiskInGroups) {
    FaultyDisk disk;
    database = DBEngine::Instance().OpenDatabase(path);
    Insert(0);
    database->Flush();
    disk.FailAt(0, FaultyDisk::Fault::Once);
    Insert(1);
    database->Flush();
    const int forOne = disk.Operations();
    disk.FailAt(0, FaultyDisk::Fault::Once);
    for (int i = 0; i < 20; ++i) {
        Insert(2 + i);
    }
    database->Flush();
    EXPECT_LE(disk.Operations(), 2 * forOne) << "twenty rows cost hardly more than one";
}

TEST_F(WriteGroupTest, AGroupIsNeverOlderThanItsTime) {
    Insert(1);
    std::this_thread::sleep_for(std::chrono::milliseconds(60));
    Insert(2);
    EXPECT_EQ(ReadRows(path, "select text from notes"), QStringList{QStringLiteral("n1")})
        << "the second write brings the first one to the disk";
}

// Whether the row whose change was lost would be copied is asked with its key, besides what the copy asks
// for.
TEST_F(WriteGroupTest, ACopyOfOtherRowsThanThoseWhoseChangeIsLostStays) {
    database.reset();
    FaultyDisk disk;
    database = DBEngine::Instance().OpenDatabase(path);
    Listen();
    database->Execute(QStringLiteral("insert into things(code, number) values('a', 1)"));
    database->Execute(QStringLiteral("insert into things(code, number) values('b', 2)"));
    database->Flush();
    disk.FailOnBytes("unwritable");
    const auto rows = Dynaset("select * from things where code = 'a'");
    rows->Edit();
    rows->Fields(11).Set(QStringLiteral("unwritable"));
    rows->Update();
    database->Execute(
        QStringLiteral("insert into copies(text, number) select code, number from things where code = 'b'"));
    database->Flush();
    EXPECT_EQ(lost.size(), 1);
    EXPECT_TRUE(lost.value(0).startsWith(QStringLiteral("change of a row in things")));
    EXPECT_EQ(ReadRows(path, "select text, number from copies"), QStringList{QStringLiteral("b|2.0")});
}

// Without the first row the second one gets another key.
TEST_F(WriteGroupTest, AChangeFindsARowThatComesToAnotherPlace) {
    database.reset();
    FaultyDisk disk;
    database = DBEngine::Instance().OpenDatabase(path);
    Listen();
    disk.FailOnBytes("unwritable");
    database->Execute(QStringLiteral("insert into notes(text) values('unwritable')"));
    database->Execute(QStringLiteral("insert into notes(text) values('n1')"));
    const auto rows = Dynaset("select * from notes where text = 'n1'");
    rows->Edit();
    rows->Fields(0).Set(QStringLiteral("m1"));
    rows->Update();
    database->Flush();
    EXPECT_EQ(lost, QStringList{QStringLiteral("insert into notes(text) values('unwritable')")});
    EXPECT_EQ(ReadRows(path, "select text from notes"), QStringList{QStringLiteral("m1")});
}

// Other programs that find a Jet file in the middle of a group must never be led to a row that isn't there.
TEST_F(WriteGroupTest, AGroupOfAJetFileEitherAddsOrRemoves) {
    const bool isJet = FormatUnderTest() == FileFormat::Jet;
    int groups = 0;
    const WriteTrace trace([](const TracedWrite&) {}, [&groups] { ++groups; });
    database.reset();
    database = DBEngine::Instance().OpenDatabase(path);
    execution::WriteGroup::EndAfter(SIZE_MAX);
    Insert(1);
    database->Flush();
    EXPECT_EQ(groups, 1);
    Insert(2);
    database->Execute(QStringLiteral("delete from notes where text = 'n1'"));
    EXPECT_EQ(groups, isJet ? 2 : 1) << "a statement that removes rows";
    const auto notes = Dynaset("select * from notes");
    notes->AddNew();
    notes->Fields(0).Set(QStringLiteral("n3"));
    notes->Update(dbUpdateRegular, false);
    EXPECT_EQ(groups, isJet ? 3 : 1) << "a new row of a row set";
    notes->Delete();
    EXPECT_EQ(groups, isJet ? 4 : 1) << "a row that a row set removes";
    Insert(4);
    EXPECT_EQ(groups, isJet ? 5 : 1) << "an insert that may wait for others";
    database->Flush();
    EXPECT_EQ(groups, isJet ? 6 : 2);
    execution::WriteGroup::EndAfter({});
}

TEST_F(WriteGroupTest, ReadingBringsAGroupWhoseTimeIsOverToTheDiskToo) {
    Insert(1);
    LetTheGroupEnd();
    EXPECT_EQ(ReadRows(path, "select text from notes"), QStringList{QStringLiteral("n1")});
}

TEST_F(WriteGroupTest, AMessageBoxWaitsForTheDisk) {
    Insert(1);
    platform::ShowMessageBox(QStringLiteral("anything"));
    EXPECT_EQ(ReadRows(path, "select text from notes"), QStringList{QStringLiteral("n1")});
}

TEST_F(WriteGroupTest, OpeningAnotherDatabaseBringsAllToTheDisk) {
    Insert(1);
    const auto other = DBEngine::Instance().OpenDatabase(path);
    EXPECT_EQ(ReadRows(path, "select text from notes"), QStringList{QStringLiteral("n1")});
}

TEST_F(WriteGroupTest, ClosingBringsAllToTheDiskAndLeavesNoSideFiles) {
    Insert(1);
    database.reset();
    EXPECT_EQ(ReadRows(path, "select text from notes"), QStringList{QStringLiteral("n1")});
    EXPECT_EQ(QDir(directory.path()).entryList(QDir::Files), QStringList{QStringLiteral("things.mdb")});
}

TEST_F(WriteGroupTest, BetweenGroupsAnEmptyJournalStaysThatIsNoNewsToAReader) {
    Insert(1);
    LetTheGroupEnd();
    QFile journal(Journal());
    ASSERT_TRUE(journal.open(QIODevice::ReadOnly));
    EXPECT_EQ(journal.read(28), QByteArray(28, '\0')) << "its header says that there is nothing to take back";
    EXPECT_EQ(ReadRows(path, "select text from notes"), QStringList{QStringLiteral("n1")});
    Insert(2);
    database->Flush();
    EXPECT_FALSE(QFileInfo::exists(Journal())) << "nobody knows whether there will be another group";
    EXPECT_EQ(ReadRows(path, "select count(*) from notes"), QStringList{QStringLiteral("2")});
}

TEST_F(WriteGroupTest, TheJournalGoesWhileRowsAreBeingReadToo) {
    Insert(1);
    database->Flush();
    const auto rows =
        database->OpenRecordset(QStringLiteral("select * from notes"), dbOpenForwardOnly, dbReadOnly);
    Insert(2);
    LetTheGroupEnd();
    ASSERT_TRUE(QFileInfo::exists(Journal()));
    database->Flush();
    EXPECT_FALSE(QFileInfo::exists(Journal()));
    EXPECT_EQ(ReadRows(path, "select count(*) from notes"), QStringList{QStringLiteral("2")});
}

TEST_F(WriteGroupTest, AKeptJournalGivesItsRoomBackAfterALargeChange) {
    ASSERT_TRUE(RunElsewhere(path,
                             "with recursive n(i) as (select 1 union all select i + 1 from n where i < 4000)"
                             "insert into notes select hex(zeroblob(2000)) from n"));
    database->Execute(QStringLiteral("update notes set text='short'"));
    LetTheGroupEnd();
    EXPECT_GT(QFileInfo(path).size(), 12'000'000);
    EXPECT_TRUE(QFileInfo::exists(Journal()));
    EXPECT_LE(QFileInfo(Journal()).size(), 8 * 1024 * 1024);
}

TEST_F(WriteGroupTest, WritesThatRunAgainFindTheRoomOfTheJournalFree) {
    database.reset();
    FaultyDisk disk;
    database = DBEngine::Instance().OpenDatabase(path);
    int told = 0;
    database->OnLostWrite([&](const Error&, const QString&) {
        ++told;
        EXPECT_FALSE(QFileInfo::exists(Journal()));
    });
    Insert(1);
    LetTheGroupEnd();
    ASSERT_TRUE(QFileInfo::exists(Journal()));
    Insert(2);
    disk.FailAt(1, FaultyDisk::Fault::FullFromThenOn);
    for (int i = 0; i < 2000; ++i) {
        ErrorOf([&] { Insert(3 + i); });
    }
    database->Flush();
    disk.Repair();
    EXPECT_GT(told, 0);
}

TEST_F(WriteGroupTest, AFileInWriteAheadModeEndsWithoutSideFiles) {
    database.reset();
    ASSERT_TRUE(RunElsewhere(path, "pragma journal_mode = wal; insert into notes values('before')"));
    database = DBEngine::Instance().OpenDatabase(path);
    Insert(1);
    database.reset();
    EXPECT_EQ(QDir(directory.path()).entryList(QDir::Files), QStringList{QStringLiteral("things.mdb")});
    EXPECT_EQ(ReadRows(path, "select text from notes"),
              (QStringList{QStringLiteral("before"), QStringLiteral("n1")}));
}

TEST_F(WriteGroupTest, TheGroupSeesItsOwnWrites) {
    Insert(1);
    const auto rows = Dynaset("select * from notes");
    EXPECT_EQ(ToText(rows->Fields(0).Get()), QStringLiteral("n1"));
}

// Each operation of the disk fails once in turn, everywhere in a run of statements and row changes. One
// failure costs at most the write it hit, which is told, either by the statement itself or as a lost write.
TEST_F(WriteGroupTest, ASingleFaultLosesNothingThatCouldBeStored) {
    database.reset();
    FaultyDisk disk;
    for (int n = 1;; ++n) {
        OpenAnew("delete from notes; delete from things");
        disk.FailAt(n, FaultyDisk::Fault::Once);
        QStringList refused;
        for (int i = 0; i < 3; ++i) {
            if (ErrorOf([&] { Insert(i); }) != 0) {
                refused += QString::number(i);
            }
            if (ErrorOf([&] {
                    const auto rows = Dynaset("select * from things");
                    rows->AddNew();
                    rows->Fields(0).Set(QString::number(i));
                    rows->Update();
                }) != 0) {
                refused += QStringLiteral("row");
            }
            if (i == 1) {
                database->Flush();
            }
        }
        database.reset();
        const bool faulted = disk.Faults() > 0;
        const std::string kind = disk.FirstFault();
        disk.Repair();
        const qsizetype stored = ReadRows(path, "select text from notes").size() +
                                 ReadRows(path, "select code from things").size();
        EXPECT_EQ(stored + refused.size() + lost.size(), 6) << kind << " at operation " << n;
        EXPECT_EQ(ReadRows(path, "select count(distinct text), count(*) from notes")
                      .at(0)
                      .section(QLatin1Char('|'), 0, 0),
                  ReadRows(path, "select count(*) from notes").at(0));
        EXPECT_GE(stored, 5) << kind << " at operation " << n << ": one fault, at most one loss";
        EXPECT_EQ(ReadRows(path, "pragma integrity_check"), QStringList{QStringLiteral("ok")});
        if (!faulted) {
            EXPECT_GT(n, 20);
            break;
        }
    }
}

// The same while the import goes on: its groups end because their time is over, and the next write finds out.
TEST_F(WriteGroupTest, AFaultAtTheEndOfAGroupsTimeLosesNothingThatCouldBeStored) {
    database.reset();
    FaultyDisk disk;
    for (int n = 1;; ++n) {
        OpenAnew("delete from notes");
        Insert(1);
        Insert(2);
        std::this_thread::sleep_for(std::chrono::milliseconds(60));
        disk.FailAt(n, FaultyDisk::Fault::Once);
        const bool refused = ErrorOf([&] { Insert(3); }) != 0;
        const bool faulted = disk.Faults() > 0;
        const std::string kind = disk.FirstFault();
        disk.Repair();
        database.reset();
        const QStringList stored = ReadRows(path, "select text from notes");
        EXPECT_EQ(stored.size() + lost.size() + (refused ? 1 : 0), 3) << kind << " at operation " << n;
        EXPECT_GE(stored.size(), 2) << kind << " at operation " << n << ": one fault, at most one loss";
        EXPECT_EQ(ReadRows(path, "pragma integrity_check"), QStringList{QStringLiteral("ok")});
        if (!faulted) {
            EXPECT_GT(n, 5);
            break;
        }
    }
}

// When nothing is left of a group but to make sure of the end of a Jet file's journal, its rows are in the
// file. Until the disk has said so, a loss of power may bring the journal back and take them out again. So
// they are told as lost, and stay there if the power does; that of a SQLite file is not told
// (FileTransaction).
TEST_F(WriteGroupTest, ADiskThatFailsForGoodLosesTheRestAndSaysSo) {
    constexpr int SyncsOfJetGroup = 3;  // Of the journal, of the file, of the end of the journal.
    const QStringList groups[] = {{QStringLiteral("n0"), QStringLiteral("n1")},
                                  {QStringLiteral("n2"), QStringLiteral("n3")}};
    database.reset();
    FaultyDisk disk;
    int unsureEnds = 0;
    for (int n = 1;; ++n) {
        OpenAnew("delete from notes");
        execution::WriteGroup::EndAfter(SIZE_MAX);
        disk.FailAt(n, FaultyDisk::Fault::FromThenOn);
        QStringList told;
        for (int i = 0; i < 4; ++i) {
            if (ErrorOf([&] { Insert(i); }) != 0) {
                told += QStringLiteral("n%1").arg(i);
            }
            if (i == 1) {
                database->Flush();
            }
        }
        database.reset();
        execution::WriteGroup::EndAfter({});
        const bool faulted = disk.Faults() > 0;
        const bool isEndUnsure = FormatUnderTest() == FileFormat::Jet && disk.FirstFault() == "sync" &&
                                 disk.Syncs() % SyncsOfJetGroup == 0;
        const int faultyGroup = disk.Syncs() / SyncsOfJetGroup - 1;
        disk.Repair();
        // Whoever reads the rows below doesn't know the journal of a Jet file, which takes a half written
        // group back.
        DBEngine::Instance().OpenDatabase(path);
        for (const QString& write : lost) {
            told += write.section(QLatin1Char('\''), 1, 1);
        }
        const QStringList stored = ReadRows(path, "select text from notes");
        QStringList toldAndStored;
        for (const QStringList& group : groups) {
            for (const QString& row : group) {
                EXPECT_TRUE(told.contains(row) || stored.contains(row))
                    << row.toStdString() << " at operation " << n;
                if (told.contains(row) && stored.contains(row)) {
                    toldAndStored += row;
                }
            }
        }
        EXPECT_EQ(toldAndStored, isEndUnsure ? groups[faultyGroup] : QStringList()) << "operation " << n;
        EXPECT_EQ(told.size() + stored.size(), 4 + toldAndStored.size()) << "operation " << n;
        EXPECT_EQ(ReadRows(path, "pragma integrity_check"), QStringList{QStringLiteral("ok")});
        unsureEnds += isEndUnsure ? 1 : 0;
        if (!faulted) {
            break;
        }
    }
    EXPECT_EQ(unsureEnds, FormatUnderTest() == FileFormat::Jet ? std::size(groups) : 0);
}

TEST_F(WriteGroupTest, AFullDiskKeepsWhatStillFits) {
    database.reset();
    const QString fresh = directory.filePath(QStringLiteral("fresh.mdb"));
    ASSERT_TRUE(QFile::copy(path, fresh));
    FaultyDisk disk;
    bool lostLater = false;
    for (int n = 1;; ++n) {
        // A file that has had rows doesn't grow for others.
        ASSERT_TRUE(QFile::remove(path) && QFile::copy(fresh, path));
        OpenAnew("delete from notes");
        disk.FailAt(n, FaultyDisk::Fault::FullFromThenOn);
        int refused = 0;
        for (int i = 0; i < 300; ++i) {
            const int number = ErrorOf([&] { Insert(i); });
            EXPECT_TRUE(number == 0 || number == ErrorNumber::DiskFull) << number;
            refused += number != 0 ? 1 : 0;
            if (i % 100 == 0) {
                database->Flush();
            }
        }
        database.reset();
        const bool faulted = disk.Faults() > 0;
        disk.Repair();
        DBEngine::Instance().OpenDatabase(path).reset();
        lostLater = lostLater || !lost.isEmpty();
        EXPECT_EQ(ReadRows(path, "select text from notes").size() + refused + lost.size(), 300)
            << "operation " << n;
        EXPECT_EQ(Faults(), std::vector<std::string>());
        if (!faulted) {
            break;
        }
    }
    EXPECT_TRUE(lostLater) << "some fault must have hit a group after its writes had succeeded";
}

TEST_F(WriteGroupTest, WithoutAListenerALossIsToldAsABox) {
    database.reset();
    FaultyDisk disk;
    database = DBEngine::Instance().OpenDatabase(path);
    Insert(1);
    disk.FailAt(1, FaultyDisk::Fault::FromThenOn);
    database->Flush();
    disk.Repair();
    ASSERT_EQ(boxes.requests.size(), 1U);
    EXPECT_TRUE(boxes.requests[0].text.contains(QStringLiteral("'n1'")))
        << boxes.requests[0].text.toStdString();
}

TEST_F(WriteGroupTest, ALockIsWaitedForAndThenAnError) {
    std::atomic<bool> held = false;
    std::jthread other([&] {
        RunElsewhere(path,
                     "begin exclusive; insert into notes values('other');"
                     "with recursive n(i) as (select 1 union all select i + 1 from n where i < 500000)"
                     "select max(i) from n; commit");
        held = true;
    });
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
    Insert(1);
    other.join();
    EXPECT_TRUE(held);
    EXPECT_EQ(Rows("select count(*) from notes"), QStringList{QStringLiteral("2")})
        << "both writers got their turn";
}

TEST_F(WriteGroupTest, ALockThatStaysIsError3260AfterFiveSeconds) {
    const auto other = DBEngine::Instance().OpenDatabase(path);
    other->Execute(QStringLiteral("insert into notes(text) values('holds the file')"));
    QElapsedTimer timer;
    timer.start();
    EXPECT_EQ(ExecuteError("insert into notes(text) values('waits')"), ErrorNumber::Locked);
    EXPECT_GE(timer.elapsed(), 4500);
    other->Flush();
    EXPECT_EQ(ExecuteError("insert into notes(text) values('waits')"), 0);
}

// A reader in another program holds a commit up for longer than we wait for it. The group stays together, and
// nothing is lost or told as lost.
TEST_F(WriteGroupTest, AReaderThatHoldsUpACommitCostsNothing) {
    Insert(0);
    database->Flush();
    const auto reader = DBEngine::Instance().OpenDatabase(path);
    auto rows = reader->OpenRecordset(QStringLiteral("select * from notes"), dbOpenForwardOnly, dbReadOnly);
    Insert(1);
    std::this_thread::sleep_for(std::chrono::milliseconds(60));
    Insert(2);
    rows.reset();
    database->Flush();
    EXPECT_TRUE(lost.isEmpty()) << lost.join(QLatin1Char('\n')).toStdString();
    EXPECT_EQ(ReadRows(path, "select count(*) from notes"), QStringList{QStringLiteral("3")});
}

TEST_F(WriteGroupTest, AProgramThatIsToEndCutsTheSecondRunShort) {
    database.reset();
    Listener listener;
    FaultyDisk disk;
    database = DBEngine::Instance().OpenDatabase(path);
    Listen();
    for (int i = 0; i < 10; ++i) {
        Insert(i);
    }
    listener.goesOn = false;
    disk.FailAt(1, FaultyDisk::Fault::Once);
    database->Flush();
    disk.Repair();
    ASSERT_EQ(lost.size(), 1);
    EXPECT_TRUE(lost[0].contains(QStringLiteral("(10)"))) << lost[0].toStdString();
    EXPECT_EQ(ReadRows(path, "select count(*) from notes"), QStringList{QStringLiteral("0")});
}

TEST_F(WriteGroupTest, AStatementThatMayTakeLongDoesNotHoldUpWhatWasWrittenBefore) {
    ASSERT_TRUE(RunElsewhere(path,
                             "with recursive n(i) as (select 1 union all select i + 1 from n where i < 1001)"
                             "insert into notes select 'one' from n"));
    database.reset();
    FaultyDisk disk;
    database = DBEngine::Instance().OpenDatabase(path);
    for (const char* statement : {"update notes set text = 'x'", "delete from notes where text = 'y'"}) {
        Insert(1);
        disk.FailAt(0, FaultyDisk::Fault::Once);
        database->Execute(QString::fromUtf8(statement));
        EXPECT_EQ(disk.Syncs() > 0, true) << statement;
        database->Flush();
    }
}

TEST_F(WriteGroupTest, ACopyThatTakesAsLongAsTheLastOneDoesNotHoldUpWhatWasWrittenBefore) {
    ASSERT_TRUE(
        RunElsewhere(path,
                     "with recursive n(i) as (select 1 union all select i + 1 from n where i < 500000)"
                     "insert into notes select 'long' from n"));
    database.reset();
    QStringList steps;
    const WriteTrace trace([&steps](const TracedWrite&) { steps += QStringLiteral("write"); },
                           [&steps] { steps += QStringLiteral("commit"); });
    database = DBEngine::Instance().OpenDatabase(path);
    const QString copy =
        QStringLiteral("insert into copies(text) select text from notes where text = 'long'");
    database->Execute(copy);
    database->Flush();
    steps.clear();
    Insert(1);
    database->Execute(copy);
    EXPECT_EQ(steps,
              (QStringList{QStringLiteral("write"), QStringLiteral("commit"), QStringLiteral("write")}));
}

TEST_F(WriteGroupTest, WhatCannotBeCommittedAtTheEndIsTold) {
    Insert(0);
    database->Flush();
    const auto reader = DBEngine::Instance().OpenDatabase(path);
    const auto rows =
        reader->OpenRecordset(QStringLiteral("select * from notes"), dbOpenForwardOnly, dbReadOnly);
    Insert(1);
    Insert(2);
    database->Flush();
    EXPECT_EQ(lost.size(), 2);
}

TEST_F(WriteGroupTest, AnotherProgramThatWritesAllTheWhileLosesNothingAndCostsNothing) {
    std::atomic<bool> stop = false;
    std::atomic<int> written = 0;
    std::atomic<int> refused = 0;
    std::thread other([&] {
        while (!stop) {
            (RunElsewhere(path, "insert into things(number) values(1)") ? written : refused) += 1;
        }
    });
    QElapsedTimer timer;
    timer.start();
    int own = 0;
    while (timer.elapsed() < 8000) {
        ASSERT_EQ(ErrorOf([&] { Insert(own); }), 0);
        ++own;
    }
    database->Flush();
    stop = true;
    other.join();
    EXPECT_EQ(refused, 0);
    EXPECT_GT(written, 1);
    EXPECT_EQ(ReadRows(path, "select count(*) from notes"), QStringList{QString::number(own)});
    EXPECT_EQ(ReadRows(path, "select count(*) from things"), QStringList{QString::number(written)});
    EXPECT_TRUE(lost.isEmpty());
}

}  // namespace

}  // namespace engine
