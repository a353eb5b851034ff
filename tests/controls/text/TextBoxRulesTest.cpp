#include "controls/base/TypedText.h"
#include "controls/text/TextBoxRules.h"
#include "support/PrintQt.h"

#include <gtest/gtest.h>

namespace {

using namespace Qt::StringLiterals;
using namespace controls;

enum class Sign { Refused, Allowed };

NumericRules English(qint16 decimals, Sign sign = Sign::Refused) {
    return {{u"."_s, u","_s}, decimals, sign == Sign::Allowed};
}

NumericRules German(qint16 decimals, Sign sign = Sign::Refused) {
    return {{u","_s, u"."_s}, decimals, sign == Sign::Allowed};
}

/// Marks of two characters each.
NumericRules Wide(qint16 decimals) {
    return {{u"::"_s, u"' "_s}, decimals, false};
}

TEST(TextBoxRules, WithoutNumericModeOnlyTheApostropheIsRefused) {
    EXPECT_FALSE(PassesTextKeys(u'\''));
    for (const QChar key : u"a Z0-.,\"`\u2019\u00B4%;é"_s) {
        EXPECT_TRUE(PassesTextKeys(key)) << QString(key).toStdString();
    }
    EXPECT_TRUE(PassesTextKeys(BackspaceKey));
}

TEST(TextBoxRules, DigitsBackspaceAndTheThousandsSeparatorAlwaysPass) {
    for (const QChar key : u"0123456789,"_s) {
        EXPECT_TRUE(PassesNumericKeys(key, u"1,000.50"_s, English(0))) << QString(key).toStdString();
    }
    EXPECT_TRUE(PassesNumericKeys(BackspaceKey, u""_s, English(0)));
    EXPECT_TRUE(PassesNumericKeys(u'.', u"1.000"_s, German(0)));
}

TEST(TextBoxRules, ADecimalSeparatorPassesOnceAndOnlyWhereThereAreDecimals) {
    EXPECT_TRUE(PassesNumericKeys(u'.', u"12"_s, English(2)));
    EXPECT_TRUE(PassesNumericKeys(u'.', u""_s, English(1)));
    EXPECT_FALSE(PassesNumericKeys(u'.', u"1.2"_s, English(2)));
    EXPECT_FALSE(PassesNumericKeys(u'.', u"12"_s, English(0)));
    EXPECT_TRUE(PassesNumericKeys(u',', u"1.2"_s, German(2)));
    EXPECT_FALSE(PassesNumericKeys(u',', u"1,2"_s, German(2)));
}

TEST(TextBoxRules, ASignPassesOnceAndOnlyWhereNegativeIsAllowed) {
    EXPECT_TRUE(PassesNumericKeys(u'-', u"12"_s, English(0, Sign::Allowed)));
    EXPECT_TRUE(PassesNumericKeys(u'-', u""_s, English(0, Sign::Allowed)));
    EXPECT_FALSE(PassesNumericKeys(u'-', u"-12"_s, English(0, Sign::Allowed)));
    EXPECT_FALSE(PassesNumericKeys(u'-', u"12"_s, English(0)));
}

TEST(TextBoxRules, EverythingElseIsRefusedInNumericMode) {
    for (const QChar key : u"aE+ '%$/:*\u0661\u2212\u00A0"_s) {
        EXPECT_FALSE(PassesNumericKeys(key, u"1"_s, English(2, Sign::Allowed))) << QString(key).toStdString();
    }
}

TEST(TextBoxRules, OfALongMarkTheKeyIsItsFirstCharacterAndTheTextHasItWhole) {
    EXPECT_TRUE(PassesNumericKeys(u'\'', u"1"_s, Wide(2)));
    EXPECT_FALSE(PassesNumericKeys(u' ', u"1'"_s, Wide(2)));
    EXPECT_TRUE(PassesNumericKeys(u':', u"1:2"_s, Wide(2))) << "half a separator is none yet";
    EXPECT_FALSE(PassesNumericKeys(u':', u"1::2"_s, Wide(2)));
}

TEST(TextBoxRules, AMarkThatIsBothCountsAsTheThousandsSeparator) {
    const NumericRules same{{u"."_s, u"."_s}, 0, false};
    EXPECT_TRUE(PassesNumericKeys(u'.', u"1.5"_s, same));
}

struct Correction {
    NumericRules rules;
    QString text;
    QString corrected;
};

void ExpectCorrected(std::initializer_list<Correction> corrections) {
    for (const Correction& correction : corrections) {
        EXPECT_EQ(CorrectedNumber(correction.text, correction.rules), correction.corrected)
            << "from " << correction.text.toStdString();
    }
}

TEST(TextBoxRules, ANumberStaysAsItIsWritten) {
    ExpectCorrected({{English(2), u"12"_s, u"12"_s},
                     {English(2), u"012.50"_s, u"012.50"_s},
                     {English(2), u"1,000.5"_s, u"1,000.5"_s},
                     {English(2), u"+5"_s, u"+5"_s},
                     {English(2), u".5"_s, u".5"_s},
                     {English(2), u"5."_s, u"5."_s},
                     {German(2), u"1.000,5"_s, u"1.000,5"_s},
                     {Wide(2), u"1' 000::50"_s, u"1' 000::5"_s}});
}

TEST(TextBoxRules, NothingAndALoneMinusStay) {
    ExpectCorrected({{English(2), u""_s, u""_s}, {English(2, Sign::Allowed), u"-"_s, u"-"_s}});
}

TEST(TextBoxRules, ASignMovesToTheFront) {
    ExpectCorrected({{English(2, Sign::Allowed), u"12-"_s, u"-12"_s},
                     {English(2, Sign::Allowed), u"1-2-3"_s, u"-123"_s},
                     {English(2, Sign::Allowed), u"-12"_s, u"-12"_s},
                     {English(2, Sign::Allowed), u" -12"_s, u"- 12"_s}});
}

TEST(TextBoxRules, SignsBehindOneInFrontAreNotTouchedAndSpoilTheNumber) {
    ExpectCorrected(
        {{English(2, Sign::Allowed), u"-1-2"_s, u"-1"_s}, {English(2, Sign::Allowed), u"--5"_s, u"0"_s}});
}

TEST(TextBoxRules, WithoutNegativeTheFirstSignGoesAway) {
    ExpectCorrected({{English(2), u"-12"_s, u"12"_s},
                     {English(2), u"12-"_s, u"12"_s},
                     {English(2), u"1-2-"_s, u"12"_s},
                     {English(2), u"-"_s, u""_s},
                     {English(2), u"--5"_s, u"-5"_s}});
}

TEST(TextBoxRules, SurplusDecimalsAreCutOffAndNeverRounded) {
    ExpectCorrected({{English(2), u"1.999"_s, u"1.99"_s},
                     {English(1), u"0.95"_s, u"0.9"_s},
                     {English(4), u"0.123456"_s, u"0.1234"_s},
                     {German(2), u"1.234,567"_s, u"1.234,56"_s},
                     {English(2, Sign::Allowed), u"-1.999"_s, u"-1.99"_s}});
}

TEST(TextBoxRules, WithoutDecimalsTheWholePartStays) {
    ExpectCorrected({{English(0), u"12.75"_s, u"12"_s},
                     {English(0), u"12."_s, u"12"_s},
                     {English(0), u".75"_s, u""_s},
                     {German(0), u"1.234,5"_s, u"1.234"_s}});
}

TEST(TextBoxRules, NegativeDecimalsCutIntoTheWholePartButNotBeyondIt) {
    ExpectCorrected({{English(-1), u"12.5"_s, u"12"_s},
                     {English(-2), u"12.5"_s, u"1"_s},
                     {English(-9), u"12.5"_s, u""_s}});
}

TEST(TextBoxRules, WhatIsNoNumberBecomesTheOneThatItBeginsWith) {
    ExpectCorrected({{English(2), u"12abc"_s, u"12"_s},
                     {English(2), u"12.50 dollars"_s, u"12.50"_s},
                     {English(4), u"12.50 dollars"_s, u"12.5"_s},
                     {English(3), u"12.50x"_s, u"12.5"_s},
                     {English(2), u"abc"_s, u"0"_s},
                     {English(2), u"$5"_s, u"0"_s},
                     {English(2), u"'"_s, u"0"_s},
                     {English(2), u"007x"_s, u"7"_s},
                     {English(2), u"1.2.3"_s, u"1.2"_s},
                     {English(2), u"1,234x"_s, u"1"_s},
                     {English(2, Sign::Allowed), u"-5x"_s, u"-5"_s}});
}

TEST(TextBoxRules, ALeadingNumberHasAPointWhateverTheLocale) {
    ExpectCorrected({{German(2), u"1.5x"_s, u"1,5"_s}, {German(3), u"1,5x"_s, u"1"_s}});
}

TEST(TextBoxRules, ALeadingNumberIsNotCutToItsDecimalsAnyMore) {
    ExpectCorrected({{German(0), u"1.5x"_s, u"1,5"_s}});
}

TEST(TextBoxRules, OnLeavingOnlyWhatIsNoNumberChanges) {
    const NumericRules rules = English(2, Sign::Allowed);
    EXPECT_EQ(NumberOnLeaving(u""_s, rules), u"0"_s);
    EXPECT_EQ(NumberOnLeaving(u"-"_s, rules), u"0"_s);
    EXPECT_EQ(NumberOnLeaving(u"."_s, rules), u"0"_s);
    EXPECT_EQ(NumberOnLeaving(u"12"_s, rules), u"12"_s);
    EXPECT_EQ(NumberOnLeaving(u"0.00"_s, rules), u"0.00"_s);
    EXPECT_EQ(NumberOnLeaving(u"1,000.5"_s, rules), u"1,000.5"_s);
    EXPECT_EQ(NumberOnLeaving(u"12 apples"_s, rules), u"12"_s);
    EXPECT_EQ(NumberOnLeaving(u"0.12345"_s, rules), u"0.12345"_s);
    EXPECT_EQ(NumberOnLeaving(u"1.5x"_s, German(2)), u"1,5"_s);
}

}  // namespace
