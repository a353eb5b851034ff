#include "button/ButtonForm.h"

#include <QTest>

#include <gtest/gtest.h>

namespace {

using controls::ButtonStates;

class ButtonFocusTest : public ::testing::Test, protected ButtonForm {};

TEST_F(ButtonFocusTest, AClickGivesItTheFocus) {
    mouse.Click(button);
    EXPECT_TRUE(button.hasFocus());
}

TEST_F(ButtonFocusTest, TabReachesIt) {
    QTest::keyClick(window.windowHandle(), Qt::Key_Tab);
    EXPECT_TRUE(button.hasFocus());
    EXPECT_EQ(button.ButtonState(), ButtonStates::Hover);
}

TEST_F(ButtonFocusTest, DisabledItPassesTheFocusOnAndStillEntersHover) {
    button.SetEnabled(false);
    button.setFocus();
    EXPECT_EQ(button.ButtonState(), ButtonStates::Hover);
    EXPECT_TRUE(button.hasFocus());
    QCoreApplication::processEvents();
    EXPECT_TRUE(neighbour.hasFocus());
    EXPECT_EQ(button.ButtonState(), ButtonStates::Normal);
}

TEST_F(ButtonFocusTest, EnabledItKeepsTheFocus) {
    button.setFocus();
    QCoreApplication::processEvents();
    EXPECT_TRUE(button.hasFocus());
}

TEST_F(ButtonFocusTest, AClickOnADisabledButtonPassesTheFocusOn) {
    button.SetEnabled(false);
    mouse.Click(button);
    QCoreApplication::processEvents();
    EXPECT_TRUE(neighbour.hasFocus());
    EXPECT_EQ(clicks, 0);
}

TEST_F(ButtonFocusTest, TheFocusItHasWhenItIsDisabledStays) {
    button.setFocus();
    button.SetEnabled(false);
    QCoreApplication::processEvents();
    EXPECT_TRUE(button.hasFocus());
}

TEST_F(ButtonFocusTest, OtherWindowsTakingTheFocusGiveNormal) {
    button.setFocus();
    QWidget other;
    ShowAndActivate(other);
    EXPECT_EQ(button.ButtonState(), ButtonStates::Normal);
}

}  // namespace
