#include "platform/DateFormat.h"
#include "support/PrintQt.h"

#include <gtest/gtest.h>

namespace {

using platform::DateOrder;

struct PatternCase {
    const char* pattern;
    DateOrder order;
    const char* separator;
};

void ExpectFormat(const platform::DateFormat& format, const PatternCase& expected) {
    EXPECT_EQ(format.order, expected.order);
    EXPECT_EQ(format.separator, QString::fromUtf8(expected.separator));
}

class DateFormatOf : public ::testing::TestWithParam<PatternCase> {};

TEST_P(DateFormatOf, HasOrderAndSeparator) {
    ExpectFormat(platform::ReadDateFormat(QString::fromUtf8(GetParam().pattern)), GetParam());
}

INSTANTIATE_TEST_SUITE_P(Patterns, DateFormatOf,
                         ::testing::Values(PatternCase{"%m/%d/%y", DateOrder::MonthDayYear, "/"},
                                           PatternCase{"%D", DateOrder::MonthDayYear, "/"},
                                           PatternCase{"%F", DateOrder::YearMonthDay, "-"},
                                           PatternCase{"%d.%m.%Y", DateOrder::DayMonthYear, "."},
                                           PatternCase{"%d/%m/%y", DateOrder::DayMonthYear, "/"},
                                           PatternCase{"%Y-%m-%d", DateOrder::YearMonthDay, "-"},
                                           PatternCase{"%d. %m. %Y", DateOrder::DayMonthYear, "."},
                                           PatternCase{"%-d.%-m.%Y", DateOrder::DayMonthYear, "."},
                                           PatternCase{"%e-%b-%Y", DateOrder::DayMonthYear, "-"},
                                           PatternCase{"%h.%d.%G", DateOrder::MonthDayYear, "."},
                                           PatternCase{"%B %d %Y", DateOrder::MonthDayYear, "/"},
                                           PatternCase{"%y.%m.%d", DateOrder::YearMonthDay, "."},
                                           PatternCase{"%Oy/%Om/%Od", DateOrder::YearMonthDay, "/"},
                                           PatternCase{"%EY-%m-%d", DateOrder::YearMonthDay, "-"},
                                           PatternCase{"%2d.%2m.%Y", DateOrder::DayMonthYear, "."},
                                           PatternCase{"%a, %d.%m.%Y", DateOrder::DayMonthYear, "."},
                                           PatternCase{"%d.%m.%Y %H:%M", DateOrder::DayMonthYear, "."},
                                           PatternCase{"%d-%m.%Y", DateOrder::DayMonthYear, "-"}));

INSTANTIATE_TEST_SUITE_P(LettersAreUnits, DateFormatOf,
                         ::testing::Values(PatternCase{"%Y年%m月%d日", DateOrder::YearMonthDay, "/"},
                                           PatternCase{"%d de %m de %Y", DateOrder::DayMonthYear, "/"}));

INSTANTIATE_TEST_SUITE_P(NothingToRead, DateFormatOf,
                         ::testing::Values(PatternCase{"", DateOrder::MonthDayYear, "/"},
                                           PatternCase{"%", DateOrder::MonthDayYear, "/"},
                                           PatternCase{"%-", DateOrder::MonthDayYear, "/"},
                                           PatternCase{"%x", DateOrder::MonthDayYear, "/"},
                                           PatternCase{"d.m.y", DateOrder::MonthDayYear, "/"},
                                           PatternCase{"%d", DateOrder::DayMonthYear, "/"}));

class DatePictureOf : public ::testing::TestWithParam<PatternCase> {};

TEST_P(DatePictureOf, HasOrderAndSeparator) {
    ExpectFormat(platform::ReadDatePicture(QString::fromUtf8(GetParam().pattern)), GetParam());
}

INSTANTIATE_TEST_SUITE_P(Pictures, DatePictureOf,
                         ::testing::Values(PatternCase{"M/d/yyyy", DateOrder::MonthDayYear, "/"},
                                           PatternCase{"dd.MM.yyyy", DateOrder::DayMonthYear, "."},
                                           PatternCase{"d. M. yyyy", DateOrder::DayMonthYear, "."},
                                           PatternCase{"yyyy-MM-dd", DateOrder::YearMonthDay, "-"},
                                           PatternCase{"dd-MMM-yy", DateOrder::DayMonthYear, "-"},
                                           PatternCase{"ddd, dd.MM.yyyy", DateOrder::DayMonthYear, "."},
                                           PatternCase{"gg yyyy/MM/dd", DateOrder::YearMonthDay, "/"},
                                           PatternCase{"d 'de' MMMM 'de' yyyy", DateOrder::DayMonthYear, "/"},
                                           PatternCase{"'M' dd.MM.yyyy", DateOrder::DayMonthYear, "."},
                                           PatternCase{"dd'.MM.yyyy", DateOrder::DayMonthYear, "/"},
                                           PatternCase{"", DateOrder::MonthDayYear, "/"}));

}  // namespace
