#include "controls/base/Regional.h"
#include "support/MoneyLocale.h"
#include "support/PrintQt.h"
#include "text/TextBoxOnScreen.h"

namespace {

using namespace Qt::StringLiterals;
using controls::ctlTextBox;

using TextBoxChangeTest = TextBoxTest;

const QList<bool> byKey{true};
const QList<bool> notByKey{false};

TEST_F(TextBoxChangeTest, AKeyInNumericModeIsToldAsOne) {
    Enter({.Text = u""_s, .IsNumeric = true, .DecimalPlaces = 2});
    for (const QChar key : u"1,2.5"_s) {
        Type(key);
        EXPECT_EQ(TakeChanges(), byKey) << QString(key).toStdString();
    }
    Press(Qt::Key_Backspace);
    EXPECT_EQ(TakeChanges(), byKey);
}

TEST_F(TextBoxChangeTest, EachCharacterThatIsComposedIsToldAsAKey) {
    Enter({.Text = u""_s, .IsNumeric = true});
    Compose(u"8x9"_s);
    EXPECT_EQ(TakeChanges(), (QList<bool>{true, true}));
}

TEST_F(TextBoxChangeTest, ASwallowedKeyChangesNothing) {
    Enter({.Text = u""_s, .IsNumeric = true});
    Type(u"x-.'"_s);
    EXPECT_TRUE(TakeChanges().isEmpty());
}

TEST_F(TextBoxChangeTest, EverythingElseIsNotToldAsAKey) {
    Enter({.Text = u"5"_s, .IsNumeric = true});
    TheControl().SetText(u"6"_s);
    EXPECT_EQ(TakeChanges(), notByKey);
    Paste(u"7"_s);
    EXPECT_EQ(TakeChanges(), notByKey);
    Drop(u"9"_s);
    EXPECT_EQ(TakeChanges(), notByKey);
    PlaceCaret(0);
    Press(Qt::Key_Delete);
    EXPECT_EQ(TakeChanges(), notByKey) << "Delete types no character";
}

TEST_F(TextBoxChangeTest, WithoutNumericModeNothingIsToldAsAKey) {
    Enter({.Text = u""_s});
    Type(u"a1"_s);
    Press(Qt::Key_Backspace);
    Paste(u"b"_s);
    TheControl().SetText(u"c"_s);
    EXPECT_EQ(TakeChanges(), QList<bool>(5, false));
}

TEST_F(TextBoxChangeTest, AKeyThatChangedNothingIsForgotten) {
    Enter({.Text = u""_s, .IsNumeric = true});
    Press(Qt::Key_Backspace);
    TheControl().SetText(u"5"_s);
    EXPECT_EQ(TakeChanges(), notByKey);
    TheControl().SetMaxLength(1);
    Type(u"6"_s);
    TheControl().SetText(u"7"_s);
    EXPECT_EQ(TakeChanges(), notByKey);
}

TEST_F(TextBoxChangeTest, TheTextThatIsThereAlreadyIsNoChange) {
    Enter({.Text = u"abc"_s});
    TheBox().setSelection(1, 1);
    TheControl().SetText(u"abc"_s);
    EXPECT_TRUE(TakeChanges().isEmpty());
    EXPECT_EQ(TheBox().selectedText(), u"b"_s);
}

TEST_F(TextBoxChangeTest, OneChangeIsOneEventHoweverMuchIsPutRight) {
    Load({.Text = u""_s, .IsNumeric = true, .DecimalPlaces = 1, .AllowNegative = true});
    TheControl().SetText(u"1-2.345x"_s);
    EXPECT_EQ(Text(), u"-12.3"_s);
    EXPECT_EQ(TakeChanges(), notByKey);
}

TEST_F(TextBoxChangeTest, AHandlerFindsTheTextPutRight) {
    Load({.Text = u""_s, .IsNumeric = true});
    QString seen;
    QObject::connect(&TheControl(), &ctlTextBox::Change, [&] { seen = TheControl().Text(); });
    TheControl().SetText(u"12.9 apples"_s);
    EXPECT_EQ(seen, u"12"_s);
}

TEST_F(TextBoxChangeTest, AThirdDecimalIsCutOffWhicheverWayItComesIn) {
    Enter({.Text = u"1.99"_s, .IsNumeric = true, .DecimalPlaces = 2});
    PlaceCaret(4);
    Type(u"9"_s);
    EXPECT_EQ(Text(), u"1.99"_s);
    EXPECT_EQ(TakeChanges(), byKey) << "the text was another one for a moment";
    PlaceCaret(2);
    Type(u"5"_s);
    EXPECT_EQ(Text(), u"1.59"_s);
    EXPECT_EQ(Caret(), 3);
    TheBox().selectAll();
    Paste(u"2.999"_s);
    EXPECT_EQ(Text(), u"2.99"_s);
    TheControl().SetText(u"3.999"_s);
    EXPECT_EQ(Text(), u"3.99"_s);
    TheControl().SetText(u""_s);
    Compose(u"4.999"_s);
    EXPECT_EQ(Text(), u"4.99"_s);
    TheControl().SetText(u""_s);
    Drop(u"5.999"_s);
    EXPECT_EQ(Text(), u"5.99"_s);
}

TEST_F(TextBoxChangeTest, WithoutDecimalsAPastedNumberKeepsItsWholePart) {
    Enter({.Text = u""_s, .IsNumeric = true});
    Paste(u"12.75"_s);
    EXPECT_EQ(Text(), u"12"_s);
    EXPECT_EQ(Caret(), 2);
}

TEST_F(TextBoxChangeTest, APastedNumberWithLettersBehindKeepsTheNumber) {
    Enter({.Text = u""_s, .IsNumeric = true, .DecimalPlaces = 2});
    Paste(u"12abc"_s);
    EXPECT_EQ(Text(), u"12"_s);
}

TEST_F(TextBoxChangeTest, TheCaretStaysCountedFromTheStartAsFarAsTheTextReaches) {
    Enter({.Text = u"1234"_s, .IsNumeric = true, .DecimalPlaces = 2});
    PlaceCaret(1);
    Paste(u"5."_s);
    EXPECT_EQ(Text(), u"15.23"_s);
    EXPECT_EQ(Caret(), 3);
    PlaceCaret(5);
    Paste(u"67"_s);
    EXPECT_EQ(Text(), u"15.23"_s);
    EXPECT_EQ(Caret(), 5);
}

TEST_F(TextBoxChangeTest, DeletingAllLeavesTheBoxEmptyUntilTheUserLeaves) {
    Enter({.Text = u"15"_s, .IsNumeric = true});
    Press(Qt::Key_Delete);
    EXPECT_EQ(Text(), u""_s);
    EXPECT_EQ(TheControl().Value(), 0);
    TakeChanges();
    Leave();
    EXPECT_EQ(Text(), u"0"_s);
    EXPECT_EQ(TakeChanges(), notByKey);
}

TEST_F(TextBoxChangeTest, ALoneMinusBecomesZeroOnLeaving) {
    Enter({.Text = u""_s, .IsNumeric = true, .AllowNegative = true});
    Type(u"-"_s);
    Leave();
    EXPECT_EQ(Text(), u"0"_s);
}

TEST_F(TextBoxChangeTest, ANumberIsNotPaddedOnLeaving) {
    for (const QString& number : {u"12"_s, u"0.00"_s, u"1,000.5"_s, u"5."_s}) {
        Enter({.Text = number, .IsNumeric = true, .DecimalPlaces = 2});
        Leave();
        EXPECT_EQ(Text(), number);
        EXPECT_TRUE(TakeChanges().isEmpty());
    }
}

TEST_F(TextBoxChangeTest, NothingHappensToPlainTextOnLeaving) {
    Enter({.Text = u"-"_s});
    Leave();
    EXPECT_EQ(Text(), u"-"_s);
}

TEST_F(TextBoxChangeTest, ValueIsTheNumberOrZero) {
    Load({.Text = u"1,000"_s, .IsNumeric = true});
    EXPECT_EQ(TheControl().Value(), 1000);
    Load({.Text = u"-2.5"_s});
    EXPECT_EQ(TheControl().Value(), -2.5) << "without numeric mode as well";
    for (const QString& none : {u""_s, u"-"_s, u"abc"_s, u"12 apples"_s, QString(400, u'9')}) {
        Load({.Text = none, .IsNumeric = true});
        EXPECT_EQ(TheControl().Value(), 0) << none.toStdString();
    }
}

TEST_F(TextBoxChangeTest, AControlKeepsTheMarksItWasMadeWith) {
    const MoneyLocale before({.decimalSeparator = u","_s, .thousandSeparator = u"."_s});
    Load({.Text = u"1.000,5"_s, .IsNumeric = true, .DecimalPlaces = 1});
    controls::AskForMoney({});
    EXPECT_EQ(TheControl().Value(), 1000.5);
    TheControl().SetText(u"7,55"_s);
    EXPECT_EQ(Text(), u"7,5"_s);
}

TEST_F(TextBoxChangeTest, ATextSetByAHandlerFiresAgain) {
    Load({.Text = u""_s});
    QObject::connect(&TheControl(), &ctlTextBox::Change,
                     [this] { TheControl().SetText(TheControl().Text().toUpper()); });
    TheControl().SetText(u"abc"_s);
    EXPECT_EQ(Text(), u"ABC"_s);
    EXPECT_EQ(TakeChanges(), (QList<bool>{false, false}));
}

TEST_F(TextBoxChangeTest, ATextSetByAHandlerIsStillPartOfTheKey) {
    Enter({.Text = u""_s, .IsNumeric = true});
    QObject::connect(&TheControl(), &ctlTextBox::Change, [this] {
        if (Text() == u"1"_s) {
            TheControl().SetText(u"100"_s);
        }
    });
    Type(u"1"_s);
    EXPECT_EQ(Text(), u"100"_s);
    EXPECT_EQ(TakeChanges(), (QList<bool>{true, true}));
    EXPECT_EQ(Caret(), 1) << "the user goes on typing where he was";
    TheControl().SetText(u"7"_s);
    EXPECT_EQ(TakeChanges(), notByKey);
}

TEST_F(TextBoxChangeTest, ATextSetByAHandlerIsPutRightToo) {
    Load({.Text = u""_s, .IsNumeric = true});
    QObject::connect(&TheControl(), &ctlTextBox::Change, [this] {
        if (Text() == u"1"_s) {
            TheControl().SetText(u"2.5x"_s);
        }
    });
    TheControl().SetText(u"1"_s);
    EXPECT_EQ(Text(), u"2"_s);
}

TEST_F(TextBoxChangeTest, TwoBoxesCanDriveEachOther) {
    Load({.Text = u""_s, .IsNumeric = true});
    ctlTextBox list({.Text = u""_s}, &window);
    QObject::connect(&TheControl(), &ctlTextBox::Change, [&] { list.SetText(Text() + u","_s); });
    QObject::connect(&list, &ctlTextBox::Change,
                     [&] { TheControl().SetText(QString::number(list.Text().count(u','))); });
    list.SetText(u"a,b,c,"_s);
    EXPECT_EQ(Text(), u"1"_s);
    EXPECT_EQ(list.Text(), u"1,"_s);
}

TEST_F(TextBoxChangeTest, TextSetByProgramShowsItsStartUnlessTheUserIsInTheBox) {
    Load({.Text = u""_s});
    TheControl().SetText(QString(500, u'x'));
    EXPECT_EQ(Caret(), 0);
    Focus();
    PlaceCaret(7);
    TheControl().SetText(QString(600, u'y'));
    EXPECT_EQ(Caret(), 7);
    TheControl().SetText(u"abc"_s);
    EXPECT_EQ(Caret(), 3);
}

}  // namespace
