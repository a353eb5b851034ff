#include "controls/base/LeadingNumber.h"

#include <gtest/gtest.h>

namespace {

using controls::LeadingNumber;

TEST(LeadingNumber, IsWhatTheTextBeginsWith) {
    EXPECT_EQ(LeadingNumber(u"12"), 12);
    EXPECT_EQ(LeadingNumber(u"  -3.25abc"), -3.25);
    EXPECT_EQ(LeadingNumber(u"+4"), 4);
    EXPECT_EQ(LeadingNumber(u".5"), 0.5);
    EXPECT_EQ(LeadingNumber(u"5."), 5);
    EXPECT_EQ(LeadingNumber(u"1,5"), 1);
    EXPECT_EQ(LeadingNumber(u"1.2.3"), 1.2);
}

TEST(LeadingNumber, IsZeroWithoutOne) {
    EXPECT_EQ(LeadingNumber(u""), 0);
    EXPECT_EQ(LeadingNumber(u"-"), 0);
    EXPECT_EQ(LeadingNumber(u"."), 0);
    EXPECT_EQ(LeadingNumber(u"abc12"), 0);
}

}  // namespace
