#include "EngineTest.h"

#include <rapidcheck/gtest.h>

namespace engine {

namespace {

using ExecuteTest = EngineTest;

TEST_F(ExecuteTest, StoresEachTypeByItsNature) {
    database->Execute(
        QStringLiteral("insert into things(code, yes, short, money, number, date, [two words]) values('007', "
                       "true, 12, 548.39, 2.5, "
                       "#03/15/2026#, \"it's; # [x] --\")"));
    EXPECT_EQ(Rows("select code, typeof(code), yes, typeof(yes), short, money, number, date, [two words] "
                   "from things"),
              QStringList{QStringLiteral("007|text|-1|integer|12|548.39|2.5|2026-03-15|it's; # [x] --")});
}

TEST_F(ExecuteTest, NamesDoNotDependOnCase) {
    database->Execute(QStringLiteral("INSERT INTO Things(CODE) Values('a')"));
    database->Execute(QStringLiteral("Update THINGS Set [Two Words] = 'b' Where Code = 'a'"));
    EXPECT_EQ(Rows("select code, [two words] from things"), QStringList{QStringLiteral("a|b")});
}

TEST_F(ExecuteTest, TextComparesExactly) {
    database->Execute(QStringLiteral("insert into things(code) values('a')"));
    database->Execute(QStringLiteral("delete from things where code = 'A'"));
    database->Execute(QStringLiteral("delete from things where code = 'a '"));
    EXPECT_EQ(Rows("select code from things"), QStringList{QStringLiteral("a")});
}

TEST_F(ExecuteTest, UnknownTablesAndColumns) {
    EXPECT_EQ(ExecuteError("delete from missing"), ErrorNumber::NoSuchTable);
    EXPECT_EQ(ExecuteError("delete from things where missing = 1"), ErrorNumber::NoSuchColumn);
    EXPECT_EQ(ExecuteError("insert into things(missing) values(1)"), ErrorNumber::NoSuchColumn);
    EXPECT_EQ(ExecuteError("update things set missing = 1"), ErrorNumber::NoSuchColumn);
    EXPECT_EQ(ExecuteError("insert into things(code) select missing from notes"), ErrorNumber::NoSuchColumn);
    EXPECT_EQ(ExecuteError("insert into things(code) select text from missing"), ErrorNumber::NoSuchTable);
}

TEST_F(ExecuteTest, StatementsThatAreNone) {
    EXPECT_EQ(ExecuteError("delete things"), ErrorNumber::Syntax);
    EXPECT_EQ(ExecuteError("delete from things; delete from notes"), ErrorNumber::TextAfterStatement);
    EXPECT_EQ(ExecuteError("insert into things(code, yes) values('a')"), ErrorNumber::ValueCountMismatch);
    EXPECT_EQ(ExecuteError("select * from things"), ErrorNumber::InvalidOperation);
}

TEST_F(ExecuteTest, AFailedStatementUndoesItselfAlone) {
    database->Execute(QStringLiteral("insert into notes(text) values('same')"));
    database->Execute(QStringLiteral("insert into notes(text) values('same')"));
    database->Execute(QStringLiteral("insert into notes(text) values('other')"));
    // The second row of the copy breaks the unique index: the first must not stay.
    EXPECT_EQ(ExecuteError("insert into things(code) select text from notes"), ErrorNumber::DuplicateKey);
    database->Execute(QStringLiteral("insert into things(code) values('after')"));
    EXPECT_EQ(Rows("select code from things"), QStringList{QStringLiteral("after")});
    EXPECT_EQ(Rows("select count(*) from notes"), QStringList{QStringLiteral("3")});
}

TEST_F(ExecuteTest, AnUpdateThatFailsForOneRowChangesNone) {
    database->Execute(QStringLiteral("insert into things(code, long) values('a', 1)"));
    database->Execute(QStringLiteral("insert into things(code, long) values('b', 2)"));
    EXPECT_EQ(ExecuteError("update things set long = 3, code = 'c'"), ErrorNumber::DuplicateKey);
    EXPECT_EQ(Rows("select code, long from things order by code"),
              (QStringList{QStringLiteral("a|1"), QStringLiteral("b|2")}));
}

TEST_F(ExecuteTest, AnUpdateChangesTheRowsOfItsConditionAlone) {
    for (const char* code : {"a", "b", "c"}) {
        database->Execute(
            QStringLiteral("insert into things(code, short, memo, [date]) values('%1', 1, 'old', "
                           "#01/15/2026#)")
                .arg(QLatin1String(code)));
    }
    database->Execute(
        QStringLiteral("update things set short = 2, money = 1.5, memo = 'new', [date] = "
                       "#02/15/2026# where code <> 'b' and short = 1"));
    // Values that are no literals, and none at all to compare with.
    database->Execute(QStringLiteral("update things set yes = true, number = null, [long] = 7"));
    database->Execute(QStringLiteral("update things set [long] = 8 where code = 'nobody'"));
    EXPECT_EQ(Rows("select code, short, money, memo, date, yes, number, long from things order by code"),
              (QStringList{QStringLiteral("a|2|1.5|new|2026-02-15|-1|NULL|7"),
                           QStringLiteral("b|1|NULL|old|2026-01-15|-1|NULL|7"),
                           QStringLiteral("c|2|1.5|new|2026-02-15|-1|NULL|7")}));
}

TEST_F(ExecuteTest, AnUpdateGivesEachRowALongTextOfItsOwn) {
    const QString text(5000, QLatin1Char('x'));
    for (const char* code : {"a", "b", "c"}) {
        database->Execute(QStringLiteral("insert into things(code) values('%1')").arg(QLatin1String(code)));
    }
    database->Execute(QStringLiteral("update things set memo = '%1'").arg(text));
    database->Execute(QStringLiteral("update things set memo = 'short' where code = 'a'"));
    database->Execute(QStringLiteral("delete from things where code = 'b'"));
    EXPECT_EQ(Rows("select code, memo from things order by code"),
              (QStringList{QStringLiteral("a|short"), QStringLiteral("c|") + text}));
}

TEST_F(ExecuteTest, ATextLongerThanItsColumnIsRefused) {
    EXPECT_EQ(ExecuteError("insert into things(code) values('123456')"), ErrorNumber::FieldTooSmall);
    EXPECT_EQ(ExecuteError("insert into things(code) values('12345')"), 0);
    EXPECT_EQ(ExecuteError("update things set code = '123456'"), ErrorNumber::FieldTooSmall);
    EXPECT_EQ(ExecuteError("insert into things(code) select '123456' from notes"),
              ErrorNumber::FieldTooSmall);
    EXPECT_EQ(ExecuteError("delete from things where code = '123456'"), 0) << "compared, not stored";
    EXPECT_EQ(Rows("select code from things"), QStringList{QStringLiteral("12345")});
}

TEST_F(ExecuteTest, AValueOfAnotherNatureIsRefused) {
    for (const char* statement :
         {"insert into things(money) values('abc')", "insert into things(number) values('abc')",
          "insert into things(date) values('yesterday')", "insert into things(date) values(5)",
          "insert into things(short) values(32768)", "insert into things(long) values(2147483648)",
          "insert into things(byte) values(-1)", "insert into things(byte) values(256)",
          "insert into things(yes) values('maybe')", "insert into things(number) values(#1/1/2020#)",
          "insert into things(money) values(1e300)", "insert into things(single) values(-1e300)",
          "insert into things(bytes) values('x')"}) {
        EXPECT_EQ(ExecuteError(statement), ErrorNumber::WrongType) << statement;
    }
    EXPECT_EQ(Rows("select count(*) from things"), QStringList{QStringLiteral("0")});
}

TEST_F(ExecuteTest, ValuesBecomeWhatTheirColumnHolds) {
    database->Execute(
        QStringLiteral("insert into things(yes, short, money, number, code, single) values(5, '12', 0.03125, "
                       "'2.5', 17, 0.1)"));
    EXPECT_EQ(Rows("select yes, short, money, number, code, typeof(code), single = 0.1 from things"),
              QStringList{QStringLiteral("-1|12|0.0312|2.5|17|text|0")})
        << "a tie of currency goes to even, a single is no double";
}

TEST_F(ExecuteTest, AmountsBeyondTheReachOfFourDecimalsStayAsNearAsTheyAre) {
    database->Execute(QStringLiteral("insert into things(money) values(30744573456182.48)"));
    EXPECT_EQ(Rows("select money = 30744573456182.48 from things"), QStringList{QStringLiteral("1")});
}

TEST_F(ExecuteTest, ConditionsWithDatesAndNulls) {
    for (const char* statement : {"insert into things(code, date) values('a', #01/31/2026#)",
                                  "insert into things(code, date) values('b', #02/01/2026#)",
                                  "insert into things(code) values('c')"}) {
        database->Execute(QString::fromUtf8(statement));
    }
    database->Execute(QStringLiteral("update things set short = 1 where [date] <= #01/31/2026#"));
    database->Execute(
        QStringLiteral("update things set short = 2 where date is null or (code = 'b' and short is null)"));
    EXPECT_EQ(Rows("select code, short from things order by code"),
              (QStringList{QStringLiteral("a|1"), QStringLiteral("b|2"), QStringLiteral("c|2")}));
}

// One shape, many literals: each must run with its own.
TEST_F(ExecuteTest, APreparedStatementRunsWithTheLiteralsOfEachCall) {
    for (int i = 0; i < 1000; ++i) {
        database->Execute(QStringLiteral("insert into notes(text) values('n%1')").arg(i));
    }
    EXPECT_EQ(Rows("select count(distinct text) from notes"), QStringList{QStringLiteral("1000")});
}

TEST_F(ExecuteTest, ManyShapesDoNotFillTheMemoryWithPreparedStatements) {
    for (int i = 0; i < 2000; ++i) {
        QString statement = QStringLiteral("delete from things where code = 'a'");
        for (int bit = 0; bit < 11; ++bit) {
            statement +=
                (i >> bit & 1) != 0 ? QStringLiteral(" and short = 1") : QStringLiteral(" or long = 2");
        }
        ASSERT_EQ(ExecuteError(statement.toUtf8().constData()), 0);
    }
}

// A text may hold anything: it never becomes more than a text, and reaches no other table.
RC_GTEST_FIXTURE_PROP(ExecuteTest, AnyTextGoesInAndComesBack, ()) {
    const auto characters = rc::gen::elementOf(std::u32string(U"ab'\"#;-[]()?%* \t\nÄß€𝄞,=/\\"));
    const auto content = *rc::gen::container<std::u32string>(characters);
    const QString text = QString::fromUcs4(content.data(), static_cast<qsizetype>(content.size())).left(50);
    // Two conditions: RC_PRE works out all of an expression, also what stands behind &&.
    RC_PRE(!text.isEmpty());
    RC_PRE(!text.back().isHighSurrogate());
    QString quoted = text;
    quoted.replace(QLatin1Char('\''), QStringLiteral("''"));
    database->Execute(QStringLiteral("delete from notes"));
    database->Execute(QStringLiteral("insert into notes(text) values('") + quoted + QStringLiteral("')"));
    const auto rows = Dynaset("select * from notes");
    RC_ASSERT(std::get<QString>(rows->Fields(0).Get()) == text);
    database->Execute(QStringLiteral("delete from notes where text = '") + quoted + QStringLiteral("'"));
    RC_ASSERT(Dynaset("select * from notes")->Eof());
}

}  // namespace

}  // namespace engine
