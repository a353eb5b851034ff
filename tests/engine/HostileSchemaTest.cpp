#include "EngineTest.h"
#include "engine/dialect/Grammar.h"

namespace engine {

namespace {

/// What a file declares may be anything.
class HostileSchemaTest : public EngineTest {
protected:
    /// Lets another program declare something, and opens the file again.
    int OpenWith(const char* sql) {
        database.reset();
        EXPECT_TRUE(RunElsewhere(path, sql)) << sql;
        return ErrorOf([&] { database = DBEngine::Instance().OpenDatabase(path); });
    }

    int OpenErrorWith(const char* sql) {
        const QString sound = path;
        path = directory.filePath(QStringLiteral("other.mdb"));
        QFile::remove(path);
        EXPECT_TRUE(QFile::copy(sound, path));
        const int error = OpenWith(sql);
        database.reset();
        path = sound;
        return error;
    }
};

TEST_F(HostileSchemaTest, ColumnsMayHaveAnyName) {
    ASSERT_EQ(
        OpenWith(
            "create table odd(\"a]b\" TEXT(9), \"a\"\"b\" TEXT(9), \"x = 1; delete from notes; --\" TEXT(9),"
            " \"\xFF\" TEXT(9), \"\" TEXT(9)); insert into notes values('kept')"),
        0);
    const auto rows = Dynaset("select * from odd");
    rows->AddNew();
    for (int place = 0; place < rows->FieldCount(); ++place) {
        rows->Fields(place).Set(QStringLiteral("new %1").arg(place));
    }
    rows->Update();
    EXPECT_EQ(Rows("select * from odd"), QStringList{QStringLiteral("new 0|new 1|new 2|new 3|new 4")});
    const auto again = Dynaset("select * from odd");
    again->Edit();
    again->Fields(QStringLiteral("a]b")).Set(QStringLiteral("changed"));
    again->Update();
    EXPECT_EQ(Rows("select * from odd"), QStringList{QStringLiteral("changed|new 1|new 2|new 3|new 4")});
    const auto read =
        database->OpenRecordset(QStringLiteral("select * from odd"), dbOpenForwardOnly, dbReadOnly);
    EXPECT_EQ(ToText(read->Fields(1).Get()), QStringLiteral("new 1"));
    EXPECT_EQ(Rows("select * from notes"), QStringList{QStringLiteral("kept")});
}

TEST_F(HostileSchemaTest, ANameThatOnlyLooksAlikeIsAnother) {
    ASSERT_EQ(OpenWith("create table alike(\"\u212Aey\" TEXT(9), \"key\" TEXT(9))"), 0);
    const auto rows = Dynaset("select * from alike");
    rows->AddNew();
    rows->Fields(QStringLiteral("Key")).Set(QStringLiteral("mine"));
    rows->Update();
    EXPECT_EQ(Rows("select key from alike"), QStringList{QStringLiteral("mine")});
}

TEST_F(HostileSchemaTest, TriggersDoNotRun) {
    ASSERT_EQ(OpenWith("create trigger thief after insert on notes begin delete from notes; end;"
                       "create trigger guard before insert on notes begin select raise(ignore); end"),
              0);
    database->Execute(QStringLiteral("insert into notes(text) values('mine')"));
    EXPECT_EQ(Rows("select text from notes"), QStringList{QStringLiteral("mine")});
}

TEST_F(HostileSchemaTest, ViewsAndVirtualTablesAreNoTables) {
    ASSERT_EQ(
        OpenWith("create view endless as with recursive n(x) as (select 1 union all select x + 1 from n)"
                 " select x from n;"
                 "create trigger into_view instead of insert on endless begin select 1; end;"
                 "create virtual table search using fts5(text);"
                 "create virtual table boxes using rtree(id, a, b)"),
        0);
    for (const char* table : {"endless", "search", "boxes", "sqlite_master", "pragma_table_info", "dbstat"}) {
        const QByteArray name(table);
        EXPECT_EQ(ExecuteError("delete from " + name), ErrorNumber::NoSuchTable) << table;
        EXPECT_EQ(ExecuteError("insert into " + name + "(x) values(1)"), ErrorNumber::NoSuchTable) << table;
        EXPECT_EQ(ErrorOf([&] { Dynaset("select * from " + name); }), ErrorNumber::NoSuchTable) << table;
        EXPECT_EQ(ExecuteError("insert into notes(text) select x from " + name), ErrorNumber::NoSuchTable)
            << table;
    }
}

TEST_F(HostileSchemaTest, NoRowIsLostWithoutAWord) {
    ASSERT_EQ(OpenWith("create table sly(code TEXT(5) unique on conflict ignore, name TEXT(5) not null on "
                       "conflict ignore);"
                       "create table greedy(code TEXT(5) primary key on conflict replace)"),
              0);
    database->Execute(QStringLiteral("insert into sly(code, name) values('a', 'n')"));
    EXPECT_EQ(ExecuteError("insert into sly(code, name) values('a', 'm')"), ErrorNumber::DuplicateKey);
    EXPECT_EQ(ExecuteError("insert into sly(code) values('b')"), ErrorNumber::NullNotAllowed);
    EXPECT_EQ(ExecuteError("update sly set name = null"), ErrorNumber::NullNotAllowed);
    EXPECT_EQ(ExecuteError("insert into sly(code, name) select code, name from sly"),
              ErrorNumber::DuplicateKey);
    for (int row = 0; row < 2; ++row) {
        const auto rows = Dynaset("select * from greedy");
        rows->AddNew();
        rows->Fields(0).Set(QStringLiteral("a"));
        EXPECT_EQ(ErrorOf([&] { rows->Update(); }), row == 0 ? 0 : ErrorNumber::DuplicateKey);
    }
    EXPECT_EQ(Rows("select * from sly"), QStringList{QStringLiteral("a|n")});
    EXPECT_EQ(Rows("select rowid, code from greedy"), QStringList{QStringLiteral("1|a")});
}

TEST_F(HostileSchemaTest, TextComparesExactlyWhateverTheColumnSays) {
    ASSERT_EQ(OpenWith("create table lax(code TEXT(5) collate nocase, name TEXT(5) collate rtrim);"
                       "insert into lax values('a', 'x'), ('A', 'x ')"),
              0);
    database->Execute(QStringLiteral("update lax set name = 'y' where code = 'A'"));
    EXPECT_EQ(Rows("select * from lax"), (QStringList{QStringLiteral("a|x"), QStringLiteral("A|y")}));
    database->Execute(QStringLiteral("delete from lax where name = 'x '"));
    EXPECT_EQ(Rows("select count(*) from lax"), QStringList{QStringLiteral("2")});
}

// SQLite finds an "INT" in each of these, and would keep "007" as 7.
TEST_F(HostileSchemaTest, ATypeIsOneOfOursAsAWholeOrNotAtAll) {
    ASSERT_EQ(OpenWith("create table points(a TEXT POINT(20), b TEXT INT)"), 0);
    const auto rows = Dynaset("select * from points");
    EXPECT_EQ(rows->Fields(0).Type(), dbLong);
    EXPECT_EQ(rows->Fields(1).Type(), dbLong);
    EXPECT_EQ(ExecuteError("insert into points(a) values('x7')"), ErrorNumber::WrongType);
}

// With what the statistics say, going through all rows would be the shorter way.
TEST_F(HostileSchemaTest, FalseStatisticsMakeNoLongWay) {
    ASSERT_EQ(OpenWith("create table t(code TEXT(5), name TEXT(5)); create index t_code on t(code);"
                       "analyze; insert into sqlite_stat1 values('t', 't_code', '1000000000 1000000000')"),
              0);
    for (const char* shape :
         {"select*from t where code=?", "update t set name=? where code=? and name<>?",
          "delete from t where code=?", "insert into t(name)select name from t where code=?"}) {
        const std::string sql = "explain query plan " + dialect::Parse(shape).sql;
        EXPECT_TRUE(ReadRows(path, sql.c_str()).join(QLatin1Char('\n')).contains(QStringLiteral("t_code")))
            << shape;
    }
}

TEST_F(HostileSchemaTest, NothingCascades) {
    ASSERT_EQ(OpenWith("create table child(code TEXT(5) references things(code) on delete cascade);"
                       "insert into things(code) values('a'); insert into child values('a')"),
              0);
    database->Execute(QStringLiteral("delete from things"));
    EXPECT_EQ(Rows("select * from child"), QStringList{QStringLiteral("a")});
    EXPECT_EQ(ExecuteError("insert into child(code) values('none')"), 0);
}

TEST_F(HostileSchemaTest, WhatIsComputedIsRefused) {
    for (const char* sql : {
             "create table t(a TEXT(5) check(length(hex(zeroblob(400000000))) > 0))",
             "create table t(a TEXT(5), CHECK/**/ (a <> 'x'))",
             "create table t(a TEXT(5), b TEXT(5) as (a || 'x'))",
             "create table t(a TEXT(5), b TEXT(5) generated always as (hex(zeroblob(400000000))) stored)",
             "create table t(a TEXT(5) default (hex(randomblob(400000000))))",
             "create table t(a TEXT(5)); create index i on t(a) where a > 'x'",
             "create table t(a TEXT(5)); create index i on t(hex(a))",
             "create table t(a TEXT(5)); create index i on t(a, a || 'x')",
         }) {
        EXPECT_EQ(OpenErrorWith(sql), ErrorNumber::UnrecognizedFormat) << sql;
    }
}

TEST_F(HostileSchemaTest, WhatOnlySoundsComputedIsNot) {
    EXPECT_EQ(OpenErrorWith(
                  "create table t(\"check\" TEXT(5) default 'call(me)', b TEXT(5) default \"f(x)\","
                  " c LONG default -1, d LONG default (1), e DATETIME default current_date, [my check] LONG,"
                  " checked LONG /* check( */, f TEXT(5) default 'it''s (so)' -- check(\n);"
                  "create index i on t(b collate nocase desc)"),
              0);
}

TEST_F(HostileSchemaTest, MoreThanHearthbookEverHasIsRefused) {
    const auto wide = [](int columns) {
        QByteArray sql = "create table wide(c0 TEXT(5)";
        for (int column = 1; column < columns; ++column) {
            sql += ", c" + QByteArray::number(column) + " TEXT(5)";
        }
        return sql + ")";
    };
    const auto manyIndexes = [](int count) {
        QByteArray sql = "create table t(a TEXT(5))";
        for (int index = 0; index < count; ++index) {
            sql += "; create index i" + QByteArray::number(index) + " on t(a)";
        }
        return sql;
    };
    EXPECT_EQ(OpenErrorWith(wide(255)), 0);
    EXPECT_EQ(OpenErrorWith(wide(256)), ErrorNumber::DatabaseDamaged);
    EXPECT_EQ(OpenErrorWith(manyIndexes(32)), 0);
    EXPECT_EQ(OpenErrorWith(manyIndexes(33)), ErrorNumber::UnrecognizedFormat);
    EXPECT_NE(OpenErrorWith("create table t(a " + QByteArray(300000, 'x') + ")"), 0);
}

TEST_F(HostileSchemaTest, AValueTooLongToReadIsDeletedAllTheSame) {
    ASSERT_EQ(OpenWith("insert into things(memo, bytes) values('short', zeroblob(3000000))"), 0);
    const auto rows = Dynaset("select * from things");
    EXPECT_NE(ErrorOf([&] { rows->Fields(QStringLiteral("bytes")).Get(); }), 0);
    database->Execute(QStringLiteral("delete from things where memo = 'short'"));
    EXPECT_EQ(Rows("select count(*) from things"), QStringList{QStringLiteral("0")});
}

TEST_F(HostileSchemaTest, AListOfTablesThatNeverEndsIsRefused) {
    QByteArray sql = "begin; pragma writable_schema = on";
    for (int table = 0; table < 6000; ++table) {
        sql += "; create table t" + QByteArray::number(table) + "(a)";
    }
    EXPECT_EQ(OpenErrorWith(sql + "; commit"), ErrorNumber::DatabaseDamaged);
}

}  // namespace

}  // namespace engine
