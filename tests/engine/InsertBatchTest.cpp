#include "EngineTest.h"

namespace engine {

namespace {

class InsertBatchTest : public EngineTest {
protected:
    void Insert(int number) {
        database->Execute(QStringLiteral("insert into notes(text) values('n%1')").arg(number));
    }

    void CreateTable(const char* sql) {
        database->Flush();
        ASSERT_TRUE(RunElsewhere(path, sql));
    }
};

TEST_F(InsertBatchTest, RowsComeInTheOrderOfTheirStatements) {
    CreateTable("create table plain(a TEXT(5), b LONG)");
    for (int i = 0; i < 50; ++i) {
        Insert(i);
        if (i % 7 == 0) {
            database->Execute(QStringLiteral("insert into plain(a) values('a%1')").arg(i));
            database->Execute(QStringLiteral("insert into plain(a, b) values('b%1', %1)").arg(i));
        }
    }
    QStringList expected;
    for (int i = 0; i < 50; ++i) {
        expected += QStringLiteral("n%1").arg(i);
    }
    EXPECT_EQ(Rows("select text from notes order by rowid"), expected);
    EXPECT_EQ(Rows("select a, b from plain order by rowid limit 4"),
              (QStringList{QStringLiteral("a0|NULL"), QStringLiteral("b0|0"), QStringLiteral("a7|NULL"),
                           QStringLiteral("b7|7")}));
    EXPECT_EQ(Rows("select count(*) from plain"), QStringList{QStringLiteral("16")});
}

TEST_F(InsertBatchTest, WhateverFollowsSeesWhatWaits) {
    Insert(1);
    EXPECT_FALSE(Dynaset("select * from notes")->Eof());
    Insert(2);
    EXPECT_FALSE(database
                     ->OpenRecordset(QStringLiteral("select * from notes where text = 'n2'"),
                                     dbOpenForwardOnly, dbReadOnly)
                     ->Eof());
    Insert(3);
    database->Execute(QStringLiteral("update notes set text = 'changed' where text = 'n3'"));
    Insert(4);
    database->Execute(QStringLiteral("delete from notes where text = 'n4'"));
    Insert(5);
    database->Execute(QStringLiteral("insert into things(memo) select text from notes where text = 'n5'"));
    EXPECT_EQ(Rows("select text from notes"), (QStringList{QStringLiteral("n1"), QStringLiteral("n2"),
                                                           QStringLiteral("changed"), QStringLiteral("n5")}));
    EXPECT_EQ(Rows("select memo from things"), QStringList{QStringLiteral("n5")});
}

TEST_F(InsertBatchTest, ARowThatARowSetIsOnIsReadAfterWhatWaits) {
    Insert(0);
    const auto rows = Dynaset("select * from notes");
    for (int i = 1; i < 20; ++i) {
        Insert(i);
    }
    rows->Edit();
    rows->Fields(0).Set(QStringLiteral("edited"));
    rows->Update();
    EXPECT_EQ(Rows("select count(*) from notes where text like 'n%'"), QStringList{QStringLiteral("19")});
}

TEST_F(InsertBatchTest, ARefusedValueConcernsItsOwnStatementOnly) {
    Insert(1);
    const QString tooLong(51, QLatin1Char('x'));
    EXPECT_EQ(ErrorOf([&] {
                  database->Execute(QStringLiteral("insert into notes(text) values('") + tooLong +
                                    QStringLiteral("')"));
              }),
              ErrorNumber::FieldTooSmall);
    Insert(2);
    EXPECT_EQ(Rows("select text from notes"), (QStringList{QStringLiteral("n1"), QStringLiteral("n2")}));
}

// The places of the statement for many rows are used by one row after the other. What a place holds already
// is not bound anew, so rows that agree in much, and each in something else, tell whether it is the same.
TEST_F(InsertBatchTest, ManyRoundsOfRowsThatDifferInLittleKeepTheirOwnValues) {
    CreateTable("create table mixed(a TEXT(5), b DOUBLE, c TEXT(5), d MEMO)");
    QStringList expected;
    for (int i = 0; i < 200; ++i) {
        const QString text = i % 3 == 0   ? QStringLiteral("%1").arg(i, 3, 10, QLatin1Char('x'))
                             : i % 3 == 1 ? QStringLiteral("\u00E9a")
                                          : QStringLiteral("bcd");
        const QString number = i % 40 < 20 ? QStringLiteral("1") : QStringLiteral("%1.5").arg(i % 5);
        // A number for a memo is made a text when it is bound, and a text is copied.
        const QString memo = i % 64 < 32 ? QStringLiteral("'m%1'").arg(i % 60, 2, 10, QLatin1Char('0'))
                                         : QStringLiteral("%1").arg(i % 16);
        database->Execute(QStringLiteral("insert into mixed(a, b, c, d) values('%1', %2, 'same', %3)")
                              .arg(text, number, memo));
        expected += QStringList{text, number == QLatin1String("1") ? QStringLiteral("1.0") : number,
                                QStringLiteral("same"), QString(memo).remove(QLatin1Char('\''))}
                        .join(QLatin1Char('|'));
    }
    EXPECT_EQ(Rows("select a, b, c, cast(d as text) from mixed order by rowid"), expected);
}

TEST_F(InsertBatchTest, ATextOfAsManyBytesAndMoreCharactersIsCounted) {
    CreateTable("create table narrow(a TEXT(2))");
    const auto insert = [this](const char16_t* text, int blanks) {
        return ErrorOf([&] {
            database->Execute(
                QStringLiteral("insert into narrow(a) values('%1')").arg(QString::fromUtf16(text)) +
                QString(blanks, QLatin1Char(' ')));
        });
    };
    // The room for a long statement is kept for shorter ones, whose texts then lie where its own did.
    for (size_t row = 0; row < 16; ++row) {
        EXPECT_EQ(insert(u"\u00E9\u00E9", 50), 0);
    }
    EXPECT_EQ(insert(u"abcd", 0), ErrorNumber::FieldTooSmall);
}

TEST_F(InsertBatchTest, ATextThatLiesElsewhereIsFoundThere) {
    CreateTable("create table plain(a TEXT(9))");
    const auto insert = [this](const QString& text, int blanks) {
        database->Execute(QStringLiteral("insert into plain(a) values('%1')").arg(text) +
                          QString(blanks, QLatin1Char(' ')));
    };
    QStringList expected;
    for (int round = 0; round < 6; ++round) {
        for (int row = 0; row < 16; ++row) {
            expected += QStringLiteral("text %1%2").arg(round).arg(row, 2, 10, QLatin1Char('0'));
            // Each round needs more room than the one before, and so another.
            insert(expected.last(), 5000 * round);
        }
    }
    EXPECT_EQ(Rows("select a from plain order by rowid"), expected);
}

// Where a table can turn a row away, the statement that brings it is the one that fails, and at once.
TEST_F(InsertBatchTest, TablesThatCanRefuseARowAreAskedAtOnce) {
    for (const char* table : {
             "create table picky(a TEXT(5) unique)",
             "create table picky(a TEXT(5) primary key)",
             "create table picky(a TEXT(5)); create unique index picky_a on picky(a)",
             "create table picky(a TEXT(5) unique on conflict ignore)",
             "create table picky(a TEXT(5) primary key on conflict replace)",
         }) {
        CreateTable("drop table if exists picky");
        CreateTable(table);
        database = DBEngine::Instance().OpenDatabase(path);
        const QString statement = QStringLiteral("insert into picky(a) values('x')");
        EXPECT_EQ(ErrorOf([&] { database->Execute(statement); }), 0) << table;
        EXPECT_EQ(ErrorOf([&] { database->Execute(statement); }), ErrorNumber::DuplicateKey) << table;
        EXPECT_EQ(Rows("select rowid from picky"), QStringList{QStringLiteral("1")}) << table;
    }
    CreateTable("create table needy(a TEXT(5), b LONG not null)");
    EXPECT_EQ(ExecuteError("insert into needy(a) values('x')"), ErrorNumber::NullNotAllowed);
}

}  // namespace

}  // namespace engine
