#include "date/DateForm.h"
#include "support/PrintQt.h"

#include <QApplication>
#include <QClipboard>
#include <QInputMethodEvent>
#include <QTest>

#include <gtest/gtest.h>

namespace {

using namespace controls;
using namespace Qt::StringLiterals;

void Paste(DateForm& form, const QString& text) {
    QApplication::clipboard()->setText(text);
    form.Press(Qt::Key_V, Qt::ControlModifier);
}

TEST(DateEntryTest, EightDigitsFillTheBoxesByThemselves) {
    DateForm form;
    form.EnterBox(1);
    form.Type("15092009");
    EXPECT_EQ(form.Texts(), u"15/09/2009"_s);
    EXPECT_EQ(form.Focus(), u"txtDate1"_s);
    EXPECT_EQ(form.Box(1).selectedText(), u"15"_s);
}

TEST(DateEntryTest, TheDigitsFollowTheOrderOfTheLocale) {
    DateForm american({}, DateForm::MonthFirst);
    american.EnterBox(1);
    american.Type("09152009");
    EXPECT_EQ(american.Texts(), u"09/15/2009"_s);
    american.LeaveControl();
    EXPECT_EQ(american.date.Value(), QDate(2009, 9, 15));

    DateForm swedish({}, DateForm::YearFirst);
    swedish.EnterBox(1);
    swedish.Type("20090915");
    EXPECT_EQ(swedish.Texts(), u"2009/09/15"_s);
    EXPECT_EQ(swedish.Focus(), u"txtDate1"_s);
    swedish.LeaveControl();
    EXPECT_EQ(swedish.date.Value(), QDate(2009, 9, 15));
}

TEST(DateEntryTest, ABoxThatGetsTheFocusHasItsWholeTextSelected) {
    DateForm form;
    for (int place = 1; place <= 3; ++place) {
        form.EnterBox(place);
        EXPECT_EQ(form.Box(place).selectedText(), form.Box(place).text());
    }
}

TEST(DateEntryTest, ADigitReplacesTheWholeTextIfAnyOfItIsSelected) {
    DateForm form;
    form.EnterBox(3);
    form.Box(3).setSelection(1, 1);
    form.Type("7");
    EXPECT_EQ(form.Box(3).text(), u"7"_s);
    EXPECT_EQ(form.Box(3).cursorPosition(), 1);
}

TEST(DateEntryTest, ADigitIsAddedAtTheEndWhereverTheCaretStands) {
    DateForm form;
    form.EnterBox(3);
    form.Type("12");
    form.Press(Qt::Key_Home);
    form.Type("3");
    EXPECT_EQ(form.Box(3).text(), u"123"_s);
    EXPECT_EQ(form.Box(3).cursorPosition(), 3);
    EXPECT_EQ(form.Focus(), u"txtDate3"_s);
}

TEST(DateEntryTest, ADigitForAFullBoxIsAddedAllTheSameAndTheFocusStays) {
    DateForm form;
    form.date.SetValue({2009, 3, 28});
    form.EnterBox(1);
    form.Press(Qt::Key_End);
    form.Type("0");
    EXPECT_EQ(form.Texts(), u"280/03/2009"_s);
    form.Type("9");
    EXPECT_EQ(form.Texts(), u"2809/03/2009"_s);
    EXPECT_EQ(form.Focus(), u"txtDate1"_s);
    form.LeaveControl();
    EXPECT_EQ(form.date.Value(), QDate(2009, 3, 31));
}

TEST(DateEntryTest, AYearOfFiveDigitsIsShownAndKeepsTheStoredYear) {
    DateForm form;
    form.EnterBox(3);
    form.Press(Qt::Key_End);
    form.Type("5");
    EXPECT_EQ(form.Texts(), u"14/03/20095"_s);
    EXPECT_EQ(form.Focus(), u"txtDate3"_s);
    form.LeaveControl();
    EXPECT_EQ(form.date.Value().year(), 2009);
}

TEST(DateEntryTest, AnOverfullBoxTakesNeitherAPointNorAPaste) {
    DateForm form;
    form.EnterBox(1);
    form.Press(Qt::Key_End);
    form.Type("7");
    form.Press(Qt::Key_Backspace);
    Paste(form, u"8"_s);
    EXPECT_EQ(form.Box(1).text(), u"147"_s);
}

TEST(DateEntryTest, SlashBackslashAndMinusGoToTheNextBox) {
    DateForm form;
    form.EnterBox(1);
    form.Type("5/");
    EXPECT_EQ(form.Focus(), u"txtDate2"_s);
    form.Type("6\\");
    EXPECT_EQ(form.Focus(), u"txtDate3"_s);
    form.Type("7-");
    EXPECT_EQ(form.Focus(), u"txtDate1"_s);
    EXPECT_EQ(form.Texts(), u"5/6/2007"_s);
}

TEST(DateEntryTest, ABackslashTypedWithTheRightAltKeyCounts) {
    DateForm form;
    form.EnterBox(1);
    QTest::sendKeyEvent(QTest::Click, &form.Box(1), Qt::Key_Backslash, u"\\"_s,
                        Qt::ControlModifier | Qt::AltModifier);
    EXPECT_EQ(form.Focus(), u"txtDate2"_s);
}

TEST(DateEntryTest, WhatIsTypedWithAltIsNoWayAroundTheRules) {
    DateForm form;
    form.EnterBox(1);
    QTest::sendKeyEvent(QTest::Click, &form.Box(1), Qt::Key_X, u"x"_s, Qt::AltModifier);
    EXPECT_EQ(form.Box(1).text(), u"14"_s);
    QTest::sendKeyEvent(QTest::Click, &form.Box(1), Qt::Key_2, u"2"_s, Qt::AltModifier);
    EXPECT_EQ(form.Box(1).text(), u"2"_s);
}

TEST(DateEntryTest, BackspaceTypesAPoint) {
    DateForm form;
    form.EnterBox(3);
    form.Type("12");
    form.Press(Qt::Key_Backspace);
    EXPECT_EQ(form.Box(3).text(), u"12."_s);
    form.Press(Qt::Key_Home);
    form.Press(Qt::Key_Backspace);
    EXPECT_EQ(form.Box(3).text(), u".12."_s);
    EXPECT_EQ(form.Box(3).cursorPosition(), 1);
    EXPECT_EQ(form.Focus(), u"txtDate3"_s);
}

TEST(DateEntryTest, BackspaceInAFullBoxDoesNothing) {
    DateForm form;
    form.EnterBox(3);
    form.Press(Qt::Key_End);
    form.Press(Qt::Key_Backspace);
    EXPECT_EQ(form.Box(3).text(), u"2009"_s);
}

TEST(DateEntryTest, BackspaceOverASelectionLeavesAPointInItsPlace) {
    DateForm form;
    form.EnterBox(1);
    form.Press(Qt::Key_Backspace);
    EXPECT_EQ(form.Box(1).text(), u"."_s);
    form.Press(Qt::Key_Right);
    EXPECT_EQ(form.Box(1).text(), u"1"_s);
}

TEST(DateEntryTest, BackspaceNeverDeletesAWordEither) {
    DateForm form;
    form.EnterBox(3);
    form.Type("12");
    form.Press(Qt::Key_Backspace, Qt::ControlModifier);
    EXPECT_EQ(form.Box(3).text(), u"12."_s);
}

TEST(DateEntryTest, OtherCharactersAreSwallowed) {
    DateForm form;
    form.EnterBox(1);
    form.Type("aZ .,:;+*!");
    QTest::sendKeyEvent(QTest::Click, &form.Box(1), Qt::Key_unknown, QString(QChar(0x0663)), Qt::NoModifier);
    EXPECT_EQ(form.Texts(), u"14/03/2009"_s);
    EXPECT_EQ(form.Focus(), u"txtDate1"_s);
    EXPECT_EQ(form.Box(1).selectedText(), u"14"_s);
}

/// Tells whether a key press came through to the form.
class KeyWatch : public QObject {
public:
    bool seen = false;

protected:
    bool eventFilter(QObject*, QEvent* event) override {
        seen = seen || event->type() == QEvent::KeyPress;
        return false;
    }
};

TEST(DateEntryTest, EnterAndEscapeDontReachTheDialog) {
    DateForm form({.IncludeNone = true});
    KeyWatch watch;
    form.window.installEventFilter(&watch);
    form.EnterBox(1);
    form.Press(Qt::Key_Return);
    form.Press(Qt::Key_Escape);
    EXPECT_FALSE(watch.seen);
    EXPECT_EQ(form.Texts(), u"14/03/2009"_s);
}

TEST(DateEntryTest, LeftAndRightGoRoundTheBoxesWhateverTheCaretsPlace) {
    DateForm form;
    form.EnterBox(1);
    for (const QString& next : {u"txtDate2"_s, u"txtDate3"_s, u"txtDate1"_s}) {
        form.Press(Qt::Key_Right);
        EXPECT_EQ(form.Focus(), next);
        form.Press(Qt::Key_Home);
    }
    for (const QString& next : {u"txtDate3"_s, u"txtDate2"_s, u"txtDate1"_s}) {
        form.Press(Qt::Key_Left);
        EXPECT_EQ(form.Focus(), next);
        form.Press(Qt::Key_End);
    }
}

TEST(DateEntryTest, HomeEndAndDeleteEditAsInAnyBox) {
    DateForm form;
    form.EnterBox(3);
    form.Press(Qt::Key_Home);
    form.Press(Qt::Key_Delete);
    EXPECT_EQ(form.Box(3).text(), u"009"_s);
    form.Press(Qt::Key_A, Qt::ControlModifier);
    form.Press(Qt::Key_Delete);
    EXPECT_EQ(form.Box(3).text(), QString());
}

TEST(DateEntryTest, ADigitInAnEmptyBoxIsAddedToNothing) {
    DateForm form;
    form.EnterBox(1);
    form.Press(Qt::Key_Delete);
    form.Type("5");
    EXPECT_EQ(form.Box(1).text(), u"5"_s);
    EXPECT_EQ(form.Focus(), u"txtDate1"_s);
}

TEST(DateEntryTest, TextCanBeCopied) {
    DateForm form;
    form.EnterBox(3);
    form.Press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), u"2009"_s);
    EXPECT_EQ(form.Box(3).text(), u"2009"_s);
}

TEST(DateEntryTest, PastedTextIsTakenAsItIsUpToTheMaximumLength) {
    DateForm form;
    form.EnterBox(1);
    Paste(form, u"x7y"_s);
    EXPECT_EQ(form.Box(1).text(), u"x7"_s);
    EXPECT_EQ(form.Focus(), u"txtDate1"_s);
    form.EnterBox(2);
    EXPECT_EQ(form.Box(1).text(), u"1"_s);
    Paste(form, u"-4"_s);
    form.EnterBox(3);
    EXPECT_EQ(form.Box(2).text(), u"1"_s);
    Paste(form, u"51"_s);
    form.LeaveControl();
    EXPECT_EQ(form.date.Value(), QDate(1951, 1, 1));
}

TEST(DateEntryTest, APastedYearThatIsNoneKeepsTheStoredOne) {
    DateForm form;
    form.EnterBox(3);
    Paste(form, u"MMIX"_s);
    form.LeaveControl();
    // 14 March, moved on by 13 days and 2 months.
    EXPECT_EQ(form.date.Value(), QDate(2009, 5, 27));
    EXPECT_EQ(form.Texts(), u"27/05/2009"_s);
}

TEST(DateEntryTest, AnInputMethodTypesLikeAKeyboard) {
    DateForm form;
    form.EnterBox(1);
    QInputMethodEvent event;
    event.setCommitString(u"1x5092"_s);
    QCoreApplication::sendEvent(&form.Box(1), &event);
    EXPECT_EQ(form.Texts(), u"15/09/2"_s);
    EXPECT_EQ(form.Focus(), u"txtDate3"_s);
}

TEST(DateEntryTest, AClickThatBringsTheFocusLeavesTheTextSelected) {
    DateForm form;
    const QPoint middle = form.Box(1).geometry().center();
    form.ClickPixel(middle.x(), middle.y());
    EXPECT_EQ(form.Focus(), u"txtDate1"_s);
    EXPECT_EQ(form.Box(1).selectedText(), u"14"_s);
}

TEST(DateEntryTest, APressSelectsTheWholeBoxAlsoWhereTheUserIsAlready) {
    DateForm form;
    form.EnterBox(1);
    form.Press(Qt::Key_End);
    const QPoint right(form.Box(1).geometry().right(), form.Box(1).geometry().center().y());
    for (const Qt::MouseButton button : {Qt::LeftButton, Qt::RightButton}) {
        form.Press(Qt::Key_End);
        form.ClickPixel(right.x(), right.y(), button);
        EXPECT_EQ(form.Box(1).selectedText(), u"14"_s) << button;
    }
    form.Type("09");
    EXPECT_EQ(form.Texts(), u"09/03/2009"_s);
}

TEST(DateEntryTest, ADoubleClickSelectsTheWholeBoxToo) {
    DateForm form;
    form.EnterBox(1);
    form.Type("2");
    form.Press(Qt::Key_Backspace);
    QTest::mouseDClick(&form.Box(1), Qt::LeftButton, Qt::NoModifier, QPoint(3, 5));
    EXPECT_EQ(form.Box(1).selectedText(), u"2."_s);
}

TEST(DateEntryTest, ADragInABoxWithTheFocusKeepsTheWholeSelected) {
    DateForm form;
    form.EnterBox(3);
    form.Press(Qt::Key_End);
    QTest::mousePress(&form.Box(3), Qt::LeftButton, Qt::NoModifier, QPoint(5, 5));
    QTest::mouseMove(&form.Box(3), QPoint(20, 5));
    QTest::mouseRelease(&form.Box(3), Qt::LeftButton, Qt::NoModifier, QPoint(20, 5));
    EXPECT_EQ(form.Box(3).selectedText(), u"2009"_s);
}

TEST(DateEntryTest, ADragAfterTheClickThatBringsTheFocusKeepsTheSelection) {
    DateForm form;
    QTest::mousePress(&form.Box(3), Qt::LeftButton, Qt::NoModifier, QPoint(5, 5));
    QTest::mouseMove(&form.Box(3), QPoint(20, 5));
    QTest::mouseRelease(&form.Box(3), Qt::LeftButton, Qt::NoModifier, QPoint(20, 5));
    EXPECT_EQ(form.Box(3).selectedText(), u"2009"_s);
}

TEST(DateEntryTest, EveryKeyOnNoneBringsTheDateBackAndIsTypedIntoTheFirstBox) {
    const struct {
        Qt::Key key;
        const char16_t* text;
        const char16_t* firstBox;
        const char16_t* focus;
    } rows[] = {{Qt::Key_7, u"7", u"7", u"txtDate1"},          {Qt::Key_X, u"x", u"14", u"txtDate1"},
                {Qt::Key_Space, u" ", u"14", u"txtDate1"},     {Qt::Key_Backspace, u"\b", u".", u"txtDate1"},
                {Qt::Key_Return, u"\r", u"14", u"txtDate1"},   {Qt::Key_Escape, u"\x1b", u"14", u"txtDate1"},
                {Qt::Key_Slash, u"/", u"14", u"txtDate2"},     {Qt::Key_Minus, u"-", u"14", u"txtDate2"},
                {Qt::Key_Backslash, u"\\", u"14", u"txtDate2"}};
    for (const auto& row : rows) {
        DateForm form({.IncludeNone = true});
        form.date.SetValue(QDate(1234, 1, 1));
        form.None().setFocus();
        QTest::sendKeyEvent(QTest::Click, &form.None(), row.key, QString::fromUtf16(row.text),
                            Qt::NoModifier);
        QCoreApplication::processEvents();
        EXPECT_FALSE(form.date.NoneShown()) << row.key;
        EXPECT_FALSE(form.None().isVisible()) << row.key;
        EXPECT_EQ(form.Box(1).text(), QString::fromUtf16(row.firstBox)) << row.key;
        EXPECT_EQ(form.Focus(), QString::fromUtf16(row.focus)) << row.key;
    }
}

TEST(DateEntryTest, FastTypingOnNoneLosesNothingOfItsOrder) {
    DateForm form({.IncludeNone = true});
    form.date.SetValue(QDate(1234, 1, 1));
    form.None().setFocus();
    // No turn of the event loop in between.
    for (const char digit : {'1', '5', '0', '9', '2', '0', '0', '9'}) {
        QTest::keyClick(QApplication::focusWidget(), digit);
    }
    EXPECT_EQ(form.Texts(), u"15/09/2009"_s);
}

TEST(DateEntryTest, NoneCanBeCopiedAndNotChanged) {
    DateForm form({.IncludeNone = true});
    form.date.SetValue(QDate(1234, 1, 1));
    form.None().setFocus();
    EXPECT_EQ(form.None().selectedText(), u"<None>"_s);
    form.Press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), u"<None>"_s);
    Paste(form, u"12"_s);
    form.Press(Qt::Key_Delete);
    EXPECT_EQ(form.None().text(), u"<None>"_s);
    EXPECT_TRUE(form.date.NoneShown());
}

}  // namespace
