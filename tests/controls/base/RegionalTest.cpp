#include "controls/base/Regional.h"
#include "support/MoneyLocale.h"
#include "support/PrintQt.h"

#include <gtest/gtest.h>

namespace {

using namespace Qt::StringLiterals;
using namespace controls;
using platform::MoneyItem;

class RegionalTest : public ::testing::Test {
protected:
    RegionalTest() { ForgetRegionalSettings(); }
};

TEST_F(RegionalTest, ALocaleThatSaysNothingAboutMoneyGivesTheDefaults) {
    EXPECT_EQ(GetThousandSeparator(), u","_s);
    EXPECT_EQ(GetDecimalSeparator(), u"."_s);
    EXPECT_EQ(GetCurrencyDigits(), u"2"_s);
}

TEST_F(RegionalTest, TheLocaleIsAskedWhicheverSettingIsNeededFirst) {
    const CountryLocale german("de_DE");
    EXPECT_EQ(GetThousandSeparator(), u"."_s);
    ForgetRegionalSettings();
    EXPECT_EQ(GetDecimalSeparator(), u","_s);
    const CountryLocale japanese("ja_JP");
    EXPECT_EQ(GetCurrencyDigits(), u"0"_s);
}

class CountingSource {
public:
    CountingSource() {
        AskForMoney([this](MoneyItem item) -> std::optional<QString> {
            asked.append(item);
            return std::nullopt;
        });
    }
    ~CountingSource() { AskForMoney({}); }
    CountingSource(const CountingSource&) = delete;
    CountingSource& operator=(const CountingSource&) = delete;

    QList<MoneyItem> asked;
};

TEST_F(RegionalTest, TheLocaleIsAskedForEverythingOnceEvenIfItNeverAnswers) {
    const CountingSource source;
    EXPECT_EQ(GetCurrencyDigits(), u"2"_s);
    const QList<MoneyItem> all{MoneyItem::ThousandSeparator, MoneyItem::DecimalSeparator,
                               MoneyItem::CurrencySymbol, MoneyItem::CurrencyDigits};
    EXPECT_EQ(source.asked, all);
    EXPECT_EQ(GetThousandSeparator(), u","_s);
    EXPECT_EQ(GetDecimalSeparator(), u"."_s);
    EXPECT_EQ(GetCurrencyDigits(), u"2"_s);
    EXPECT_EQ(source.asked, all);
}

TEST_F(RegionalTest, AChangeOfTheLocaleDuringTheRunIsNotSeen) {
    const CountryLocale german("de_DE");
    EXPECT_EQ(GetDecimalSeparator(), u","_s);
    const CommaLocale swiss("de_CH");
    EXPECT_EQ(GetDecimalSeparator(), u","_s);
    EXPECT_EQ(GetThousandSeparator(), u"."_s);
    ForgetRegionalSettings();
    EXPECT_EQ(GetDecimalSeparator(), u"."_s);
    EXPECT_EQ(GetThousandSeparator(), u"\u2019"_s);
}

TEST_F(RegionalTest, EachSettingHasItsDefaultOfItsOwn) {
    {
        const MoneyLocale silent({.decimalSeparator = u"!"_s, .thousandSeparator = u""_s, .digits = u"3"_s});
        EXPECT_EQ(GetThousandSeparator(), u","_s);
        EXPECT_EQ(GetDecimalSeparator(), u"!"_s);
        EXPECT_EQ(GetCurrencyDigits(), u"3"_s);
    }
    const MoneyLocale other({.decimalSeparator = u""_s, .thousandSeparator = u"_"_s, .digits = u""_s});
    EXPECT_EQ(GetThousandSeparator(), u"_"_s);
    EXPECT_EQ(GetDecimalSeparator(), u"."_s);
    EXPECT_EQ(GetCurrencyDigits(), u"2"_s);
}

TEST_F(RegionalTest, ASeparatorOfSeveralCharactersIsKeptWhole) {
    const MoneyLocale wide({.decimalSeparator = u"."_s, .thousandSeparator = u"' "_s});
    EXPECT_EQ(GetThousandSeparator(), u"' "_s);
}

TEST_F(RegionalTest, ALocaleValueIsTheAnswerOrElseTheDefault) {
    EXPECT_EQ(GetLocaleValue(MoneyItem::ThousandSeparator, u"x"_s), u"x"_s);
    EXPECT_EQ(GetLocaleValue(MoneyItem::DecimalSeparator, u"x"_s), u"x"_s);
    EXPECT_EQ(GetLocaleValue(MoneyItem::CurrencySymbol, u"x"_s), u"x"_s);
    EXPECT_EQ(GetLocaleValue(MoneyItem::CurrencyDigits, u"x"_s), u"x"_s);
    const CountryLocale german("de_DE");
    EXPECT_EQ(GetLocaleValue(MoneyItem::ThousandSeparator, u"x"_s), u"."_s);
    EXPECT_EQ(GetLocaleValue(MoneyItem::DecimalSeparator, u"x"_s), u","_s);
    EXPECT_EQ(GetLocaleValue(MoneyItem::CurrencySymbol, u"x"_s), u"€"_s);
    EXPECT_EQ(GetLocaleValue(MoneyItem::CurrencyDigits, u"x"_s), u"2"_s);
}

}  // namespace
