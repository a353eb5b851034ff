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
