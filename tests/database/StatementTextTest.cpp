#include "database/StatementText.h"
#include "platform/Failure.h"
#include "support/CommaLocale.h"
#include "support/PrintQt.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

using database::DecimalText;
using database::SqlDate;
using engine::Currency;

TEST(SqlDate, IsMonthDayYear) {
    EXPECT_EQ(SqlDate(QDate(2026, 11, 5)), QStringLiteral("#11/05/2026#"));
    EXPECT_EQ(SqlDate(QDate(2024, 2, 29)), QStringLiteral("#02/29/2024#"));
}

TEST(SqlDate, HasFourDigitsOfTheYear) {
    EXPECT_EQ(SqlDate(QDate(1234, 1, 1)), QStringLiteral("#01/01/1234#"));
    EXPECT_EQ(SqlDate(QDate(100, 12, 31)), QStringLiteral("#12/31/0100#"));
    EXPECT_EQ(SqlDate(QDate(9999, 12, 31)), QStringLiteral("#12/31/9999#"));
}

TEST(SqlDate, ShowsAYearBeyondReachInFullSoThatTheEngineRefusesIt) {
    EXPECT_EQ(SqlDate(QDate(10000, 1, 1)), QStringLiteral("#01/01/10000#"));
    EXPECT_EQ(SqlDate(QDate(34793, 10, 31)), QStringLiteral("#10/31/34793#"));
}

TEST(SqlDate, KeepsItsOrderAndHasSlashesWhereTheLocaleHasDots) {
    const CommaLocale german;
    EXPECT_EQ(SqlDate(QDate(2026, 11, 5)), QStringLiteral("#11/05/2026#"));
}

TEST(SqlDate, HasTheLocalesSeparatorOtherwise) {
    const CommaLocale swedish("sv_SE");
    EXPECT_EQ(SqlDate(QDate(2026, 11, 5)), QStringLiteral("#11-05-2026#"));
}

struct NumberCase {
    double number;
    const char* text;
};

class DecimalTextOf : public ::testing::TestWithParam<NumberCase> {};

TEST_P(DecimalTextOf, IsTheShortestWithFifteenDigits) {
    EXPECT_EQ(DecimalText(GetParam().number), QString::fromLatin1(GetParam().text));
}

INSTANTIATE_TEST_SUITE_P(
    Plain, DecimalTextOf,
    ::testing::Values(NumberCase{0, "0"}, NumberCase{-0.0, "0"}, NumberCase{1680, "1680"},
                      NumberCase{1680.5, "1680.5"}, NumberCase{0.1, "0.1"}, NumberCase{0.1 + 0.2, "0.3"},
                      NumberCase{-12.5, "-12.5"}, NumberCase{1.0 / 3, "0.333333333333333"},
                      NumberCase{2.0 / 3, "0.666666666666667"}, NumberCase{1000000, "1000000"},
                      NumberCase{123456789012345, "123456789012345"},
                      NumberCase{12345678901234.5, "12345678901234.5"}, NumberCase{0.0001, "0.0001"},
                      NumberCase{0.99999999999999999, "1"}, NumberCase{999999999999999, "999999999999999"},
                      NumberCase{99.99, "99.99"}, NumberCase{8.25, "8.25"}, NumberCase{-0.05, "-0.05"}));

INSTANTIATE_TEST_SUITE_P(WithExponent, DecimalTextOf,
                         ::testing::Values(NumberCase{1e15, "1E+15"}, NumberCase{-1.5e20, "-1.5E+20"},
                                           NumberCase{999999999999999.9, "1E+15"},
                                           NumberCase{1e100, "1E+100"}, NumberCase{0.00001, "1E-05"},
                                           NumberCase{1.25e-7, "1.25E-07"}, NumberCase{1e-300, "1E-300"}));

TEST(DecimalText, HasTheLocalesDecimalMark) {
    const CommaLocale german;
    EXPECT_EQ(DecimalText(1680.5), QStringLiteral("1680,5"));
    EXPECT_EQ(DecimalText(1234567.0), QStringLiteral("1234567"));
    EXPECT_EQ(DecimalText(1.5e20), QStringLiteral("1,5E+20"));
    EXPECT_EQ(DecimalText(Currency::FromScaled(5483900)), QStringLiteral("548,39"));
}

TEST(DecimalText, OfMoneyHasUpToFourDecimals) {
    EXPECT_EQ(DecimalText(Currency::FromScaled(5483900)), QStringLiteral("548.39"));
    EXPECT_EQ(DecimalText(Currency::FromScaled(-1)), QStringLiteral("-0.0001"));
    EXPECT_EQ(DecimalText(Currency::FromScaled(10000000)), QStringLiteral("1000"));
}

TEST(DecimalText, NeedsANumber) {
    EXPECT_THROW(DecimalText(std::numeric_limits<double>::infinity()), platform::Failure);
    EXPECT_THROW(DecimalText(std::numeric_limits<double>::quiet_NaN()), platform::Failure);
}

}  // namespace
