#include "date/DateForm.h"
#include "platform/Clock.h"
#include "platform/NoDate.h"
#include "support/PrintQt.h"

#include <gtest/gtest.h>

namespace {

using namespace controls;
using namespace Qt::StringLiterals;

const QDate today(2009, 3, 14);

TEST(DateValueTest, ADateFillsTheBoxesInTheirOrder) {
    const struct {
        const char* locale;
        const char16_t* texts;
    } rows[] = {{DateForm::DayFirst, u"05/07/2011"},
                {DateForm::MonthFirst, u"07/05/2011"},
                {DateForm::YearFirst, u"2011/07/05"}};
    for (const auto& row : rows) {
        DateForm form({}, row.locale);
        form.date.SetValue(QDate(2011, 7, 5));
        EXPECT_EQ(form.date.Value(), QDate(2011, 7, 5));
        EXPECT_EQ(form.Texts(), QString::fromUtf16(row.texts));
    }
}

TEST(DateValueTest, BeginsOnToday) {
    for (const char* locale : {DateForm::DayFirst, DateForm::MonthFirst, DateForm::YearFirst}) {
        DateForm form({.IncludeNone = true}, locale);
        EXPECT_EQ(form.date.Value(), today);
        EXPECT_FALSE(form.date.NoneShown());
    }
}

TEST(DateValueTest, AYearOfThreeDigitsIsFilledUp) {
    DateForm form;
    form.date.SetValue(QDate(345, 1, 2));
    EXPECT_EQ(form.Texts(), u"02/01/0345"_s);
    form.EnterBox(1);
    form.LeaveControl();
    EXPECT_EQ(form.date.Value(), QDate(345, 1, 2));
}

TEST(DateValueTest, NoDateIsShownAsNoneWhereItIsAllowed) {
    DateForm form({.IncludeNone = true});
    form.date.SetValue(QDate(1234, 7, 9));
    EXPECT_TRUE(form.date.NoneShown());
    EXPECT_TRUE(form.None().isVisible());
    // Built afresh from today.
    EXPECT_EQ(form.date.Value(), QDate(1234, 3, 14));
    platform::PinToday(QDate(2010, 11, 12));
    EXPECT_EQ(form.date.Value(), QDate(1234, 11, 12));
    // Below it lies the today of the assignment.
    EXPECT_EQ(form.Texts(), u"14/03/2009"_s);
}

TEST(DateValueTest, NoDateQuietlyMeansTodayWhereItIsNotAllowed) {
    DateForm form;
    form.date.SetValue(QDate(2011, 7, 5));
    form.date.SetValue(platform::NoDate());
    EXPECT_FALSE(form.date.NoneShown());
    EXPECT_FALSE(form.None().isVisible());
    EXPECT_EQ(form.date.Value(), today);
    EXPECT_EQ(form.Texts(), u"14/03/2009"_s);
}

TEST(DateValueTest, ARealDateEndsNone) {
    DateForm form({.IncludeNone = true});
    form.date.SetValue(platform::NoDate());
    form.date.SetValue(QDate(2011, 7, 5));
    EXPECT_FALSE(form.date.NoneShown());
    EXPECT_FALSE(form.None().isVisible());
    EXPECT_EQ(form.date.Value(), QDate(2011, 7, 5));
}

TEST(DateValueTest, NoneThatIsNoLongerAllowedEnds) {
    DateForm form({.IncludeNone = true});
    form.date.SetValue(platform::NoDate());
    form.date.SetIncludeNone(false);
    EXPECT_FALSE(form.date.IncludeNone());
    EXPECT_FALSE(form.date.NoneShown());
    EXPECT_EQ(form.date.Value(), today);
    form.date.SetIncludeNone(true);
    EXPECT_FALSE(form.date.NoneShown());
}

TEST(DateValueTest, AssigningADateWhileTheBoxesHaveTheFocusReplacesWhatWasTyped) {
    DateForm form;
    form.EnterBox(1);
    form.Type("2");
    form.date.SetValue(QDate(2011, 7, 5));
    EXPECT_EQ(form.Texts(), u"05/07/2011"_s);
    EXPECT_EQ(form.Focus(), u"txtDate1"_s);
    form.LeaveControl();
    EXPECT_EQ(form.date.Value(), QDate(2011, 7, 5));
}

TEST(DateValueTest, AssigningNoDateTakesTheFocusFromTheBoxesToNone) {
    DateForm form({.IncludeNone = true});
    form.EnterBox(2);
    form.date.SetValue(platform::NoDate());
    EXPECT_EQ(form.Focus(), u"txtNone"_s);
    form.date.SetValue(QDate(2011, 7, 5));
    EXPECT_EQ(form.Focus(), u"txtDate1"_s);
}

TEST(DateValueTest, WhatTheBoxesCantHoldChangesNothing) {
    DateForm form({.IncludeNone = true});
    form.date.SetValue(QDate(2011, 7, 5));
    for (const QDate bad : {QDate(), QDate(99, 12, 31), QDate(-5, 1, 1), QDate(10000, 1, 1)}) {
        form.date.SetValue(bad);
        EXPECT_EQ(form.date.Value(), QDate(2011, 7, 5));
        EXPECT_EQ(form.Texts(), u"05/07/2011"_s);
    }
    form.date.SetValue(platform::NoDate());
    form.date.SetValue(QDate());
    EXPECT_TRUE(form.date.NoneShown());
}

TEST(DateValueTest, TheFirstAndTheLastDateGoRoundUnchanged) {
    DateForm form;
    for (const QDate date : {QDate(100, 1, 1), QDate(9999, 12, 31), QDate(2008, 2, 29)}) {
        form.date.SetValue(date);
        form.EnterBox(1);
        form.LeaveControl();
        EXPECT_EQ(form.date.Value(), date);
    }
}

TEST(DateValueTest, TheGroundIsReadAndWritten) {
    DateForm form;
    EXPECT_EQ(form.date.BackColor(), SystemColours::ButtonFace);
    form.date.SetBackColor(RGB(1, 2, 3));
    EXPECT_EQ(form.date.BackColor(), RGB(1, 2, 3));
}

}  // namespace
