#include "controls/date/Calendar.h"
#include "controls/date/CalendarDrawing.h"
#include "support/PrintQt.h"

#include <QDate>

#include <gtest/gtest.h>

namespace {

using namespace controls;
using namespace Qt::StringLiterals;

int At(const DayGrid& grid, int column, int row) {
    return grid.at(static_cast<size_t>(column)).at(static_cast<size_t>(row));
}

TEST(DayGridTest, AMonthThatBeginsOnASundayLeavesTheFirstRowEmpty) {
    const DayGrid grid = BuildDayGrid({2, 2009});
    for (int column = 1; column <= 7; ++column) {
        EXPECT_EQ(At(grid, column, 1), -1);
        EXPECT_EQ(At(grid, column, 2), column);
    }
    EXPECT_EQ(At(grid, 7, 5), 28);
    EXPECT_EQ(At(grid, 1, 6), -1);
}

TEST(DayGridTest, AMonthCanTakeSixRows) {
    const DayGrid grid = BuildDayGrid({5, 2010});
    for (int column = 1; column <= 6; ++column) {
        EXPECT_EQ(At(grid, column, 1), -1);
    }
    EXPECT_EQ(At(grid, 7, 1), 1);
    EXPECT_EQ(At(grid, 1, 6), 30);
    EXPECT_EQ(At(grid, 2, 6), 31);
    EXPECT_EQ(At(grid, 3, 6), -1);
}

TEST(DayGridTest, TheMarginColumnAndRowHold0) {
    const DayGrid grid = BuildDayGrid({5, 2010});
    for (int column = 0; column <= 7; ++column) {
        EXPECT_EQ(At(grid, column, 0), 0);
    }
    for (int row = 0; row <= 6; ++row) {
        EXPECT_EQ(At(grid, 0, row), 0);
    }
}

TEST(DayGridTest, EveryMonthOfFourCenturiesStandsByItsWeekdays) {
    for (QDate first(1800, 1, 1); first.year() < 2200; first = first.addMonths(1)) {
        const DayGrid grid = BuildDayGrid({first.month(), first.year()});
        int next = 1;
        for (int row = 1; row <= 6; ++row) {
            for (int column = 1; column <= 7; ++column) {
                const int day = At(grid, column, row);
                if (day == -1) {
                    continue;
                }
                ASSERT_EQ(day, next) << first.toString().toStdString();
                const int sundayFirst = QDate(first.year(), first.month(), day).dayOfWeek() % 7 + 1;
                ASSERT_EQ(column, sundayFirst) << first.toString().toStdString();
                ++next;
            }
        }
        ASSERT_EQ(next - 1, first.daysInMonth()) << first.toString().toStdString();
    }
}

TEST(DayGridTest, YearsThatTheBoxesCantHoldHaveNoDays) {
    for (const int year : {-32768, -1, 0, 99, 10000, 32767}) {
        const DayGrid grid = BuildDayGrid({5, year});
        for (int column = 1; column <= 7; ++column) {
            for (int row = 1; row <= 6; ++row) {
                EXPECT_EQ(At(grid, column, row), -1) << year;
            }
        }
    }
    EXPECT_EQ(At(BuildDayGrid({12, 9999}), 6, 5), 31);
    EXPECT_NE(BuildDayGrid({1, 100}), BuildDayGrid({1, 99}));
}

TEST(CalendarNamesTest, MonthsAreEnglishAndTrimmed) {
    const QStringList names{u"January"_s,   u"February"_s, u"March"_s,    u"April"_s,
                            u"May"_s,       u"June"_s,     u"July"_s,     u"August"_s,
                            u"September"_s, u"October"_s,  u"November"_s, u"December"_s};
    for (int month = 1; month <= 12; ++month) {
        EXPECT_EQ(MonthName(month), names[month - 1]);
    }
    EXPECT_EQ(MonthName(0), QString());
    EXPECT_EQ(MonthName(13), QString());
    EXPECT_EQ(MonthTitle({3, 2009}), u"March 2009"_s);
    EXPECT_EQ(MonthTitle({9, -4}), u"September -4"_s);
}

TEST(CalendarNamesTest, WeekdaysHaveThreeLetters) {
    const QStringList names{u"Sun"_s, u"Mon"_s, u"Tue"_s, u"Wed"_s, u"Thu"_s, u"Fri"_s, u"Sat"_s};
    for (int weekday = 1; weekday <= 7; ++weekday) {
        EXPECT_EQ(DayName(weekday), names[weekday - 1]);
    }
    EXPECT_EQ(DayName(0), QString());
    EXPECT_EQ(DayName(8), QString());
}

void ExpectMonth(CalendarMonth shown, int month, int year) {
    EXPECT_EQ(shown.month, month);
    EXPECT_EQ(shown.year, year);
}

TEST(CalendarNavigationTest, MonthsRunOnIntoTheNeighbouringYears) {
    ExpectMonth(MonthAfter({11, 2009}), 12, 2009);
    ExpectMonth(MonthAfter({12, 2009}), 1, 2010);
    ExpectMonth(MonthBefore({2, 2009}), 1, 2009);
    ExpectMonth(MonthBefore({1, 2009}), 12, 2008);
}

TEST(CalendarNavigationTest, YearsKeepTheMonth) {
    ExpectMonth(YearAfter({12, 2009}), 12, 2010);
    ExpectMonth(YearBefore({1, 2009}), 1, 2008);
}

TEST(CalendarNavigationTest, NoDateIsALimit) {
    ExpectMonth(YearAfter({12, 9999}), 12, 10000);
    ExpectMonth(MonthBefore({1, 1}), 12, 0);
    ExpectMonth(YearBefore({1, 0}), 1, -1);
}

TEST(CalendarNavigationTest, AStepBeyond16BitsStaysWhereItIs) {
    ExpectMonth(YearAfter({6, 32767}), 6, 32767);
    ExpectMonth(MonthAfter({12, 32767}), 12, 32767);
    ExpectMonth(YearBefore({6, -32768}), 6, -32768);
    ExpectMonth(MonthBefore({1, -32768}), 1, -32768);
    ExpectMonth(MonthAfter({1, 32767}), 2, 32767);
}

TEST(CalendarPlacesTest, TheNumbersOfTheDesignHold) {
    EXPECT_EQ(CalendarPlaces::Width, 2500);
    EXPECT_EQ(OpenHeight(true), 2160);
    EXPECT_EQ(OpenHeight(false), 1960);
    EXPECT_EQ(CalendarPlaces::GridLeft, 25);
    EXPECT_EQ(CalendarPlaces::ColumnWidth, 350);
    EXPECT_EQ(CalendarPlaces::GridTop, 800);
    EXPECT_EQ(CalendarPlaces::RowHeight, 190);
    EXPECT_EQ(CalendarPlaces::GridEnd, 1940);
    EXPECT_EQ(CalendarPlaces::TitleLine, 350);
    EXPECT_EQ(CalendarPlaces::DayNameLine, 600);
    EXPECT_EQ(NoneLine(true), 1940);
    EXPECT_EQ(CellPlace({1, 1}).left, 25);
    EXPECT_EQ(CellPlace({1, 1}).top, 800);
    EXPECT_EQ(CellPlace({7, 6}).left, 2125);
    EXPECT_EQ(CellPlace({7, 6}).top, 1750);
}

struct Hit {
    int X;
    int Y;
    int column;
    int row;
};

void PrintTo(const Hit& hit, std::ostream* out) {
    *out << '(' << hit.X << ", " << hit.Y << ')';
}

class HitTest : public ::testing::TestWithParam<Hit> {};

TEST_P(HitTest, FindsTheNearestCellAndTheEvenOneAtAHalf) {
    const auto cell = CellAt(GetParam().X, GetParam().Y);
    ASSERT_TRUE(cell.has_value());
    EXPECT_EQ(cell->column, GetParam().column);
    EXPECT_EQ(cell->row, GetParam().row);
}

INSTANTIATE_TEST_SUITE_P(Points, HitTest,
                         ::testing::Values(Hit{200, 895, 1, 1}, Hit{2300, 1845, 7, 6}, Hit{1250, 1300, 4, 3},
                                           // The left margin, up to and with the line where column 1 begins.
                                           Hit{0, 895, 0, 1}, Hit{25, 895, 0, 1}, Hit{26, 895, 1, 1},
                                           // Halves between columns go to the even one.
                                           Hit{374, 895, 1, 1}, Hit{375, 895, 2, 1}, Hit{376, 895, 2, 1},
                                           Hit{725, 895, 2, 1}, Hit{726, 895, 3, 1}, Hit{2125, 895, 6, 1},
                                           Hit{2126, 895, 7, 1}, Hit{2474, 895, 7, 1},
                                           // The grid's top line is row 0.
                                           Hit{200, 800, 1, 0}, Hit{200, 801, 1, 1}, Hit{0, 800, 0, 0},
                                           // Halves between rows.
                                           Hit{200, 989, 1, 1}, Hit{200, 990, 1, 2}, Hit{200, 1180, 1, 2},
                                           Hit{200, 1181, 1, 3}, Hit{200, 1750, 1, 6}, Hit{200, 1749, 1, 5},
                                           // The grid's last line is still row 6.
                                           Hit{200, 1940, 1, 6}, Hit{0, 1940, 0, 6}));

TEST(CalendarHitTest, TheEighthColumnIsNone) {
    EXPECT_FALSE(CellAt(2475, 895).has_value());
    EXPECT_FALSE(CellAt(2499, 895).has_value());
    EXPECT_FALSE(CellAt(2499, 800).has_value());
    EXPECT_FALSE(CellAt(2499, 1940).has_value());
    EXPECT_FALSE(CellAt(2'000'000'000, 895).has_value());
    EXPECT_FALSE(CellAt(-2'000'000'000, 895).has_value());
}

TEST(CalendarHitTest, AboveAndBelowTheGridIsNoCell) {
    EXPECT_FALSE(CellAt(200, 799).has_value());
    EXPECT_FALSE(CellAt(200, 1941).has_value());
    EXPECT_FALSE(CellAt(200, -1).has_value());
}

}  // namespace
