#include "date/DateForm.h"
#include "support/PrintQt.h"

#include <QApplication>
#include <QMenu>
#include <QTest>

#include <gtest/gtest.h>

namespace {

using namespace controls;
using namespace Qt::StringLiterals;

/// Types the text as the whole one of a box, then goes on to the next box.
QString TypedAndLeft(DateForm& form, int place, const char* text) {
    form.EnterBox(place);
    form.Press(Qt::Key_Delete);
    form.Type(text);
    form.EnterBox(place == 1 ? 2 : 1);
    return form.Box(place).text();
}

TEST(DateFocusTest, LeavingTheDayKeepsItFrom1To31) {
    DateForm form;
    EXPECT_EQ(TypedAndLeft(form, 1, "45"), u"31"_s);
    EXPECT_EQ(TypedAndLeft(form, 1, "0"), u"1"_s);
    EXPECT_EQ(TypedAndLeft(form, 1, ""), u"1"_s);
    EXPECT_EQ(TypedAndLeft(form, 1, "7"), u"7"_s);
}

TEST(DateFocusTest, LeavingTheMonthKeepsItFrom0To12) {
    DateForm form;
    EXPECT_EQ(TypedAndLeft(form, 2, "13"), u"12"_s);
    EXPECT_EQ(TypedAndLeft(form, 2, "0"), u"0"_s);
    EXPECT_EQ(TypedAndLeft(form, 2, "00"), u"00"_s);
    EXPECT_EQ(TypedAndLeft(form, 2, ""), QString());
}

TEST(DateFocusTest, LeavingTheYearCompletesIt) {
    DateForm form;
    EXPECT_EQ(TypedAndLeft(form, 3, ""), u"2000"_s);
    EXPECT_EQ(TypedAndLeft(form, 3, "9"), u"2009"_s);
    EXPECT_EQ(TypedAndLeft(form, 3, "49"), u"2049"_s);
    EXPECT_EQ(TypedAndLeft(form, 3, "50"), u"1950"_s);
    EXPECT_EQ(TypedAndLeft(form, 3, "199"), u"1990"_s);
    EXPECT_EQ(TypedAndLeft(form, 3, "1987"), u"1987"_s);
}

TEST(DateFocusTest, TheRulesFollowTheRoleAndNotThePlace) {
    DateForm american({}, DateForm::MonthFirst);
    EXPECT_EQ(TypedAndLeft(american, 1, "13"), u"12"_s);
    EXPECT_EQ(TypedAndLeft(american, 2, "45"), u"31"_s);
    DateForm swedish({}, DateForm::YearFirst);
    EXPECT_EQ(TypedAndLeft(swedish, 1, "50"), u"1950"_s);
    EXPECT_EQ(TypedAndLeft(swedish, 2, "13"), u"12"_s);
    EXPECT_EQ(TypedAndLeft(swedish, 3, "45"), u"31"_s);
}

TEST(DateFocusTest, TheBoxIsCorrectedBeforeTheFocusMoves) {
    // Outlives the form, whose end moves the focus once more.
    QString seen;
    DateForm form;
    form.EnterBox(1);
    form.Type("0");
    QObject::connect(qApp, &QApplication::focusChanged, &form.window,
                     [&] { seen = seen.isEmpty() ? form.Box(1).text() : seen; });
    form.Press(Qt::Key_Right);
    EXPECT_EQ(seen, u"1"_s);
}

TEST(DateFocusTest, TheStoredDateFollowsWhenTheFocusLeavesTheControl) {
    DateForm form;
    form.EnterBox(1);
    form.Type("15092010");
    EXPECT_EQ(form.date.Value(), QDate(2009, 3, 14));
    form.Click("cmdOpen");
    EXPECT_EQ(form.date.Value(), QDate(2009, 3, 14));
    form.LeaveControl();
    EXPECT_EQ(form.date.Value(), QDate(2010, 9, 15));
}

TEST(DateFocusTest, TheBoxesShowTheDateThatWasStored) {
    DateForm form;
    form.EnterBox(1);
    form.Type("31022009");
    form.LeaveControl();
    EXPECT_EQ(form.date.Value(), QDate(2009, 2, 28));
    EXPECT_EQ(form.Texts(), u"28/02/2009"_s);
}

TEST(DateFocusTest, AMonthOf0BecomesTheDecemberBefore) {
    DateForm form;
    EXPECT_EQ(TypedAndLeft(form, 2, "0"), u"0"_s);
    form.LeaveControl();
    EXPECT_EQ(form.date.Value(), QDate(2008, 12, 14));
    EXPECT_EQ(form.Texts(), u"14/12/2008"_s);
}

TEST(DateFocusTest, AYear1234TypedByHandReadsAsNoDate) {
    DateForm form;
    form.EnterBox(3);
    form.Type("1234");
    form.LeaveControl();
    EXPECT_EQ(form.date.Value(), QDate(1234, 3, 14));
    EXPECT_FALSE(form.date.NoneShown());
    EXPECT_EQ(form.Texts(), u"14/03/1234"_s);
}

TEST(DateFocusTest, GoingToAnotherWindowIsNoLeaving) {
    DateForm form;
    QLineEdit other;
    form.EnterBox(3);
    form.Type("9");
    form.date.DropDown();
    other.show();
    other.activateWindow();
    other.setFocus();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    ASSERT_EQ(QApplication::focusWidget(), &other);
    EXPECT_EQ(form.Texts(), u"14/03/9"_s);
    EXPECT_EQ(form.date.Value(), QDate(2009, 3, 14));
    EXPECT_TRUE(form.date.DroppedDown());
    form.window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&form.window));
    EXPECT_EQ(form.Focus(), u"txtDate3"_s);
    EXPECT_FALSE(form.Box(3).hasSelectedText());
    form.Type("8");
    EXPECT_EQ(form.Texts(), u"14/03/98"_s);
    form.LeaveControl();
    EXPECT_EQ(form.date.Value(), QDate(1998, 3, 14));
}

TEST(DateFocusTest, FocusMovedWhileAnotherWindowIsActiveIsLeavingOnceItLands) {
    DateForm form;
    QLineEdit other;
    form.EnterBox(3);
    form.Type("9");
    other.show();
    other.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    form.after.setFocus();
    EXPECT_EQ(form.date.Value(), QDate(2009, 3, 14));
    form.date.SetValue(QDate(2012, 1, 1));
    form.Box(3).setText(u"8"_s);
    form.window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&form.window));
    EXPECT_EQ(form.Focus(), u"after"_s);
    EXPECT_EQ(form.date.Value(), QDate(2008, 1, 1));
}

TEST(DateFocusTest, AMenuOverTheBoxIsNoLeaving) {
    DateForm form;
    form.EnterBox(3);
    form.Type("9");
    QMenu menu;
    menu.addAction(u"Paste"_s);
    menu.popup(form.window.mapToGlobal(QPoint(10, 10)));
    ASSERT_EQ(QApplication::activePopupWidget(), &menu);
    EXPECT_EQ(form.Texts(), u"14/03/9"_s);
    menu.close();
    QCoreApplication::processEvents();
    EXPECT_EQ(form.Texts(), u"14/03/9"_s);
    EXPECT_FALSE(form.Box(3).hasSelectedText());
}

TEST(DateFocusTest, AFocusThatGoesNowhereIsLeaving) {
    DateForm form;
    form.EnterBox(1);
    form.Type("20");
    form.Box(2).clearFocus();
    EXPECT_EQ(QApplication::focusWidget(), nullptr);
    EXPECT_EQ(form.date.Value(), QDate(2009, 3, 20));
}

TEST(DateFocusTest, TabGoesThroughBoxesAndOpenButtonAndOut) {
    DateForm form;
    for (const QString& next : {u"txtDate1"_s, u"txtDate2"_s, u"txtDate3"_s, u"cmdOpen"_s, u"after"_s}) {
        form.Press(Qt::Key_Tab);
        EXPECT_EQ(form.Focus(), next);
    }
    for (const QString& next : {u"cmdOpen"_s, u"txtDate3"_s, u"txtDate2"_s, u"txtDate1"_s, u"before"_s}) {
        form.Press(Qt::Key_Backtab, Qt::ShiftModifier);
        EXPECT_EQ(form.Focus(), next);
    }
}

TEST(DateFocusTest, TabReachesTheCalendarsButtonsWhileItIsOpen) {
    DateForm form;
    form.EnterBox(3);
    form.date.DropDown();
    for (const QString& next : {u"cmdOpen"_s, u"cmdLeftMonth"_s, u"cmdRightMonth"_s, u"cmdLeftYear"_s,
                                u"cmdRightYear"_s, u"after"_s}) {
        form.Press(Qt::Key_Tab);
        EXPECT_EQ(form.Focus(), next);
    }
    EXPECT_FALSE(form.date.DroppedDown());
}

TEST(DateFocusTest, NoneTakesThePlaceOfTheBoxesAndLetsTabOutBothWays) {
    DateForm form({.IncludeNone = true});
    form.date.SetValue(QDate(1234, 1, 1));
    for (const QString& next : {u"txtNone"_s, u"cmdOpen"_s, u"after"_s}) {
        form.Press(Qt::Key_Tab);
        EXPECT_EQ(form.Focus(), next);
    }
    for (const QString& next : {u"cmdOpen"_s, u"txtNone"_s, u"before"_s}) {
        form.Press(Qt::Key_Backtab, Qt::ShiftModifier);
        EXPECT_EQ(form.Focus(), next);
    }
    EXPECT_TRUE(form.date.NoneShown());
}

TEST(DateFocusTest, ABoxUnderNonePassesTheFocusOnToIt) {
    DateForm form({.IncludeNone = true});
    form.date.SetValue(QDate(1234, 1, 1));
    for (int place = 1; place <= 3; ++place) {
        form.before.setFocus();
        form.EnterBox(place);
        EXPECT_EQ(form.Focus(), u"txtNone"_s);
        EXPECT_EQ(form.None().selectedText(), u"<None>"_s);
    }
}

TEST(DateFocusTest, FocusOnTheControlGoesToItsFirstBox) {
    DateForm form({.IncludeNone = true});
    form.date.setFocus();
    EXPECT_EQ(form.Focus(), u"txtDate1"_s);
    form.date.SetValue(QDate(1234, 1, 1));
    form.LeaveControl();
    form.date.setFocus();
    EXPECT_EQ(form.Focus(), u"txtNone"_s);
}

TEST(DateFocusTest, FocusOnADisabledControlMovesOn) {
    DateForm form;
    form.date.SetEnabled(false);
    form.date.setFocus();
    QCoreApplication::processEvents();
    EXPECT_EQ(form.Focus(), u"after"_s);
    form.before.setFocus();
    form.Press(Qt::Key_Tab);
    QCoreApplication::processEvents();
    EXPECT_EQ(form.Focus(), u"after"_s);
}

TEST(DateFocusTest, EnabledReachesEveryBoxAndButton) {
    DateForm form;
    const auto constituents = form.date.findChildren<QWidget*>();
    EXPECT_EQ(constituents.size(), 9);
    for (const bool enabled : {false, true}) {
        form.date.SetEnabled(enabled);
        EXPECT_EQ(form.date.Enabled(), enabled);
        for (const QWidget* constituent : constituents) {
            EXPECT_EQ(constituent->isEnabled(), enabled) << constituent->objectName().toStdString();
        }
    }
}

TEST(DateFocusTest, DisablingTheControlWithTheFocusStoresTheDateAndMovesOn) {
    DateForm form;
    form.EnterBox(1);
    form.Type("20");
    form.Type("4");
    form.date.SetEnabled(false);
    EXPECT_EQ(form.Focus(), u"after"_s);
    EXPECT_EQ(form.date.Value(), QDate(2009, 4, 20));
}

TEST(DateFocusTest, DisablingTheControlDoesntLeadTheFocusThroughItsOtherBoxes) {
    DateForm form({}, DateForm::MonthFirst);
    form.EnterBox(1);
    form.date.DropDown();
    form.ClickTwips(0, 1000);
    ASSERT_EQ(form.Texts(), u"03/00/2009"_s);
    form.date.SetEnabled(false);
    // Leaving the day box would have made its 0 a 1.
    EXPECT_EQ(form.date.Value(), QDate(2009, 2, 28));
}

TEST(DateFocusTest, EnabledClosesTheCalendarEitherWay) {
    DateForm form;
    form.date.DropDown();
    form.date.SetEnabled(true);
    EXPECT_FALSE(form.date.DroppedDown());
    form.date.DropDown();
    form.date.SetEnabled(false);
    EXPECT_FALSE(form.date.DroppedDown());
}

TEST(DateFocusTest, LeavingWithNoneShownKeepsNone) {
    DateForm form({.IncludeNone = true});
    form.date.SetValue(QDate(1234, 1, 1));
    form.None().setFocus();
    form.LeaveControl();
    EXPECT_TRUE(form.date.NoneShown());
    EXPECT_EQ(form.date.Value().year(), 1234);
}

TEST(DateFocusTest, GoingAwayWithTheFocusInsideIsHarmless) {
    DateForm form({.IncludeNone = true});
    auto* doomed = new akDate(akDate::Properties{.IncludeNone = true}, &form.window);
    doomed->show();
    doomed->findChild<QLineEdit*>(u"txtDate2"_s)->setFocus();
    doomed->DropDown();
    delete doomed;
    QCoreApplication::processEvents();
    form.EnterBox(1);
    form.Type("2");
    form.date.DropDown();
    form.date.hide();
    QCoreApplication::processEvents();
    EXPECT_EQ(form.Focus(), u"after"_s);
    EXPECT_EQ(form.date.Value(), QDate(2009, 3, 2));
    EXPECT_FALSE(form.date.DroppedDown());
}

}  // namespace
