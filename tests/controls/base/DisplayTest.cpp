#include "controls/base/Control.h"
#include "controls/base/Display.h"
#include "controls/base/Font.h"
#include "support/OnScreen.h"

#include <gtest/gtest.h>

namespace {

using namespace controls;

TEST(Display, AtNinetySixDotsAPixelIsFifteenTwips) {
    EXPECT_EQ(TwipsPerPixel(), 15);
    EXPECT_EQ(ToPixels(285), 19);
    EXPECT_EQ(ToTwips(19), 285);
}

TEST(Display, APositionFallsOnTheNearestPixel) {
    EXPECT_EQ(ToPixels(7), 0);
    EXPECT_EQ(ToPixels(8), 1);
    EXPECT_EQ(ToPixels(-8), -1);
}

TEST(Display, LengthsFollowTheDensity) {
    const AnotherDensity density(12);
    EXPECT_EQ(ToPixels(240), 20);
    EXPECT_EQ(ToTwips(20), 240);
    EXPECT_EQ(TwipsAt(1.5), 18);
}

TEST(Display, TextGrowsWithTheDensity) {
    EXPECT_EQ(ControlFont().pixelSize(), 11);
    const AnotherDensity density(20);
    EXPECT_EQ(ControlFont().pixelSize(), 8);
    EXPECT_EQ(ControlFont(13.5, Weight::Bold).pixelSize(), 14);
}

TEST(Display, AControlIsPlacedInTwips) {
    Control control;
    control.Move(150, 300, 1500, 285);
    EXPECT_EQ(control.geometry(), QRect(10, 20, 100, 19));
    control.SetWidth(3000);
    control.SetHeight(150);
    EXPECT_EQ(control.Width(), 3000);
    EXPECT_EQ(control.Height(), 150);
    control.Move(0, 15);
    EXPECT_EQ(control.pos(), QPoint(0, 1));
}

}  // namespace
