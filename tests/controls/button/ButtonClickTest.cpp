#include "button/ButtonForm.h"

#include <QMouseEvent>
#include <QPixmap>
#include <QTest>

#include <gtest/gtest.h>

namespace {

using controls::ButtonStates;

class ButtonClickTest : public ::testing::Test, protected ButtonForm {
protected:
    QPoint Middle() const { return button.geometry().center(); }
    void DoubleClick(Qt::MouseButton mouseButton) {
        QTest::mouseDClick(window.windowHandle(), mouseButton, Qt::NoModifier, Middle());
    }
};

TEST_F(ButtonClickTest, PressedAndReleasedInsideIsAClick) {
    mouse.MoveTo(button);
    mouse.Press();
    EXPECT_EQ(clicks, 0);
    mouse.Release();
    EXPECT_EQ(clicks, 1);
}

TEST_F(ButtonClickTest, DraggedOffAndBackIsAClick) {
    mouse.MoveTo(button);
    mouse.Press();
    EXPECT_EQ(button.ButtonState(), ButtonStates::Down);
    mouse.MoveTo(button, {30, 60});
    EXPECT_EQ(button.ButtonState(), ButtonStates::Hover);
    mouse.MoveTo(button);
    EXPECT_EQ(button.ButtonState(), ButtonStates::Down);
    mouse.Release();
    EXPECT_EQ(button.ButtonState(), ButtonStates::Hover);
    EXPECT_EQ(clicks, 1);
}

TEST_F(ButtonClickTest, DraggedOffAndReleasedIsNoClick) {
    mouse.MoveTo(button);
    mouse.Press();
    mouse.MoveTo(neighbour);
    mouse.Release();
    EXPECT_EQ(clicks, 0);
    EXPECT_EQ(neighbourClicks, 0);
}

TEST_F(ButtonClickTest, ReleasedOnThePixelBeyondTheLastIsNoClickThoughItLooksHovered) {
    mouse.MoveTo(button);
    mouse.Press();
    mouse.MoveTo(button, {105, 12});
    EXPECT_EQ(button.ButtonState(), ButtonStates::Down);
    mouse.Release();
    EXPECT_EQ(clicks, 0);
}

TEST_F(ButtonClickTest, PressedElsewhereAndReleasedOnItIsNoClick) {
    MoveToGround();
    mouse.Press();
    mouse.MoveTo(button);
    mouse.Release();
    EXPECT_EQ(clicks, 0);
}

TEST_F(ButtonClickTest, OnlyTheLeftButtonClicks) {
    for (const Qt::MouseButton other : {Qt::RightButton, Qt::MiddleButton, Qt::BackButton}) {
        mouse.Click(button, other);
    }
    EXPECT_EQ(clicks, 0);
}

TEST_F(ButtonClickTest, AnotherButtonLetGoMeanwhileDoesNotEndThePress) {
    mouse.MoveTo(button);
    mouse.Press(Qt::LeftButton);
    mouse.Press(Qt::RightButton);
    mouse.Release(Qt::RightButton);
    EXPECT_EQ(clicks, 0);
    mouse.Release(Qt::LeftButton);
    EXPECT_EQ(clicks, 1);
}

TEST_F(ButtonClickTest, ADoubleClickIsOneClick) {
    mouse.MoveTo(button);
    DoubleClick(Qt::LeftButton);
    EXPECT_EQ(clicks, 1);
    EXPECT_EQ(button.ButtonState(), ButtonStates::Hover);
    mouse.Click(button);
    EXPECT_EQ(clicks, 2) << "the next click counts again";
}

TEST_F(ButtonClickTest, TheSecondHalfOfADoubleClickThatBeganElsewhereIsNone) {
    // As when the first half has closed the dialog over the button.
    const QPointF middle = button.rect().center();
    for (const QEvent::Type type : {QEvent::MouseButtonDblClick, QEvent::MouseButtonRelease}) {
        const bool isPress = type == QEvent::MouseButtonDblClick;
        QMouseEvent half(type, middle, button.mapToGlobal(middle), Qt::LeftButton,
                         isPress ? Qt::LeftButton : Qt::NoButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&button, &half);
    }
    EXPECT_EQ(clicks, 0);
}

TEST_F(ButtonClickTest, ADisabledButtonIsNotClicked) {
    button.SetEnabled(false);
    mouse.Click(button);
    EXPECT_EQ(clicks, 0);
}

TEST_F(ButtonClickTest, BothEnterKeysClick) {
    button.setFocus();
    QTest::keyClick(&button, Qt::Key_Return);
    EXPECT_EQ(clicks, 1);
    QTest::keyClick(&button, Qt::Key_Enter);
    EXPECT_EQ(clicks, 2);
}

TEST_F(ButtonClickTest, EnterClicksADisabledButtonToo) {
    button.setFocus();
    button.SetEnabled(false);
    QTest::keyClick(window.windowHandle(), Qt::Key_Return);
    EXPECT_EQ(clicks, 1);
}

TEST_F(ButtonClickTest, EnterGoesToTheButtonWithTheFocusAlone) {
    neighbour.setFocus();
    QTest::keyClick(window.windowHandle(), Qt::Key_Return);
    EXPECT_EQ(clicks, 0);
    EXPECT_EQ(neighbourClicks, 1);
}

TEST_F(ButtonClickTest, NoOtherKeyClicks) {
    button.setFocus();
    for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Escape, Qt::Key_A, Qt::Key_F1, Qt::Key_Select}) {
        QTest::keyClick(&button, key);
    }
    EXPECT_EQ(clicks, 0);
}

TEST_F(ButtonClickTest, DefaultAndCancelMakeNoKeysOfTheForm) {
    button.SetDefault(true);
    neighbour.SetCancel(true);
    QTest::keyClick(window.windowHandle(), Qt::Key_Return);
    QTest::keyClick(window.windowHandle(), Qt::Key_Escape);
    EXPECT_EQ(clicks, 0);
    EXPECT_EQ(neighbourClicks, 0);
}

TEST_F(ButtonClickTest, TheProgramCanPressItIfEnabled) {
    button.DoClick();
    EXPECT_EQ(clicks, 1);
    button.SetEnabled(false);
    button.DoClick();
    EXPECT_EQ(clicks, 1);
    EXPECT_EQ(button.ButtonState(), ButtonStates::Normal);
}

/// A button with an icon of 16 by 9 pixels, which stands at (44.5, 8) to (60.5, 17).
class ButtonIconClickTest : public ButtonClickTest {
protected:
    ButtonIconClickTest() {
        QPixmap icon(16, 9);
        icon.fill(Qt::red);
        button.SetPic(icon);
    }

    void PressAndRelease(QPoint place, Qt::MouseButton mouseButton) {
        mouse.MoveTo(button, place);
        mouse.Press(mouseButton);
        mouse.Release(mouseButton);
    }
};

TEST_F(ButtonIconClickTest, AClickOnTheIconIsOneClick) {
    PressAndRelease({50, 12}, Qt::LeftButton);
    EXPECT_EQ(clicks, 1);
}

TEST_F(ButtonIconClickTest, AnyButtonLetGoOnTheIconIsAClick) {
    PressAndRelease({50, 12}, Qt::RightButton);
    EXPECT_EQ(clicks, 1);
    PressAndRelease({50, 12}, Qt::MiddleButton);
    EXPECT_EQ(clicks, 2);
    PressAndRelease({40, 12}, Qt::RightButton);
    EXPECT_EQ(clicks, 2);
}

TEST_F(ButtonIconClickTest, ADoubleClickOnTheIconIsOneClickOfAnyButton) {
    int expected = 0;
    for (const Qt::MouseButton mouseButton : {Qt::LeftButton, Qt::RightButton, Qt::MiddleButton}) {
        mouse.MoveTo(button);
        DoubleClick(mouseButton);
        EXPECT_EQ(clicks, ++expected) << mouseButton;
    }
    PressAndRelease({50, 12}, Qt::RightButton);
    EXPECT_EQ(clicks, ++expected);
}

TEST_F(ButtonIconClickTest, TheEdgesOfTheIconCount) {
    PressAndRelease({45, 8}, Qt::RightButton);
    EXPECT_EQ(clicks, 1);
    PressAndRelease({60, 17}, Qt::RightButton);
    EXPECT_EQ(clicks, 2);
    for (const QPoint beside : {QPoint(44, 12), QPoint(61, 12), QPoint(50, 7), QPoint(50, 18)}) {
        PressAndRelease(beside, Qt::RightButton);
    }
    EXPECT_EQ(clicks, 2);
}

TEST_F(ButtonIconClickTest, TheIconOfADisabledButtonIsNotClicked) {
    button.SetEnabled(false);
    PressAndRelease({50, 12}, Qt::LeftButton);
    PressAndRelease({50, 12}, Qt::RightButton);
    EXPECT_EQ(clicks, 0);
}

TEST_F(ButtonIconClickTest, LetGoOutsideTheButtonTheIconIsNotClicked) {
    button.resize(50, 25);
    mouse.MoveTo(button, {20, 12});
    mouse.Press(Qt::RightButton);
    mouse.MoveTo(button, {55, 12});
    mouse.Release(Qt::RightButton);
    EXPECT_EQ(clicks, 0);
}

TEST_F(ButtonIconClickTest, WithoutTheIconItsPlaceIsNothingSpecial) {
    button.SetPic({});
    PressAndRelease({50, 12}, Qt::RightButton);
    EXPECT_EQ(clicks, 0);
}

}  // namespace
