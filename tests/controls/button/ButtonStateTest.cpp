#include "button/ButtonForm.h"

#include <QTest>

#include <gtest/gtest.h>

namespace {

using controls::ButtonStates;

class ButtonStateTest : public ::testing::Test, protected ButtonForm {
protected:
    void DragOff() { mouse.MoveTo(button, {30, 60}); }
    ButtonStates State() const { return button.ButtonState(); }
};

TEST_F(ButtonStateTest, IsNormalAtFirst) {
    EXPECT_EQ(State(), ButtonStates::Normal);
    EXPECT_FALSE(button.CaptureHeld());
    EXPECT_FALSE(button.MouseDownFlag());
}

TEST_F(ButtonStateTest, ThePointerOverItGivesHoverAndTakesTheCapture) {
    mouse.MoveTo(button);
    EXPECT_EQ(State(), ButtonStates::Hover);
    EXPECT_TRUE(button.CaptureHeld());
}

TEST_F(ButtonStateTest, AppearingUnderAPointerThatRestsGivesHover) {
    button.hide();
    mouse.MoveTo(button);
    button.show();
    QCoreApplication::processEvents();
    EXPECT_EQ(State(), ButtonStates::Hover);
    EXPECT_TRUE(button.CaptureHeld());
    MoveToGround();
    EXPECT_EQ(State(), ButtonStates::Normal);
}

TEST_F(ButtonStateTest, LettingGoOverItWhatWasPressedElsewhereGivesHover) {
    MoveToGround();
    mouse.Press();
    mouse.MoveTo(button);
    EXPECT_EQ(State(), ButtonStates::Normal);
    mouse.Release();
    EXPECT_EQ(State(), ButtonStates::Hover);
}

TEST_F(ButtonStateTest, TheFocusArrivingGivesHover) {
    button.setFocus();
    EXPECT_EQ(State(), ButtonStates::Hover);
    EXPECT_FALSE(button.CaptureHeld());
}

TEST_F(ButtonStateTest, ThePointerLeavingGivesNormalAndReleasesTheCapture) {
    mouse.MoveTo(button);
    MoveToGround();
    EXPECT_EQ(State(), ButtonStates::Normal);
    EXPECT_FALSE(button.CaptureHeld());
}

TEST_F(ButtonStateTest, ThePointerLeavingTheWholeWindowGivesNormal) {
    mouse.MoveTo(button);
    mouse.LeaveWindow();
    EXPECT_EQ(State(), ButtonStates::Normal);
    EXPECT_FALSE(button.CaptureHeld());
}

TEST_F(ButtonStateTest, APressGivesDown) {
    mouse.MoveTo(button);
    mouse.Press();
    EXPECT_EQ(State(), ButtonStates::Down);
    EXPECT_TRUE(button.MouseDownFlag());
}

TEST_F(ButtonStateTest, TheFocusLeavingGivesNormal) {
    button.setFocus();
    field.setFocus();
    EXPECT_EQ(State(), ButtonStates::Normal);
}

TEST_F(ButtonStateTest, ThePointerLeavingAFocusedButtonGivesNormal) {
    button.setFocus();
    mouse.MoveTo(button);
    MoveToGround();
    EXPECT_TRUE(button.hasFocus());
    EXPECT_EQ(State(), ButtonStates::Normal);
}

TEST_F(ButtonStateTest, TheFocusLeavingGivesNormalUnderThePointerToo) {
    button.setFocus();
    mouse.MoveTo(button);
    field.setFocus();
    EXPECT_EQ(State(), ButtonStates::Normal);
    EXPECT_TRUE(button.CaptureHeld());
    mouse.MoveTo(button, {7, 7});
    EXPECT_EQ(State(), ButtonStates::Hover);
}

TEST_F(ButtonStateTest, DraggedOutWithTheButtonHeldGivesHover) {
    mouse.MoveTo(button);
    mouse.Press();
    DragOff();
    EXPECT_EQ(State(), ButtonStates::Hover);
    EXPECT_TRUE(button.CaptureHeld());
    EXPECT_TRUE(button.MouseDownFlag());
}

TEST_F(ButtonStateTest, DraggedOutOfTheWindowGivesHoverToo) {
    mouse.MoveTo(button);
    mouse.Press();
    mouse.MoveTo(window, {-30, -30});
    EXPECT_EQ(State(), ButtonStates::Hover);
}

TEST_F(ButtonStateTest, DraggedBackWithTheButtonHeldGivesDown) {
    mouse.MoveTo(button);
    mouse.Press();
    DragOff();
    mouse.MoveTo(button);
    EXPECT_EQ(State(), ButtonStates::Down);
}

TEST_F(ButtonStateTest, ReleasedInsideGivesHover) {
    mouse.MoveTo(button);
    mouse.Press();
    mouse.Release();
    EXPECT_EQ(State(), ButtonStates::Hover);
    EXPECT_FALSE(button.MouseDownFlag());
    EXPECT_TRUE(button.CaptureHeld());
}

TEST_F(ButtonStateTest, ReleasedOutsideGivesNormalAndReleasesTheCapture) {
    mouse.MoveTo(button);
    mouse.Press();
    DragOff();
    mouse.Release();
    EXPECT_EQ(State(), ButtonStates::Normal);
    EXPECT_FALSE(button.CaptureHeld());
    EXPECT_FALSE(button.MouseDownFlag());
}

TEST_F(ButtonStateTest, TheRightButtonPressesLikeTheLeft) {
    mouse.MoveTo(button);
    mouse.Press(Qt::RightButton);
    EXPECT_EQ(State(), ButtonStates::Down);
    DragOff();
    EXPECT_EQ(State(), ButtonStates::Hover);
    mouse.Release(Qt::RightButton);
    EXPECT_EQ(State(), ButtonStates::Normal);
}

// Only the left and the right button count as held once the mouse moves.
TEST_F(ButtonStateTest, TheMiddleButtonPressesUntilTheMouseMoves) {
    mouse.MoveTo(button);
    mouse.Press(Qt::MiddleButton);
    EXPECT_EQ(State(), ButtonStates::Down);
    EXPECT_TRUE(button.MouseDownFlag());
    mouse.MoveTo(button, {7, 7});
    EXPECT_EQ(State(), ButtonStates::Hover);
    EXPECT_FALSE(button.MouseDownFlag());
    DragOff();
    EXPECT_EQ(State(), ButtonStates::Normal);
    EXPECT_FALSE(button.CaptureHeld());
    mouse.MoveTo(button);
    mouse.Release(Qt::MiddleButton);
    EXPECT_EQ(State(), ButtonStates::Hover);
}

TEST_F(ButtonStateTest, LettingGoOneOfTwoButtonsGivesHoverUntilTheMouseMoves) {
    mouse.MoveTo(button);
    mouse.Press(Qt::LeftButton);
    mouse.Press(Qt::RightButton);
    mouse.Release(Qt::RightButton);
    EXPECT_EQ(State(), ButtonStates::Hover);
    mouse.MoveTo(button, {7, 7});
    EXPECT_EQ(State(), ButtonStates::Down);
}

TEST_F(ButtonStateTest, TheSecondPressOfADoubleClickLooksLikeOneAndIsNoClick) {
    mouse.MoveTo(button);
    QTest::mouseDClick(&button, Qt::LeftButton);
    EXPECT_EQ(State(), ButtonStates::Down);
    QTest::mouseRelease(&button, Qt::LeftButton);
    EXPECT_EQ(State(), ButtonStates::Hover);
    EXPECT_EQ(clicks, 0);
}

TEST_F(ButtonStateTest, GoesOnFollowingMouseAndFocusWhileDisabled) {
    button.SetEnabled(false);
    mouse.MoveTo(button);
    EXPECT_EQ(State(), ButtonStates::Hover);
    MoveToGround();
    EXPECT_EQ(State(), ButtonStates::Normal);
}

TEST_F(ButtonStateTest, TheOuterEdgesOfTheRightAndBottomCountAsInside) {
    mouse.MoveTo(button);
    mouse.MoveTo(button, {105, 12});
    EXPECT_EQ(State(), ButtonStates::Hover);
    mouse.MoveTo(button, {106, 12});
    EXPECT_EQ(State(), ButtonStates::Normal);
    mouse.MoveTo(button);
    mouse.MoveTo(button, {50, 25});
    EXPECT_EQ(State(), ButtonStates::Hover);
    mouse.MoveTo(button, {50, 26});
    EXPECT_EQ(State(), ButtonStates::Normal);
    mouse.MoveTo(button);
    mouse.MoveTo(button, {-1, 12});
    EXPECT_EQ(State(), ButtonStates::Normal);
}

TEST_F(ButtonStateTest, HiddenWhilePressedItComesBackAtRest) {
    mouse.MoveTo(button);
    mouse.Press();
    button.hide();
    EXPECT_EQ(State(), ButtonStates::Normal);
    EXPECT_FALSE(button.CaptureHeld());
    mouse.Release();
    MoveToGround();
    button.show();
    QCoreApplication::processEvents();
    EXPECT_EQ(State(), ButtonStates::Normal);
    EXPECT_EQ(clicks, 0);
}

}  // namespace
