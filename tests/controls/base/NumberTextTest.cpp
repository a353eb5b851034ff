#include "controls/base/NumberText.h"
#include "support/MoneyLocale.h"
#include "support/PrintQt.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

using namespace Qt::StringLiterals;
using namespace controls;

const NumberMarks english{u"."_s, u","_s};
const NumberMarks german{u","_s, u"."_s};
const NumberMarks french{u","_s, u"\u202F"_s};
const NumberMarks wide{u"::"_s, u"' "_s};

struct Reading {
    const NumberMarks* marks;
    QString text;
    double number;
};

TEST(NumberText, IsANumberByTheMarksOfTheLocale) {
    const Reading readings[] = {
        {&english, u"0"_s, 0},
        {&english, u"12"_s, 12},
        {&english, u"007"_s, 7},
        {&english, u"+12"_s, 12},
        {&english, u"-12"_s, -12},
        {&english, u"-0"_s, 0},
        {&english, u"12.5"_s, 12.5},
        {&english, u".5"_s, 0.5},
        {&english, u"-.5"_s, -0.5},
        {&english, u"5."_s, 5},
        {&english, u"1,000"_s, 1000},
        {&english, u"1,234,567.89"_s, 1234567.89},
        {&german, u"1.000"_s, 1000},
        {&german, u"1.234.567,89"_s, 1234567.89},
        {&german, u"1.5"_s, 15},
        {&german, u"-,5"_s, -0.5},
        {&french, u"1\u202F234,5"_s, 1234.5},
        {&wide, u"1' 234::5"_s, 1234.5},
    };
    for (const Reading& reading : readings) {
        EXPECT_TRUE(IsNumericText(reading.text, *reading.marks)) << reading.text.toStdString();
        EXPECT_EQ(ReadNumber(reading.text, *reading.marks), reading.number) << reading.text.toStdString();
    }
}

TEST(NumberText, StaysANumberWhileItIsTypedOrDeleted) {
    EXPECT_EQ(ReadNumber(u"1,", english), 1);
    EXPECT_EQ(ReadNumber(u"1,0", english), 10);
    EXPECT_EQ(ReadNumber(u",000", english), 0);
    EXPECT_EQ(ReadNumber(u"1,,2", english), 12);
    EXPECT_EQ(ReadNumber(u"1,.5", english), 1.5);
}

TEST(NumberText, BlanksMayStandAround) {
    EXPECT_EQ(ReadNumber(u" 1,000.50 ", english), 1000.5);
    EXPECT_EQ(ReadNumber(u"\t- 5\n", english), -5);
    EXPECT_EQ(ReadNumber(u"1\u202F000\u202F", french), 1000);
}

TEST(NumberText, AnythingElseIsNone) {
    for (const QString& text :
         {u""_s,      u" "_s,   u"-"_s,   u"+"_s,      u"."_s,      u","_s,         u"-."_s,
          u"abc"_s,   u"12a"_s, u"a12"_s, u"--5"_s,    u"+-5"_s,    u"5-"_s,        u"1 2"_s,
          u"1.2.3"_s, u"1e5"_s, u"1E5"_s, u"0x10"_s,   u"1.5,0"_s,  u"$5"_s,        u"5%"_s,
          u"inf"_s,   u"nan"_s, u"(5)"_s, u"\u0661"_s, u"\u221E"_s, u"1.\u202F5"_s, u"1\u202F000"_s}) {
        EXPECT_FALSE(IsNumericText(text, english)) << text.toStdString();
        EXPECT_EQ(ReadNumber(text, english), std::nullopt) << text.toStdString();
    }
    EXPECT_FALSE(IsNumericText(u"1,000.5", german));
    EXPECT_FALSE(IsNumericText(u"1'000", wide)) << "half a separator is none";
    EXPECT_FALSE(IsNumericText(u"1:5", wide));
}

TEST(NumberText, WhatADoubleCannotHoldIsNone) {
    EXPECT_FALSE(IsNumericText(QString(400, u'9'), english));
    EXPECT_TRUE(IsNumericText(QString(300, u'9'), english));
    EXPECT_EQ(ReadNumber(u"0."_s + QString(400, u'0') + u'1', english), 0) << "as good as zero";
    EXPECT_EQ(ReadNumber(QString(400, u'0') + u'7', english), 7);
}

TEST(NumberText, TheSameMarkForBothIsTheDecimalOneFirst) {
    const NumberMarks same{u"."_s, u"."_s};
    EXPECT_EQ(ReadNumber(u"1.5", same), 1.5);
    EXPECT_FALSE(IsNumericText(u"1.5.0", same));
}

TEST(NumberText, MissingMarksAreNoMarks) {
    const NumberMarks none;
    EXPECT_EQ(ReadNumber(u"15", none), 15);
    EXPECT_FALSE(IsNumericText(u"1.5", none));
}

TEST(NumberText, TheMarksOfTheUserAreThoseOfHisMoney) {
    const MoneyLocale locale({.decimalSeparator = u"::"_s, .thousandSeparator = u"' "_s});
    EXPECT_EQ(NumberMarks::OfTheUser().decimalSeparator, u"::"_s);
    EXPECT_EQ(NumberMarks::OfTheUser().thousandSeparator, u"' "_s);
}

struct Writing {
    const NumberMarks* marks;
    double number;
    QString text;
};

TEST(GeneralText, IsTheShortestPlainForm) {
    const Writing writings[] = {
        {&english, 0, u"0"_s},
        {&english, -0.0, u"0"_s},
        {&english, 100, u"100"_s},
        {&english, 12.5, u"12.5"_s},
        {&english, -12.05, u"-12.05"_s},
        {&english, 0.1, u"0.1"_s},
        {&english, 1234567.89, u"1234567.89"_s},
        {&english, 1e21, u"1000000000000000000000"_s},
        {&english, 1e-7, u"0.0000001"_s},
        {&german, 1234567.89, u"1234567,89"_s},
        {&wide, -0.5, u"-0::5"_s},
    };
    for (const Writing& writing : writings) {
        EXPECT_EQ(GeneralText(writing.number, *writing.marks), writing.text);
    }
}

TEST(GeneralText, ReadsAsTheNumberItIsMadeOf) {
    for (const double number : {0.1, 1.0 / 3, 1e15 + 0.3, 123456789012345678.0,
                                std::numeric_limits<double>::max(), std::numeric_limits<double>::min()}) {
        EXPECT_EQ(ReadNumber(GeneralText(number, german), german), number);
        EXPECT_EQ(ReadNumber(GeneralText(-number, english), english), -number);
    }
}

TEST(GeneralText, OfWhatIsNoNumberIsZero) {
    EXPECT_EQ(GeneralText(std::numeric_limits<double>::infinity(), english), u"0"_s);
    EXPECT_EQ(GeneralText(-std::numeric_limits<double>::infinity(), english), u"0"_s);
    EXPECT_EQ(GeneralText(std::numeric_limits<double>::quiet_NaN(), english), u"0"_s);
}

TEST(DecimalSum, ComesOutAsOnPaper) {
    EXPECT_EQ(DecimalSum(0.7, 0.1), 0.8);
    EXPECT_EQ(DecimalSum(0.1, 0.2), 0.3);
    EXPECT_EQ(DecimalSum(0.3, -0.1), 0.2);
    EXPECT_EQ(DecimalSum(1, -1.25), -0.25);
    EXPECT_EQ(DecimalSum(1234567890123456, 1), 1234567890123457);
    EXPECT_EQ(DecimalSum(5, 0), 5);
}

TEST(DecimalSum, GoesBeyondWhatADoubleHoldsWithoutHarm) {
    const double most = std::numeric_limits<double>::max();
    EXPECT_EQ(DecimalSum(most, most), std::numeric_limits<double>::infinity());
}

}  // namespace
