#include "button/ButtonForm.h"
#include "support/PrintQt.h"
#include "support/ScreenReader.h"

#include <QAccessible>
#include <QAccessibleActionInterface>
#include <QDialog>
#include <QTest>

#include <gtest/gtest.h>

namespace {

using namespace controls;

class ButtonAccessibleTest : public ::testing::Test, protected ButtonForm {
protected:
    ButtonAccessibleTest()
        : accessible(QAccessible::queryAccessibleInterface(&button)),
          reader([this](const QAccessibleInterface& about) { return about.object() == &button; }) {
        MoveToGround();
        reader.Heard();
    }

    void Press() { accessible->actionInterface()->doAction(QAccessibleActionInterface::pressAction()); }

    QAccessibleInterface* accessible;
    ScreenReader reader;
};

TEST_F(ButtonAccessibleTest, IsAPushButtonNamedByItsCaption) {
    ASSERT_NE(accessible, nullptr);
    EXPECT_EQ(accessible->role(), QAccessible::Button);
    EXPECT_EQ(accessible->text(QAccessible::Name), QStringLiteral("Add"));
    button.SetCaption(QStringLiteral("Save & close"));
    EXPECT_EQ(accessible->text(QAccessible::Name), QStringLiteral("Save & close"));
    EXPECT_EQ(accessible->rect(), QRect(button.mapToGlobal(QPoint(0, 0)), button.size()));
}

TEST_F(ButtonAccessibleTest, WithoutACaptionItGoesByTheNameThatItsFormGivesIt) {
    button.setAccessibleName(QStringLiteral("Plus"));
    EXPECT_EQ(accessible->text(QAccessible::Name), QStringLiteral("Add"));
    button.SetCaption(QString());
    EXPECT_EQ(accessible->text(QAccessible::Name), QStringLiteral("Plus"));
}

TEST_F(ButtonAccessibleTest, TellsItsStates) {
    EXPECT_TRUE(accessible->state().focusable);
    EXPECT_FALSE(accessible->state().focused);
    EXPECT_FALSE(accessible->state().disabled);
    EXPECT_FALSE(accessible->state().pressed);
    button.setFocus();
    EXPECT_TRUE(accessible->state().focused);
    button.SetEnabled(false);
    EXPECT_TRUE(accessible->state().disabled);
}

TEST_F(ButtonAccessibleTest, IsPressedWhileHeldDown) {
    mouse.MoveTo(button);
    EXPECT_FALSE(accessible->state().pressed);
    mouse.Press();
    EXPECT_TRUE(accessible->state().pressed);
    mouse.Release();
    EXPECT_FALSE(accessible->state().pressed);
}

TEST_F(ButtonAccessibleTest, CanBePressedOnceTheEventIsDone) {
    EXPECT_TRUE(
        accessible->actionInterface()->actionNames().contains(QAccessibleActionInterface::pressAction()));
    Press();
    EXPECT_EQ(clicks, 0);
    QCoreApplication::processEvents();
    EXPECT_EQ(clicks, 1);
}

TEST_F(ButtonAccessibleTest, APressBringsTheFocusBeforeTheClick) {
    bool isFocused = false;
    QObject::connect(&button, &ctlButton::Click, &button, [&] { isFocused = button.hasFocus(); });
    Press();
    QCoreApplication::processEvents();
    EXPECT_TRUE(isFocused);
}

TEST_F(ButtonAccessibleTest, CanNotBePressedBehindADialog) {
    QDialog dialog;
    dialog.setModal(true);
    dialog.show();
    EXPECT_FALSE(
        accessible->actionInterface()->actionNames().contains(QAccessibleActionInterface::pressAction()));
    Press();
    QCoreApplication::processEvents();
    EXPECT_EQ(clicks, 0);
}

TEST_F(ButtonAccessibleTest, CanNotBePressedWhileDisabled) {
    button.SetEnabled(false);
    EXPECT_FALSE(
        accessible->actionInterface()->actionNames().contains(QAccessibleActionInterface::pressAction()));
    Press();
    QCoreApplication::processEvents();
    EXPECT_EQ(clicks, 0);
}

TEST_F(ButtonAccessibleTest, CanNotBePressedWhileItsWindowIsDisabled) {
    static_cast<QWidget&>(button).setEnabled(false);
    Press();
    QCoreApplication::processEvents();
    EXPECT_EQ(clicks, 0);
}

TEST_F(ButtonAccessibleTest, CanBeGivenTheFocus) {
    accessible->actionInterface()->doAction(QAccessibleActionInterface::setFocusAction());
    EXPECT_TRUE(button.hasFocus());
}

TEST_F(ButtonAccessibleTest, SaysSoWhenItIsDisabled) {
    button.SetEnabled(false);
    EXPECT_EQ(reader.Heard(), QStringList(QStringLiteral("state disabled Add")));
    button.SetEnabled(false);
    EXPECT_EQ(reader.Heard(), QStringList());
}

TEST_F(ButtonAccessibleTest, SaysSoWhenItsNameChanges) {
    button.SetCaption(QStringLiteral("Change"));
    EXPECT_EQ(reader.Heard(), QStringList(QStringLiteral("name Change")));
    button.SetCaption(QStringLiteral("Change"));
    EXPECT_EQ(reader.Heard(), QStringList());
}

TEST_F(ButtonAccessibleTest, SaysSoWhenItIsPressedAndLetGo) {
    button.setFocus();
    mouse.MoveTo(button);
    reader.Heard();
    mouse.Press();
    EXPECT_EQ(reader.Heard(), QStringList(QStringLiteral("state pressed Add")));
    mouse.Release();
    EXPECT_EQ(reader.Heard(), QStringList(QStringLiteral("state pressed Add")));
}

TEST_F(ButtonAccessibleTest, TheFocusArrivingIsTold) {
    button.setFocus();
    EXPECT_EQ(reader.Heard(), QStringList(QStringLiteral("focus Add")));
}

}  // namespace
