#include "controls/text/UpDownImage.h"
#include "support/MoneyLocale.h"
#include "support/PrintQt.h"
#include "text/TextBoxOnScreen.h"

#include <QAccessible>
#include <QTest>

namespace {

using namespace Qt::StringLiterals;
using controls::UpDownHalf;
using controls::UpDownImage;

class TextBoxUpDownTest : public TextBoxTest {
protected:
    TextBoxUpDownTest() { QAccessible::setActive(true); }

    UpDownImage& TheImage() { return *TheControl().findChild<UpDownImage*>(u"imgUpDown"_s); }

    void PressAt(int y, Qt::MouseButton button = Qt::LeftButton) {
        QTest::mouseClick(&TheImage(), button, {}, QPoint(8, y));
    }
    void Up() { PressAt(4); }
    void Down() { PressAt(14); }

    QAccessibleInterface& Half(int index) {
        return *QAccessible::queryAccessibleInterface(&TheImage())->child(index);
    }
};

TEST_F(TextBoxUpDownTest, APressIsOneStep) {
    Load({.Text = u"5"_s, .IsNumeric = true, .ShowUpDown = true, .UpDownIncrement = 1});
    Up();
    EXPECT_EQ(Text(), u"6"_s);
    EXPECT_EQ(TakeChanges(), QList<bool>{false});
    Down();
    Down();
    EXPECT_EQ(Text(), u"4"_s);
    EXPECT_EQ(TakeChanges(), (QList<bool>{false, false}));
}

TEST_F(TextBoxUpDownTest, HoldingTheButtonRepeatsNothing) {
    Load({.Text = u"5"_s, .ShowUpDown = true, .UpDownIncrement = 1});
    QTest::mousePress(&TheImage(), Qt::LeftButton, {}, QPoint(8, 4));
    EXPECT_EQ(Text(), u"6"_s);
    QTest::mouseRelease(&TheImage(), Qt::LeftButton, {}, QPoint(8, 4));
    EXPECT_EQ(Text(), u"6"_s);
}

TEST_F(TextBoxUpDownTest, AQuickSecondPressIsAStepToo) {
    Load({.Text = u"5"_s, .ShowUpDown = true, .UpDownIncrement = 1});
    QTest::mouseClick(&TheImage(), Qt::LeftButton, {}, QPoint(8, 4));
    QTest::mouseDClick(&TheImage(), Qt::LeftButton, {}, QPoint(8, 4));
    EXPECT_EQ(Text(), u"7"_s);
}

TEST_F(TextBoxUpDownTest, OtherButtonsStepNothing) {
    Load({.Text = u"5"_s, .ShowUpDown = true, .UpDownIncrement = 1});
    PressAt(4, Qt::RightButton);
    PressAt(4, Qt::MiddleButton);
    EXPECT_EQ(Text(), u"5"_s);
}

TEST_F(TextBoxUpDownTest, TheExactMiddleIsStillTheUpperHalf) {
    Load({.Text = u"5"_s, .ShowUpDown = true, .UpDownIncrement = 1});
    PressAt(0);
    PressAt(9);
    EXPECT_EQ(Text(), u"7"_s);
    PressAt(10);
    PressAt(18);
    EXPECT_EQ(Text(), u"5"_s);
    EXPECT_EQ(TheImage().HalfAt(9.5), UpDownHalf::Up);
    EXPECT_EQ(TheImage().HalfAt(9.51), UpDownHalf::Down);
}

TEST_F(TextBoxUpDownTest, TheTextIsSelectedAfterAStep) {
    Enter({.Text = u"9"_s, .IsNumeric = true, .ShowUpDown = true, .UpDownIncrement = 1});
    Up();
    EXPECT_EQ(Text(), u"10"_s);
    EXPECT_EQ(TheBox().selectedText(), u"10"_s);
    Type(u"3"_s);
    EXPECT_EQ(Text(), u"3"_s);
}

TEST_F(TextBoxUpDownTest, AStepThatChangesNothingIsToldAllTheSame) {
    Load({.Text = u"5"_s, .ShowUpDown = true, .UpDownIncrement = 0});
    Up();
    EXPECT_EQ(Text(), u"5"_s);
    EXPECT_EQ(TakeChanges(), QList<bool>{false});
}

TEST_F(TextBoxUpDownTest, AStepStartsFromTheNumberThatTheTextBeginsWith) {
    Load({.Text = u"7 apples"_s, .ShowUpDown = true, .UpDownIncrement = 0.5});
    Up();
    EXPECT_EQ(Text(), u"7.5"_s);
    TheControl().SetText(u"none"_s);
    Up();
    EXPECT_EQ(Text(), u"0.5"_s);
    TheControl().SetText(u"1,000"_s);
    Up();
    EXPECT_EQ(Text(), u"1.5"_s) << "which ends at a thousands separator";
}

TEST_F(TextBoxUpDownTest, StepsAddUpAsOnPaper) {
    Load({.Text = u"0.7"_s,
          .IsNumeric = true,
          .DecimalPlaces = 2,
          .ShowUpDown = true,
          .UpDownIncrement = 0.1});
    Up();
    EXPECT_EQ(Text(), u"0.8"_s);
    for (int step = 0; step < 8; ++step) {
        Down();
    }
    EXPECT_EQ(Text(), u"0"_s);
    EXPECT_EQ(TakeChanges().size(), 9) << "none of them went below 0";
}

TEST_F(TextBoxUpDownTest, AStepIsPutRightLikeAnyChange) {
    Load(
        {.Text = u"1"_s, .IsNumeric = true, .DecimalPlaces = 1, .ShowUpDown = true, .UpDownIncrement = 0.25});
    Up();
    EXPECT_EQ(Text(), u"1.2"_s);
    TheControl().SetDecimalPlaces(0);
    Up();
    EXPECT_EQ(Text(), u"1"_s);
}

TEST_F(TextBoxUpDownTest, InALocaleWithCommasAStepReadsAPointAndWritesAComma) {
    const MoneyLocale commas({.decimalSeparator = u","_s, .thousandSeparator = u"."_s});
    Load({.Text = u"1"_s, .IsNumeric = true, .DecimalPlaces = 2, .ShowUpDown = true, .UpDownIncrement = 0.5});
    Up();
    EXPECT_EQ(Text(), u"1,5"_s);
    Up();
    EXPECT_EQ(Text(), u"1,5"_s) << "the number that it begins with is 1";
}

TEST_F(TextBoxUpDownTest, WhereNegativeIsAllowedAPlusMarksWhatIsAboveZero) {
    Load(
        {.Text = u"0"_s, .IsNumeric = true, .AllowNegative = true, .ShowUpDown = true, .UpDownIncrement = 1});
    Up();
    EXPECT_EQ(Text(), u"+1"_s);
    EXPECT_EQ(TheControl().Value(), 1);
    Up();
    EXPECT_EQ(Text(), u"+2"_s);
    Down();
    EXPECT_EQ(Text(), u"+1"_s);
    Down();
    EXPECT_EQ(Text(), u"0"_s);
    Down();
    EXPECT_EQ(Text(), u"-1"_s);
}

TEST_F(TextBoxUpDownTest, BelowZeroTheTextIsZeroAndTheControlFallsQuiet) {
    Enter({.Text = u"1"_s, .IsNumeric = true, .DecimalPlaces = 2, .ShowUpDown = true, .UpDownIncrement = 2});
    Down();
    EXPECT_EQ(Text(), u"0"_s);
    EXPECT_FALSE(TheBox().hasSelectedText());
    EXPECT_TRUE(TakeChanges().isEmpty());

    TheControl().SetText(u"12 apples"_s);
    EXPECT_EQ(Text(), u"12 apples"_s) << "nothing is put right";
    TheControl().SetText(u"1.999"_s);
    EXPECT_EQ(Text(), u"1.999"_s);
    Press(Qt::Key_End);
    Type(u"9x"_s);
    EXPECT_EQ(Text(), u"1.9999"_s) << "keys are still filtered";
    EXPECT_TRUE(TakeChanges().isEmpty());
    TheControl().SetText(u""_s);
    Leave();
    EXPECT_EQ(Text(), u"0"_s) << "and on leaving it has a number";
    EXPECT_TRUE(TakeChanges().isEmpty());
}

TEST_F(TextBoxUpDownTest, AStepThatEndsNormallyLetsTheControlSpeakAgain) {
    Load({.Text = u"1"_s, .IsNumeric = true, .ShowUpDown = true, .UpDownIncrement = 2});
    Down();
    Down();
    EXPECT_EQ(Text(), u"0"_s);
    EXPECT_TRUE(TakeChanges().isEmpty());
    Up();
    EXPECT_EQ(Text(), u"2"_s);
    EXPECT_EQ(TakeChanges(), QList<bool>{false});
    Down();
    EXPECT_EQ(Text(), u"0"_s);
    EXPECT_EQ(TakeChanges(), QList<bool>{false}) << "to 0 and not below";
    TheControl().SetText(u"5x"_s);
    EXPECT_EQ(Text(), u"5"_s);
}

TEST_F(TextBoxUpDownTest, AKeyTypedWhileTheControlIsQuietIsForgotten) {
    Enter({.Text = u"1"_s, .IsNumeric = true, .ShowUpDown = true, .UpDownIncrement = 2});
    Down();
    Type(u"5"_s);
    TakeChanges();
    Up();
    EXPECT_EQ(TakeChanges(), QList<bool>{false});
}

TEST_F(TextBoxUpDownTest, OverflowingStepsDoNoHarm) {
    Load({.Text = QString(305, u'9'), .IsNumeric = true, .ShowUpDown = true, .UpDownIncrement = 1.7e308});
    Up();
    Up();
    EXPECT_EQ(TheControl().Value(), 0);
    EXPECT_EQ(Text(), u"0"_s);
}

TEST_F(TextBoxUpDownTest, TheImageOfADisabledControlDoesNothing) {
    Load({.Enabled = false, .Text = u"5"_s, .ShowUpDown = true, .UpDownIncrement = 1});
    Up();
    EXPECT_EQ(Text(), u"5"_s);
}

TEST_F(TextBoxUpDownTest, TheImageTakesNoFocusOfItsOwn) {
    Load({.Text = u"5"_s, .ShowUpDown = true, .UpDownIncrement = 1});
    Up();
    EXPECT_FALSE(TheImage().hasFocus());
    EXPECT_TRUE(other.hasFocus());
}

TEST_F(TextBoxUpDownTest, TheEditBoxIsReadOutByItsLabel) {
    Load({.Text = u"12"_s});
    TheControl().SetLabel(u"Balance Amount"_s);
    const QAccessibleInterface* box = QAccessible::queryAccessibleInterface(&TheBox());
    EXPECT_EQ(box->role(), QAccessible::EditableText);
    EXPECT_EQ(box->text(QAccessible::Name), u"Balance Amount"_s);
    EXPECT_EQ(box->text(QAccessible::Value), u"12"_s);
}

TEST_F(TextBoxUpDownTest, TheHalvesHaveNoPartsAndNoKeysOfTheirOwn) {
    Load({.Text = u"5"_s, .ShowUpDown = true, .UpDownIncrement = 1});
    EXPECT_EQ(Half(0).childCount(), 0);
    EXPECT_EQ(Half(0).child(0), nullptr);
    EXPECT_EQ(Half(0).indexOfChild(&Half(1)), -1);
    EXPECT_EQ(Half(0).actionInterface()->keyBindingsForAction(QAccessibleActionInterface::pressAction()),
              QStringList());
}

TEST_F(TextBoxUpDownTest, TheHalvesAreReadOutAsButtons) {
    Load({.Text = u"5"_s, .ShowUpDown = true, .UpDownIncrement = 1});
    QAccessibleInterface* image = QAccessible::queryAccessibleInterface(&TheImage());
    ASSERT_EQ(image->childCount(), 2);
    EXPECT_EQ(image->role(), QAccessible::Grouping);
    EXPECT_EQ(Half(0).text(QAccessible::Name), u"Up"_s);
    EXPECT_EQ(Half(1).text(QAccessible::Name), u"Down"_s);
    TheControl().SetLabel(u"Amount"_s);
    EXPECT_EQ(image->text(QAccessible::Name), u"Amount"_s);
    EXPECT_EQ(Half(0).text(QAccessible::Name), u"Amount up"_s);
    EXPECT_EQ(Half(1).text(QAccessible::Name), u"Amount down"_s);
    EXPECT_EQ(Half(0).text(QAccessible::Description), QString());
    for (int index = 0; index < 2; ++index) {
        EXPECT_EQ(Half(index).role(), QAccessible::PushButton);
        EXPECT_TRUE(Half(index).isValid());
        EXPECT_EQ(Half(index).parent(), image);
        EXPECT_EQ(image->indexOfChild(&Half(index)), index);
        EXPECT_EQ(Half(index).childCount(), 0);
        EXPECT_FALSE(Half(index).state().disabled);
        EXPECT_FALSE(Half(index).state().invisible);
        EXPECT_EQ(Half(index).window(), image->window());
    }
    EXPECT_EQ(image->child(2), nullptr);
    EXPECT_EQ(image->child(-1), nullptr);
    EXPECT_EQ(image->indexOfChild(image), -1);
    TheControl().SetEnabled(false);
    EXPECT_TRUE(Half(0).state().disabled);
    TheControl().SetShowUpDown(false);
    EXPECT_TRUE(Half(1).state().invisible);
}

TEST_F(TextBoxUpDownTest, TheHalvesLieWhereTheyArePressed) {
    Load({.Text = u"5"_s, .ShowUpDown = true});
    const QPoint corner = TheImage().mapToGlobal(QPoint(0, 0));
    EXPECT_EQ(Half(0).rect(), QRect(corner, QSize(16, 10)));
    EXPECT_EQ(Half(1).rect(), QRect(corner + QPoint(0, 10), QSize(16, 9)));
    const QAccessibleInterface* image = QAccessible::queryAccessibleInterface(&TheImage());
    EXPECT_EQ(image->childAt(corner.x() + 8, corner.y() + 9), &Half(0));
    EXPECT_EQ(image->childAt(corner.x() + 8, corner.y() + 10), &Half(1));
    EXPECT_EQ(image->childAt(corner.x() - 1, corner.y()), nullptr);
}

TEST_F(TextBoxUpDownTest, TheHalvesCanBePressedByAssistivePrograms) {
    Load({.Text = u"5"_s, .ShowUpDown = true, .UpDownIncrement = 1});
    const QString press = QAccessibleActionInterface::pressAction();
    const auto act = [this](int index, const QString& action) {
        Half(index).actionInterface()->doAction(action);
    };
    EXPECT_EQ(Half(0).actionInterface()->actionNames(), QStringList{press});
    EXPECT_TRUE(Half(0).actionInterface()->keyBindingsForAction(press).isEmpty());
    act(0, press);
    EXPECT_EQ(Text(), u"6"_s);
    act(1, press);
    act(1, press);
    EXPECT_EQ(Text(), u"4"_s);
    act(0, u"dance"_s);
    EXPECT_EQ(Text(), u"4"_s);
    TheControl().SetEnabled(false);
    act(0, press);
    EXPECT_EQ(Text(), u"4"_s);
}

TEST_F(TextBoxUpDownTest, TheHalvesEndWithTheControl) {
    Load({.ShowUpDown = true});
    const QAccessible::Id half = QAccessible::uniqueId(&Half(0));
    EXPECT_NE(QAccessible::accessibleInterface(half), nullptr);
    Load({});
    EXPECT_EQ(QAccessible::accessibleInterface(half), nullptr);
}

}  // namespace
