#include "platform/Locale.h"
#include "support/PrintQt.h"

#include <gtest/gtest.h>

namespace {

using platform::DateOrder;
using platform::LocaleMoney;
using platform::MoneyItem;

class Locale : public ::testing::Test {
protected:
    ~Locale() override { platform::LoadLocale(QStringLiteral("C")); }
};

TEST_F(Locale, NamedCIsPlain) {
    ASSERT_TRUE(platform::LoadLocale(QStringLiteral("de-DE")));
    ASSERT_TRUE(platform::LoadLocale(QStringLiteral("C")));
    EXPECT_EQ(platform::DecimalMark(), QStringLiteral("."));
    EXPECT_EQ(platform::DateSeparator(), QStringLiteral("/"));
    EXPECT_EQ(platform::ShortDateOrder(), DateOrder::MonthDayYear);
    EXPECT_EQ(platform::ShortMonthName(3), QStringLiteral("Mar"));
    EXPECT_EQ(LocaleMoney(MoneyItem::DecimalSeparator), std::nullopt);
}

TEST_F(Locale, GermanIsAnswered) {
    ASSERT_TRUE(platform::LoadLocale(QStringLiteral("de-DE")));
    EXPECT_EQ(LocaleMoney(MoneyItem::ThousandSeparator), QStringLiteral("."));
    EXPECT_EQ(LocaleMoney(MoneyItem::DecimalSeparator), QStringLiteral(","));
    EXPECT_EQ(LocaleMoney(MoneyItem::CurrencySymbol), QStringLiteral("€"));
    EXPECT_EQ(LocaleMoney(MoneyItem::CurrencyDigits), QStringLiteral("2"));
    EXPECT_EQ(platform::DecimalMark(), QStringLiteral(","));
    EXPECT_EQ(platform::DateSeparator(), QStringLiteral("."));
    EXPECT_EQ(platform::ShortDateOrder(), DateOrder::DayMonthYear);
    EXPECT_EQ(platform::ShortMonthName(12), QStringLiteral("Dez"));
}

TEST_F(Locale, AmericanAndSwedishPutTheDayElsewhere) {
    ASSERT_TRUE(platform::LoadLocale(QStringLiteral("en-US")));
    EXPECT_EQ(platform::ShortDateOrder(), DateOrder::MonthDayYear);
    EXPECT_EQ(platform::DateSeparator(), QStringLiteral("/"));
    ASSERT_TRUE(platform::LoadLocale(QStringLiteral("sv-SE")));
    EXPECT_EQ(platform::ShortDateOrder(), DateOrder::YearMonthDay);
    EXPECT_EQ(platform::DateSeparator(), QStringLiteral("-"));
}

TEST_F(Locale, JapaneseHasMoneyWithoutDecimals) {
    ASSERT_TRUE(platform::LoadLocale(QStringLiteral("ja-JP")));
    EXPECT_EQ(LocaleMoney(MoneyItem::CurrencyDigits), QStringLiteral("0"));
}

TEST_F(Locale, StaysIfThereIsNoneOfTheName) {
    ASSERT_TRUE(platform::LoadLocale(QStringLiteral("de-DE")));
    for (const char* name : {"xx-XX", "", "no name at all", "de_DE.UTF-8"}) {
        EXPECT_FALSE(platform::LoadLocale(QLatin1String(name))) << name;
        EXPECT_EQ(platform::DecimalMark(), QStringLiteral(",")) << name;
    }
}

TEST_F(Locale, OfTheUserHasAllTwelveMonths) {
    platform::LoadSystemLocale();
    for (int month = 1; month <= 12; ++month) {
        EXPECT_FALSE(platform::ShortMonthName(month).isEmpty()) << month;
    }
    EXPECT_TRUE(LocaleMoney(MoneyItem::CurrencyDigits));
}

}  // namespace
