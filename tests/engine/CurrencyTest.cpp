#include "engine/Currency.h"
#include "platform/Failure.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <cmath>
#include <limits>

namespace engine {

namespace {

QString Text(double value) {
    return Currency::FromDouble(value).ToText(QStringLiteral("."));
}

TEST(CurrencyTest, FourDecimalPlacesWithTiesToEven) {
    EXPECT_EQ(Currency::FromDouble(32.608695652173914).Scaled(), 326087);
    // Exact ties in binary.
    EXPECT_EQ(Currency::FromDouble(0.03125).Scaled(), 312);
    EXPECT_EQ(Currency::FromDouble(0.09375).Scaled(), 938);
    EXPECT_EQ(Currency::FromDouble(-0.03125).Scaled(), -312);
}

TEST(CurrencyTest, CentsWithTiesToEven) {
    EXPECT_EQ(Currency::FromScaled(51250).RoundedToCents().Scaled(), 51200);
    EXPECT_EQ(Currency::FromScaled(51350).RoundedToCents().Scaled(), 51400);
    EXPECT_EQ(Currency::FromScaled(51251).RoundedToCents().Scaled(), 51300);
    EXPECT_EQ(Currency::FromScaled(-51250).RoundedToCents().Scaled(), -51200);
    EXPECT_EQ(Currency::FromScaled(-51350).RoundedToCents().Scaled(), -51400);
    EXPECT_EQ(Currency::FromScaled(-51249).RoundedToCents().Scaled(), -51200);
    EXPECT_EQ(Currency::FromScaled(std::numeric_limits<qint64>::max()).RoundedToCents().Scaled(),
              std::numeric_limits<qint64>::max() - 7);
}

TEST(CurrencyTest, TextHasNoSeparatorsAndNoTrailingZeros) {
    EXPECT_EQ(Text(1000), QStringLiteral("1000"));
    EXPECT_EQ(Text(548.39), QStringLiteral("548.39"));
    EXPECT_EQ(Text(127.5), QStringLiteral("127.5"));
    EXPECT_EQ(Text(-0.0625), QStringLiteral("-0.0625"));
    EXPECT_EQ(Text(1234567.05), QStringLiteral("1234567.05"));
    EXPECT_EQ(Text(0), QStringLiteral("0"));
    EXPECT_EQ(Currency::FromDouble(12.5).ToText(QStringLiteral(",")), QStringLiteral("12,5"));
    EXPECT_EQ(Currency::FromScaled(std::numeric_limits<qint64>::min()).ToText(QStringLiteral(".")),
              QStringLiteral("-922337203685477.5808"));
}

TEST(CurrencyTest, WhatDoesNotFitOverflows) {
    for (const double value : {1e15, -1e15, std::nan(""), std::numeric_limits<double>::infinity()}) {
        try {
            Currency::FromDouble(value);
            FAIL() << value;
        } catch (const platform::Failure& failure) {
            EXPECT_EQ(failure.Number(), platform::FailureNumber::Overflow);
        }
    }
    EXPECT_THROW(Currency::FromScaled(std::numeric_limits<qint64>::min()) - Currency::FromScaled(1),
                 platform::Failure);
}

TEST(CurrencyTest, ALargeAmountComesBackFromADouble) {
    EXPECT_EQ(Currency::FromScaled(307'445'734'561'824'800).ToDouble(), 30744573456182.48);
    EXPECT_EQ(Currency::FromKept(30744573456182.48).Scaled(), 307'445'734'561'824'800);
    EXPECT_EQ(Currency::FromKept(-900000000000.07).Scaled(), -9'000'000'000'000'700);
    EXPECT_EQ(Currency::FromKept(549755813888.06).Scaled(), 5'497'558'138'880'600);
    EXPECT_EQ(Currency::FromKept(1e14).Scaled(), 1'000'000'000'000'000'000);
    EXPECT_EQ(Currency::FromKept(0.03125).Scaled(), 312) << "a small one is rounded";
    EXPECT_EQ(Currency::FromKept(1e12 + 0.0001220703125).Scaled(), 10'000'000'000'000'001)
        << "and so is one of more decimals";
    EXPECT_EQ(Currency::FromScaled(std::numeric_limits<qint64>::min()).ToDouble(), -922337203685477.5808);
    for (const double value : {1e15, -1e15, std::nan(""), -std::numeric_limits<double>::infinity()}) {
        EXPECT_THROW(Currency::FromKept(value), platform::Failure) << value;
    }
}

RC_GTEST_PROP(CurrencyTest, CentsComeBackFromADouble, (qint64 number)) {
    constexpr qint64 Most = 7'036'874'417'766'399;
    const Currency amount = Currency::FromScaled(number % Most * 100);
    RC_ASSERT(Currency::FromKept(amount.ToDouble()) == amount);
}

RC_GTEST_PROP(CurrencyTest, TextReadsBackAsTheSameAmount, (qint64 scaled)) {
    const QString text = Currency::FromScaled(scaled).ToText(QStringLiteral("."));
    QString digits = text;
    const qsizetype mark = digits.indexOf(QLatin1Char('.'));
    const qsizetype decimals = mark < 0 ? 0 : digits.size() - mark - 1;
    RC_ASSERT(decimals <= 4);
    digits.remove(QLatin1Char('.'));
    RC_ASSERT((digits + QString(4 - decimals, QLatin1Char('0'))).toLongLong() == scaled);
    RC_ASSERT(decimals == 0 || !text.endsWith(QLatin1Char('0')));
}

}  // namespace

}  // namespace engine
