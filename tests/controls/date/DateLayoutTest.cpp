#include "controls/akDate.h"
#include "controls/base/Display.h"
#include "controls/base/EntryBox.h"
#include "date/DateForm.h"
#include "support/OnScreen.h"
#include "support/PrintQt.h"

#include <gtest/gtest.h>

namespace {

using namespace controls;
using namespace Qt::StringLiterals;

void ExpectPlace(const QWidget& widget, int left, int top, int width, int height) {
    EXPECT_EQ(widget.geometry(), QRect(ToPixels(left), ToPixels(top), ToPixels(width), ToPixels(height)))
        << widget.objectName().toStdString();
}

void ExpectBox(QLineEdit& box, const char16_t* name, int left, int width, int maximumLength) {
    EXPECT_EQ(box.objectName(), QString::fromUtf16(name));
    ExpectPlace(box, left, 30, width, 225);
    EXPECT_EQ(static_cast<EntryBox&>(box).EntryLimit(), maximumLength);
    EXPECT_FALSE(box.hasFrame());
}

class DateLayoutTest : public ::testing::TestWithParam<int> {
protected:
    AnotherDensity density{GetParam()};
};

INSTANTIATE_TEST_SUITE_P(TwipsPerPixel, DateLayoutTest, ::testing::Values(15, 12, 20));

TEST_P(DateLayoutTest, DayAndMonthFirstStandAlike) {
    for (const char* locale : {DateForm::DayFirst, DateForm::MonthFirst}) {
        DateForm form({}, locale);
        ExpectBox(form.Box(1), u"txtDate1", 30, 330, 2);
        ExpectBox(form.Box(2), u"txtDate2", 480, 235, 2);
        ExpectBox(form.Box(3), u"txtDate3", 840, 465, 4);
    }
}

TEST_P(DateLayoutTest, AYearFirstWidensTheFirstBoxAndMovesTheOthers) {
    DateForm form({}, DateForm::YearFirst);
    ExpectBox(form.Box(1), u"txtDate1", 30, 465, 4);
    ExpectBox(form.Box(2), u"txtDate2", 615, 235, 2);
    ExpectBox(form.Box(3), u"txtDate3", 975, 235, 2);
}

TEST_P(DateLayoutTest, TheClosedControlIs1575By285) {
    DateForm form;
    EXPECT_EQ(form.date.size(), QSize(ToPixels(1575), ToPixels(285)));
}

TEST_P(DateLayoutTest, TheCalendarsButtonsStandBelowTheClosedControl) {
    DateForm form;
    ExpectPlace(form.Button("cmdLeftYear"), 45, 360, 225, 195);
    ExpectPlace(form.Button("cmdLeftMonth"), 255, 360, 225, 195);
    ExpectPlace(form.Button("cmdRightMonth"), 2010, 360, 225, 195);
    ExpectPlace(form.Button("cmdRightYear"), 2235, 360, 225, 195);
}

TEST_P(DateLayoutTest, TheOpenButtonKeepsItsDistanceFromTheRightEdge) {
    DateForm form;
    const auto expectedLeft = [&form] { return ToPixels(form.date.Width() - 30 - 225); };
    EXPECT_EQ(form.Button("cmdOpen").geometry(),
              QRect(expectedLeft(), ToPixels(30), ToPixels(225), ToPixels(225)));
    form.date.SetWidth(2400);
    EXPECT_EQ(form.Button("cmdOpen").x(), expectedLeft());
    EXPECT_NEAR(form.Button("cmdOpen").x() * TwipsPerPixel(), 2400 - 255, TwipsPerPixel());
}

TEST_P(DateLayoutTest, NoneCoversTheBoxesUpToTheOpenButton) {
    DateForm form({.IncludeNone = true});
    form.date.SetValue(QDate(1234, 1, 1));
    ExpectPlace(form.None(), 30, 30, 1575 - 60 - 225, 225);
    form.date.SetWidth(2400);
    ExpectPlace(form.None(), 30, 30, form.date.Width() - 60 - 225, 225);
    EXPECT_TRUE(form.None().isVisible());
    EXPECT_EQ(form.None().text(), u"<None>"_s);
    // The same place in every order.
    DateForm swedish({.IncludeNone = true}, DateForm::YearFirst);
    swedish.date.SetValue(QDate(1234, 1, 1));
    ExpectPlace(swedish.None(), 30, 30, 1575 - 60 - 225, 225);
}

TEST_P(DateLayoutTest, TheHeightIsForcedBackAndTheWidthFollows) {
    DateForm form;
    form.date.Move(600, 600, 3000, 900);
    EXPECT_EQ(form.date.size(), QSize(ToPixels(3000), ToPixels(285)));
    form.date.SetHeight(100);
    EXPECT_EQ(form.date.size(), QSize(ToPixels(3000), ToPixels(285)));
}

TEST_P(DateLayoutTest, AClosedControlGetsItsOwnSizeBack) {
    DateForm form;
    form.date.SetWidth(1900);
    const QSize closed = form.date.size();
    form.date.DropDown();
    EXPECT_EQ(form.date.size(), QSize(ToPixels(2500), ToPixels(1960)));
    form.date.CloseUp();
    EXPECT_EQ(form.date.size(), closed);
    form.date.SetIncludeNone(true);
    form.date.DropDown();
    EXPECT_EQ(form.date.size(), QSize(ToPixels(2500), ToPixels(2160)));
    form.date.SetIncludeNone(false);
    EXPECT_EQ(form.date.size(), QSize(ToPixels(2500), ToPixels(1960)));
}

TEST_P(DateLayoutTest, AFormThatResizesTheOpenControlClosesIt) {
    DateForm form;
    form.date.DropDown();
    form.date.SetWidth(3000);
    EXPECT_FALSE(form.date.DroppedDown());
    EXPECT_EQ(form.date.size(), QSize(ToPixels(3000), ToPixels(285)));
}

TEST_P(DateLayoutTest, AVeryNarrowControlStaysWhole) {
    DateForm form({.IncludeNone = true});
    form.date.SetValue(QDate(1234, 1, 1));
    form.date.SetWidth(60);
    EXPECT_EQ(form.None().width(), 0);
    EXPECT_EQ(form.date.height(), ToPixels(285));
}

TEST(NewDateTest, BeginsClosedWithTodayDayFirstWhateverTheLocale) {
    DateForm form({}, DateForm::MonthFirst);
    akDate fresh(&form.window);
    fresh.show();
    EXPECT_EQ(fresh.Value(), QDate(2009, 3, 14));
    EXPECT_TRUE(fresh.Enabled());
    EXPECT_FALSE(fresh.IncludeNone());
    EXPECT_FALSE(fresh.DroppedDown());
    EXPECT_FALSE(fresh.NoneShown());
    EXPECT_EQ(fresh.findChild<QLineEdit*>(u"txtDate1"_s)->text(), u"14"_s);
    EXPECT_EQ(fresh.findChild<QLineEdit*>(u"txtDate2"_s)->text(), u"03"_s);
    EXPECT_EQ(fresh.findChild<QLineEdit*>(u"txtDate3"_s)->text(), u"2009"_s);
    EXPECT_EQ(fresh.size(), QSize(105, 19));
}

TEST(NewDateTest, SavedPropertiesHaveTheirDefaults) {
    const akDate::Properties saved;
    EXPECT_TRUE(saved.Enabled);
    EXPECT_FALSE(saved.IncludeNone);
    DateForm form({.Enabled = false, .IncludeNone = true});
    EXPECT_FALSE(form.date.Enabled());
    EXPECT_TRUE(form.date.IncludeNone());
    EXPECT_FALSE(form.date.NoneShown());
    EXPECT_FALSE(form.Box(1).isEnabled());
}

TEST(NewDateTest, TheCalendarsButtonsAreOutOfReachWhileItIsClosed) {
    DateForm form;
    for (const char* name : {"cmdLeftYear", "cmdLeftMonth", "cmdRightMonth", "cmdRightYear"}) {
        EXPECT_FALSE(form.Button(name).isVisible()) << name;
    }
    form.date.DropDown();
    for (const char* name : {"cmdLeftYear", "cmdLeftMonth", "cmdRightMonth", "cmdRightYear"}) {
        EXPECT_TRUE(form.Button(name).isVisible()) << name;
    }
}

TEST(NewDateTest, IsClosedWhenItIsFirstShown) {
    QWidget window;
    akDate date(akDate::Properties{}, &window);
    date.DropDown();
    window.show();
    EXPECT_FALSE(date.DroppedDown());
    EXPECT_EQ(date.size(), QSize(105, 19));
}

TEST(NewDateTest, StaysOpenWhileItIsHidden) {
    DateForm form;
    form.date.DropDown();
    form.date.hide();
    form.date.show();
    EXPECT_TRUE(form.date.DroppedDown());
    EXPECT_EQ(form.date.size(), QSize(167, 131));
    form.date.CloseUp();
    form.date.hide();
    form.date.DropDown();
    form.date.show();
    EXPECT_TRUE(form.date.DroppedDown());
    EXPECT_EQ(form.date.size(), QSize(167, 131));
}

}  // namespace
