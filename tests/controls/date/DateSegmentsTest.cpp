#include "controls/date/DateSegments.h"
#include "platform/Locale.h"
#include "support/CommaLocale.h"
#include "support/PrintQt.h"

#include <gtest/gtest.h>

namespace {

using namespace controls;
using namespace Qt::StringLiterals;

TEST(DateSegmentsTest, AGermanDateBeginsWithTheDay) {
    const CommaLocale locale("de_DE");
    const SegmentOrder order = FindDateOrder();
    EXPECT_EQ(order.DayIndex, 1);
    EXPECT_EQ(order.MonthIndex, 2);
    EXPECT_EQ(order.YearIndex, 3);
    EXPECT_FALSE(order.IsYearFirst());
}

TEST(DateSegmentsTest, AnAmericanDateBeginsWithTheMonth) {
    const CommaLocale locale("en_US");
    const SegmentOrder order = FindDateOrder();
    EXPECT_EQ(order.MonthIndex, 1);
    EXPECT_EQ(order.DayIndex, 2);
    EXPECT_EQ(order.YearIndex, 3);
    EXPECT_FALSE(order.IsYearFirst());
}

TEST(DateSegmentsTest, ASwedishDateBeginsWithTheYear) {
    const CommaLocale locale("sv_SE");
    const SegmentOrder order = FindDateOrder();
    EXPECT_EQ(order.YearIndex, 1);
    EXPECT_EQ(order.MonthIndex, 2);
    EXPECT_EQ(order.DayIndex, 3);
    EXPECT_TRUE(order.IsYearFirst());
}

TEST(DateSegmentsTest, DayAndMonthHaveTwoDigitsAndTheYearFour) {
    const SegmentTexts early = TextsOf(1, 2, 345);
    EXPECT_EQ(early.day, u"01"_s);
    EXPECT_EQ(early.month, u"02"_s);
    EXPECT_EQ(early.year, u"0345"_s);
    const SegmentTexts late = TextsOf(31, 12, 2009);
    EXPECT_EQ(late.day, u"31"_s);
    EXPECT_EQ(late.month, u"12"_s);
    EXPECT_EQ(late.year, u"2009"_s);
    const SegmentTexts outside = TextsOf(0, 1, -7);
    EXPECT_EQ(outside.day, u"00"_s);
    EXPECT_EQ(outside.year, u"-0007"_s);
    EXPECT_EQ(TextsOf(1, 1, 12345).year, u"12345"_s);
}

struct Correction {
    const char16_t* text;
    const char16_t* corrected;
};

void PrintTo(const Correction& row, std::ostream* out) {
    *out << '"' << QString::fromUtf16(row.text).toStdString() << '"';
}

class DayTest : public ::testing::TestWithParam<Correction> {};

TEST_P(DayTest, IsKeptFrom1To31) {
    EXPECT_EQ(CorrectedDay(QString::fromUtf16(GetParam().text)), QString::fromUtf16(GetParam().corrected));
}

INSTANTIATE_TEST_SUITE_P(Texts, DayTest,
                         ::testing::Values(Correction{u"45", u"31"}, Correction{u"32", u"31"},
                                           Correction{u"31", u"31"}, Correction{u"1", u"1"},
                                           Correction{u"01", u"01"}, Correction{u"0", u"1"},
                                           Correction{u"00", u"1"}, Correction{u"", u"1"},
                                           Correction{u".", u"1"}, Correction{u".5", u"1"},
                                           Correction{u"2.", u"2."}, Correction{u"4x", u"4x"},
                                           Correction{u"x4", u"1"}, Correction{u"-5", u"1"}));

class MonthTest : public ::testing::TestWithParam<Correction> {};

TEST_P(MonthTest, IsKeptFrom0To12) {
    EXPECT_EQ(CorrectedMonth(QString::fromUtf16(GetParam().text)), QString::fromUtf16(GetParam().corrected));
}

INSTANTIATE_TEST_SUITE_P(Texts, MonthTest,
                         ::testing::Values(Correction{u"13", u"12"}, Correction{u"99", u"12"},
                                           Correction{u"12", u"12"}, Correction{u"1", u"1"},
                                           Correction{u"0", u"0"}, Correction{u"00", u"00"},
                                           Correction{u"", u""}, Correction{u".", u"."},
                                           Correction{u"3.", u"3."}, Correction{u"-1", u"1"},
                                           Correction{u"x9", u"x9"}));

class YearTest : public ::testing::TestWithParam<Correction> {};

TEST_P(YearTest, IsCompletedByItsLength) {
    EXPECT_EQ(CorrectedYear(QString::fromUtf16(GetParam().text)), QString::fromUtf16(GetParam().corrected));
}

INSTANTIATE_TEST_SUITE_P(Texts, YearTest,
                         ::testing::Values(Correction{u"", u"2000"}, Correction{u"9", u"2009"},
                                           Correction{u"0", u"2000"}, Correction{u".", u"200."},
                                           Correction{u"00", u"2000"}, Correction{u"49", u"2049"},
                                           Correction{u"50", u"1950"}, Correction{u"99", u"1999"},
                                           Correction{u"-5", u"20-5"}, Correction{u"199", u"1990"},
                                           Correction{u"009", u"0090"}, Correction{u"2009", u"2009"},
                                           Correction{u"0000", u"0000"}, Correction{u"20091", u"20091"}));

const QDate stored(2009, 3, 15);

QDate FromTexts(const QString& day, const QString& month, const QString& year) {
    return DateFromTexts({.day = day, .month = month, .year = year}, stored);
}

TEST(DateFromTextsTest, TheBoxesTellADate) {
    EXPECT_EQ(FromTexts(u"15"_s, u"09"_s, u"2009"_s), QDate(2009, 9, 15));
    EXPECT_EQ(FromTexts(u"1"_s, u"1"_s, u"2000"_s), QDate(2000, 1, 1));
    EXPECT_EQ(FromTexts(u"31"_s, u"12"_s, u"9999"_s), QDate(9999, 12, 31));
    EXPECT_EQ(FromTexts(u"01"_s, u"01"_s, u"0100"_s), QDate(100, 1, 1));
}

TEST(DateFromTextsTest, TheDayIsHeldBackToTheLastOfAShorterMonth) {
    EXPECT_EQ(FromTexts(u"31"_s, u"02"_s, u"2009"_s), QDate(2009, 2, 28));
    EXPECT_EQ(FromTexts(u"31"_s, u"02"_s, u"2008"_s), QDate(2008, 2, 29));
    EXPECT_EQ(FromTexts(u"31"_s, u"04"_s, u"2009"_s), QDate(2009, 4, 30));
}

TEST(DateFromTextsTest, AMonthOf0IsTheDecemberBefore) {
    EXPECT_EQ(FromTexts(u"15"_s, u"00"_s, u"2009"_s), QDate(2008, 12, 15));
    EXPECT_EQ(FromTexts(u"31"_s, u""_s, u"2009"_s), QDate(2008, 12, 31));
}

TEST(DateFromTextsTest, ADayOf0IsTheDayBeforeTheFirst) {
    // It goes onto January, so the 0 of March is the 31 of December moved on by two months.
    EXPECT_EQ(FromTexts(u"00"_s, u"03"_s, u"2009"_s), QDate(2009, 2, 28));
    EXPECT_EQ(FromTexts(u"00"_s, u"01"_s, u"2009"_s), QDate(2008, 12, 31));
}

TEST(DateFromTextsTest, TextsAreReadByTheirLeadingNumber) {
    EXPECT_EQ(FromTexts(u"1."_s, u"2."_s, u"2009"_s), QDate(2009, 2, 1));
    EXPECT_EQ(FromTexts(u"7x"_s, u"8x"_s, u"2009"_s), QDate(2009, 8, 7));
    // Steps are whole ones: half a step to the even neighbour.
    EXPECT_EQ(FromTexts(u"1"_s, u".5"_s, u"2009"_s), QDate(2009, 1, 1));
}

TEST(DateFromTextsTest, AYearThatIsNoneLeavesTheStoredDateToGoOnFrom) {
    for (const QString& year : {u"200."_s, u"0090"_s, u"0099"_s, u"0000"_s, u""_s, u"9"_s, u"49"_s, u"20-5"_s,
                                u" 200"_s, u"+200"_s, u"-200"_s, u"10000"_s, u"99999999999"_s, u"2e03"_s}) {
        EXPECT_EQ(FromTexts(u"02"_s, u"03"_s, year), QDate(2009, 5, 16)) << year.toStdString();
    }
}

TEST(DateFromTextsTest, AStepBeyondTheFirstYearIsLeftOut) {
    EXPECT_EQ(FromTexts(u"00"_s, u"02"_s, u"0100"_s), QDate(100, 2, 1));
    EXPECT_EQ(FromTexts(u"05"_s, u"00"_s, u"0100"_s), QDate(100, 1, 5));
}

TEST(DateFromTextsTest, AStepBeyondTheLastYearIsLeftOut) {
    EXPECT_EQ(DateFromTexts({.day = u"2"_s, .month = u"1"_s, .year = u"?"_s}, QDate(9999, 12, 31)),
              QDate(9999, 12, 31));
    EXPECT_EQ(DateFromTexts({.day = u"1"_s, .month = u"2"_s, .year = u"?"_s}, QDate(9999, 12, 31)),
              QDate(9999, 12, 31));
}

TEST(DateFromTextsTest, ANumberBeyond16BitsIsAStepThatFails) {
    EXPECT_EQ(FromTexts(u"99999"_s, u"02"_s, u"2009"_s), QDate(2009, 2, 1));
    EXPECT_EQ(FromTexts(u"05"_s, u"99999999999"_s, u"2009"_s), QDate(2009, 1, 5));
}

TEST(DateFromTextsTest, TheYear1234IsAYearLikeAnyOther) {
    EXPECT_EQ(FromTexts(u"15"_s, u"09"_s, u"1234"_s), QDate(1234, 9, 15));
}

TEST(DateFromTextsTest, TheBoxesHoldTheYearsFrom100To9999) {
    EXPECT_TRUE(IsInRange(QDate(100, 1, 1)));
    EXPECT_TRUE(IsInRange(QDate(9999, 12, 31)));
    EXPECT_FALSE(IsInRange(QDate(99, 12, 31)));
    EXPECT_FALSE(IsInRange(QDate(10000, 1, 1)));
    EXPECT_FALSE(IsInRange(QDate()));
}

}  // namespace
