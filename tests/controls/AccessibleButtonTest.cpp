#include "support/ButtonForm.h"
#include "support/PrintQt.h"

#include <QAccessible>
#include <QAccessibleActionInterface>
#include <QTest>

#include <gtest/gtest.h>

#include <vector>

namespace {

using namespace controls;

std::vector<std::pair<QAccessible::Event, QAccessible::State>> heard;
QObject* listenedTo = nullptr;

void Hear(QAccessibleEvent* event) {
    if (event->object() == listenedTo) {
        const bool ofState = event->type() == QAccessible::StateChanged;
        heard.emplace_back(event->type(),
                           ofState ? static_cast<QAccessibleStateChangeEvent*>(event)->changedStates()
                                   : QAccessible::State());
    }
}

class AccessibleButtonTest : public ::testing::Test, protected ButtonForm {
protected:
    AccessibleButtonTest() : accessible(QAccessible::queryAccessibleInterface(&button)) {
        QAccessible::setActive(true);
        MoveToGround();
        heard.clear();
        listenedTo = &button;
        previous = QAccessible::installUpdateHandler(Hear);
    }
    ~AccessibleButtonTest() override {
        QAccessible::installUpdateHandler(previous);
        QAccessible::setActive(false);
        listenedTo = nullptr;
    }

    void Press() { accessible->actionInterface()->doAction(QAccessibleActionInterface::pressAction()); }

    QAccessibleInterface* accessible;
    QAccessible::UpdateHandler previous = nullptr;
};

TEST_F(AccessibleButtonTest, IsAPushButtonNamedByItsCaption) {
    ASSERT_NE(accessible, nullptr);
    EXPECT_EQ(accessible->role(), QAccessible::Button);
    EXPECT_EQ(accessible->text(QAccessible::Name), QStringLiteral("Add"));
    button.SetCaption(QStringLiteral("Save & close"));
    EXPECT_EQ(accessible->text(QAccessible::Name), QStringLiteral("Save & close"));
    EXPECT_EQ(accessible->rect(), QRect(button.mapToGlobal(QPoint(0, 0)), button.size()));
}

TEST_F(AccessibleButtonTest, TellsItsStates) {
    EXPECT_TRUE(accessible->state().focusable);
    EXPECT_FALSE(accessible->state().focused);
    EXPECT_FALSE(accessible->state().disabled);
    EXPECT_FALSE(accessible->state().pressed);
    button.setFocus();
    EXPECT_TRUE(accessible->state().focused);
    button.SetEnabled(false);
    EXPECT_TRUE(accessible->state().disabled);
}

TEST_F(AccessibleButtonTest, IsPressedWhileHeldDown) {
    mouse.MoveTo(button);
    EXPECT_FALSE(accessible->state().pressed);
    mouse.Press();
    EXPECT_TRUE(accessible->state().pressed);
    mouse.Release();
    EXPECT_FALSE(accessible->state().pressed);
}

TEST_F(AccessibleButtonTest, CanBePressedOnceTheEventIsDone) {
    EXPECT_TRUE(
        accessible->actionInterface()->actionNames().contains(QAccessibleActionInterface::pressAction()));
    Press();
    EXPECT_EQ(clicks, 0);
    QCoreApplication::processEvents();
    EXPECT_EQ(clicks, 1);
}

TEST_F(AccessibleButtonTest, CanNotBePressedWhileDisabled) {
    button.SetEnabled(false);
    EXPECT_FALSE(
        accessible->actionInterface()->actionNames().contains(QAccessibleActionInterface::pressAction()));
    Press();
    QCoreApplication::processEvents();
    EXPECT_EQ(clicks, 0);
}

TEST_F(AccessibleButtonTest, CanNotBePressedWhileItsWindowIsDisabled) {
    static_cast<QWidget&>(button).setEnabled(false);
    Press();
    QCoreApplication::processEvents();
    EXPECT_EQ(clicks, 0);
}

TEST_F(AccessibleButtonTest, CanBeGivenTheFocus) {
    accessible->actionInterface()->doAction(QAccessibleActionInterface::setFocusAction());
    EXPECT_TRUE(button.hasFocus());
}

TEST_F(AccessibleButtonTest, SaysSoWhenItIsDisabled) {
    button.SetEnabled(false);
    ASSERT_EQ(heard.size(), 1U);
    EXPECT_EQ(heard[0].first, QAccessible::StateChanged);
    EXPECT_TRUE(heard[0].second.disabled);
    button.SetEnabled(false);
    EXPECT_EQ(heard.size(), 1U);
}

TEST_F(AccessibleButtonTest, SaysSoWhenItsNameChanges) {
    button.SetCaption(QStringLiteral("Change"));
    ASSERT_EQ(heard.size(), 1U);
    EXPECT_EQ(heard[0].first, QAccessible::NameChanged);
    button.SetCaption(QStringLiteral("Change"));
    EXPECT_EQ(heard.size(), 1U);
}

TEST_F(AccessibleButtonTest, SaysSoWhenItIsPressedAndLetGo) {
    button.setFocus();
    mouse.MoveTo(button);
    heard.clear();
    mouse.Press();
    ASSERT_EQ(heard.size(), 1U);
    EXPECT_TRUE(heard[0].second.pressed);
    mouse.Release();
    EXPECT_EQ(heard.size(), 2U);
}

TEST_F(AccessibleButtonTest, TheFocusArrivingIsTold) {
    button.setFocus();
    ASSERT_FALSE(heard.empty());
    EXPECT_EQ(heard.back().first, QAccessible::Focus);
}

}  // namespace
