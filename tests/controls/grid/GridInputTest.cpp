#include "controls/grid/SystemBeep.h"
#include "grid/GridOnScreen.h"
#include "support/PrintQt.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTextDocument>
#include <QToolTip>

namespace {

using namespace controls;
using namespace Qt::StringLiterals;

class GridInputTest : public GridTest {
protected:
    GridInputTest() {
        SetSystemBeep([this] { ++beeps; });
    }
    ~GridInputTest() override { SetSystemBeep({}); }

    /// True if the list swallowed the key.
    bool Press(int key, const QString& text = {}, Qt::KeyboardModifiers modifiers = {}) {
        QKeyEvent event(QEvent::KeyPress, key, modifiers, text);
        QCoreApplication::sendEvent(grid.get(), &event);
        return event.isAccepted();
    }
    void ClickAt(const QPoint& place) { QTest::mouseClick(grid.get(), Qt::LeftButton, {}, place); }
    QString ToolTipAt(const QPoint& place) {
        // Any such event takes the last tool tip away at once.
        QEvent deactivate(QEvent::WindowDeactivate);
        QCoreApplication::sendEvent(&window, &deactivate);
        QHelpEvent event(QEvent::ToolTip, place, grid->mapToGlobal(place));
        QCoreApplication::sendEvent(grid.get(), &event);
        return QToolTip::isVisible() ? QToolTip::text() : QString();
    }
    QPoint Heading(int column) {
        return grid->HeadingLabels().at(static_cast<size_t>(column)).Pixels().center();
    }
    void LoadLinks() {
        akGrid::Properties properties = TwoColumns();
        properties.Hyperlinks = u"0|1|"_s;
        Load(properties);
        Fill(20);
        Show();
    }

    int beeps = 0;
};

TEST_F(GridInputTest, ArrowsMoveTheCurrentCellAndAreSwallowed) {
    LoadShown(20);
    EXPECT_TRUE(Press(Qt::Key_Down));
    EXPECT_EQ(grid->AbsoluteRow(), 1);
    EXPECT_TRUE(Press(Qt::Key_Down));
    EXPECT_EQ(grid->AbsoluteRow(), 2);
    EXPECT_TRUE(Press(Qt::Key_Right));
    EXPECT_EQ(grid->Col(), 2);
    EXPECT_TRUE(Press(Qt::Key_Right));
    EXPECT_EQ(grid->Col(), 2);
    EXPECT_TRUE(Press(Qt::Key_Left));
    EXPECT_EQ(grid->Col(), 1);
    EXPECT_TRUE(Press(Qt::Key_Left));
    EXPECT_EQ(grid->Col(), 1);
    EXPECT_TRUE(Press(Qt::Key_Up));
    EXPECT_EQ(grid->AbsoluteRow(), 1);
    EXPECT_TRUE(Press(Qt::Key_Up));
    EXPECT_EQ(grid->AbsoluteRow(), 1);
    EXPECT_TRUE(Press(Qt::Key_Down, {}, Qt::ShiftModifier));
    EXPECT_EQ(grid->AbsoluteRow(), 2);
    EXPECT_EQ(beeps, 0);
}

TEST_F(GridInputTest, DownFromTheLastRowOnViewScrollsByOne) {
    LoadShown(20);
    grid->SetRow(5);
    Press(Qt::Key_Down);
    EXPECT_EQ(grid->TopRow(), 2);
    EXPECT_EQ(grid->AbsoluteRow(), 6);
    EXPECT_EQ(HighlitRows(), QList<int>{5});
}

TEST_F(GridInputTest, UpFromTheFirstRowOnViewScrollsByOne) {
    LoadShown(20);
    grid->SetTopRow(4);
    grid->SetRow(1);
    Press(Qt::Key_Up);
    EXPECT_EQ(grid->TopRow(), 3);
    EXPECT_EQ(grid->AbsoluteRow(), 3);
    EXPECT_EQ(HighlitRows(), QList<int>{1});
}

TEST_F(GridInputTest, DownOnAnEmptyListLeavesNoCurrentRow) {
    LoadShown(0);
    Press(Qt::Key_Down);
    EXPECT_EQ(grid->Row(), 0);
    EXPECT_EQ(grid->Col(), 1);
    EXPECT_EQ(Events(), QStringList{u"RowColumnChange 0 1 0 1"_s});
}

TEST_F(GridInputTest, UpWithNothingCurrentGoesToTheTop) {
    LoadShown(20);
    grid->SetTopRow(4);
    Press(Qt::Key_Up);
    EXPECT_EQ(grid->TopRow(), 1);
    EXPECT_EQ(grid->AbsoluteRow(), 1);
}

TEST_F(GridInputTest, DownWithNothingCurrentGoesToTheFirstRow) {
    LoadShown(20);
    grid->SetTopRow(4);
    Press(Qt::Key_Down);
    EXPECT_EQ(grid->AbsoluteRow(), 1);
    EXPECT_EQ(grid->TopRow(), 1);
}

TEST_F(GridInputTest, OtherKeysAreLeftToTheWindow) {
    LoadShown(20);
    for (const int key : {Qt::Key_Return, Qt::Key_PageDown, Qt::Key_Home, Qt::Key_Space, Qt::Key_A}) {
        EXPECT_FALSE(Press(key));
    }
    EXPECT_EQ(grid->Row(), 0);
    EXPECT_EQ(beeps, 0);
}

TEST_F(GridInputTest, TwoCharactersBeepAndDoNothingElse) {
    LoadShown(20);
    EXPECT_FALSE(Press(Qt::Key_Ampersand, u"&"_s, Qt::ShiftModifier));
    EXPECT_EQ(beeps, 1);
    EXPECT_FALSE(Press(Qt::Key_ParenLeft, u"("_s, Qt::ShiftModifier));
    EXPECT_EQ(beeps, 3);
    Press(Qt::Key_Percent, u"%"_s);
    Press(Qt::Key_Apostrophe, u"'"_s);
    EXPECT_EQ(beeps, 3);
    EXPECT_EQ(Events(), QStringList());
}

TEST_F(GridInputTest, AClickSelectsTheCellAndThenTells) {
    LoadShown(20);
    ClickAt(Inside(3, 2));
    EXPECT_EQ(Events(), (QStringList{u"RowColumnChange 3 2 0 0"_s, u"Click"_s}));
    EXPECT_EQ(grid->Row(), 3);
    EXPECT_EQ(grid->Col(), 2);
    ClickAt(Inside(3, 2));
    EXPECT_EQ(Events(), QStringList{u"Click"_s});
}

TEST_F(GridInputTest, AClickOnALinkIsNoClick) {
    LoadLinks();
    ClickAt(Inside(3, 2));
    EXPECT_EQ(Events(), (QStringList{u"RowColumnChange 3 2 0 0"_s, u"HyperLinkClick 2"_s}));
    ClickAt(Inside(3, 1));
    EXPECT_EQ(Events(), (QStringList{u"RowColumnChange 3 1 3 2"_s, u"Click"_s}));
}

TEST_F(GridInputTest, AClickOnAHeadingTellsItsPlaceAndSelectsNothing) {
    LoadShown(20);
    ClickAt(Heading(0));
    ClickAt(Heading(1));
    EXPECT_EQ(Events(), (QStringList{u"HeadClick 0"_s, u"HeadClick 1"_s}));
    EXPECT_EQ(grid->Row(), 0);
}

TEST_F(GridInputTest, AClickWhereNoLabelLiesDoesNothing) {
    LoadShown(2);
    ClickAt({5, 30});
    ClickAt({5, 5});
    ClickAt({100, 80});
    ClickAt({330, 30});
    EXPECT_EQ(Events(), QStringList());
}

TEST_F(GridInputTest, AClickNeedsPressAndReleaseOnTheSameLabel) {
    LoadShown(20);
    QTest::mousePress(grid.get(), Qt::LeftButton, {}, Inside(2, 1));
    EXPECT_EQ(Events(), QStringList());
    QTest::mouseRelease(grid.get(), Qt::LeftButton, {}, Inside(3, 1));
    QTest::mousePress(grid.get(), Qt::LeftButton, {}, Heading(0));
    QTest::mouseRelease(grid.get(), Qt::LeftButton, {}, {5, 5});
    QTest::mouseRelease(grid.get(), Qt::LeftButton, {}, Inside(3, 1));
    QTest::mouseClick(grid.get(), Qt::RightButton, {}, Inside(3, 1));
    EXPECT_EQ(Events(), QStringList());
}

TEST_F(GridInputTest, AListHiddenOrDisabledWhilePressedForgetsThePress) {
    LoadShown(20);
    QTest::mousePress(grid.get(), Qt::LeftButton, {}, Inside(2, 1));
    grid->hide();
    grid->show();
    QTest::mouseRelease(grid.get(), Qt::LeftButton, {}, Inside(2, 1));
    QTest::mousePress(grid.get(), Qt::LeftButton, {}, Inside(2, 1));
    grid->SetEnabled(false);
    grid->SetEnabled(true);
    QTest::mouseRelease(grid.get(), Qt::LeftButton, {}, Inside(2, 1));
    EXPECT_EQ(Events(), QStringList());
}

TEST_F(GridInputTest, ADoubleClickRaisesTheClickFirst) {
    LoadShown(20);
    QTest::mouseClick(grid.get(), Qt::LeftButton, {}, Inside(2, 1));
    QTest::mouseDClick(grid.get(), Qt::LeftButton, {}, Inside(2, 1));
    const QStringList raised = Events();
    EXPECT_EQ(raised.mid(0, 2), (QStringList{u"RowColumnChange 2 1 0 0"_s, u"Click"_s}));
    EXPECT_EQ(raised.last(), u"DblClick"_s);
    EXPECT_EQ(raised.count(u"DblClick"_s), 1);
}

TEST_F(GridInputTest, OnlyCellsTakeDoubleClicks) {
    LoadShown(20);
    QTest::mouseDClick(grid.get(), Qt::LeftButton, {}, Heading(0));
    QTest::mouseDClick(grid.get(), Qt::LeftButton, {}, {5, 30});
    EXPECT_EQ(Events().count(u"DblClick"_s), 0);
}

TEST_F(GridInputTest, AHandlerMayLayTheListOutAnewWhileItIsClicked) {
    LoadShown(5);
    QObject::connect(grid.get(), &akGrid::RowColumnChange, &window, [this] {
        grid->SetRows(0);
        grid->SetColumnHeadings(u"A|"_s);
    });
    ClickAt(Inside(4, 2));
    EXPECT_EQ(Events().last(), u"Click"_s);
    EXPECT_EQ(grid->Rows(), 0);
    EXPECT_EQ(grid->ColumnHeadings(), u"A|"_s);
    QObject::disconnect(grid.get(), &akGrid::RowColumnChange, &window, nullptr);
    Fill(2);
    ClickAt(Inside(2, 1));
    EXPECT_EQ(grid->Row(), 2);
    EXPECT_EQ(Events().last(), u"Click"_s);
}

TEST_F(GridInputTest, TabAndClickGiveTheFocus) {
    LoadShown(20);
    QLineEdit other(&window);
    other.move(450, 0);
    other.show();
    other.setFocus();
    ClickAt(Inside(1, 1));
    EXPECT_TRUE(grid->hasFocus());
    other.setFocus();
    QTest::keyClick(&other, Qt::Key_Tab);
    EXPECT_TRUE(grid->hasFocus());
    QTest::keyClick(grid.get(), Qt::Key_Tab);
    EXPECT_TRUE(other.hasFocus());
}

TEST_F(GridInputTest, TheToolTipShowsTheWholeTextWithItsBlank) {
    LoadShown(2);
    grid->SetTextMatrix(1, 1, u"a text that is far too long for its column to show"_s);
    EXPECT_EQ(ToolTipAt(Inside(1, 1)), u" a text that is far too long for its column to show"_s);
    EXPECT_EQ(ToolTipAt({5, 5}), QString());
    EXPECT_EQ(ToolTipAt(Heading(0)), QString());
    grid->SetTextMatrix(1, 1, {});
    EXPECT_EQ(ToolTipAt(Inside(1, 1)), QString());
}

TEST_F(GridInputTest, ANameThatLooksLikeMarkupIsShownAsItStands) {
    LoadShown(2);
    grid->SetTextMatrix(1, 1, u"<b>x</b> & <i>y</i>"_s);
    QTextDocument shown;
    shown.setHtml(ToolTipAt(Inside(1, 1)));
    EXPECT_EQ(shown.toPlainText(), u" <b>x</b> & <i>y</i>"_s);
}

}  // namespace
