#include "grid/GridOnScreen.h"
#include "support/PrintQt.h"

#include <limits>

namespace {

using namespace controls;
using namespace Qt::StringLiterals;

class GridRowsTest : public GridTest {
protected:
    QStringList RowTexts(int row) {
        QStringList texts;
        for (int column = 1; column <= grid->Cols(); ++column) {
            texts += grid->TextMatrix(row, column);
        }
        return texts;
    }
};

TEST_F(GridRowsTest, AddItemTakesATabBehindEachValueOrBetweenThem) {
    LoadShown(0);
    grid->AddItem(u"a\tb\t"_s);
    grid->AddItem(u"a\tb"_s);
    EXPECT_EQ(grid->Rows(), 2);
    EXPECT_EQ(RowTexts(1), (QStringList{u"a"_s, u"b"_s}));
    EXPECT_EQ(RowTexts(2), RowTexts(1));
}

TEST_F(GridRowsTest, AddItemKeepsTheValuesThatHaveAColumn) {
    LoadShown(0);
    const std::pair<QString, QStringList> items[] = {
        {u"a\tb\tc\td"_s, {u"a"_s, u"b"_s}}, {u"a"_s, {u"a"_s, {}}},
        {{}, {QString(), QString()}},        {u"\tb"_s, {QString(), u"b"_s}},
        {u"\t\t"_s, {{}, QString()}},        {u"a\t\tc"_s, {u"a"_s, {}}},
        {u"a\tb\t\t\t"_s, {u"a"_s, u"b"_s}}, {u" a \t b "_s, {u" a "_s, u" b "_s}}};
    int row = 0;
    for (const auto& [text, cells] : items) {
        grid->AddItem(text);
        EXPECT_EQ(RowTexts(++row), cells) << text.toStdString();
    }
}

TEST_F(GridRowsTest, AddItemShowsARowOfTheFirstPageAtOnce) {
    LoadShown(2);
    grid->AddItem(u"late\towner"_s);
    EXPECT_EQ(FirstColumn().last(), u"late"_s);
    EXPECT_EQ(Caption(3, 1), u" late"_s);
    EXPECT_EQ(Caption(3, 2), u"owner "_s);
}

TEST_F(GridRowsTest, AddItemBelowTheWindowOnlyMovesTheScrollBar) {
    LoadShown(5);
    grid->SetRowSelectorWidth(255);  // Blanks the cells, which a fresh fill would show.
    grid->AddItem(u"below"_s);
    EXPECT_EQ(FirstColumn(), QStringList(5, QString()));
    EXPECT_EQ(ScrollBar().maximum(), 6);
    EXPECT_TRUE(ScrollBar().isVisible());
}

TEST_F(GridRowsTest, AddItemMovesNeitherTheCurrentCellNorTheWindow) {
    LoadShown(20);
    grid->SetTopRow(4);
    grid->SetRow(2);
    Events();
    grid->AddItem(u"x"_s);
    EXPECT_EQ(grid->AbsoluteRow(), 5);
    EXPECT_EQ(grid->TopRow(), 4);
    EXPECT_EQ(Events(), QStringList());
}

TEST_F(GridRowsTest, ThereIsASpareRowAfterAddItem) {
    LoadShown(6);
    EXPECT_EQ(grid->TextMatrix(7, 1), QString());
    EXPECT_EQ(grid->TextMatrix(8, 1), QString());  // Beyond the rows: nothing is looked up.
    grid->SetTextMatrix(7, 2, u"early"_s);
    grid->AddItem(u"r7"_s);
    EXPECT_EQ(RowTexts(7), (QStringList{u"r7"_s, u"early"_s}));
}

TEST_F(GridRowsTest, AFirstRowStartsAnEmptyStore) {
    LoadShown(2);
    grid->SetRows(0);
    EXPECT_EQ(grid->TextMatrix(1, 2), u"o1"_s);  // Still there, out of sight.
    grid->AddItem(u"new"_s);
    EXPECT_EQ(RowTexts(1), (QStringList{u"new"_s, QString()}));
    EXPECT_EQ(grid->TextMatrix(2, 1), QString());
}

TEST_F(GridRowsTest, TheRowBehindTheLastIsAFaultAfterARemoveOrAWriteOfRows) {
    LoadShown(6);
    grid->RemoveItem(6);
    EXPECT_EQ(FailureOf([&] { grid->TextMatrix(6, 1); }), 9);
    EXPECT_EQ(FailureOf([&] { grid->SetTextMatrix(6, 1, u"x"_s); }), 9);
    grid->SetRows(3);
    EXPECT_EQ(FailureOf([&] { grid->TextMatrix(4, 1); }), 9);
    EXPECT_EQ(grid->TextMatrix(3, 1), QString());
    EXPECT_EQ(grid->TextMatrix(5, 1), QString());
}

TEST_F(GridRowsTest, ANegativeRowIsAFault) {
    LoadShown(3);
    for (const int row : {-1, std::numeric_limits<int>::min()}) {
        EXPECT_EQ(FailureOf([&] { grid->TextMatrix(row, 1); }), 9);
        EXPECT_EQ(FailureOf([&] { grid->SetTextMatrix(row, 1, u"x"_s); }), 9);
    }
}

TEST_F(GridRowsTest, AnEmptyStoreHasNoFirstRow) {
    Load(TwoColumns());
    EXPECT_EQ(FailureOf([&] { grid->TextMatrix(1, 1); }), 9);
}

TEST_F(GridRowsTest, TextMatrixTakesTheCurrentRowAndColumnForZero) {
    LoadShown(20);
    EXPECT_EQ(grid->TextMatrix(0, 0), QString());
    grid->SetTopRow(4);
    grid->SetRow(2);
    grid->SetCol(2);
    EXPECT_EQ(grid->TextMatrix(0, 0), u"o5"_s);
    EXPECT_EQ(grid->TextMatrix(0, 1), u"r5"_s);
    EXPECT_EQ(grid->TextMatrix(7, 0), u"o7"_s);
    grid->SetTextMatrix(0, 0, u"new"_s);
    EXPECT_EQ(grid->TextMatrix(5, 2), u"new"_s);
    EXPECT_EQ(Caption(2, 2), u"new "_s);
}

TEST_F(GridRowsTest, RowZeroIsTheRowAboveTheWindowWhileNothingIsCurrent) {
    LoadShown(20);
    grid->SetTopRow(4);
    EXPECT_EQ(grid->TextMatrix(0, 1), u"r3"_s);
}

TEST_F(GridRowsTest, AWrittenCellIsSeenInItsAlignment) {
    LoadShown(3);
    grid->SetColumnHeadings(u"A|B|C|"_s);
    grid->SetColumnAlignments(u"0|1|2|"_s);
    grid->SetTextMatrix(2, 1, u"x"_s);
    grid->SetTextMatrix(2, 2, u"y"_s);
    grid->SetTextMatrix(2, 3, u"z"_s);
    EXPECT_EQ(Caption(2, 1), u" x"_s);
    EXPECT_EQ(Caption(2, 2), u"y "_s);
    EXPECT_EQ(Caption(2, 3), u"z"_s);
    EXPECT_EQ(Cell(2, 2).ToolTip, u"y "_s);
}

TEST_F(GridRowsTest, AWriteOutOfViewIsSilent) {
    LoadShown(20);
    grid->SetTopRow(4);
    const QStringList before = FirstColumn();
    grid->SetTextMatrix(3, 1, u"above"_s);
    grid->SetTextMatrix(3, 2, u"above"_s);
    grid->SetTextMatrix(9, 2, u"below"_s);
    grid->SetTextMatrix(11, 1, u"below"_s);
    EXPECT_EQ(FirstColumn(), before);
    EXPECT_EQ(grid->TextMatrix(3, 1), u"above"_s);
    EXPECT_EQ(grid->TextMatrix(9, 2), u"below"_s);
}

TEST_F(GridRowsTest, TheFirstCellJustBelowTheWindowIsStoredAndThenAFault) {
    // Laid out once only, so that no hidden cell lies behind those on view.
    akGrid::Properties properties = TwoColumns();
    properties.RowCount = u"20"_s;
    Load(properties);
    ASSERT_EQ(grid->CellLabels().size(), 12U);
    EXPECT_EQ(FailureOf([&] { grid->SetTextMatrix(7, 1, u"below"_s); }), 9);
    EXPECT_EQ(grid->TextMatrix(7, 1), u"below"_s);
    EXPECT_EQ(FailureOf([&] { grid->SetTextMatrix(7, 2, u"below"_s); }), 0);
}

TEST_F(GridRowsTest, RowsEmptiesAllCellsAndLeavesThemBlank) {
    LoadShown(4);
    grid->SetRows(8);
    EXPECT_EQ(grid->Rows(), 8);
    EXPECT_EQ(grid->TextMatrix(1, 1), QString());
    EXPECT_EQ(FirstColumn().size(), 5);
    EXPECT_EQ(Caption(1, 1), QString());
    EXPECT_EQ(ScrollBar().maximum(), 8);
}

TEST_F(GridRowsTest, RowsZeroHidesTheCellsAndWhitensTheFirst) {
    LoadShown(4);
    grid->SetRow(1);
    Events();
    grid->SetRows(0);
    EXPECT_EQ(FirstColumn(), QStringList());
    EXPECT_EQ(Cell(1, 1).BackColour, White);
    EXPECT_EQ(HighlitRows(), QList<int>());
    EXPECT_EQ(grid->Row(), 0);
    EXPECT_EQ(grid->AbsoluteRow(), 0);
    EXPECT_EQ(Events(), QStringList());
}

TEST_F(GridRowsTest, FewerRowsThanTheCurrentOneLeaveNoneCurrent) {
    LoadShown(5);
    grid->SetRow(4);
    grid->SetRows(4);
    EXPECT_EQ(grid->Row(), 4);
    grid->SetRows(3);
    EXPECT_EQ(grid->Row(), 0);
}

TEST_F(GridRowsTest, FewerThanNoRowsAreAFault) {
    LoadShown(5);
    EXPECT_EQ(FailureOf([&] { grid->SetRows(-1); }), 9);
    QCoreApplication::processEvents();
    FailureOf([&] { grid->AddItem(u"x"_s); });
    grid->SetRow(1);
    QTest::keyClick(grid.get(), Qt::Key_Down);
    grid->SetRows(2);
    EXPECT_EQ(FirstColumn().size(), 2);
}

TEST_F(GridRowsTest, MoreRowsThanCanBeCountedOverflow) {
    LoadShown(5);
    grid->SetRows(std::numeric_limits<int>::max());
    EXPECT_EQ(FailureOf([&] { grid->AddItem(u"x"_s); }), 6);
    EXPECT_EQ(grid->Rows(), std::numeric_limits<int>::max());
    EXPECT_EQ(FirstColumn().size(), 5);
}

TEST_F(GridRowsTest, RemoveItemMovesTheRowsBehindUp) {
    LoadShown(20);
    grid->RemoveItem(2);
    EXPECT_EQ(grid->Rows(), 19);
    EXPECT_EQ(RowTexts(2), (QStringList{u"r3"_s, u"o3"_s}));
    EXPECT_EQ(RowTexts(19), (QStringList{u"r20"_s, u"o20"_s}));
    EXPECT_EQ(FirstColumn(), (QStringList{u"r1"_s, u"r3"_s, u"r4"_s, u"r5"_s, u"r6"_s}));
    EXPECT_EQ(ScrollBar().maximum(), 19);
}

TEST_F(GridRowsTest, RemoveItemOfABadRowDoesNothing) {
    LoadShown(3);
    for (const int row : {-1, 4, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()}) {
        grid->RemoveItem(row);
    }
    EXPECT_EQ(grid->Rows(), 3);
    EXPECT_EQ(Events(), QStringList());
}

TEST_F(GridRowsTest, RemoveItemZeroTakesTheCurrentRow) {
    LoadShown(20);
    grid->SetTopRow(4);
    grid->SetRow(2);
    Events();
    grid->RemoveItem(0);
    EXPECT_EQ(grid->TextMatrix(5, 1), u"r6"_s);
    EXPECT_EQ(grid->AbsoluteRow(), 5);
    EXPECT_EQ(HighlitRows(), QList<int>{2});
    EXPECT_EQ(Events(), QStringList{u"RowColumnChange 2 1 2 1"_s});
}

TEST_F(GridRowsTest, RemoveItemZeroWithNothingCurrentTakesTheRowAboveTheWindow) {
    LoadShown(20);
    grid->RemoveItem(0);
    EXPECT_EQ(grid->Rows(), 20);
    grid->SetTopRow(4);
    grid->RemoveItem(0);
    EXPECT_EQ(grid->Rows(), 19);
    EXPECT_EQ(grid->TextMatrix(3, 1), u"r4"_s);
}

TEST_F(GridRowsTest, RemoveItemSelectsTheFirstRowIfNoneWasCurrent) {
    LoadShown(3);
    grid->RemoveItem(3);
    EXPECT_EQ(Events(), QStringList{u"RowColumnChange 1 1 0 0"_s});
    EXPECT_EQ(grid->Row(), 1);
}

TEST_F(GridRowsTest, RemovingTheLastRowWhileItIsCurrentSelectsTheFirst) {
    LoadShown(3);
    grid->SetRow(3);
    Events();
    grid->RemoveItem(3);
    EXPECT_EQ(grid->Row(), 1);
    EXPECT_EQ(HighlitRows(), QList<int>{1});
    EXPECT_EQ(Events(), QStringList{u"RowColumnChange 1 1 0 1"_s});
}

TEST_F(GridRowsTest, ASelectionBelowTheWindowIsPulledIntoItByARemove) {
    LoadShown(20);
    grid->SetTopRow(4);
    grid->SetRow(5);
    grid->SetTopRow(1);
    EXPECT_EQ(grid->Row(), 8);
    grid->RemoveItem(20);
    EXPECT_EQ(grid->Row(), 5);
    EXPECT_EQ(HighlitRows(), QList<int>{5});
}

TEST_F(GridRowsTest, RemovingTheOnlyRowLeavesNothingCurrent) {
    LoadShown(1);
    grid->SetRow(1);
    Events();
    grid->RemoveItem(1);
    EXPECT_EQ(grid->Rows(), 0);
    EXPECT_EQ(grid->Row(), 0);
    EXPECT_EQ(FirstColumn(), QStringList());
    EXPECT_EQ(Cell(1, 1).BackColour, White);
    EXPECT_EQ(Events(), QStringList{u"RowColumnChange 0 1 0 1"_s});
    EXPECT_EQ(grid->TextMatrix(1, 1), u"r1"_s);
}

TEST_F(GridRowsTest, ARemoveAtTheEndOfTheListPullsTheWindowBack) {
    LoadShown(7);
    grid->SetTopRow(3);
    grid->RemoveItem(7);
    EXPECT_EQ(grid->TopRow(), 2);
    EXPECT_EQ(FirstColumn(), (QStringList{u"r2"_s, u"r3"_s, u"r4"_s, u"r5"_s, u"r6"_s}));
}

TEST_F(GridRowsTest, ARemoveThatEmptiesPartOfTheWindowHidesCells) {
    LoadShown(5);
    grid->RemoveItem(2);
    EXPECT_EQ(FirstColumn(), (QStringList{u"r1"_s, u"r3"_s, u"r4"_s, u"r5"_s}));
    EXPECT_TRUE(ScrollBar().isHidden());
}

}  // namespace
