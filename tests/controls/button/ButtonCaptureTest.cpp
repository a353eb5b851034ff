#include "button/ButtonForm.h"
#include "controls/button/MouseCapture.h"

#include <QComboBox>
#include <QDialog>
#include <QMenu>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

#include <memory>

namespace {

using namespace controls;

class ButtonCaptureTest : public ::testing::Test, protected ButtonForm {
protected:
    void ExpectAtRest() {
        EXPECT_EQ(button.ButtonState(), ButtonStates::Normal);
        EXPECT_FALSE(button.CaptureHeld());
        ExpectFree();
    }

    /// Nobody holds the capture.
    void ExpectFree() {
        EXPECT_TRUE(SetMouseCapture(&field));
        ReleaseMouseCapture();
    }
};

TEST_F(ButtonCaptureTest, LeavingOneButtonForTheNextPassesItOn) {
    mouse.MoveTo(button);
    ASSERT_TRUE(button.CaptureHeld());
    mouse.MoveTo(neighbour);
    EXPECT_EQ(button.ButtonState(), ButtonStates::Normal);
    EXPECT_FALSE(button.CaptureHeld());
    EXPECT_EQ(neighbour.ButtonState(), ButtonStates::Hover);
    EXPECT_TRUE(neighbour.CaptureHeld());
    mouse.MoveTo(button);
    EXPECT_EQ(neighbour.ButtonState(), ButtonStates::Normal);
    EXPECT_EQ(button.ButtonState(), ButtonStates::Hover);
}

TEST_F(ButtonCaptureTest, OverTheSharedEdgeOneButtonHoversAtATime) {
    mouse.MoveTo(button, {104, 12});
    mouse.MoveTo(neighbour, {0, 12});
    EXPECT_EQ(button.ButtonState(), ButtonStates::Hover);
    EXPECT_EQ(neighbour.ButtonState(), ButtonStates::Normal);
    mouse.MoveTo(neighbour, {1, 12});
    EXPECT_EQ(button.ButtonState(), ButtonStates::Normal);
    EXPECT_EQ(neighbour.ButtonState(), ButtonStates::Hover);
}

TEST_F(ButtonCaptureTest, AClickOnTheSharedEdgeIsOneOnTheButtonUnderThePointer) {
    mouse.MoveTo(button, {104, 12});
    mouse.MoveTo(neighbour, {0, 12});
    mouse.Press();
    EXPECT_EQ(button.ButtonState(), ButtonStates::Normal);
    EXPECT_EQ(neighbour.ButtonState(), ButtonStates::Down);
    mouse.Release();
    EXPECT_EQ(clicks, 0);
    EXPECT_EQ(neighbourClicks, 1);
}

// A jump without a move in between, as a finger or a fast hand on a slow machine makes it.
TEST_F(ButtonCaptureTest, AClickElsewhereWithoutAMoveBeforeIsNotSwallowed) {
    mouse.MoveTo(button);
    const QPoint place = neighbour.mapTo(&window, neighbour.rect().center());
    QTest::mouseClick(window.windowHandle(), Qt::LeftButton, Qt::NoModifier, place);
    EXPECT_EQ(clicks, 0);
    EXPECT_EQ(neighbourClicks, 1);
    EXPECT_EQ(button.ButtonState(), ButtonStates::Normal);
    EXPECT_FALSE(button.CaptureHeld());
}

TEST_F(ButtonCaptureTest, AClickIntoATextFieldAfterHoveringGivesItTheFocus) {
    button.setFocus();
    mouse.MoveTo(button);
    mouse.Click(field);
    EXPECT_TRUE(field.hasFocus());
    ExpectAtRest();
}

TEST_F(ButtonCaptureTest, WhereAnotherWindowHoldsItTheStateFollowsThePointer) {
    mouse.MoveTo(button);
    mouse.Press();
    ReleaseMouseCapture();
    ASSERT_TRUE(SetMouseCapture(&field));
    mouse.MoveTo(button, {30, 60});
    EXPECT_EQ(button.ButtonState(), ButtonStates::Hover);
    EXPECT_FALSE(button.CaptureHeld());
    mouse.MoveTo(button);
    EXPECT_EQ(button.ButtonState(), ButtonStates::Down);
    EXPECT_FALSE(button.CaptureHeld());
    ReleaseMouseCapture();
    mouse.MoveTo(button, {30, 12});
    EXPECT_TRUE(button.CaptureHeld());
}

TEST_F(ButtonCaptureTest, IsTakenAgainAtARelease) {
    mouse.MoveTo(button);
    mouse.Press();
    ReleaseMouseCapture();
    mouse.Release();
    EXPECT_FALSE(SetMouseCapture(&field));
    EXPECT_FALSE(button.CaptureHeld());
    MoveToGround();
    ExpectAtRest();
}

TEST_F(ButtonCaptureTest, PressedWithoutAMoveBeforeItStillEndsWithThePointerLeaving) {
    QTest::mouseClick(window.windowHandle(), Qt::LeftButton, Qt::NoModifier,
                      button.mapTo(&window, button.rect().center()));
    EXPECT_EQ(clicks, 1);
    MoveToGround();
    ExpectAtRest();
}

TEST_F(ButtonCaptureTest, EndsWhenTheButtonIsHidden) {
    mouse.MoveTo(button);
    button.hide();
    ExpectAtRest();
}

TEST_F(ButtonCaptureTest, EndsWhenTheButtonsWindowIsDisabled) {
    mouse.MoveTo(button);
    static_cast<QWidget&>(button).setEnabled(false);
    ExpectAtRest();
}

TEST_F(ButtonCaptureTest, APressIsForgottenWhenTheButtonsWindowIsDisabled) {
    mouse.MoveTo(button);
    mouse.Press();
    static_cast<QWidget&>(button).setEnabled(false);
    static_cast<QWidget&>(button).setEnabled(true);
    mouse.Release();
    EXPECT_EQ(clicks, 0);
}

TEST_F(ButtonCaptureTest, StaysWithAButtonThatIsDisabledByItsField) {
    mouse.MoveTo(button);
    button.SetEnabled(false);
    EXPECT_TRUE(button.CaptureHeld());
    MoveToGround();
    ExpectAtRest();
}

TEST_F(ButtonCaptureTest, EndsWhenAPopupOpens) {
    mouse.MoveTo(button);
    QMenu menu;
    menu.addAction(QStringLiteral("Copy"));
    menu.popup(window.mapToGlobal(QPoint(200, 100)));
    EXPECT_EQ(button.ButtonState(), ButtonStates::Normal);
    EXPECT_FALSE(button.CaptureHeld());
}

TEST_F(ButtonCaptureTest, ASiblingLaidOverTheButtonTakesThePointer) {
    mouse.MoveTo(button);
    QWidget cover(&window);
    cover.setGeometry(button.geometry());
    cover.show();
    mouse.MoveTo(button, {30, 12});
    ExpectAtRest();
}

TEST_F(ButtonCaptureTest, AModalDialogOpenedByTheClickGetsTheMouse) {
    int innerClicks = 0;
    QObject::connect(&button, &ctlButton::Click, [&] {
        QDialog dialog(&window);
        dialog.setGeometry(450, 300, 200, 100);
        ctlButton close({.Caption = QStringLiteral("Close")}, &dialog);
        close.setGeometry(20, 20, 105, 25);
        QObject::connect(&close, &ctlButton::Click, [&] {
            ++innerClicks;
            dialog.accept();
        });
        QTimer::singleShot(0, &dialog, [&] {
            ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
            EXPECT_EQ(button.ButtonState(), ButtonStates::Normal);
            EXPECT_FALSE(button.CaptureHeld());
            Mouse hand(dialog);
            hand.MoveTo(close);
            EXPECT_EQ(close.ButtonState(), ButtonStates::Hover);
            EXPECT_TRUE(close.CaptureHeld());
            hand.Press();
            hand.Release();
        });
        dialog.exec();
    });
    mouse.Click(button);
    EXPECT_EQ(innerClicks, 1);
    mouse.MoveTo(neighbour);
    EXPECT_EQ(neighbour.ButtonState(), ButtonStates::Hover);
    MoveToGround();
    ExpectAtRest();
}

TEST_F(ButtonCaptureTest, AModalDialogOpenedWhileHoveringEndsIt) {
    mouse.MoveTo(button);
    QDialog dialog(&window);
    dialog.open();
    ExpectAtRest();
}

TEST_F(ButtonCaptureTest, AnotherFormInFrontEndsIt) {
    mouse.MoveTo(button);
    QWidget form;
    ShowAndActivate(form);
    ExpectAtRest();
}

class DestroyedButtonTest : public ::testing::Test {
protected:
    DestroyedButtonTest() : button(new ctlButton({.Caption = QStringLiteral("Go")}, &window)), mouse(window) {
        window.resize(200, 100);
        button->setGeometry(20, 20, 105, 25);
        ShowAndActivate(window);
        QObject::connect(button.get(), &ctlButton::Click, [this] { button.reset(); });
    }

    void ExpectFree() {
        mouse.MoveTo(window, {190, 90});
        EXPECT_TRUE(SetMouseCapture(&window));
        ReleaseMouseCapture();
    }

    QWidget window;
    std::unique_ptr<ctlButton> button;
    Mouse mouse;
};

TEST_F(DestroyedButtonTest, ByItsClickLeavesTheCaptureFree) {
    mouse.Click(*button);
    EXPECT_EQ(button, nullptr);
    ExpectFree();
}

TEST_F(DestroyedButtonTest, ByAClickOnItsIconLeavesTheCaptureFree) {
    QPixmap icon(16, 16);
    icon.fill(Qt::red);
    button->SetPic(icon);
    mouse.Click(*button, Qt::RightButton);
    EXPECT_EQ(button, nullptr);
    ExpectFree();
}

TEST_F(DestroyedButtonTest, ByEnterLeavesTheCaptureFree) {
    mouse.MoveTo(*button);
    button->setFocus();
    QTest::keyClick(window.windowHandle(), Qt::Key_Return);
    EXPECT_EQ(button, nullptr);
    ExpectFree();
}

TEST_F(DestroyedButtonTest, WhilePressedTakesThePressWithIt) {
    mouse.MoveTo(*button);
    mouse.Press();
    button.reset();
    mouse.Release();
    ExpectFree();
}

}  // namespace
