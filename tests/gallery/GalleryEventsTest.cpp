#include "controls/akDate.h"
#include "controls/akGrid.h"
#include "controls/ctlButton.h"
#include "controls/ctlGroupBox.h"
#include "controls/ctlPageHeading.h"
#include "controls/ctlTextBox.h"
#include "support/GalleryOnScreen.h"
#include "support/PrintQt.h"

#include <QAccessible>
#include <QTest>

namespace {

using namespace controls;
using namespace Qt::StringLiterals;
using gallery::Sheet;

class GalleryEventsTest : public GalleryOnScreen {
protected:
    template <class Control>
    Control* Sample(const char* sheet, const QString& name) {
        return Show(sheet)->findChild<Control*>(name);
    }
};

TEST_F(GalleryEventsTest, AreNoneBeforeTheUserDoesAnything) {
    EXPECT_EQ(window.Log().count(), 0);
}

TEST_F(GalleryEventsTest, OfAButton) {
    Sample<ctlButton>("Button", u"At rest"_s)->DoClick();
    EXPECT_EQ(Logged(1), QStringList{u"Add: Click"_s});
    Sample<ctlButton>("Button", u"Pic"_s)->DoClick();
    EXPECT_EQ(Logged(1), QStringList{u"Pic: Click"_s});
}

TEST_F(GalleryEventsTest, OfATextBox) {
    auto* box = Sample<ctlTextBox>("Text box", u"IsNumeric"_s);
    box->setFocus();
    EXPECT_EQ(Logged(1), QStringList{u"IsNumeric: GotFocus"_s});
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_7);
    EXPECT_EQ(Logged(1), QStringList{u"IsNumeric: Change true, Text \"7\", Value 7"_s});
    Sample<ctlTextBox>("Text box", u"Empty"_s)->setFocus();
    EXPECT_EQ(Logged(2), (QStringList{u"Empty: GotFocus"_s, u"IsNumeric: LostFocus"_s}));
}

TEST_F(GalleryEventsTest, OfDatesThereAreNoneButTheirValuesCanBeRead) {
    Sample<ctlButton>("Date", u"Read all values"_s)->DoClick();
    const QStringList lines = Logged(8);
    EXPECT_TRUE(lines.contains(u"A date: Value 2026-03-14"_s)) << qPrintable(lines.join(u'\n'));
    EXPECT_EQ(lines.filter(u"Value 1234-"_s).size(), 2);
}

TEST_F(GalleryEventsTest, OfAGrid) {
    auto* rows = Sample<akGrid>("Grid", u"Rows are selected, with the focus"_s);
    rows->SetAbsoluteRow(3);
    EXPECT_EQ(Logged(1),
              QStringList{u"Rows are selected, with the focus: RowColumnChange 3 1, before 2 1"_s});
    QTest::mouseClick(rows, Qt::LeftButton, {}, {60, 10});
    EXPECT_EQ(Logged(1), QStringList{u"Rows are selected, with the focus: HeadClick 0"_s});
    QTest::mouseClick(rows, Qt::LeftButton, {}, {60, 60});
    EXPECT_EQ(Logged(1), QStringList{u"Rows are selected, with the focus: Click"_s});
    QTest::mouseDClick(rows, Qt::LeftButton, {}, {60, 60});
    EXPECT_TRUE(Logged(3).contains(u"Rows are selected, with the focus: DblClick"_s));
    auto* links = Sample<akGrid>("Grid", u"Links, too few rows to scroll"_s);
    QTest::mouseClick(links, Qt::LeftButton, {}, {60, 30});
    EXPECT_EQ(Logged(1), QStringList{u"Links, too few rows to scroll: HyperLinkClick 1"_s});
}

TEST_F(GalleryEventsTest, OfAHeading) {
    const auto headings = Samples<ctlPageHeading>(Show("Heading"));
    headings.front()->ClickTab(2);
    EXPECT_EQ(Logged(1), QStringList{u"Hearthbook Wrenfield Wizard: TabSelect \"User Type\" 2"_s});
    Q_EMIT headings.front()->CloseButtonClick();
    EXPECT_EQ(Logged(1), QStringList{u"Hearthbook Wrenfield Wizard: CloseButtonClick"_s});
}

TEST_F(GalleryEventsTest, TheGroupBoxHasASwitch) {
    const Sheet* sheet = Show("Group box");
    const auto* box = Samples<ctlGroupBox>(sheet).front();
    auto* button = sheet->findChild<ctlButton*>(u"Switch"_s);
    button->DoClick();
    EXPECT_FALSE(box->Enabled());
    EXPECT_EQ(button->Caption(), u"Enable owner"_s);
    button->DoClick();
    EXPECT_TRUE(box->Enabled());
    EXPECT_EQ(button->Caption(), u"Disable owner"_s);
}

TEST_F(GalleryEventsTest, AScreenReaderFindsTheNewestLineAtTheEndAndCurrent) {
    auto* add = Sample<ctlButton>("Button", u"At rest"_s);
    for (int click = 0; click < 600; ++click) {
        add->DoClick();
    }
    Sample<ctlButton>("Button", u"Cancel"_s)->DoClick();
    gallery::EventLog& log = window.Log();
    EXPECT_EQ(log.count(), 500);
    EXPECT_EQ(log.currentRow(), log.count() - 1);
    QAccessibleInterface* list = QAccessible::queryAccessibleInterface(&log);
    ASSERT_EQ(list->role(), QAccessible::List);
    EXPECT_EQ(list->text(QAccessible::Name), u"Events"_s);
    QAccessibleInterface* newest = list->child(log.count() - 1);
    ASSERT_NE(newest, nullptr);
    EXPECT_EQ(newest->text(QAccessible::Name), u"Cancel: Click"_s);
    EXPECT_TRUE(newest->state().selected);
}

}  // namespace
