#include "platform/Clock.h"
#include "platform/NoDate.h"
#include "support/PrintQt.h"

#include <gtest/gtest.h>

namespace {

TEST(NoDateTest, IsTodayInTheYear1234) {
    platform::PinToday(QDate(2026, 6, 10));
    EXPECT_EQ(platform::NoDate(), QDate(1234, 6, 10));
    platform::PinToday(QDate(2024, 2, 29));
    EXPECT_EQ(platform::NoDate(), QDate(1234, 2, 28));
    platform::PinToday(QDate());
    EXPECT_TRUE(platform::IsNoDate(QDate(1234, 12, 31)));
    EXPECT_TRUE(platform::IsNoDate(QDate(1234, 1, 1)));
    EXPECT_FALSE(platform::IsNoDate(QDate(1235, 1, 1)));
}

}  // namespace
