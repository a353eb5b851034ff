#include "controls/base/Keys.h"
#include "support/OnScreen.h"

#include <QLineEdit>
#include <QTest>

#include <gtest/gtest.h>

namespace {

class KeysTest : public ::testing::Test {
protected:
    KeysTest() : first(&window), second(&window) {
        ShowAndActivate(window);
        first.setFocus();
    }

    QWidget window;
    QLineEdit first;
    QLineEdit second;
};

TEST_F(KeysTest, TabMovesTheFocusOnOnceTheEventIsDone) {
    controls::SendTab();
    EXPECT_TRUE(first.hasFocus());
    QCoreApplication::processEvents();
    EXPECT_TRUE(second.hasFocus());
}

TEST_F(KeysTest, TextIsTypedIntoWhatHasTheFocusByThen) {
    controls::SendText(QStringLiteral("a7"));
    second.setFocus();
    QCoreApplication::processEvents();
    EXPECT_EQ(first.text(), QString());
    EXPECT_EQ(second.text(), QStringLiteral("a7"));
}

}  // namespace
