#include "engine/jet/JetTest.h"
#include "engine/jet/rules/DefaultValue.h"
#include "platform/Clock.h"
#include "support/PrintQt.h"

#include <optional>

namespace engine::jet {
namespace {

const QDate Day(2026, 3, 14);

Column ColumnOf(std::uint8_t type) {
    Column column;
    column.name = QStringLiteral("c");
    column.type = type;
    return column;
}

std::optional<Value> DefaultOf(const char16_t* expression, std::uint8_t type) {
    const DefaultValue value(QString::fromUtf16(expression), ColumnOf(type));
    return value.IsUnderstood() ? std::optional(value.Evaluate()) : std::nullopt;
}

TEST(JetDefaultValue, NumbersMayHaveASignAndOneEqualSign) {
    EXPECT_EQ(DefaultOf(u"0", ColumnType::Long), Value(qint64{0}));
    EXPECT_EQ(DefaultOf(u" -1 ", ColumnType::Short), Value(qint64{-1}));
    EXPECT_EQ(DefaultOf(u"7.5", ColumnType::Double), Value(7.5));
    EXPECT_EQ(DefaultOf(u"-.5", ColumnType::Double), Value(-0.5));
    EXPECT_EQ(DefaultOf(u" = 0", ColumnType::Currency), Value(Currency()));
    EXPECT_EQ(DefaultOf(u"==0", ColumnType::Long), std::nullopt);
    EXPECT_EQ(DefaultOf(u"7,5", ColumnType::Double), std::nullopt);
    EXPECT_EQ(DefaultOf(u"1 1", ColumnType::Double), std::nullopt);
    EXPECT_EQ(DefaultOf(u"--1", ColumnType::Double), std::nullopt);
    EXPECT_EQ(DefaultOf(u"-", ColumnType::Double), std::nullopt);
    EXPECT_EQ(DefaultOf(u"1.2.3", ColumnType::Double), std::nullopt);
}

TEST(JetDefaultValue, TextsStandInEitherQuotesWithDoubledOnesInside) {
    EXPECT_EQ(DefaultOf(u"\"House\"", ColumnType::Text), Value(QStringLiteral("House")));
    EXPECT_EQ(DefaultOf(u"'House'", ColumnType::Memo), Value(QStringLiteral("House")));
    EXPECT_EQ(DefaultOf(u"=\"x \"\"y\"\"\"", ColumnType::Text), Value(QStringLiteral("x \"y\"")));
    EXPECT_EQ(DefaultOf(u"\"\"", ColumnType::Text), Value(QString()));
    EXPECT_EQ(DefaultOf(u"\"House", ColumnType::Text), std::nullopt);
    EXPECT_EQ(DefaultOf(u"\"a\" & \"b\"", ColumnType::Text), std::nullopt);
}

TEST(JetDefaultValue, ABareWordIsATextForATextColumnAlone) {
    EXPECT_EQ(DefaultOf(u"House", ColumnType::Text), Value(QStringLiteral("House")));
    EXPECT_EQ(DefaultOf(u"House", ColumnType::Long), std::nullopt);
    EXPECT_EQ(DefaultOf(u"Semi detached", ColumnType::Text), std::nullopt);
    EXPECT_EQ(DefaultOf(u"[House]", ColumnType::Text), std::nullopt);
}

TEST(JetDefaultValue, YesAndNoHaveSeveralWords) {
    for (const char16_t* yes : {u"Yes", u"TRUE", u"on"}) {
        EXPECT_EQ(DefaultOf(yes, ColumnType::Long), Value(qint64{-1}));
        EXPECT_EQ(DefaultOf(yes, ColumnType::Text), Value(QStringLiteral("-1")));
    }
    for (const char16_t* no : {u"No", u"false", u"=Off"}) {
        EXPECT_EQ(DefaultOf(no, ColumnType::Byte), Value(qint64{0}));
    }
}

TEST(JetDefaultValue, NothingAndNullAreNull) {
    for (const char16_t* null : {u"", u"  ", u"Null", u"=null", u"="}) {
        EXPECT_EQ(DefaultOf(null, ColumnType::Text), Value());
        EXPECT_EQ(DefaultOf(null, ColumnType::Guid), Value());
    }
}

TEST(JetDefaultValue, TheClockIsAskedAtEachRow) {
    const DefaultValue today(QStringLiteral("date()"), ColumnOf(ColumnType::DateTime));
    platform::PinToday(Day);
    EXPECT_EQ(today.Evaluate(), FromDate(Day));
    platform::PinToday(Day.addDays(1));
    EXPECT_EQ(today.Evaluate(), FromDate(Day.addDays(1)));
    platform::PinToday(Day);
    EXPECT_EQ(DefaultOf(u"=DATE", ColumnType::DateTime), FromDate(Day));
    const auto before = platform::Now();
    const auto now = std::get<QDateTime>(DefaultOf(u"Now()", ColumnType::DateTime).value());
    EXPECT_EQ(now.date(), Day);
    EXPECT_EQ(now.time().msec(), 0);
    EXPECT_LT(std::abs(before.time().secsTo(now.time())), 5);
    EXPECT_EQ(std::get<QDateTime>(DefaultOf(u"Time()", ColumnType::DateTime).value()).date(),
              QDate(1899, 12, 30));
    platform::PinToday({});
    for (const char16_t* other : {u"Date(1)", u"Date(", u"Now()+1", u"Month(Date())"}) {
        EXPECT_EQ(DefaultOf(other, ColumnType::DateTime), std::nullopt);
    }
    EXPECT_EQ(DefaultOf(u"Date()", ColumnType::Text), std::nullopt);
    EXPECT_EQ(DefaultOf(u"Now()", ColumnType::Long), std::nullopt);
}

TEST(JetDefaultValue, DatesBeginWithTheMonthAndNameTheCentury) {
    EXPECT_EQ(DefaultOf(u"#1/31/2020#", ColumnType::DateTime), FromDate(QDate(2020, 1, 31)));
    EXPECT_EQ(DefaultOf(u"0", ColumnType::DateTime), FromDate(QDate(1899, 12, 30)));
    for (const char16_t* other : {u"#31/1/2020#", u"#1/31/20#", u"#1/31/2020", u"##"}) {
        EXPECT_EQ(DefaultOf(other, ColumnType::DateTime), std::nullopt);
    }
    EXPECT_EQ(DefaultOf(u"#1/31/2020#", ColumnType::Text), std::nullopt);
    EXPECT_EQ(DefaultOf(u"#1/31/2020#", ColumnType::Long), std::nullopt);
}

TEST(JetDefaultValue, AValueIsTurnedIntoTheKindThatTheColumnHolds) {
    EXPECT_EQ(DefaultOf(u"\"12\"", ColumnType::Long), Value(qint64{12}));
    EXPECT_EQ(DefaultOf(u"7.5", ColumnType::Currency), Value(Currency::FromScaled(75000)));
    EXPECT_EQ(DefaultOf(u"7", ColumnType::Double), Value(7.0));
    EXPECT_EQ(DefaultOf(u"0.1", ColumnType::Single), Value(double{0.1F}));
    EXPECT_EQ(DefaultOf(u"7.5", ColumnType::Long), std::nullopt) << "nobody guesses which way it is rounded";
    EXPECT_EQ(DefaultOf(u"256", ColumnType::Byte), std::nullopt);
    EXPECT_EQ(DefaultOf(u"\"twelve\"", ColumnType::Long), std::nullopt);
    EXPECT_EQ(DefaultOf(u"12", ColumnType::Text), Value(QStringLiteral("12")));
    EXPECT_EQ(DefaultOf(u"0", ColumnType::Guid), std::nullopt);
    EXPECT_EQ(DefaultOf(u"\"a\"", ColumnType::DateTime), std::nullopt);
}

TEST(JetDefaultValue, WhatIsNotKnownIsNotGuessed) {
    for (const char16_t* other : {u"GenGUID()", u"GenUniqueID()", u"DLookUp(\"a\",\"b\")", u"1+1", u"[other]",
                                  u"(1)", u"@", u"1e5"}) {
        EXPECT_EQ(DefaultOf(other, ColumnType::Text), std::nullopt)
            << QString::fromUtf16(other).toStdString();
    }
    const DefaultValue endless(QString(3000, QLatin1Char('9')), ColumnOf(ColumnType::Double));
    EXPECT_FALSE(endless.IsUnderstood());
    EXPECT_EQ(endless.Expression().size(), 3000);
}

}  // namespace
}  // namespace engine::jet
