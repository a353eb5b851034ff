#include "WriteGroupTest.h"
#include "platform/MessageBox.h"

#include <QElapsedTimer>

namespace engine {

namespace {

/// Another program that begins to read and doesn't end.
class Reader {
public:
    explicit Reader(const QString& path)
        : database_(DBEngine::Instance().OpenDatabase(path)),
          rows_(database_->OpenRecordset(QStringLiteral("select * from notes"), dbOpenForwardOnly,
                                         dbReadOnly)) {}
    void LetGo() { rows_.reset(); }

private:
    std::unique_ptr<Database> database_;
    std::unique_ptr<Recordset> rows_;
};

class HeldUpTest : public WriteGroupTest {
protected:
    HeldUpTest() {
        Insert(0);
        database->Flush();
    }

    /// A group whose time is over, which a reader holds up.
    void BeHeldUp() {
        Insert(1);
        std::this_thread::sleep_for(std::chrono::milliseconds(60));
        Insert(2);
    }

    Listener listener;
};

TEST_F(HeldUpTest, AReaderIsWaitedForOnceAndThenTheWritesGoOnInMemory) {
    Reader reader(path);
    QElapsedTimer timer;
    timer.start();
    for (int i = 1; i <= 100; ++i) {
        Insert(i);
        std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }
    database->Execute(QStringLiteral("update notes set text = 'changed'"));
    EXPECT_GE(timer.elapsed(), 5000);
    EXPECT_LE(timer.elapsed(), 7000) << "one lock is waited for once";
    EXPECT_EQ(listener.told, std::vector<bool>{true});
    reader.LetGo();
    std::this_thread::sleep_for(std::chrono::milliseconds(60));
    Insert(101);
    EXPECT_EQ(listener.told, (std::vector<bool>{true, false}));
    EXPECT_EQ(ReadRows(path, "select count(*) from notes where text = 'changed'"),
              QStringList{QStringLiteral("101")});
    EXPECT_TRUE(lost.isEmpty());
}

TEST_F(HeldUpTest, AMessageBoxCostsNothing) {
    Reader reader(path);
    BeHeldUp();
    platform::ShowMessageBox(QStringLiteral("anything"));
    reader.LetGo();
    database->Flush();
    EXPECT_TRUE(lost.isEmpty());
    EXPECT_EQ(ReadRows(path, "select count(*) from notes"), QStringList{QStringLiteral("3")});
}

TEST_F(HeldUpTest, WhatWasHeldUpIsLookedForWhenItIsInTheFile) {
    Reader reader(path);
    BeHeldUp();
    ASSERT_EQ(listener.told, std::vector<bool>{true});
    reader.LetGo();
    EXPECT_TRUE(database->CheckWritten().empty());
    ASSERT_TRUE(RunElsewhere(path, "delete from notes"));
    const std::vector<Error> differences = database->CheckWritten();
    ASSERT_EQ(differences.size(), 1U);
    EXPECT_EQ(differences[0].Description(),
              QStringLiteral("Rows of the table 'notes' are missing: 3 were written, 0 are there."));
}

TEST_F(HeldUpTest, WhatAReaderKeepsOutForGoodIsToldAndNotLookedFor) {
    const Reader reader(path);
    Insert(1);
    EXPECT_TRUE(database->CheckWritten().empty());
    EXPECT_EQ(lost.size(), 1);
}

TEST_F(HeldUpTest, AWriteBeyondTheRoomInMemoryMeetsALock) {
    Reader reader(path);
    BeHeldUp();
    const QString large(1'000'000, QLatin1Char('x'));
    int stored = 0;
    int number = 0;
    while (stored < 200 && number == 0) {
        number = ErrorOf([&] {
            database->Execute(
                QStringLiteral("insert into things(code, memo) values('%1', '%2')").arg(stored).arg(large));
        });
        stored += number == 0 ? 1 : 0;
    }
    EXPECT_EQ(number, ErrorNumber::Locked);
    EXPECT_GT(stored, 10);
    EXPECT_LT(stored, 40) << "64 MiB: the text of the statement, and the page that holds it";
    reader.LetGo();
    database->Flush();
    EXPECT_TRUE(lost.isEmpty());
    EXPECT_EQ(ReadRows(path, "select count(*) from things"), QStringList{QString::number(stored)});
}

TEST_F(HeldUpTest, AProgramThatIsToEndDoesNotWait) {
    Reader reader(path);
    BeHeldUp();
    Insert(3);
    listener.goesOn = false;
    QElapsedTimer timer;
    timer.start();
    Insert(4);
    database->Flush();
    EXPECT_LT(timer.elapsed(), 1000);
    ASSERT_EQ(lost.size(), 1) << "one report for all";
    EXPECT_TRUE(lost[0].contains(QStringLiteral("(4)"))) << lost[0].toStdString();
    EXPECT_TRUE(lost[0].contains(QStringLiteral("'n1'"))) << lost[0].toStdString();
    EXPECT_EQ(ReadRows(path, "select text from notes"), QStringList{QStringLiteral("n0")});
}

TEST_F(HeldUpTest, AProgramThatIsToEndDoesNotWaitForTheFirstTimeEither) {
    Reader reader(path);
    std::thread user([this] {
        std::this_thread::sleep_for(std::chrono::milliseconds(300));
        listener.goesOn = false;
    });
    QElapsedTimer timer;
    timer.start();
    BeHeldUp();
    database->Flush();
    user.join();
    EXPECT_LT(timer.elapsed(), 2000);
    EXPECT_EQ(lost.size(), 1);
    EXPECT_TRUE(listener.told.empty()) << "nobody reads that any more";
}

}  // namespace

}  // namespace engine
