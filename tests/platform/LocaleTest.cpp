#include "platform/Failure.h"
#include "platform/Locale.h"
#include "support/CommaLocale.h"
#include "support/PrintQt.h"

#include <gtest/gtest.h>

#include <clocale>

namespace {

using platform::DateOrder;
using platform::LocaleMoney;
using platform::MoneyItem;

TEST(PlainLocale, GivesNoMoneyAnswers) {
    platform::LoadSystemLocale();
    EXPECT_EQ(LocaleMoney(MoneyItem::ThousandSeparator), std::nullopt);
    EXPECT_EQ(LocaleMoney(MoneyItem::DecimalSeparator), std::nullopt);
    EXPECT_EQ(LocaleMoney(MoneyItem::CurrencySymbol), std::nullopt);
    EXPECT_EQ(LocaleMoney(MoneyItem::CurrencyDigits), std::nullopt);
}

TEST(PlainLocale, WritesNumbersAndDatesTheAmericanWay) {
    platform::LoadSystemLocale();
    EXPECT_EQ(platform::DecimalMark(), QStringLiteral("."));
    EXPECT_EQ(platform::DateSeparator(), QStringLiteral("/"));
    EXPECT_EQ(platform::ShortDateOrder(), DateOrder::MonthDayYear);
}

TEST(PlainLocale, HasEnglishMonths) {
    platform::LoadSystemLocale();
    EXPECT_EQ(platform::ShortMonthName(1), QStringLiteral("Jan"));
    EXPECT_EQ(platform::ShortMonthName(5), QStringLiteral("May"));
    EXPECT_EQ(platform::ShortMonthName(12), QStringLiteral("Dec"));
}

TEST(MonthNames, OnlyForMonthsOfTheYear) {
    EXPECT_THROW(platform::ShortMonthName(0), platform::Failure);
    EXPECT_THROW(platform::ShortMonthName(13), platform::Failure);
    EXPECT_THROW(platform::ShortMonthName(-1), platform::Failure);
}

TEST(GermanLocale, IsAnswered) {
    const CommaLocale german;
    EXPECT_EQ(LocaleMoney(MoneyItem::ThousandSeparator), QStringLiteral("."));
    EXPECT_EQ(LocaleMoney(MoneyItem::DecimalSeparator), QStringLiteral(","));
    EXPECT_EQ(LocaleMoney(MoneyItem::CurrencySymbol), QStringLiteral("€"));
    EXPECT_EQ(LocaleMoney(MoneyItem::CurrencyDigits), QStringLiteral("2"));
    EXPECT_EQ(platform::DecimalMark(), QStringLiteral(","));
    EXPECT_EQ(platform::DateSeparator(), QStringLiteral("."));
    EXPECT_EQ(platform::ShortDateOrder(), DateOrder::DayMonthYear);
    EXPECT_EQ(platform::ShortMonthName(3), QStringLiteral("Mär"));
    EXPECT_EQ(platform::ShortMonthName(12), QStringLiteral("Dez"));
}

TEST(FrenchLocale, SeparatesThousandsWithANarrowBlank) {
    const CommaLocale french("fr_FR");
    EXPECT_EQ(LocaleMoney(MoneyItem::ThousandSeparator), QString(QChar(0x202F)));
    EXPECT_EQ(platform::ShortDateOrder(), DateOrder::DayMonthYear);
    EXPECT_EQ(platform::DateSeparator(), QStringLiteral("/"));
}

TEST(SwedishLocale, BeginsDatesWithTheYear) {
    const CommaLocale swedish("sv_SE");
    EXPECT_EQ(platform::ShortDateOrder(), DateOrder::YearMonthDay);
    EXPECT_EQ(platform::DateSeparator(), QStringLiteral("-"));
}

TEST(JapaneseLocale, HasMoneyWithoutDecimals) {
    const CommaLocale japanese("ja_JP");
    EXPECT_EQ(LocaleMoney(MoneyItem::CurrencyDigits), QStringLiteral("0"));
    EXPECT_EQ(platform::DateSeparator(), QStringLiteral("/"));
    EXPECT_EQ(platform::ShortMonthName(3), QStringLiteral("3月"));
}

TEST(PersianLocale, HasMoneyMarksOutsideLatin) {
    const CommaLocale persian("fa_IR");
    EXPECT_EQ(LocaleMoney(MoneyItem::DecimalSeparator), QString(QChar(0x066B)));
    EXPECT_EQ(LocaleMoney(MoneyItem::CurrencySymbol), QStringLiteral("ریال"));
}

TEST(LoadedLocale, GoesAwayWithTheEnvironment) {
    { const CommaLocale german; }
    EXPECT_EQ(platform::DecimalMark(), QStringLiteral("."));
    EXPECT_EQ(platform::ShortMonthName(3), QStringLiteral("Mar"));
}

TEST(LoadedLocale, StaysUntilTheNextLoad) {
    const CommaLocale german;
    std::setlocale(LC_ALL, "C");
    EXPECT_EQ(platform::DecimalMark(), QStringLiteral(","));
    EXPECT_EQ(platform::ShortMonthName(3), QStringLiteral("Mär"));
}

TEST(LoadedLocale, CanBeAnotherByItsName) {
    const CommaLocale german;
    EXPECT_TRUE(platform::LoadLocale(QStringLiteral("C")));
    EXPECT_EQ(platform::DecimalMark(), QStringLiteral("."));
    EXPECT_EQ(platform::DateSeparator(), QStringLiteral("/"));
    EXPECT_EQ(platform::ShortMonthName(3), QStringLiteral("Mar"));
    EXPECT_EQ(LocaleMoney(MoneyItem::DecimalSeparator), std::nullopt);
    EXPECT_TRUE(platform::LoadLocale(QStringLiteral("de_DE.UTF-8")));
    EXPECT_EQ(platform::DecimalMark(), QStringLiteral(","));
}

TEST(LoadedLocale, StaysIfThereIsNoneOfTheName) {
    const CommaLocale german;
    for (const char* name : {"xx_XX.UTF-8", "", "de", "../de_DE.UTF-8"}) {
        EXPECT_FALSE(platform::LoadLocale(QLatin1String(name))) << name;
        EXPECT_EQ(platform::DecimalMark(), QStringLiteral(",")) << name;
    }
}

TEST(LoadedLocale, IsPlainIfTheEnvironmentNamesNoInstalledOne) {
    const CommaLocale german;
    const QByteArray before = qgetenv("LC_ALL");
    qputenv("LC_ALL", "xx_XX.UTF-8");
    platform::LoadSystemLocale();
    qputenv("LC_ALL", before);
    EXPECT_EQ(platform::DecimalMark(), QStringLiteral("."));
    EXPECT_EQ(platform::DateSeparator(), QStringLiteral("/"));
}

}  // namespace
