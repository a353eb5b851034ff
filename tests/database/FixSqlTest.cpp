#include "database/FixSql.h"
#include "platform/Failure.h"
#include "support/PrintQt.h"
#include "support/WorkTime.h"

#include <gtest/gtest.h>

namespace {

QString Fixed(const char* statement) {
    QString text = QString::fromUtf8(statement);
    return database::FixSql(text);
}

void ExpectFixed(const char* statement, const char* expected) {
    EXPECT_EQ(Fixed(statement), QString::fromUtf8(expected)) << statement;
}

void ExpectUnchanged(const char* statement) {
    ExpectFixed(statement, statement);
}

TEST(FixSqlTruth, WordsBecomeNumbers) {
    ExpectFixed("update t set a = true, b = false", "update t set a = -1, b = 0");
    ExpectFixed("true", "-1");
    ExpectFixed("false", "0");
    ExpectFixed("truetrue falsefalse", "-1-1 00");
}

TEST(FixSqlTruth, OnlyInLowerCase) {
    ExpectUnchanged("a = True, b = FALSE, c = tRue, d = falsE, e = tru e, f = fals");
}

TEST(FixSqlTruth, WordsInsideOtherWordsAndQuotedTextsChangeToo) {
    ExpectFixed("insert into t values ('Bluetrue Ltd', 'falsework')",
                "insert into t values ('Blue-1 Ltd', '0work')");
}

TEST(FixSqlTruth, WordsAreFoundAtAnyPlace) {
    for (size_t place = 0; place < 100; ++place) {
        const std::string before(place, 'x');
        ExpectFixed((before + "true").c_str(), (before + "-1").c_str());
        ExpectFixed((before + "false").c_str(), (before + "0").c_str());
    }
}

TEST(FixSqlTruth, NumbersAreCountedIntoPlacesOfApostrophes) {
    // The apostrophe stands at the fourth place only before "true" has become shorter.
    EXPECT_THROW(Fixed("true'xyz"), platform::Failure);
    ExpectFixed("true  'xyz", "-1  ''xyz");
}

TEST(FixSqlApostrophes, WithoutAnyTheTextStays) {
    ExpectUnchanged("");
    ExpectUnchanged("select * from options");
}

TEST(FixSqlApostrophes, AnEvenNumberStays) {
    ExpectUnchanged("update t set a = 'x' where b = 'y'");
    ExpectUnchanged("update t set a = 'O'Brien's'");
    ExpectUnchanged("'' ");
}

TEST(FixSqlApostrophes, TheOneInANameIsDoubled) {
    ExpectFixed("select * from owners where name = 'O'Brien'",
                "select * from owners where name = 'O''Brien'");
    ExpectFixed("select * from owners where name = 'O'Brien' and a = 1",
                "select * from owners where name = 'O''Brien' and a = 1");
}

TEST(FixSqlApostrophes, OpenAfterComparisonsWithinThreeCharacters) {
    ExpectFixed("a ='bcd'e'", "a ='bcd''e'");
    ExpectFixed("a =  'bcd'e'", "a =  'bcd''e'");
    ExpectFixed("a <  'bcd'e'", "a <  'bcd''e'");
    ExpectFixed("a >'bcd'e'", "a >'bcd''e'");
    ExpectFixed("a <> 'bcd'e'", "a <> 'bcd''e'");
    ExpectFixed("a like 'bcd'e'", "a like 'bcd''e'");
    ExpectFixed("a LIKE 'bcd'e'", "a LIKE 'bcd''e'");
    ExpectFixed("a Like'bcd'e'", "a Like'bcd''e'");
}

TEST(FixSqlApostrophes, AnyWithinThreeCharactersOfAComparisonOpens) {
    ExpectUnchanged("a ='b'c'");
    ExpectFixed("abcd='e'f'g", "abcd='e'f''g");
}

TEST(FixSqlApostrophes, DoNotOpenFurtherAway) {
    ExpectFixed("a =   'b", "a =   ''b");
    ExpectFixed("a like  'b", "a like  ''b");
    ExpectFixed("a lik 'b", "a lik ''b");
}

TEST(FixSqlApostrophes, AnyTextThatEndsLikeAComparisonOpens) {
    ExpectUnchanged("Lake 'b");
    ExpectUnchanged("x<y'b");
}

TEST(FixSqlApostrophes, CloseBeforeWhatContinuesAStatement) {
    ExpectUnchanged("abc' and d");
    ExpectUnchanged("abc'  and d");
    ExpectUnchanged("abc' or d = 1");
    ExpectUnchanged("abc' order by d");
    ExpectUnchanged("abc' AND d");
    ExpectUnchanged("abc'  ANy");
    ExpectUnchanged("abc' OR d");
    ExpectUnchanged("abc' ORde");
}

TEST(FixSqlApostrophes, DoNotCloseBeforeAnythingElse) {
    ExpectFixed("abc'  or d", "abc''  or d");
    ExpectFixed("abc' an d", "abc'' an d");
    ExpectFixed("abc',and d", "abc'',and d");
    ExpectFixed("abc'and de", "abc''and de");
    ExpectFixed("abc') and", "abc'') and");
}

TEST(FixSqlApostrophes, CloseOnlyIfFiveCharactersFollow) {
    ExpectFixed("abc' and", "abc'' and");
    ExpectUnchanged("abc' andx");
    ExpectFixed("abc' or ", "abc'' or ");
    ExpectUnchanged("abc' or x");
}

TEST(FixSqlApostrophes, TheLastPlaceStays) {
    ExpectUnchanged("abc'");
    ExpectFixed("abc'd'e'", "abc''d''e'");
}

TEST(FixSqlApostrophes, AtTheFirstPlaceNothingBeforeItIsLookedAt) {
    ExpectFixed("'abc", "''abc");
    ExpectUnchanged("' and x");
    ExpectUnchanged("'");
}

TEST(FixSqlApostrophes, AtTheSecondOrThirdPlaceFail) {
    for (const char* statement : {"='a", "x'a", "x='a", "ab'a", "x'", "ab'", "x' and bcd", "'''"}) {
        try {
            Fixed(statement);
            ADD_FAILURE() << statement;
        } catch (const platform::Failure& failure) {
            EXPECT_EQ(failure.Number(), 5) << statement;
        }
    }
}

TEST(FixSqlApostrophes, PlacesAreThoseOfTheRewrittenText) {
    // Doubling the first apostrophe moves the second from the third place to the fourth.
    ExpectFixed("'a'b'c", "''a''b''c");
    ExpectUnchanged("a = '");
    ExpectFixed("x= ab'c'd'e", "x= ab''c''d''e");
}

TEST(FixSqlApostrophes, EachLooksAtWhatStandsBeforeItNow) {
    ExpectFixed("wxyz'=''12345", "wxyz''=''12345");
}

TEST(FixSqlFailure, LeavesTheTextRewrittenSoFar) {
    QString statement = QStringLiteral("''' true");
    EXPECT_THROW(database::FixSql(statement), platform::Failure);
    EXPECT_EQ(statement, QStringLiteral("'''' -1"));
}

TEST(FixSql, RewritesTheCallersTextAndReturnsIt) {
    QString statement = QStringLiteral("a = 'O'Brien' or b = true");
    EXPECT_EQ(&database::FixSql(statement), &statement);
    EXPECT_EQ(statement, QStringLiteral("a = 'O''Brien' or b = -1"));
}

TEST(FixSql, DoesNotCopyWhatItLeaves) {
    QString statement = QStringLiteral("insert into t (a) values ('x')");
    statement.detach();
    const QString shared = statement;
    database::FixSql(statement);
    EXPECT_TRUE(statement.isSharedWith(shared));
}

TEST(FixSql, CountsUtf16Units) {
    ExpectFixed("\xF0\x9F\x8F\xA0x'y", "\xF0\x9F\x8F\xA0x''y");
}

std::int64_t CostOfApostrophes(qsizetype count) {
    return LeastWork(5, [count] {
        QString statement = QStringLiteral("abc") + QString(count, QLatin1Char('\''));
        database::FixSql(statement);
        EXPECT_EQ(statement.size(), 3 + 2 * count - 1);
    });
}

TEST(FixSql, LongTextsCostWhatTheirLengthCosts) {
    EXPECT_LT(CostOfApostrophes(1'000'001), 300 * CostOfApostrophes(10'001));
}

}  // namespace
