#include "platform/Clock.h"

#include <gtest/gtest.h>

namespace {

TEST(Clock, TodayIsTheComputersDay) {
    const QDate before = QDate::currentDate();
    const QDate today = platform::Today();
    EXPECT_LE(before, today);
    EXPECT_LE(today, QDate::currentDate());
}

TEST(Clock, NowIsThePresentTime) {
    const QDateTime before = QDateTime::currentDateTime();
    const QDateTime now = platform::Now();
    EXPECT_LE(before, now);
    EXPECT_LE(now, QDateTime::currentDateTime());
}

TEST(Clock, PinnedDayIsTodayAndNow) {
    platform::PinToday(QDate(2024, 2, 29));
    EXPECT_EQ(platform::Today(), QDate(2024, 2, 29));
    EXPECT_EQ(platform::Now().date(), QDate(2024, 2, 29));
    platform::PinToday(QDate());
}

TEST(Clock, TimeGoesOnRunningOnAPinnedDay) {
    platform::PinToday(QDate(2024, 6, 15));
    const QTime before = QTime::currentTime();
    const QTime pinned = platform::Now().time();
    platform::PinToday(QDate());
    const int elapsed = before.msecsTo(pinned);
    EXPECT_TRUE(elapsed >= 0 || pinned < before.addSecs(3600)) << elapsed;
    EXPECT_LT(qAbs(elapsed) % 86'000'000, 5'000);
}

TEST(Clock, InvalidDayLetsTheRealOneBackIn) {
    platform::PinToday(QDate(1999, 1, 1));
    platform::PinToday(QDate());
    EXPECT_GE(platform::Today(), QDate(2020, 1, 1));
}

}  // namespace
