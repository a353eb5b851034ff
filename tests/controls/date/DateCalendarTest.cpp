#include "controls/base/Display.h"
#include "date/DateForm.h"
#include "platform/NoDate.h"
#include "support/OnScreen.h"
#include "support/PrintQt.h"

#include <QTest>

#include <gtest/gtest.h>

namespace {

using namespace controls;
using namespace Qt::StringLiterals;

QString Title(DateForm& form) {
    return MonthTitle(form.date.ShownCalendar().shown);
}

TEST(DateCalendarTest, ADoubleClickOnTheOpenButtonIsOneClick) {
    DateForm form;
    const QPoint middle = form.date.mapTo(&form.window, form.Button("cmdOpen").geometry().center());
    QTest::mouseDClick(form.window.windowHandle(), Qt::LeftButton, Qt::NoModifier, middle);
    EXPECT_TRUE(form.date.DroppedDown());
    form.Click("cmdOpen");
    EXPECT_FALSE(form.date.DroppedDown()) << "the next click counts again";
}

TEST(DateCalendarTest, EachPressOnAnArrowOfTheCalendarIsAStepAlsoAQuickOne) {
    DateForm form;
    form.date.DropDown();
    const QPoint middle = form.date.mapTo(&form.window, form.Button("cmdRightMonth").geometry().center());
    QTest::mouseDClick(form.window.windowHandle(), Qt::LeftButton, Qt::NoModifier, middle);
    EXPECT_EQ(MonthTitle(form.date.ShownCalendar().shown), u"May 2009"_s);
}

TEST(DateCalendarTest, TheOpenButtonOpensAndCloses) {
    DateForm form;
    form.Click("cmdOpen");
    EXPECT_TRUE(form.date.DroppedDown());
    EXPECT_EQ(form.date.size(), QSize(ToPixels(2500), ToPixels(1960)));
    EXPECT_EQ(form.Focus(), u"cmdOpen"_s);
    form.Click("cmdOpen");
    EXPECT_FALSE(form.date.DroppedDown());
    EXPECT_EQ(form.date.size(), QSize(ToPixels(1575), ToPixels(285)));
}

TEST(DateCalendarTest, DropDownTogglesAndCloseUpOnlyCloses) {
    DateForm form;
    form.date.CloseUp();
    EXPECT_FALSE(form.date.DroppedDown());
    form.date.DropDown();
    EXPECT_TRUE(form.date.DroppedDown());
    form.date.DropDown();
    EXPECT_FALSE(form.date.DroppedDown());
    form.date.DropDown();
    form.date.CloseUp();
    EXPECT_FALSE(form.date.DroppedDown());
}

TEST(DateCalendarTest, SpaceAndEnterPressTheButtons) {
    DateForm form;
    form.Button("cmdOpen").setFocus();
    form.Press(Qt::Key_Space);
    EXPECT_TRUE(form.date.DroppedDown());
    form.Press(Qt::Key_Return);
    EXPECT_FALSE(form.date.DroppedDown());
    form.Press(Qt::Key_Enter);
    EXPECT_TRUE(form.date.DroppedDown());
    form.Button("cmdRightMonth").setFocus();
    form.Press(Qt::Key_Return);
    EXPECT_EQ(Title(form), u"April 2009"_s);
    form.Press(Qt::Key_Space);
    EXPECT_EQ(Title(form), u"May 2009"_s);
}

TEST(DateCalendarTest, TheButtonsStepByMonthAndYear) {
    DateForm form;
    form.date.DropDown();
    EXPECT_EQ(Title(form), u"March 2009"_s);
    form.Click("cmdLeftMonth");
    EXPECT_EQ(Title(form), u"February 2009"_s);
    form.Click("cmdRightMonth");
    form.Click("cmdRightMonth");
    EXPECT_EQ(Title(form), u"April 2009"_s);
    form.Click("cmdLeftYear");
    EXPECT_EQ(Title(form), u"April 2008"_s);
    form.Click("cmdRightYear");
    form.Click("cmdRightYear");
    EXPECT_EQ(Title(form), u"April 2010"_s);
    EXPECT_EQ(form.Texts(), u"14/03/2009"_s);
    EXPECT_EQ(form.date.Value(), QDate(2009, 3, 14));
}

TEST(DateCalendarTest, SteppingFromDecemberShowsJanuaryOfTheNextYear) {
    DateForm form;
    form.date.SetValue(QDate(2009, 12, 24));
    form.date.DropDown();
    form.Click("cmdRightMonth");
    EXPECT_EQ(Title(form), u"January 2010"_s);
    form.Click("cmdLeftMonth");
    EXPECT_EQ(Title(form), u"December 2009"_s);
}

TEST(DateCalendarTest, ReopeningShowsTheMonthThatWasSteppedTo) {
    DateForm form;
    form.Click("cmdOpen");
    form.Click("cmdRightMonth");
    form.Click("cmdRightYear");
    form.Click("cmdOpen");
    EXPECT_EQ(form.Texts(), u"14/03/2009"_s);
    form.Click("cmdOpen");
    EXPECT_EQ(Title(form), u"April 2010"_s);
    form.LeaveControl();
    form.Click("cmdOpen");
    EXPECT_EQ(Title(form), u"March 2009"_s);
}

TEST(DateCalendarTest, ItOpensOnTheStoredDateAndNotOnWhatIsBeingTyped) {
    DateForm form;
    form.EnterBox(2);
    form.Type("11");
    form.Click("cmdOpen");
    EXPECT_EQ(Title(form), u"March 2009"_s);
    EXPECT_EQ(form.date.ShownCalendar().markedDay, std::nullopt);
}

TEST(DateCalendarTest, AClickPicksADay) {
    DateForm form;
    form.Click("cmdOpen");
    form.Click("cmdRightMonth");
    form.ClickCell(5, 1);  // April 2009 begins on a Wednesday.
    EXPECT_FALSE(form.date.DroppedDown());
    EXPECT_EQ(form.Texts(), u"02/04/2009"_s);
    EXPECT_EQ(form.date.Value(), QDate(2009, 3, 14));
    form.LeaveControl();
    EXPECT_EQ(form.date.Value(), QDate(2009, 4, 2));
}

TEST(DateCalendarTest, EveryDayIsPickedWhereItStands) {
    for (const int density : {15, 12, 20, 9}) {
        const AnotherDensity pinned(density);
        DateForm form;
        form.date.SetValue(QDate(2010, 5, 1));
        for (int day = 1; day <= 31; ++day) {
            const int place = day + 5;  // May 2010 begins on a Saturday.
            form.date.DropDown();
            form.ClickCell(place % 7 + 1, place / 7 + 1);
            EXPECT_EQ(form.Box(1).text().toInt(), day) << density;
            EXPECT_FALSE(form.date.DroppedDown());
        }
    }
}

TEST(DateCalendarTest, AnyButtonOfTheMousePicks) {
    for (const Qt::MouseButton button : {Qt::RightButton, Qt::MiddleButton, Qt::BackButton}) {
        DateForm form;
        form.date.DropDown();
        form.ClickTwips(200, 1085, button);
        EXPECT_EQ(form.Texts(), u"01/03/2009"_s);
    }
}

TEST(DateCalendarTest, APressPicksBeforeTheRelease) {
    DateForm form;
    form.date.DropDown();
    QTest::mousePress(&form.date, Qt::LeftButton, Qt::NoModifier, QPoint(200 / 15, 1085 / 15));
    EXPECT_FALSE(form.date.DroppedDown());
}

TEST(DateCalendarTest, ACellWithoutADayKeepsItOpenAndChangesNothing) {
    DateForm form({.IncludeNone = true});
    form.date.DropDown();
    form.ClickCell(1, 1);  // March 2009 begins in row 2.
    form.ClickCell(5, 6);
    EXPECT_TRUE(form.date.DroppedDown());
    EXPECT_EQ(form.Texts(), u"14/03/2009"_s);
    EXPECT_FALSE(form.date.NoneShown());
}

TEST(DateCalendarTest, APressAboveTheGridDoesNothing) {
    DateForm form({.IncludeNone = true});
    form.date.DropDown();
    for (const int Y : {150, 300, 450, 600, 780}) {
        form.ClickTwips(1800, Y);
        EXPECT_TRUE(form.date.DroppedDown());
        EXPECT_EQ(form.Texts(), u"14/03/2009"_s);
    }
}

TEST(DateCalendarTest, TheLeftMarginPicksADayOf0) {
    DateForm form;
    form.EnterBox(1);
    form.date.DropDown();
    form.ClickTwips(0, 1000);
    EXPECT_FALSE(form.date.DroppedDown());
    EXPECT_EQ(form.Texts(), u"00/03/2009"_s);
    // The day box still has the focus, so leaving it makes the day 1.
    form.LeaveControl();
    EXPECT_EQ(form.date.Value(), QDate(2009, 3, 1));
}

TEST(DateCalendarTest, ADayOf0OutsideOfItsBoxIsTheDayBefore) {
    DateForm form;
    form.Click("cmdOpen");
    form.ClickTwips(0, 1000);
    form.LeaveControl();
    EXPECT_EQ(form.date.Value(), QDate(2009, 2, 28));
    EXPECT_EQ(form.Texts(), u"28/02/2009"_s);
}

TEST(DateCalendarTest, TheTopLineOfTheGridPicksADayOf0) {
    const AnotherDensity density(20);
    DateForm form;
    form.date.DropDown();
    form.ClickTwips(600, 780);
    EXPECT_TRUE(form.date.DroppedDown());
    form.ClickTwips(600, 800);
    EXPECT_FALSE(form.date.DroppedDown());
    EXPECT_EQ(form.Texts(), u"00/03/2009"_s);
}

TEST(DateCalendarTest, TheRightEdgeBeyondTheLastColumnDoesNothing) {
    DateForm form({.IncludeNone = true});
    form.date.DropDown();
    form.ClickTwips(2490, 1085);
    EXPECT_TRUE(form.date.DroppedDown());
    EXPECT_EQ(form.Texts(), u"14/03/2009"_s);
}

TEST(DateCalendarTest, BelowTheGridIsNone) {
    DateForm form({.IncludeNone = true});
    form.Click("cmdOpen");
    form.ClickTwips(1250, 2000);
    EXPECT_FALSE(form.date.DroppedDown());
    EXPECT_TRUE(form.date.NoneShown());
    EXPECT_EQ(form.date.Value(), platform::NoDate());
}

TEST(DateCalendarTest, BelowTheGridWithoutNoneOnlyCloses) {
    DateForm form;
    form.Click("cmdOpen");
    form.ClickTwips(1250, 1950);
    EXPECT_FALSE(form.date.DroppedDown());
    EXPECT_FALSE(form.date.NoneShown());
    EXPECT_EQ(form.Texts(), u"14/03/2009"_s);
}

TEST(DateCalendarTest, TheLastLineOfTheGridPicksTheDayAndThenNone) {
    const AnotherDensity density(20);
    DateForm form({.IncludeNone = true});
    form.date.SetValue(QDate(2010, 5, 1));
    form.date.DropDown();
    form.ClickTwips(200, 1940);
    EXPECT_FALSE(form.date.DroppedDown());
    EXPECT_EQ(form.Texts(), u"30/05/2010"_s);
    EXPECT_TRUE(form.date.NoneShown());

    DateForm without;
    without.date.SetValue(QDate(2010, 5, 1));
    without.date.DropDown();
    without.ClickTwips(200, 1940);
    EXPECT_EQ(without.Texts(), u"30/05/2010"_s);
    EXPECT_FALSE(without.date.NoneShown());
}

TEST(DateCalendarTest, TheLastLineOfTheGridStopsAtACellWithoutADay) {
    const AnotherDensity density(20);
    DateForm form({.IncludeNone = true});
    form.date.SetValue(QDate(2010, 5, 1));
    form.date.DropDown();
    form.ClickTwips(1600, 1940);
    EXPECT_TRUE(form.date.DroppedDown());
    EXPECT_FALSE(form.date.NoneShown());
    form.ClickTwips(1600, 1960);
    EXPECT_FALSE(form.date.DroppedDown());
    EXPECT_TRUE(form.date.NoneShown());
}

TEST(DateCalendarTest, PickingADayEndsNone) {
    DateForm form({.IncludeNone = true});
    form.date.SetValue(platform::NoDate());
    form.Click("cmdOpen");
    form.ClickCell(1, 2);
    EXPECT_FALSE(form.date.NoneShown());
    EXPECT_EQ(form.Texts(), u"01/03/2009"_s);
    // The stored date follows later: today lay below "<None>".
    EXPECT_EQ(form.date.Value(), QDate(2009, 3, 14));
    form.LeaveControl();
    EXPECT_EQ(form.date.Value(), QDate(2009, 3, 1));
}

TEST(DateCalendarTest, ItClosesWhenTheFocusLeavesTheControl) {
    DateForm form;
    form.EnterBox(1);
    form.date.DropDown();
    form.EnterBox(2);
    EXPECT_TRUE(form.date.DroppedDown());
    form.LeaveControl();
    EXPECT_FALSE(form.date.DroppedDown());
}

TEST(DateCalendarTest, AFocusOnItsButtonsStaysInTheControlWhenItCloses) {
    DateForm form({.IncludeNone = true});
    form.Click("cmdOpen");
    form.Click("cmdRightMonth");
    EXPECT_EQ(form.Focus(), u"cmdRightMonth"_s);
    form.ClickCell(5, 1);
    EXPECT_EQ(form.Focus(), u"cmdOpen"_s);
    EXPECT_EQ(form.date.Value(), QDate(2009, 3, 14));
}

TEST(DateCalendarTest, SettingValueWhileOpenRedrawsIt) {
    DateForm form;
    form.date.DropDown();
    form.date.SetValue(QDate(2011, 7, 5));
    EXPECT_TRUE(form.date.DroppedDown());
    EXPECT_EQ(Title(form), u"July 2011"_s);
    EXPECT_EQ(form.date.ShownCalendar().markedDay, 5);
}

TEST(DateCalendarTest, TheDayIsMarkedOnlyInTheMonthOfTheBoxes) {
    DateForm form;
    form.Click("cmdOpen");
    EXPECT_EQ(form.date.ShownCalendar().markedDay, 14);
    form.Click("cmdRightMonth");
    EXPECT_EQ(form.date.ShownCalendar().markedDay, std::nullopt);
    form.Click("cmdLeftMonth");
    EXPECT_EQ(form.date.ShownCalendar().markedDay, 14);
    form.Click("cmdRightYear");
    EXPECT_EQ(form.date.ShownCalendar().markedDay, std::nullopt);
}

TEST(DateCalendarTest, CellsThatAreNoneCantBePicked) {
    DateForm form;
    form.date.PickDay({1, 2});
    EXPECT_EQ(form.Texts(), u"14/03/2009"_s);
    form.date.PickNone();
    form.date.DropDown();
    for (const CalendarCell bad : {CalendarCell{-1, 2}, {8, 2}, {1, -1}, {1, 7}, {1000000, 1000000}}) {
        form.date.PickDay(bad);
        EXPECT_TRUE(form.date.DroppedDown());
        EXPECT_EQ(form.Texts(), u"14/03/2009"_s);
    }
    form.date.PickDay({1, 2});
    EXPECT_EQ(form.Texts(), u"01/03/2009"_s);
}

TEST(DateCalendarTest, ItLiesOverItsNeighboursAndGoesBackBelowThem) {
    DateForm form;
    QWidget neighbour(&form.window);
    neighbour.setObjectName(u"neighbour"_s);
    neighbour.setGeometry(form.date.x(), form.date.y() + 20, 300, 300);
    neighbour.show();
    const QPoint within(form.date.x() + 50, form.date.y() + 60);
    const QObjectList stack = form.window.children();
    EXPECT_EQ(form.window.childAt(within), &neighbour);
    form.date.DropDown();
    EXPECT_EQ(form.window.childAt(within), &form.date);
    form.date.CloseUp();
    EXPECT_EQ(form.window.childAt(within), &neighbour);
    EXPECT_EQ(form.window.children(), stack);
}

TEST(DateCalendarTest, ANeighbourThatGoesAwayMeanwhileIsHarmless) {
    DateForm form;
    auto* neighbour = new QWidget(&form.window);
    form.after.raise();
    neighbour->stackUnder(&form.after);
    form.date.stackUnder(neighbour);
    form.date.DropDown();
    delete neighbour;
    form.date.CloseUp();
    EXPECT_FALSE(form.date.DroppedDown());
}

TEST(DateCalendarTest, OpensAsAWindowOfItsOwnToo) {
    akDate date;
    date.show();
    date.DropDown();
    EXPECT_TRUE(date.DroppedDown());
    date.CloseUp();
    EXPECT_FALSE(date.DroppedDown());
}

TEST(DateCalendarTest, EachChangePaintsOnce) {
    DateForm form;
    PaintCounter counter(form.date);
    counter.Take();
    form.date.DropDown();
    EXPECT_EQ(counter.Take(), 1);
    form.Button("cmdRightMonth").click();
    EXPECT_EQ(counter.Take(), 1);
    form.date.SetValue(QDate(2011, 7, 5));
    EXPECT_EQ(counter.Take(), 1);
}

}  // namespace
