#include "grid/GridOnScreen.h"
#include "support/PrintQt.h"

#include <QWheelEvent>

namespace {

using namespace controls;
using namespace Qt::StringLiterals;

class GridScrollTest : public GridTest {
protected:
    bool TurnWheel(int notches) {
        const QPointF place(100, 50);
        QWheelEvent event(place, grid->mapToGlobal(place), {}, QPoint(0, 120 * notches), Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(grid.get(), &event);
        return event.isAccepted();
    }

    /// What the first handler sees in the window at the end of the list while this row is removed.
    QStringList SeenAtRemovalOf(int row) {
        LoadShown(20);
        grid->SetTopRow(16);
        grid->SetRow(2);
        QStringList seen;
        const auto look = [&] { seen = seen.isEmpty() ? FirstColumn() : seen; };
        const auto looking = QObject::connect(grid.get(), &akGrid::RowColumnChange, &window, look);
        grid->RemoveItem(row);
        QObject::disconnect(looking);
        return seen;
    }
};

TEST_F(GridScrollTest, TheValueRunsFromTheRowsOnViewToAllRows) {
    LoadShown(20);
    ScrollTo(7);
    EXPECT_EQ(ScrollBar().value(), 11);
    EXPECT_EQ(grid->TopRow(), 7);
    EXPECT_EQ(FirstColumn(), (QStringList{u"r7"_s, u"r8"_s, u"r9"_s, u"r10"_s, u"r11"_s}));
    ScrollBar().setValue(20);
    EXPECT_EQ(FirstColumn().last(), u"r20"_s);
    ScrollBar().setValue(21);
    EXPECT_EQ(grid->TopRow(), 16);
}

TEST_F(GridScrollTest, AStepMovesOneRowAndAPageOneRowLessThanTheWindow) {
    LoadShown(20);
    ScrollBar().triggerAction(QAbstractSlider::SliderSingleStepAdd);
    EXPECT_EQ(grid->TopRow(), 2);
    ScrollBar().triggerAction(QAbstractSlider::SliderPageStepAdd);
    EXPECT_EQ(grid->TopRow(), 6);
}

TEST_F(GridScrollTest, ADraggedThumbMovesTheListWhenItIsLetGo) {
    LoadShown(20);
    ScrollBar().setSliderDown(true);
    ScrollBar().setSliderPosition(12);
    EXPECT_EQ(grid->TopRow(), 1);
    ScrollBar().setSliderDown(false);
    EXPECT_EQ(grid->TopRow(), 8);
}

TEST_F(GridScrollTest, TheHighlightStaysOnItsRowWhileThatIsOnView) {
    LoadShown(20);
    grid->SetRow(3);
    Events();
    ScrollTo(2);
    EXPECT_EQ(grid->AbsoluteRow(), 3);
    EXPECT_EQ(HighlitRows(), QList<int>{2});
    EXPECT_EQ(Events(), QStringList{u"RowColumnChange 2 1 3 1"_s});
}

TEST_F(GridScrollTest, ScrollingDownPastTheSelectionDragsItAlong) {
    LoadShown(20);
    grid->SetRow(2);
    Events();
    ScrollTo(2);
    ScrollTo(3);
    ScrollTo(6);
    EXPECT_EQ(grid->Row(), 1);
    EXPECT_EQ(grid->AbsoluteRow(), 6);
    EXPECT_EQ(HighlitRows(), QList<int>{1});
    EXPECT_EQ(Events(), (QStringList{u"RowColumnChange 1 1 2 1"_s, u"RowColumnChange 1 1 1 1"_s,
                                     u"RowColumnChange 1 1 1 1"_s}));
}

TEST_F(GridScrollTest, ScrollingUpPastTheSelectionLeavesItWhereItIs) {
    LoadShown(40);
    grid->SetTopRow(20);
    grid->SetRow(4);
    Events();
    ScrollTo(2);
    EXPECT_EQ(grid->Row(), 22);
    EXPECT_EQ(grid->AbsoluteRow(), 23);
    EXPECT_EQ(HighlitRows(), QList<int>());
    EXPECT_EQ(Events(), QStringList{u"RowColumnChange 22 1 4 1"_s});
    EXPECT_EQ(grid->Text(), u"r23"_s);
    ScrollTo(20);
    EXPECT_EQ(grid->Row(), 4);
    EXPECT_EQ(HighlitRows(), QList<int>{4});
}

TEST_F(GridScrollTest, WithNothingCurrentScrollingRaisesNothing) {
    LoadShown(20);
    ScrollTo(5);
    EXPECT_EQ(Events(), QStringList());
    EXPECT_EQ(grid->Row(), 0);
}

TEST_F(GridScrollTest, TheHandlerSeesTheWindowAsItWas) {
    LoadShown(20);
    grid->SetRow(3);
    int topRow = 0;
    QObject::connect(grid.get(), &akGrid::RowColumnChange, &window, [&] { topRow = grid->TopRow(); });
    ScrollTo(3);
    EXPECT_EQ(topRow, 1);
}

TEST_F(GridScrollTest, AShrinkingListPullsTheWindowBack) {
    LoadShown(20);
    grid->SetTopRow(16);
    grid->SetRow(5);
    Events();
    grid->SetRows(12);
    EXPECT_EQ(grid->TopRow(), 8);
    EXPECT_EQ(ScrollBar().value(), 12);
    EXPECT_EQ(Events(), QStringList{u"RowColumnChange 12 1 5 1"_s});
    EXPECT_EQ(grid->Row(), 12);
    EXPECT_EQ(FirstColumn(), QStringList(5, QString()));
}

TEST_F(GridScrollTest, ARemovedRowAtTheEndRunsTheHandlerToo) {
    LoadShown(7);
    grid->SetTopRow(3);
    grid->SetRow(1);
    Events();
    grid->RemoveItem(7);
    EXPECT_EQ(Events(), (QStringList{u"RowColumnChange 2 1 1 1"_s, u"RowColumnChange 2 1 2 1"_s}));
    EXPECT_EQ(grid->AbsoluteRow(), 3);
}

// The window is pulled back before its cells are filled again, and so a handler sees whether they were
// emptied.
TEST_F(GridScrollTest, ARemoveFarAboveTheEndLeavesTheCellsAsTheyAreToTheHandler) {
    EXPECT_EQ(SeenAtRemovalOf(3), (QStringList{u"r16"_s, u"r17"_s, u"r18"_s, u"r19"_s, u"r20"_s}));
}

TEST_F(GridScrollTest, ARemoveAsFarFromTheEndAsTheWindowFromTheTopEmptiesThemBefore) {
    EXPECT_EQ(SeenAtRemovalOf(4), QStringList(5, QString()));
}

TEST_F(GridScrollTest, AListThatFitsAgainStartsAtItsTop) {
    LoadShown(20);
    grid->SetTopRow(16);
    grid->SetRows(3);
    EXPECT_EQ(grid->TopRow(), 1);
    EXPECT_TRUE(ScrollBar().isHidden());
}

TEST_F(GridScrollTest, AMaximumBeyond16BitsFailsAlone) {
    LoadShown(20);
    grid->SetTopRow(4);
    grid->SetRows(40000);
    EXPECT_EQ(grid->Rows(), 40000);
    EXPECT_EQ(ScrollBar().minimum(), 5);
    EXPECT_EQ(ScrollBar().maximum(), 20);
    EXPECT_EQ(ScrollBar().value(), 8);
    grid->SetHeight(3000);
    EXPECT_EQ(ScrollBar().height(), 196);
    grid->SetRows(32767);
    EXPECT_EQ(ScrollBar().maximum(), 32767);
    grid->AddItem(u"last"_s);
    EXPECT_EQ(grid->Rows(), 32768);
    EXPECT_EQ(ScrollBar().maximum(), 32767);
    EXPECT_EQ(grid->TextMatrix(32768, 1), u"last"_s);
}

TEST_F(GridScrollTest, AListLoadedWithMoreRowsThan16BitsScrollsAsFarAsTheBarGoes) {
    akGrid::Properties properties = TwoColumns();
    properties.RowCount = u"50000"_s;
    Load(properties);
    Show();
    EXPECT_TRUE(ScrollBar().isVisible());
    grid->SetTopRow(50000);
    EXPECT_EQ(ScrollBar().value(), 32767);
    grid->SetAbsoluteRow(50000);
    EXPECT_EQ(grid->AbsoluteRow(), 32767);
}

TEST_F(GridScrollTest, ARowOutOfTheBarsReachRaisesNoSecondEvent) {
    LoadShown(20);
    grid->SetRows(40000);
    grid->SetAbsoluteRow(30);
    EXPECT_EQ(grid->AbsoluteRow(), 20);
    Events();
    grid->SetAbsoluteRow(30);
    EXPECT_EQ(Events(), QStringList());
}

TEST_F(GridScrollTest, AbsoluteRowOnViewIsForced) {
    LoadShown(20);
    grid->SetAbsoluteRow(3);
    grid->SetAbsoluteRow(3);
    EXPECT_EQ(Events(), (QStringList{u"RowColumnChange 3 1 0 1"_s, u"RowColumnChange 3 1 3 1"_s}));
    EXPECT_EQ(grid->TopRow(), 1);
}

TEST_F(GridScrollTest, AbsoluteRowBelowTheWindowComesToItsLastRow) {
    LoadShown(20);
    grid->SetAbsoluteRow(12);
    EXPECT_EQ(grid->TopRow(), 8);
    EXPECT_EQ(grid->Row(), 5);
    EXPECT_EQ(HighlitRows(), QList<int>{5});
    EXPECT_EQ(Caption(5, 1), u" r12"_s);
    EXPECT_EQ(Events(), QStringList{u"RowColumnChange 5 1 0 1"_s});
}

TEST_F(GridScrollTest, AbsoluteRowAboveTheWindowComesToItsFirstRow) {
    LoadShown(20);
    grid->SetTopRow(10);
    grid->SetAbsoluteRow(4);
    EXPECT_EQ(grid->TopRow(), 4);
    EXPECT_EQ(grid->Row(), 1);
    EXPECT_EQ(HighlitRows(), QList<int>{1});
}

TEST_F(GridScrollTest, AbsoluteRowIsClamped) {
    LoadShown(20);
    grid->SetAbsoluteRow(0);
    EXPECT_EQ(grid->AbsoluteRow(), 1);
    grid->SetAbsoluteRow(std::numeric_limits<int>::max());
    EXPECT_EQ(grid->AbsoluteRow(), 20);
    grid->SetAbsoluteRow(-5);
    EXPECT_EQ(grid->AbsoluteRow(), 1);
    EXPECT_EQ(grid->TopRow(), 1);
}

TEST_F(GridScrollTest, TheWheelScrollsFromAnywhereOnTheList) {
    LoadShown(20);
    EXPECT_TRUE(TurnWheel(-1));
    EXPECT_EQ(grid->TopRow(), 4);
    EXPECT_TRUE(TurnWheel(-1));
    EXPECT_EQ(grid->TopRow(), 7);
    EXPECT_TRUE(TurnWheel(1));
    EXPECT_EQ(grid->TopRow(), 4);
}

TEST_F(GridScrollTest, AWheelThatFindsNothingToScrollIsLeftToTheWindow) {
    LoadShown(3);
    EXPECT_FALSE(TurnWheel(-1));
    Fill(20);
    EXPECT_FALSE(TurnWheel(1));
    EXPECT_EQ(grid->TopRow(), 1);
}

}  // namespace
