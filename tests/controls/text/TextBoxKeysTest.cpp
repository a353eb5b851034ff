#include "support/MoneyLocale.h"
#include "support/PrintQt.h"
#include "text/TextBoxOnScreen.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QTest>

namespace {

using namespace Qt::StringLiterals;

using TextBoxKeysTest = TextBoxTest;

TEST_F(TextBoxKeysTest, AnApostropheCannotBeTyped) {
    Enter({.Text = u""_s});
    Type(u"O'Brien's \"2nd\" house - 1.50, %"_s);
    EXPECT_EQ(Text(), u"OBriens \"2nd\" house - 1.50, %"_s);
}

TEST_F(TextBoxKeysTest, AnApostropheThatIsPastedOrSetStays) {
    Enter({.Text = u""_s});
    Paste(u"O'Brien"_s);
    EXPECT_EQ(Text(), u"O'Brien"_s);
    Type(u"!"_s);
    EXPECT_EQ(Text(), u"O'Brien!"_s);
    TheControl().SetText(u"D'Arcy"_s);
    EXPECT_EQ(Text(), u"D'Arcy"_s);
}

TEST_F(TextBoxKeysTest, AnApostropheThatIsComposedIsTyped) {
    Enter({.Text = u""_s});
    Compose(u"'"_s);
    Compose(u"é's"_s);
    EXPECT_EQ(Text(), u"és"_s);
}

TEST_F(TextBoxKeysTest, AComposedCharacterThatIsSwallowedLeavesTheSelection) {
    Enter({.MaxLength = 4, .Text = u"Anna"_s});
    Compose(u"'"_s);
    EXPECT_EQ(Text(), u"Anna"_s);
    EXPECT_EQ(TheBox().selectedText(), u"Anna"_s);
    Compose(u"É"_s);
    EXPECT_EQ(Text(), u"É"_s);
}

TEST_F(TextBoxKeysTest, WhatIsComposedOutOfWhatIsShownIsTypedInItsPlace) {
    Enter({.MaxLength = 3, .Text = u"ab"_s});
    PlaceCaret(1);
    QInputMethodEvent shown(u"hang"_s, {});
    QCoreApplication::sendEvent(&TheBox(), &shown);
    EXPECT_EQ(Text(), u"ab"_s);
    QInputMethodEvent both(u"next"_s, {});
    both.setCommitString(u"x'yz"_s);
    QCoreApplication::sendEvent(&TheBox(), &both);
    EXPECT_EQ(Text(), u"axb"_s);
    QInputMethodEvent replacing;
    replacing.setCommitString(u"éé"_s, -1, 1);
    QCoreApplication::sendEvent(&TheBox(), &replacing);
    EXPECT_EQ(Text(), u"aéb"_s);
}

TEST_F(TextBoxKeysTest, WhatIsComposedInANumericBoxIsFilteredLikeKeys) {
    Enter({.Text = u""_s, .IsNumeric = true, .DecimalPlaces = 2});
    Compose(u"1é2.'3.4"_s);
    EXPECT_EQ(Text(), u"12.34"_s);
}

TEST_F(TextBoxKeysTest, CharactersBeyondTheFirstPlaneAreTypedWhole) {
    Enter({.Text = u""_s});
    QTest::sendKeyEvent(QTest::Click, &TheBox(), Qt::Key_unknown, u"🏠"_s, Qt::NoModifier);
    EXPECT_EQ(Text(), u"🏠"_s);
}

TEST_F(TextBoxKeysTest, AKeyThatTypesSeveralCharactersIsFilteredCharacterByCharacter) {
    Enter({.Text = u""_s});
    QTest::sendKeyEvent(QTest::Click, &TheBox(), Qt::Key_unknown, u"a'🏠'b"_s, Qt::NoModifier);
    EXPECT_EQ(Text(), u"a🏠b"_s);
    Enter({.Text = u""_s, .IsNumeric = true, .DecimalPlaces = 1});
    QTest::sendKeyEvent(QTest::Click, &TheBox(), Qt::Key_unknown, u"1x.🏠.5"_s, Qt::NoModifier);
    EXPECT_EQ(Text(), u"1.5"_s);
}

TEST_F(TextBoxKeysTest, OnlyWhatBelongsToANumberIsTypedIntoANumericBox) {
    Enter({.Text = u""_s, .IsNumeric = true, .DecimalPlaces = 2});
    Type(u"a1b,2'+3 4-.5%6"_s);
    EXPECT_EQ(Text(), u"1,234.56"_s);
    EXPECT_EQ(TheControl().Value(), 1234.56);
}

TEST_F(TextBoxKeysTest, ASecondDecimalSeparatorIsSwallowed) {
    Enter({.Text = u""_s, .IsNumeric = true, .DecimalPlaces = 2});
    Type(u"1.2.3"_s);
    EXPECT_EQ(Text(), u"1.23"_s);
}

TEST_F(TextBoxKeysTest, ASeparatorThatIsAboutToBeReplacedStillCounts) {
    Enter({.Text = u"1.5"_s, .IsNumeric = true, .DecimalPlaces = 2});
    TheBox().selectAll();
    Type(u"."_s);
    EXPECT_EQ(Text(), u"1.5"_s);
    EXPECT_TRUE(TakeChanges().isEmpty());
}

TEST_F(TextBoxKeysTest, WithoutDecimalsTheSeparatorIsSwallowed) {
    Enter({.Text = u""_s, .IsNumeric = true, .DecimalPlaces = 0});
    Type(u"1.5"_s);
    EXPECT_EQ(Text(), u"15"_s);
}

TEST_F(TextBoxKeysTest, ASignIsTypedOnlyWhereNegativeIsAllowed) {
    Enter({.Text = u""_s, .IsNumeric = true});
    Type(u"-5"_s);
    EXPECT_EQ(Text(), u"5"_s);
    Enter({.Text = u""_s, .IsNumeric = true, .AllowNegative = true});
    Type(u"-5-"_s);
    EXPECT_EQ(Text(), u"-5"_s);
}

TEST_F(TextBoxKeysTest, ALoneMinusStaysWhileTyping) {
    Enter({.Text = u""_s, .IsNumeric = true, .AllowNegative = true});
    Type(u"-"_s);
    EXPECT_EQ(Text(), u"-"_s);
    EXPECT_EQ(TheControl().Value(), 0);
}

TEST_F(TextBoxKeysTest, ASignTypedBehindDigitsGoesInFrontAndTheCaretStaysCountedFromTheStart) {
    Enter({.Text = u"12"_s, .IsNumeric = true, .AllowNegative = true});
    PlaceCaret(2);
    Type(u"-"_s);
    EXPECT_EQ(Text(), u"-12"_s);
    EXPECT_EQ(Caret(), 3);
    TheControl().SetText(u"1234"_s);
    PlaceCaret(1);
    Type(u"-"_s);
    EXPECT_EQ(Text(), u"-1234"_s);
    EXPECT_EQ(Caret(), 2);
}

TEST_F(TextBoxKeysTest, TheMarksAreThoseOfTheLocale) {
    const CountryLocale german("de_DE");
    Enter({.Text = u""_s, .IsNumeric = true, .DecimalPlaces = 2});
    Type(u"1.234,5,678"_s);
    EXPECT_EQ(Text(), u"1.234,56"_s);
    EXPECT_EQ(TheControl().Value(), 1234.56);
}

TEST_F(TextBoxKeysTest, AMarkOfTwoCharactersIsToldByItsFirst) {
    const MoneyLocale wide({.decimalSeparator = u"::"_s, .thousandSeparator = u"'_"_s});
    Enter({.Text = u"1'_000"_s, .IsNumeric = true, .DecimalPlaces = 2});
    PlaceCaret(6);
    Type(u"_"_s);
    EXPECT_EQ(Text(), u"1'_000"_s) << "the second character is no key";
    Type(u"'"_s);
    EXPECT_EQ(Text(), u"1"_s) << "the first passes, but half a mark makes no number";
    TheControl().SetText(u"1'_000::55"_s);
    EXPECT_EQ(Text(), u"1'_000::5"_s) << "decimals are counted from the first character";
    EXPECT_EQ(TheControl().Value(), 1000.5);
}

TEST_F(TextBoxKeysTest, KeysThatTypeNothingPass) {
    Enter({.Text = u"1234"_s, .IsNumeric = true});
    Press(Qt::Key_Home);
    EXPECT_EQ(Caret(), 0);
    Press(Qt::Key_Right);
    EXPECT_EQ(Caret(), 1);
    Press(Qt::Key_Delete);
    EXPECT_EQ(Text(), u"134"_s);
    Press(Qt::Key_End);
    Press(Qt::Key_Left, Qt::ShiftModifier);
    EXPECT_EQ(TheBox().selectedText(), u"4"_s);
    Press(Qt::Key_Backspace);
    EXPECT_EQ(Text(), u"13"_s);
}

TEST_F(TextBoxKeysTest, ShortcutsOfTheEditBoxPass) {
    Enter({.Text = u"1234"_s, .IsNumeric = true});
    Press(Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(TheBox().selectedText(), u"1234"_s);
    Press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), u"1234"_s);
    Press(Qt::Key_X, Qt::ControlModifier);
    EXPECT_EQ(Text(), u""_s);
    Press(Qt::Key_V, Qt::ControlModifier);
    Press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(Text(), u"12341234"_s);
    Press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Text(), u"1234"_s);
    Press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(Text(), u"12341234"_s);
    Press(Qt::Key_Backspace, Qt::ControlModifier);
    EXPECT_EQ(Text(), u""_s);
}

TEST_F(TextBoxKeysTest, TheThirdCharactersOfAKeyboardAreFilteredToo) {
    Enter({.Text = u""_s, .IsNumeric = true, .DecimalPlaces = 2});
    const Qt::KeyboardModifiers thirdLevel = Qt::ControlModifier | Qt::AltModifier;
    QTest::sendKeyEvent(QTest::Click, &TheBox(), Qt::Key_unknown, u"€"_s, thirdLevel);
    QTest::sendKeyEvent(QTest::Click, &TheBox(), Qt::Key_unknown, u"x"_s, Qt::GroupSwitchModifier);
    QTest::sendKeyEvent(QTest::Click, &TheBox(), Qt::Key_unknown, u"x"_s,
                        Qt::ControlModifier | Qt::KeypadModifier);
    QTest::sendKeyEvent(QTest::Click, &TheBox(), Qt::Key_unknown, u"\u200E"_s,
                        Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(Text(), u""_s);
    QTest::sendKeyEvent(QTest::Click, &TheBox(), Qt::Key_5, u"5"_s, Qt::KeypadModifier);
    EXPECT_EQ(Text(), u"5"_s);
}

TEST_F(TextBoxKeysTest, EnterAndEscapeReachTheForm) {
    Enter({.Text = u"1"_s, .IsNumeric = true});
    struct Form : QObject {
        bool eventFilter(QObject* watched, QEvent* event) override {
            if (event->type() == QEvent::KeyPress) {
                keys.append(static_cast<QKeyEvent*>(event)->key());
            }
            return QObject::eventFilter(watched, event);
        }
        QList<int> keys;
    } form;
    window.installEventFilter(&form);
    Press(Qt::Key_Return);
    Press(Qt::Key_Escape);
    Type(u"x"_s);
    EXPECT_EQ(form.keys, (QList<int>{Qt::Key_Return, Qt::Key_Escape})) << "a swallowed key goes nowhere";
}

TEST_F(TextBoxKeysTest, WhatWasTypedCanBeUndoneWhereNothingWasPutRight) {
    Enter({.Text = u""_s, .IsNumeric = true, .DecimalPlaces = 2});
    Type(u"12"_s);
    TheBox().undo();
    EXPECT_EQ(Text(), u""_s);
    TheBox().redo();
    EXPECT_EQ(Text(), u"12"_s);
    EXPECT_EQ(TakeChanges(), (QList<bool>{true, true, false, false}));
}

TEST_F(TextBoxKeysTest, TheMenuOfTheEditBoxPastes) {
    Enter({.Text = u""_s, .IsNumeric = true, .DecimalPlaces = 2});
    QGuiApplication::clipboard()->setText(u"3.999 dollars"_s);
    PasteByMenu();
    EXPECT_EQ(Text(), u"3.99"_s);
}

TEST_F(TextBoxKeysTest, TypingStopsAtTheLongestLength) {
    Enter({.MaxLength = 4, .Text = u""_s});
    Type(u"abcdef"_s);
    EXPECT_EQ(Text(), u"abcd"_s);
    Press(Qt::Key_Backspace);
    EXPECT_EQ(Text(), u"abc"_s);
    Type(u"xy"_s);
    EXPECT_EQ(Text(), u"abcx"_s);
}

TEST_F(TextBoxKeysTest, ASelectionThatIsReplacedDoesNotCountForTheLength) {
    Enter({.MaxLength = 4, .Text = u"abcd"_s});
    TheBox().setSelection(1, 2);
    Type(u"xyz"_s);
    EXPECT_EQ(Text(), u"axyd"_s);
}

TEST_F(TextBoxKeysTest, ALengthIsCountedInUnitsOfText) {
    Enter({.MaxLength = 3, .Text = u"ab"_s});
    PlaceCaret(2);
    QTest::sendKeyEvent(QTest::Click, &TheBox(), Qt::Key_unknown, u"🏠"_s, Qt::NoModifier);
    EXPECT_EQ(Text(), u"ab"_s) << "half of it would fit";
}

TEST_F(TextBoxKeysTest, TheLengthHoldsForWhatTheUserEntersByAnyRoad) {
    Enter({.MaxLength = 5, .Text = u""_s});
    Type(u"123"_s);
    for (int times = 0; times < 4; ++times) {
        Compose(u"é"_s);
    }
    EXPECT_EQ(Text(), u"123éé"_s);
    TheControl().SetText(u"12"_s);
    PlaceCaret(1);
    Paste(u"abcdef"_s);
    EXPECT_EQ(Text(), u"1abc2"_s);
    TheControl().SetText(u"12"_s);
    Drop(u"abcdef"_s);
    EXPECT_EQ(Text(), u"12abc"_s);
    TheControl().SetText(u""_s);
    QGuiApplication::clipboard()->setText(u"abcdef"_s);
    PasteByMenu();
    EXPECT_EQ(Text(), u"abcde"_s);
    TheBox().setSelection(0, 2);
    Paste(u"123"_s);
    EXPECT_EQ(Text(), u"12cde"_s) << "what is selected makes room";
}

TEST_F(TextBoxKeysTest, ABoxThatIsFullAlreadyTakesNothingAndLosesNothing) {
    Enter({.MaxLength = 4, .Text = u"longer than four"_s});
    EXPECT_EQ(Text(), u"longer than four"_s) << "text set by program isn't limited";
    TheBox().setSelection(0, 6);
    Type(u"x"_s);
    Compose(u"é"_s);
    Paste(u"pasted"_s);
    EXPECT_EQ(Text(), u"longer than four"_s);
    EXPECT_EQ(TheBox().selectedText(), u"longer"_s);
    Drop(u"dropped"_s);
    EXPECT_EQ(Text(), u"longer than four"_s);
    TheControl().SetText(QString(40000, u'x'));
    EXPECT_EQ(Text().size(), 40000);
}

TEST_F(TextBoxKeysTest, WhatIsPastedIsNotCutWithinACharacter) {
    Enter({.MaxLength = 3, .Text = u""_s});
    Paste(u"ab🏠"_s);
    EXPECT_EQ(Text(), u"ab"_s);
}

TEST_F(TextBoxKeysTest, APastedTextEndsAtItsFirstLineBreak) {
    for (const QString& lineBreak : {u"\n"_s, u"\r\n"_s, u"\r"_s, u"\u2028"_s, u"\u2029"_s, u"\v"_s}) {
        Enter({.Text = u""_s});
        Paste(u"Ada Finch"_s + lineBreak);
        EXPECT_EQ(Text(), u"Ada Finch"_s);
        Drop(u"!"_s + lineBreak + u"and the next line"_s);
        EXPECT_EQ(Text(), u"Ada Finch!"_s);
        TheBox().selectAll();
        Paste(lineBreak + u"second"_s);
        EXPECT_EQ(Text(), u"Ada Finch!"_s) << "an empty line is nothing to paste";
    }
}

TEST_F(TextBoxKeysTest, TabsInAPastedTextBecomeBlanks) {
    Enter({.Text = u""_s});
    Paste(u"Ada\tFinch"_s);
    Drop(u"\tJr."_s);
    EXPECT_EQ(Text(), u"Ada Finch Jr."_s);
}

TEST_F(TextBoxKeysTest, APasteThatWasCutCanBeUndone) {
    Enter({.MaxLength = 5, .Text = u"Anna"_s});
    Paste(u"Bernadette\n"_s);
    EXPECT_EQ(Text(), u"Berna"_s);
    TheBox().undo();
    EXPECT_EQ(Text(), u"Anna"_s);
}

TEST_F(TextBoxKeysTest, ADropThatDoesNotFitWholeIsACopyAndNoMove) {
    Enter({.MaxLength = 5, .Text = u""_s});
    EXPECT_EQ(Drop(u"abc"_s, Qt::MoveAction), Qt::MoveAction);
    EXPECT_EQ(Drop(u"defg"_s, Qt::MoveAction), Qt::CopyAction);
    EXPECT_EQ(Text(), u"abcde"_s);
}

TEST_F(TextBoxKeysTest, NoLengthIsNoLimit) {
    for (const qint32 length : {0, -1}) {
        Enter({.MaxLength = length, .Text = u""_s});
        Type(u"0123456789"_s);
        EXPECT_EQ(Text().size(), 10);
    }
}

TEST_F(TextBoxKeysTest, ALockedBoxTakesNoKeyAndNoPaste) {
    Enter({.Locked = true, .Text = u"12"_s, .IsNumeric = true});
    Type(u"3"_s);
    Press(Qt::Key_Backspace);
    Press(Qt::Key_Delete);
    Paste(u"4"_s);
    Drop(u"5"_s);
    EXPECT_EQ(Text(), u"12"_s);
    Press(Qt::Key_A, Qt::ControlModifier);
    Press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), u"12"_s) << "but it can be copied from";
    EXPECT_TRUE(TakeChanges().isEmpty());
}

}  // namespace
