#include "support/MoneyLocale.h"
#include "support/PrintQt.h"
#include "text/TextBoxOnScreen.h"

namespace {

using namespace Qt::StringLiterals;
using controls::ctlTextBox;

using TextBoxPropertiesTest = TextBoxTest;

TEST_F(TextBoxPropertiesTest, ANewControlHasTheDefaults) {
    const ctlTextBox control;
    EXPECT_TRUE(control.Enabled());
    EXPECT_EQ(control.Alignment(), 0);
    EXPECT_FALSE(control.Locked());
    EXPECT_EQ(control.MaxLength(), 0);
    EXPECT_EQ(control.Text(), u"Text1"_s);
    EXPECT_FALSE(control.IsNumeric());
    EXPECT_EQ(control.DecimalPlaces(), 0);
    EXPECT_FALSE(control.AllowNegative());
    EXPECT_FALSE(control.ShowUpDown());
    EXPECT_EQ(control.UpDownIncrement(), 0);
    EXPECT_EQ(control.Value(), 0);
}

TEST_F(TextBoxPropertiesTest, EverySavedPropertyIsLoaded) {
    Load({.Enabled = false,
          .Alignment = 1,
          .Locked = true,
          .MaxLength = 30,
          .Text = u"0.00"_s,
          .IsNumeric = true,
          .DecimalPlaces = 4,
          .AllowNegative = true,
          .ShowUpDown = true,
          .UpDownIncrement = 0.25});
    EXPECT_FALSE(TheControl().Enabled());
    EXPECT_EQ(TheControl().Alignment(), 1);
    EXPECT_TRUE(TheControl().Locked());
    EXPECT_EQ(TheControl().MaxLength(), 30);
    EXPECT_EQ(TheControl().Text(), u"0.00"_s);
    EXPECT_TRUE(TheControl().IsNumeric());
    EXPECT_EQ(TheControl().DecimalPlaces(), 4);
    EXPECT_TRUE(TheControl().AllowNegative());
    EXPECT_TRUE(TheControl().ShowUpDown());
    EXPECT_EQ(TheControl().UpDownIncrement(), 0.25);
}

TEST_F(TextBoxPropertiesTest, TheSavedTextIsTakenAsItIs) {
    Load({.Text = u"abc"_s, .IsNumeric = true});
    EXPECT_EQ(Text(), u"abc"_s);
    Load({.MaxLength = 2, .Text = u"O'Brien"_s});
    EXPECT_EQ(Text(), u"O'Brien"_s);
}

TEST_F(TextBoxPropertiesTest, TwoSavedDecimalsAreThoseOfTheLocalesMoney) {
    const MoneyLocale three({.decimalSeparator = u"."_s, .thousandSeparator = u","_s, .digits = u"3"_s});
    for (const auto& [saved, loaded] : {std::pair<qint16, qint16>{2, 3}, {0, 0}, {1, 1}, {3, 3}, {4, 4}}) {
        Load({.IsNumeric = true, .DecimalPlaces = saved});
        EXPECT_EQ(TheControl().DecimalPlaces(), loaded);
    }
}

TEST_F(TextBoxPropertiesTest, WithoutNumericModeTwoIsTwo) {
    const MoneyLocale three({.decimalSeparator = u"."_s, .thousandSeparator = u","_s, .digits = u"3"_s});
    Load({.DecimalPlaces = 2});
    EXPECT_EQ(TheControl().DecimalPlaces(), 2);
    TheControl().SetIsNumeric(true);
    EXPECT_EQ(TheControl().DecimalPlaces(), 2);
}

TEST_F(TextBoxPropertiesTest, TwoDecimalsSetByProgramAreTwo) {
    const MoneyLocale three({.decimalSeparator = u"."_s, .thousandSeparator = u","_s, .digits = u"3"_s});
    Load({.IsNumeric = true});
    TheControl().SetDecimalPlaces(2);
    EXPECT_EQ(TheControl().DecimalPlaces(), 2);
}

TEST_F(TextBoxPropertiesTest, MoneyWithoutDecimalsRefusesTheDecimalKey) {
    const CountryLocale japanese("ja_JP");
    Enter({.Text = u""_s, .IsNumeric = true, .DecimalPlaces = 2});
    EXPECT_EQ(TheControl().DecimalPlaces(), 0);
    Type(u"1.5"_s);
    EXPECT_EQ(Text(), u"15"_s);
    TheControl().SetText(u"0.00"_s);
    EXPECT_EQ(Text(), u"0"_s);
}

TEST_F(TextBoxPropertiesTest, TurningNumericModeOnAlignsToTheRight) {
    Load({});
    TheControl().SetIsNumeric(true);
    EXPECT_EQ(TheControl().Alignment(), 1);
    EXPECT_TRUE(TheBox().alignment().testFlag(Qt::AlignRight));
    TheControl().SetAlignment(0);
    TheControl().SetIsNumeric(true);
    EXPECT_EQ(TheControl().Alignment(), 1) << "whether or not it was on";
}

TEST_F(TextBoxPropertiesTest, TurningNumericModeOffLeavesTheAlignment) {
    Load({.Alignment = 1, .IsNumeric = true});
    TheControl().SetIsNumeric(false);
    EXPECT_EQ(TheControl().Alignment(), 1);
    Load({.Alignment = 0, .IsNumeric = true});
    TheControl().SetIsNumeric(false);
    EXPECT_EQ(TheControl().Alignment(), 0);
}

TEST_F(TextBoxPropertiesTest, ASavedNumericModeLeavesTheAlignmentAsSaved) {
    Load({.Alignment = 0, .IsNumeric = true});
    EXPECT_EQ(TheControl().Alignment(), 0);
    EXPECT_TRUE(TheBox().alignment().testFlag(Qt::AlignLeft));
}

TEST_F(TextBoxPropertiesTest, NumericModeLeavesTheTextUntilItChanges) {
    Load({.Text = u"12 apples"_s});
    TheControl().SetIsNumeric(true);
    EXPECT_EQ(Text(), u"12 apples"_s);
    TheControl().SetText(u"13 apples"_s);
    EXPECT_EQ(Text(), u"13"_s);
}

TEST_F(TextBoxPropertiesTest, EnabledIsTheBoxAndTheControl) {
    Load({});
    TheControl().SetEnabled(false);
    EXPECT_FALSE(TheControl().isEnabled());
    EXPECT_FALSE(TheBox().isEnabled());
    EXPECT_FALSE(TheControl().Enabled());
    TheControl().SetEnabled(true);
    EXPECT_TRUE(TheControl().isEnabled());
    EXPECT_TRUE(TheBox().isEnabled());
}

TEST_F(TextBoxPropertiesTest, ABoxThatWasDisabledStaysSoUntilTheControlIsToldOtherwise) {
    Load({.Enabled = false});
    TheControl().setEnabled(true);
    EXPECT_FALSE(TheBox().isEnabled());
    EXPECT_FALSE(TheControl().Enabled());
}

TEST_F(TextBoxPropertiesTest, EnabledIsTheControlsOwnAnswer) {
    Load({});
    window.setEnabled(false);
    EXPECT_TRUE(TheControl().Enabled());
    EXPECT_FALSE(TheBox().isEnabled());
}

TEST_F(TextBoxPropertiesTest, TheRestIsWhatWasSet) {
    Load({});
    TheControl().SetUpDownIncrement(0.5);
    EXPECT_EQ(TheControl().UpDownIncrement(), 0.5);
    TheControl().SetUpDownIncrement(0.5);
    EXPECT_EQ(TheControl().UpDownIncrement(), 0.5);
    TheControl().SetAllowNegative(true);
    EXPECT_TRUE(TheControl().AllowNegative());
    TheControl().SetMaxLength(7);
    EXPECT_EQ(TheControl().MaxLength(), 7);
    TheControl().SetAlignment(9);
    EXPECT_EQ(TheControl().Alignment(), 9);
    EXPECT_TRUE(TheBox().alignment().testFlag(Qt::AlignLeft));
    TheControl().SetBackColor(controls::RGB(1, 2, 3));
    EXPECT_EQ(TheControl().BackColor(), controls::RGB(1, 2, 3));
}

}  // namespace
