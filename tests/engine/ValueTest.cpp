#include "engine/Value.h"
#include "platform/Failure.h"
#include "support/PrintQt.h"

#include <gtest/gtest.h>

namespace engine {

namespace {

template <class Action>
int FailureOf(Action action) {
    try {
        action();
    } catch (const platform::Failure& failure) {
        return failure.Number();
    }
    return 0;
}

TEST(ValueTest, Numbers) {
    EXPECT_EQ(ToDouble(true), -1);
    EXPECT_EQ(ToDouble(false), 0);
    EXPECT_EQ(ToDouble(qint64(7)), 7);
    EXPECT_EQ(ToDouble(Currency::FromScaled(5000)), 0.5);
    EXPECT_EQ(ToDouble(QStringLiteral(" 2.5 ")), 2.5);
    EXPECT_EQ(FailureOf([] { ToDouble(Null()); }), platform::FailureNumber::InvalidUseOfNull);
    EXPECT_EQ(FailureOf([] { ToDouble(QStringLiteral("abc")); }), platform::FailureNumber::TypeMismatch);
    EXPECT_EQ(FailureOf([] { ToDouble(FromDate(QDate(2026, 1, 1))); }),
              platform::FailureNumber::TypeMismatch);
}

TEST(ValueTest, YesIsAnythingButZero) {
    EXPECT_TRUE(ToBoolean(qint64(-1)));
    EXPECT_TRUE(ToBoolean(0.5));
    EXPECT_FALSE(ToBoolean(qint64(0)));
}

TEST(ValueTest, Dates) {
    EXPECT_EQ(ToDate(FromDate(QDate(2026, 3, 29))), QDate(2026, 3, 29));
    EXPECT_EQ(FailureOf([] { ToDate(Null()); }), platform::FailureNumber::InvalidUseOfNull);
    EXPECT_EQ(FailureOf([] { ToDate(qint64(5)); }), platform::FailureNumber::TypeMismatch);
}

TEST(ValueTest, Texts) {
    EXPECT_EQ(ToText(QStringLiteral("007")), QStringLiteral("007"));
    EXPECT_EQ(ToText(qint64(7)), QStringLiteral("7"));
    EXPECT_EQ(ToText(2.5), QStringLiteral("2.5"));
    EXPECT_EQ(ToText(true), QStringLiteral("-1"));
    EXPECT_EQ(ToText(Currency::FromScaled(12345)), QStringLiteral("1.2345"));
    EXPECT_EQ(ToText(FromDate(QDate(1234, 1, 2))), QStringLiteral("1234-01-02"));
    EXPECT_EQ(ToText(QDateTime(QDate(2026, 1, 2), QTime(3, 4, 5), Qt::UTC)),
              QStringLiteral("2026-01-02 03:04:05"));
    EXPECT_EQ(FailureOf([] { ToText(Null()); }), platform::FailureNumber::InvalidUseOfNull);
    EXPECT_EQ(FailureOf([] { ToText(QByteArray("x")); }), platform::FailureNumber::TypeMismatch);
}

}  // namespace

}  // namespace engine
