#include "BareFile.h"
#include "JetTest.h"
#include "engine/jet/PagedFile.h"
#include "support/PrintQt.h"

#include <rapidcheck/gtest.h>

namespace engine::jet {
namespace {

TEST(JetPagedFile, ChangesReachTheFileWithTheirGroup) {
    BareFile bare;
    const auto file = bare.Open();
    EXPECT_FALSE(file->HasChanges());
    file->Change(5)[100] = 'x';
    EXPECT_EQ(file->Read(5)[100], 'x');
    EXPECT_TRUE(file->HasChanges());
    EXPECT_EQ(bare.ByteAt(5, 100), 0);
    file->EndGroup(GroupKind::Adds);
    EXPECT_EQ(bare.ByteAt(5, 100), 'x');
    EXPECT_FALSE(file->HasChanges());
}

TEST(JetPagedFile, AGroupThatChangesNothingWritesNothing) {
    BareFile bare;
    const auto file = bare.Open();
    file->Change(5)[100] = 0;
    file->EndGroup(GroupKind::Adds);
    file->EndGroup(GroupKind::Adds);
    EXPECT_EQ(bare.disk.operations, 0);
}

TEST(JetPagedFile, APageOutsideOfTheFileIsDamage) {
    BareFile bare;
    const auto file = bare.Open();
    EXPECT_TRUE(FindsDamage(8, [&] { file->Read(8); }));
    EXPECT_TRUE(FindsDamage(0xFFFFFFFF, [&] { file->Change(0xFFFFFFFF); }));
}

TEST(JetPagedFile, AFileThatIsCutIsDamage) {
    BareFile bare;
    bare.Content().chop(1);
    EXPECT_TRUE(FindsDamage(7, [&] { bare.Open(); }));
    bare.Content().truncate(100);
    EXPECT_EQ(FailureOf([&] { bare.Open(); }).number, ErrorNumber::UnrecognizedFormat);
    bare.Content().clear();
    EXPECT_EQ(FailureOf([&] { bare.Open(); }).number, ErrorNumber::UnrecognizedFormat);
}

TEST(JetPagedFile, AFailedStatementUndoesItselfAlone) {
    BareFile bare;
    const auto file = bare.Open();
    file->Change(5)[100] = 'x';
    const PageNumber kept = file->Take();
    const PagedFile::Mark mark = file->SetMark();
    file->Change(5)[100] = 'y';
    file->Change(6)[100] = 'z';
    const PageNumber lost = file->Take();
    file->Change(lost)[0] = 'l';
    file->Change(kept)[0] = 'k';
    EXPECT_EQ(file->Count(), 10U);
    file->UndoTo(mark);
    EXPECT_EQ(file->Count(), 9U);
    file->EndGroup(GroupKind::Adds);
    EXPECT_EQ(bare.ByteAt(5, 100), 'x');
    EXPECT_EQ(bare.ByteAt(6, 100), 0);
    EXPECT_EQ(bare.ByteAt(kept, 0), 0);
    EXPECT_EQ(bare.Content().size(), 9 * 4096);
}

TEST(JetPagedFile, MarksLieWithinMarks) {
    BareFile bare;
    const auto file = bare.Open();
    const PagedFile::Mark outer = file->SetMark();
    file->Change(5)[0] = 1;
    const PagedFile::Mark inner = file->SetMark();
    file->Change(5)[0] = 2;
    file->UndoTo(inner);
    EXPECT_EQ(file->Read(5)[0], 1);
    file->Change(5)[0] = 3;
    file->UndoTo(inner);
    EXPECT_EQ(file->Read(5)[0], 1);
    file->Change(5)[0] = 4;
    file->UndoTo(outer);
    EXPECT_EQ(file->Read(5)[0], 0);
}

TEST(JetPagedFile, APageIsAsInTheFileAgainAfterEachUndo) {
    BareFile bare;
    const auto file = bare.Open();
    const PagedFile::Mark outer = file->SetMark();
    const PagedFile::Mark inner = file->SetMark();
    for (const std::uint8_t byte : std::array<std::uint8_t, 2>{1, 2}) {
        file->Change(5)[0] = byte;
        file->UndoTo(inner);
        EXPECT_EQ(file->Read(5)[0], 0);
    }
    file->Change(5)[0] = 3;
    file->UndoTo(outer);
    EXPECT_EQ(file->Read(5)[0], 0);
}

TEST(JetPagedFile, AGroupKeepsNothingOfTheOneBefore) {
    BareFile bare;
    const auto file = bare.Open();
    for (const std::uint8_t byte : std::array<std::uint8_t, 3>{1, 2, 3}) {
        const PagedFile::Mark mark = file->SetMark();
        file->Change(5)[0] = 99;
        file->Change(6)[0] = 99;
        file->UndoTo(mark);
        EXPECT_EQ(file->Read(5)[0], byte - 1);
        file->Change(5)[0] = byte;
        file->EndGroup(GroupKind::Adds);
        file->Forget();
        EXPECT_EQ(file->Read(5)[0], byte);
        EXPECT_EQ(file->Read(6)[0], 0);
    }
}

TEST(JetPagedFile, APageIsKnownAsLongAsItsBytesComeFromThoseWhoKnowIt) {
    BareFile bare;
    const auto file = bare.Open();
    const auto isKnown = [&](PageNumber page) { return file->HasShape(page, PageShape::Rows); };
    const auto note = [&](PageNumber page) {
        file->Change(page);
        file->NoteShape(page, PageShape::Rows);
    };
    EXPECT_FALSE(isKnown(5));
    note(5);
    EXPECT_TRUE(isKnown(5));
    EXPECT_FALSE(file->HasShape(5, PageShape::Entries));
    EXPECT_FALSE(isKnown(6));
    file->Change(5)[100] = 'x';
    file->EndGroup(GroupKind::Adds);
    EXPECT_TRUE(isKnown(5));

    const PagedFile::Mark mark = file->SetMark();
    note(5);
    const PageNumber taken = file->Take();
    note(taken);
    file->UndoTo(mark);
    EXPECT_FALSE(isKnown(5));
    EXPECT_EQ(file->Take(), taken);
    EXPECT_FALSE(isKnown(taken));

    note(5);
    file->GiveUpGroup();
    EXPECT_FALSE(isKnown(5));
    file->NoteShape(5, PageShape::Rows);
    file->Forget();
    EXPECT_FALSE(isKnown(5));
    file->Read(5);
    file->NoteShape(5, PageShape::Rows);
    file->Reopen();
    EXPECT_FALSE(isKnown(5));
}

TEST(JetPagedFile, AFreePageThatIsTakenIsKnownByNobody) {
    BareFile bare;
    const auto file = bare.Open();
    file->NoteShape(5, PageShape::Rows);
    file->GiveBack(5);
    file->EndGroup(GroupKind::Removes);
    EXPECT_EQ(file->Take(), 5U);
    EXPECT_FALSE(file->HasShape(5, PageShape::Rows));
}

TEST(JetPagedFile, APageStaysWhereItIsWhileTheStatementLasts) {
    BareFile bare(40000);
    const auto file = bare.Open();
    const Page* page = &file->Read(5);
    for (PageNumber number = 3; number < 30000; ++number) {
        file->Read(number);
    }
    EXPECT_EQ(&file->Read(5), page);
    EXPECT_EQ(&file->Change(5), page);
}

TEST(JetPagedFile, ATakenPageIsZeroAndNobodyElses) {
    BareFile bare;
    bare.Content()[6 * 4096 + 9] = 'o';
    auto file = bare.Open();
    file->GiveBack(6);
    EXPECT_EQ(file->Take(), 8U);
    file->EndGroup(GroupKind::Removes);
    EXPECT_EQ(file->Take(), 6U);
    EXPECT_EQ(file->Read(6)[9], 0);
    EXPECT_EQ(file->Take(), 9U);
    file->EndGroup(GroupKind::Adds);
    EXPECT_EQ(bare.ByteAt(6, 9), 0);
    file = bare.Open();
    EXPECT_EQ(file->Take(), 10U);
}

TEST(JetPagedFile, TheJournalKeepsNothingOfAPageThatWasFree) {
    BareFile bare;
    const auto file = bare.Open();
    file->GiveBack(6);
    file->EndGroup(GroupKind::Removes);
    file->Change(file->Take())[0] = 1;
    file->EndGroup(GroupKind::Adds);
    // A head, and one entry for the map of the free pages: its number, its bytes and eight sums.
    EXPECT_EQ(bare.disk.files[bare.journal]->bytes.size(), 40 + 4 + 4096 + 64);
}

TEST(JetPagedFile, APageGivenBackByAnUndoneStatementStaysInUse) {
    BareFile bare;
    const auto file = bare.Open();
    const PagedFile::Mark mark = file->SetMark();
    file->GiveBack(6);
    file->UndoTo(mark);
    file->EndGroup(GroupKind::Removes);
    EXPECT_EQ(file->Take(), 8U);
}

TEST(JetPagedFile, APageThatIsNotInUseCannotBeGivenBack) {
    BareFile bare;
    const auto file = bare.Open();
    for (const PageNumber page : {0U, 1U, 8U, 0xFFFFFFFFU}) {
        EXPECT_TRUE(FindsDamage(page, [&] { file->GiveBack(page); }));
    }
    file->GiveBack(6);
    file->EndGroup(GroupKind::Removes);
    EXPECT_TRUE(FindsDamage(6, [&] { file->GiveBack(6); }));
}

TEST(JetPagedFile, TheFileDoesNotGrowBeyondItsFormat) {
    BareFile bare;
    const auto file = bare.Open(10);
    file->Take();
    file->Take();
    EXPECT_EQ(FailureOf([&] { file->Take(); }).number, ErrorNumber::DiskFull);
    EXPECT_EQ(file->Count(), 10U);
    EXPECT_EQ(FailureOf([&] { bare.Open(7); }).number, ErrorNumber::UnrecognizedFormat);
}

TEST(JetPagedFile, AGroupCanBeGivenUp) {
    BareFile bare;
    const QByteArray before = bare.Content();
    const auto file = bare.Open();
    file->Change(5)[0] = 1;
    file->Take();
    file->GiveBack(6);
    file->GiveUpGroup();
    EXPECT_FALSE(file->HasChanges());
    EXPECT_EQ(file->Count(), 8U);
    EXPECT_EQ(file->Read(5)[0], 0);
    file->EndGroup(GroupKind::Adds);
    EXPECT_EQ(bare.Content(), before);
}

TEST(JetPagedFile, TheJournalGoesWhenItIsAskedTo) {
    BareFile bare;
    const auto file = bare.Open();
    file->RemoveJournal();
    file->Change(5)[0] = 1;
    file->EndGroup(GroupKind::Adds);
    EXPECT_TRUE(bare.HasJournal());
    file->RemoveJournal();
    EXPECT_FALSE(bare.HasJournal());
    file->Change(5)[0] = 2;
    file->EndGroup(GroupKind::Adds);
    EXPECT_EQ(bare.ByteAt(5, 0), 2);
}

// A group of every kind of change, and what the file is without and with it.
class JetGroup : public ::testing::Test {
protected:
    JetGroup() {
        Fill(*bare.Open());
        bare.disk.operations = 0;
        before = bare.Content();
        BareFile other(bare);
        const auto file = other.Open();
        Change(*file);
        file->EndGroup(GroupKind::Adds);
        after = other.Content();
        operations = other.disk.operations;
    }

    static void Fill(PagedFile& file) {
        file.Change(5)[100] = 'o';
        file.GiveBack(4);
        file.EndGroup(GroupKind::Removes);
        file.RemoveJournal();
    }
    static void Change(PagedFile& file) {
        file.Change(5)[100] = 'x';
        file.Change(5)[4000] = 'y';
        file.Change(6)[100] = 'z';
        file.Change(file.Take())[0] = 't';
        file.Change(file.Take())[0] = 'n';
        file.GiveBack(7);
    }

    /// What somebody finds who opens the file now.
    static QByteArray Reopened(const BareFile& now) {
        BareFile copy(now);
        copy.Open();
        return copy.Content();
    }

    /// The file without what lies in the page that was free before, and means nothing then.
    static QByteArray InUse(QByteArray content) {
        return content.replace(4 * 4096, 4096, QByteArray(4096, '\0'));
    }

    BareFile bare;
    QByteArray before;
    QByteArray after;
    int operations = 0;
};

TEST_F(JetGroup, AProgramThatIsEndedLeavesAllOfAGroupOrNothing) {
    ASSERT_GT(operations, 8);
    int whole = 0;
    for (int stop = 0; stop < operations; ++stop) {
        BareFile stopped(bare);
        auto file = stopped.Open();
        Change(*file);
        stopped.disk.stopAt = stop;
        EXPECT_THROW(file->EndGroup(GroupKind::Adds), ModelDisk::Stopped);
        file.reset();
        stopped.disk.stopAt.reset();
        stopped.Open();
        const bool isWhole = stopped.Content() == after;
        whole += isWhole ? 1 : 0;
        EXPECT_TRUE(isWhole || InUse(stopped.Content()) == InUse(before)) << stop;
    }
    EXPECT_GT(whole, 0);
    EXPECT_LT(whole, operations);
}

TEST_F(JetGroup, AProgramThatIsEndedWhileItMendsIsMendedByTheNext) {
    const int middle = operations - 4;
    for (int stop = 0; stop < 20; ++stop) {
        BareFile stopped(bare);
        auto file = stopped.Open();
        Change(*file);
        stopped.disk.stopAt = middle;
        EXPECT_THROW(file->EndGroup(GroupKind::Adds), ModelDisk::Stopped);
        file.reset();
        stopped.disk.operations = 0;
        stopped.disk.stopAt = stop;
        try {
            stopped.Open();
        } catch (const ModelDisk::Stopped&) {
            stopped.disk.stopAt.reset();
            stopped.Open();
        }
        EXPECT_EQ(InUse(stopped.Content()), InUse(before)) << stop;
    }
}

TEST_F(JetGroup, ADiskThatFailsLeavesTheFileAsItWasAndTheGroupInMemory) {
    for (int failing = 0; failing < operations; ++failing) {
        BareFile refused(bare);
        const auto file = refused.Open();
        Change(*file);
        refused.disk.failAt = failing;
        refused.disk.failUntil = failing + 1;
        refused.disk.failure = ErrorNumber::DiskFull;
        EXPECT_EQ(FailureOf([&] { file->EndGroup(GroupKind::Adds); }).number, ErrorNumber::DiskFull)
            << failing;
        EXPECT_EQ(InUse(refused.Content()), InUse(before)) << failing;
        EXPECT_EQ(InUse(Reopened(refused)), InUse(before)) << failing;
        file->EndGroup(GroupKind::Adds);
        EXPECT_EQ(refused.Content(), after) << failing;
    }
}

TEST_F(JetGroup, AProgramThatIsEndedWhileItBringsTheFileBackLeavesAllOfAGroupOrNothing) {
    for (int failing = 0; failing < operations; ++failing) {
        for (int stop = failing + 1; stop < failing + 20; ++stop) {
            BareFile refused(bare);
            auto file = refused.Open();
            Change(*file);
            refused.disk.failAt = failing;
            refused.disk.failUntil = failing + 1;
            refused.disk.stopAt = stop;
            try {
                file->EndGroup(GroupKind::Adds);
            } catch (const Error&) {
            } catch (const ModelDisk::Stopped&) {
            }
            file.reset();
            refused.disk.stopAt.reset();
            refused.disk.failAt.reset();
            refused.Open();
            EXPECT_TRUE(refused.Content() == after || InUse(refused.Content()) == InUse(before))
                << failing << " " << stop;
        }
    }
}

TEST_F(JetGroup, AGroupThatCouldNotBeStoredCanBeGivenUp) {
    for (int failing = 0; failing < operations; ++failing) {
        BareFile refused(bare);
        const auto file = refused.Open();
        Change(*file);
        refused.disk.failAt = failing;
        refused.disk.failUntil = failing + 1;
        EXPECT_EQ(FailureOf([&] { file->EndGroup(GroupKind::Adds); }).number, ErrorNumber::DiskError);
        file->GiveUpGroup();
        EXPECT_EQ(file->Count(), 8U);
        EXPECT_EQ(file->Read(5)[100], 'o');
        Change(*file);
        file->EndGroup(GroupKind::Adds);
        EXPECT_EQ(refused.Content(), after) << failing;
    }
}

TEST_F(JetGroup, ADiskThatFailsForGoodIsMendedAtTheNextOpening) {
    for (int failing = 0; failing < operations; ++failing) {
        BareFile refused(bare);
        auto file = refused.Open();
        Change(*file);
        refused.disk.failAt = failing;
        refused.disk.failUntil = 1000;
        EXPECT_EQ(FailureOf([&] { file->EndGroup(GroupKind::Adds); }).number, ErrorNumber::DiskError);
        file.reset();
        refused.disk.failAt.reset();
        refused.Open();
        // The last operation is to make the end of the journal sure.
        const bool isWhole = failing == operations - 1;
        EXPECT_EQ(InUse(refused.Content()), InUse(isWhole ? after : before)) << failing;
    }
}

TEST_F(JetGroup, AFileThatCouldNotBeMendedIsNotUsedBeforeItIs) {
    BareFile refused(bare);
    const auto file = refused.Open();
    Change(*file);
    refused.disk.failAt = operations - 3;
    refused.disk.failUntil = 1000;
    EXPECT_EQ(FailureOf([&] { file->EndGroup(GroupKind::Adds); }).number, ErrorNumber::DiskError);
    EXPECT_EQ(FailureOf([&] { file->Read(5); }).number, ErrorNumber::DiskError);
    EXPECT_EQ(FailureOf([&] { file->Take(); }).number, ErrorNumber::DiskError);
    EXPECT_EQ(FailureOf([&] { file->EndGroup(GroupKind::Adds); }).number, ErrorNumber::DiskError);
    EXPECT_EQ(FailureOf([&] { file->RemoveJournal(); }).number, ErrorNumber::DiskError);
    EXPECT_TRUE(refused.HasJournal());
    refused.disk.failAt.reset();
    file->EndGroup(GroupKind::Adds);
    EXPECT_EQ(refused.Content(), after);
}

// The group is given up meanwhile, and there may be no further one: then nothing must go that the file needs.
TEST_F(JetGroup, ADiskThatFailsForAWhileCostsNoMoreThanTheGroup) {
    constexpr int LongestWhile = 20;
    for (int failing = 0; failing < operations; ++failing) {
        for (int length = 1; length < LongestWhile; ++length) {
            BareFile refused(bare);
            auto file = refused.Open();
            Change(*file);
            refused.disk.failAt = failing;
            refused.disk.failUntil = failing + length;
            EXPECT_EQ(FailureOf([&] { file->EndGroup(GroupKind::Adds); }).number, ErrorNumber::DiskError);
            file->GiveUpGroup();
            FailureOf([&] { file->RemoveJournal(); });
            const QByteArray left = Reopened(refused);
            EXPECT_TRUE(left == after || InUse(left) == InUse(before)) << failing << " " << length;
            refused.disk.failAt.reset();
            EXPECT_EQ(file->Read(5)[100], 'o');
            Change(*file);
            file->EndGroup(GroupKind::Adds);
            EXPECT_EQ(refused.Content(), after) << failing << " " << length;
        }
    }
}

TEST_F(JetGroup, AFileThatAnotherProgramHasChangedIsNotTakenBack) {
    const struct {
        const char* what;
        qsizetype at;
    } others[] = {{"a page of the group", 5 * 4096 + 1000}, {"a commit word", 0xE02}};
    for (const auto& other : others) {
        BareFile stopped(bare);
        auto file = stopped.Open();
        Change(*file);
        stopped.disk.stopAt = operations - 3;
        EXPECT_THROW(file->EndGroup(GroupKind::Adds), ModelDisk::Stopped);
        file.reset();
        stopped.disk.stopAt.reset();
        stopped.Content()[other.at] = '!';
        const QByteArray theirs = stopped.Content();
        const Failing failing = FailureOf([&] { stopped.Open(); });
        EXPECT_EQ(failing.number, ErrorNumber::DatabaseDamaged) << other.what;
        EXPECT_TRUE(failing.sentence.contains(QStringLiteral(".journal.refused"))) << other.what;
        EXPECT_EQ(stopped.Content(), theirs) << other.what;
        EXPECT_FALSE(stopped.HasJournal());
        EXPECT_TRUE(stopped.disk.IsThere(stopped.journal + QStringLiteral(".refused")));
        EXPECT_NO_THROW(stopped.Open());
        EXPECT_EQ(stopped.Content(), theirs);
    }
}

TEST_F(JetGroup, AFileThatAnotherProgramHasLengthenedIsNotTakenBack) {
    BareFile stopped(bare);
    auto file = stopped.Open();
    Change(*file);
    stopped.disk.stopAt = operations - 3;
    EXPECT_THROW(file->EndGroup(GroupKind::Adds), ModelDisk::Stopped);
    file.reset();
    stopped.disk.stopAt.reset();
    stopped.Content().append(4096, '!');
    const QByteArray theirs = stopped.Content();
    EXPECT_EQ(FailureOf([&] { stopped.Open(); }).number, ErrorNumber::DatabaseDamaged);
    EXPECT_EQ(stopped.Content(), theirs);
}

TEST_F(JetGroup, AJournalThatIsTornOrNoneMeansNothing) {
    BareFile stopped(bare);
    auto file = stopped.Open();
    Change(*file);
    stopped.disk.stopAt = operations - 3;
    EXPECT_THROW(file->EndGroup(GroupKind::Adds), ModelDisk::Stopped);
    file.reset();
    stopped.disk.stopAt.reset();
    const QByteArray journal = stopped.disk.files[stopped.journal]->bytes;
    const QByteArray half = stopped.Content();
    for (qsizetype at = 0; at < journal.size(); at += 7) {
        QByteArray torn = journal;
        torn[at] = static_cast<char>(torn[at] ^ 0x40);
        stopped.disk.files[stopped.journal]->bytes = torn;
        stopped.Open();
        EXPECT_EQ(stopped.Content(), half) << at;
    }
    for (const QByteArray& other : {QByteArray(), QByteArray("x"), journal.left(journal.size() - 1),
                                    journal + "x", QByteArray(40, '\xFF'), QByteArray(100000, '\xFF')}) {
        stopped.disk.files[stopped.journal]->bytes = other;
        stopped.Open();
        EXPECT_EQ(stopped.Content(), half);
    }
}

RC_GTEST_FIXTURE_PROP(JetGroup, APowerCutLeavesAllOfAGroupOrNothing, ()) {
    BareFile cut(bare);
    auto file = cut.Open();
    Change(*file);
    cut.disk.stopAt = *rc::gen::inRange(0, operations);
    try {
        file->EndGroup(GroupKind::Adds);
    } catch (const ModelDisk::Stopped&) {
    }
    file.reset();
    cut.disk.stopAt.reset();
    cut.disk.CutPower([] { return *rc::gen::arbitrary<bool>(); });
    cut.Open();
    RC_ASSERT(cut.Content() == after || InUse(cut.Content()) == InUse(before));
}

}  // namespace
}  // namespace engine::jet
