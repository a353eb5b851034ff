#include "engine/Error.h"
#include "engine/dialect/Grammar.h"

#include <QString>

#include <gtest/gtest.h>

namespace engine::dialect {

namespace {

int ErrorOf(const std::string& shape) {
    try {
        Parse(shape);
    } catch (const Error& error) {
        return error.Number();
    }
    return 0;
}

TEST(GrammarTest, Delete) {
    const auto statement = Parse("delete from glcodes where type=?");
    EXPECT_EQ(statement.kind, StatementKind::Delete);
    EXPECT_EQ(statement.table, "glcodes");
    EXPECT_EQ(statement.sql, R"(delete from "glcodes" where likelihood("type" = ? collate binary, 0.0001))");
    EXPECT_EQ(statement.storedIn, std::vector<std::string>{""});
}

TEST(GrammarTest, UpdateNotesWhereItsValuesAreStored) {
    const auto statement = Parse("update revenues set disburse_id=?,tax=null where[date]<=?");
    EXPECT_EQ(statement.kind, StatementKind::Update);
    EXPECT_EQ(
        statement.sql,
        R"(update or abort "revenues" set "disburse_id" = ?, "tax" = null where "date" <= ? collate binary)");
    EXPECT_EQ(statement.storedIn, (std::vector<std::string>{"disburse_id", ""}));
}

TEST(GrammarTest, InsertOfValues) {
    const auto statement = Parse("insert into bond(code,[date],amount)values(?,?,true)");
    EXPECT_EQ(statement.sql, R"(insert or abort into "bond"("code", "date", "amount") values(?, ?, -1))");
    EXPECT_EQ(statement.storedIn, (std::vector<std::string>{"code", "date"}));
}

TEST(GrammarTest, InsertOfRowsOfAnotherTable) {
    const auto statement = Parse("insert into a(b,c,d)select e,?,null from f where g=?");
    EXPECT_EQ(
        statement.sql,
        R"(insert or abort into "a"("b", "c", "d") select "e", ?, null from "f" where likelihood("g" = ? collate binary, 0.0001))");
    EXPECT_EQ(statement.storedIn, (std::vector<std::string>{"c", ""}));
    EXPECT_EQ(statement.sourceTable, "f");
    EXPECT_EQ(statement.columnsWritten, (std::vector<std::string>{"b", "c", "d"}));
    EXPECT_EQ(statement.columnsRead, (std::vector<std::string>{"e", "g"}));
}

TEST(GrammarTest, SelectInParts) {
    const auto statement = Parse(
        "SELECT [when ended]as result from tenancy where(a=? or b<>?)and c is not null order by "
        "date desc,d asc,e");
    EXPECT_EQ(statement.itemsSql, R"("when ended" as "result")");
    EXPECT_EQ(statement.items.at(0).column, "when ended");
    EXPECT_EQ(statement.items.at(0).alias, "result");
    EXPECT_EQ(
        statement.whereSql,
        R"( where (likelihood("a" = ? collate binary, 0.0001) or "b" <> ? collate binary) and "c" is not null)");
    EXPECT_EQ(statement.orderBySql, R"( order by "date" desc, "d", "e")");
}

TEST(GrammarTest, AnInsertNeedsAValueForEachColumn) {
    EXPECT_EQ(ErrorOf("insert into a(b,c)values(?)"), ErrorNumber::ValueCountMismatch);
    EXPECT_EQ(ErrorOf("insert into a(b)values(?,?)"), ErrorNumber::ValueCountMismatch);
    EXPECT_EQ(ErrorOf("insert into a(b)select c,d from e"), ErrorNumber::ValueCountMismatch);
}

// What a text that breaks out of its quotes could try.
TEST(GrammarTest, NothingElseGetsThrough) {
    for (const char* shape : {"",
                              "?",
                              "drop table a",
                              "pragma journal_mode",
                              "attach ?as b",
                              "select*from a,b",
                              "select*from a union select*from b",
                              "delete from a where b in(select c from d)",
                              "delete from a where b=(select c from d)",
                              "insert into a(b)values((select c from d))",
                              "insert into a(b)values(?||?)",
                              "insert into a(b)values(?+?)",
                              "insert into a(b)values(? ?)",
                              "insert into a(b)values(?b?)",
                              "insert into a(b)values(?),(?)",
                              "insert into a(b)values(c)",
                              "insert into a(b)values(abs(?))",
                              "insert into a(b)values(?)on conflict do nothing",
                              "insert into a(b)values(?--",
                              "insert into a(b)values(?)/*",
                              "delete from a where ?=?",
                              "delete from a where b=?=?",
                              "delete from a where b==?",
                              "delete from a where b=",
                              "delete from a where",
                              "delete from a where b like ?",
                              "delete from a b",
                              "delete from",
                              "delete a",
                              "update a set b=c",
                              "update a set b=b+?",
                              "update a set",
                              "insert a(b)values(?)",
                              "insert into a values(?)",
                              "insert into a()values()",
                              "insert or replace into a(b)values(?)",
                              "select from a",
                              "select*a",
                              "select*from a where b=? order date",
                              "select*from a order by",
                              "select*from a limit ?",
                              "select*from a group by b",
                              "select count(*)from a",
                              "select*from a where b is ?",
                              "select*from a where(b=?",
                              "select*from a where b=?)",
                              "delete from select",
                              "select a.b from a",
                              "select*from a order by b collate nocase"}) {
        EXPECT_EQ(ErrorOf(shape), ErrorNumber::Syntax) << shape;
    }
}

TEST(GrammarTest, DeepConditionsAreRefusedBeforeTheyExhaustAnything) {
    EXPECT_EQ(ErrorOf("delete from a where " + std::string(40, '(') + "b=?" + std::string(40, ')')), 0);
    EXPECT_EQ(ErrorOf("delete from a where " + std::string(1000000, '(')), ErrorNumber::Syntax);
}

TEST(GrammarTest, TheFailureTellsWhere) {
    try {
        Parse("delete from a where b=?c?");
        FAIL() << "no failure";
    } catch (const Error& error) {
        EXPECT_TRUE(error.Description().contains(QStringLiteral("\"c?\""))) << error.what();
    }
}

}  // namespace

}  // namespace engine::dialect
