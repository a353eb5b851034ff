#include "grid/GridOnScreen.h"
#include "support/PrintQt.h"

namespace {

using namespace controls;
using namespace Qt::StringLiterals;

class GridMembersTest : public GridTest {};

TEST_F(GridMembersTest, RowSelectorWidthMovesNothingUntilTheColumnsAreLaidOut) {
    LoadShown(2);
    grid->SetRowSelectorWidth(600);
    EXPECT_EQ(grid->RowSelectorWidth(), 600);
    EXPECT_EQ(grid->HeadingLabels()[0].Left, 255);
    EXPECT_EQ(Cell(1, 1).Left, 240);
    // The rows were laid out and not filled.
    EXPECT_EQ(Caption(1, 1), QString());
    grid->SetColWidth(2, 1500);
    EXPECT_EQ(grid->HeadingLabels()[0].Left, 600);
    EXPECT_EQ(Cell(1, 1).Left, 585);
}

TEST_F(GridMembersTest, ColWidthIsCutToWholePixelsAndEmptiesTheCells) {
    LoadShown(2);
    EXPECT_EQ(grid->ColWidth(1), 2100);
    grid->SetColWidth(1, 1007);
    EXPECT_EQ(grid->ColWidth(1), 1005);
    EXPECT_EQ(grid->HeadingLabels()[0].Width, 1005);
    EXPECT_EQ(grid->HeadingLabels()[1].Left, 255 + 1005);
    EXPECT_EQ(grid->Rows(), 2);
    EXPECT_EQ(grid->TextMatrix(1, 1), QString());
    EXPECT_EQ(Caption(1, 1), u" "_s);
    EXPECT_EQ(grid->ColumnWidths(), u"2100|1500|"_s);
}

TEST_F(GridMembersTest, AColWidthBelowZeroHidesTheColumn) {
    LoadShown(2);
    grid->SetColWidth(1, -500);
    EXPECT_EQ(grid->ColWidth(1), 0);
    EXPECT_FALSE(grid->HeadingLabels()[0].Visible);
}

TEST_F(GridMembersTest, ABadColumnReadsNothingAndWritesNothing) {
    LoadShown(2);
    for (const int column : {0, -1, 3, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()}) {
        EXPECT_EQ(grid->ColWidth(column), 0);
        EXPECT_EQ(grid->ColumnFont(column), QString());
        EXPECT_EQ(grid->ColumnHeading(column), QString());
        grid->SetColWidth(column, 300);
        grid->SetColumnFont(column, u"Courier"_s);
        grid->SetColumnHeading(column, u"x"_s);
        if (column != 0) {
            EXPECT_EQ(grid->TextMatrix(1, column), QString());
            grid->SetTextMatrix(1, column, u"x"_s);
        }
    }
    EXPECT_EQ(grid->TextMatrix(1, 1), u"r1"_s);
    EXPECT_EQ(grid->ColumnFont(1), u"MS Sans Serif"_s);
    EXPECT_EQ(grid->ColumnHeading(2), u"Owner"_s);
}

TEST_F(GridMembersTest, ColumnFontLastsUntilAColumnStringIsWritten) {
    LoadShown(2);
    grid->SetColumnFont(2, u"Courier"_s);
    EXPECT_EQ(grid->ColumnFont(2), u"Courier"_s);
    EXPECT_EQ(Cell(1, 2).FontName, u"Courier"_s);
    EXPECT_EQ(Cell(1, 1).FontName, u"MS Sans Serif"_s);
    EXPECT_EQ(Caption(1, 2), u"o1 "_s);
    grid->SetColumnAlignments(u"0|0|"_s);
    EXPECT_EQ(grid->ColumnFont(2), u"MS Sans Serif"_s);
}

TEST_F(GridMembersTest, SelectColourCountsFromTheNextSelectionOn) {
    LoadShown(3);
    grid->SetRow(1);
    grid->SetSelectColour(RGB(1, 2, 3));
    EXPECT_EQ(grid->SelectColour(), RGB(1, 2, 3));
    EXPECT_EQ(Cell(1, 1).BackColour, RGB(255, 255, 150));
    grid->SetRow(2);
    EXPECT_EQ(Cell(1, 1).BackColour, White);
    EXPECT_EQ(Cell(2, 1).BackColour, RGB(1, 2, 3));
}

TEST_F(GridMembersTest, TopRowScrollsAsFarAsTheRowsGo) {
    LoadShown(20);
    const std::pair<int, int> writes[] = {{4, 4}, {16, 16}, {17, 16}, {std::numeric_limits<int>::max(), 16},
                                          {1, 1}, {0, 1},   {-7, 1},  {std::numeric_limits<int>::min(), 1}};
    for (const auto& [written, read] : writes) {
        grid->SetTopRow(written);
        EXPECT_EQ(grid->TopRow(), read) << written;
        EXPECT_EQ(FirstColumn().first(), u"r%1"_s.arg(read));
        EXPECT_EQ(ScrollBar().value(), 5 + read - 1);
    }
}

TEST_F(GridMembersTest, TopRowStaysWhereAllRowsFit) {
    LoadShown(3);
    grid->SetTopRow(2);
    EXPECT_EQ(grid->TopRow(), 1);
}

TEST_F(GridMembersTest, RowIsClampedToTheWindowAndThenToTheRows) {
    LoadShown(20);
    grid->SetRow(99);
    EXPECT_EQ(grid->Row(), 5);
    EXPECT_EQ(grid->Col(), 1);
    grid->SetRow(-3);
    EXPECT_EQ(grid->Row(), 1);
    grid->SetRows(2);
    grid->SetRow(4);
    EXPECT_EQ(grid->Row(), 2);
}

TEST_F(GridMembersTest, ColIsClampedToTheColumns) {
    LoadShown(3);
    grid->SetRow(2);
    grid->SetCol(99);
    EXPECT_EQ(grid->Col(), 2);
    grid->SetCol(-1);
    EXPECT_EQ(grid->Col(), 1);
    EXPECT_EQ(grid->Row(), 2);
}

TEST_F(GridMembersTest, ColSelectsTheFirstRowWhileNoneIsCurrent) {
    LoadShown(3);
    grid->SetCol(2);
    EXPECT_EQ(grid->Row(), 1);
    EXPECT_EQ(grid->Col(), 2);
}

TEST_F(GridMembersTest, TextIsThatOfTheCurrentCell) {
    LoadShown(20);
    EXPECT_EQ(grid->Text(), QString());
    grid->SetAbsoluteRow(12);
    EXPECT_EQ(grid->Text(), u"r12"_s);
    grid->SetCol(2);
    EXPECT_EQ(grid->Text(), u"o12"_s);
}

TEST_F(GridMembersTest, ColumnHeadingIsSeenAtOnce) {
    LoadShown(1);
    grid->SetColumnHeading(2, u"Landlord"_s);
    EXPECT_EQ(grid->ColumnHeading(2), u"Landlord"_s);
    EXPECT_EQ(grid->HeadingLabels()[1].Caption, u"Landlord"_s);
    EXPECT_EQ(grid->ColumnHeadings(), u"Property|Owner|"_s);
    EXPECT_EQ(grid->TextMatrix(1, 1), u"r1"_s);
}

TEST_F(GridMembersTest, EachColumnStringIsParsedWhenItIsWritten) {
    LoadShown(3);
    grid->SetColumnHeadings(u"A|B|C"_s);
    EXPECT_EQ(grid->ColumnHeadings(), u"A|B|C|"_s);
    EXPECT_EQ(grid->Cols(), 3);
    EXPECT_EQ(grid->ColWidth(3), 1500);
    grid->SetColumnWidths(u"300|0|600|900"_s);
    EXPECT_EQ(grid->ColumnWidths(), u"300|0|600|900|"_s);
    EXPECT_EQ(grid->ColWidth(3), 600);
    EXPECT_FALSE(grid->HeadingLabels()[1].Visible);
    grid->SetColumnAlignments(u"2|5|-1"_s);
    EXPECT_EQ(grid->ColumnAlignments(), u"2|5|-1|"_s);
    EXPECT_EQ(Cell(1, 1).Alignment, GridAlignment::Centre);
    EXPECT_EQ(Cell(1, 3).Alignment, GridAlignment::Left);
    grid->SetColumnHyperlinks(u"0|0|1"_s);
    EXPECT_EQ(grid->ColumnHyperlinks(), u"0|0|1|"_s);
    EXPECT_TRUE(Cell(1, 3).Underlined);
    EXPECT_EQ(grid->Rows(), 3);
    EXPECT_EQ(grid->TextMatrix(1, 1), QString());
}

TEST_F(GridMembersTest, AnEmptyHeadingsTextGivesOneColumn) {
    LoadShown(3);
    grid->SetColumnHeadings({});
    EXPECT_EQ(grid->ColumnHeadings(), u"|"_s);
    EXPECT_EQ(grid->Cols(), 1);
    EXPECT_EQ(grid->ColumnHeading(1), QString());
}

TEST_F(GridMembersTest, AWidthThatOverflowsLeavesTheColumnsAsTheyWere) {
    LoadShown(3);
    EXPECT_EQ(FailureOf([&] { grid->SetColumnWidths(u"99999999999"_s); }), 6);
    EXPECT_EQ(grid->ColWidth(1), 2100);
    EXPECT_EQ(grid->TextMatrix(1, 1), u"r1"_s);
    grid->SetColumnWidths(u"300"_s);
    EXPECT_EQ(grid->ColWidth(1), 300);
}

TEST_F(GridMembersTest, ColumnsWiderThanAllNumbersFailWithoutACrash) {
    LoadShown(3);
    EXPECT_EQ(FailureOf([&] { grid->SetColumnWidths(u"2147483640|2147483640"_s); }), 6);
    grid->SetColumnHeading(2, u"x"_s);
    QCoreApplication::processEvents();
    grid->SetColumnWidths(u"300|300"_s);
    EXPECT_EQ(grid->HeadingLabels().size(), 2U);
}

TEST_F(GridMembersTest, BulkAddIsReadAndLaysOutOnceWhenItEnds) {
    LoadShown(0);
    EXPECT_FALSE(grid->BulkAdd());
    grid->SetBulkAdd(true);
    EXPECT_TRUE(grid->BulkAdd());
    Fill(20);
    EXPECT_EQ(FirstColumn(), QStringList());
    EXPECT_EQ(ScrollBar().maximum(), 6);
    grid->SetBulkAdd(false);
    EXPECT_EQ(FirstColumn().size(), 6);
    EXPECT_EQ(FirstColumn().first(), u"r1"_s);
    EXPECT_EQ(ScrollBar().maximum(), 20);
}

TEST_F(GridMembersTest, EnabledReachesTheScrollBarAndTheListItself) {
    LoadShown(20);
    grid->SetEnabled(true);
    EXPECT_TRUE(grid->Enabled());
    grid->SetEnabled(false);
    EXPECT_FALSE(grid->Enabled());
    EXPECT_FALSE(grid->isEnabled());
    EXPECT_FALSE(ScrollBar().isEnabled());
    QTest::mouseClick(grid.get(), Qt::LeftButton, {}, Inside(2, 1));
    EXPECT_EQ(grid->Row(), 0);
    grid->SetEnabled(true);
    EXPECT_TRUE(grid->isEnabled());
    EXPECT_TRUE(ScrollBar().isEnabled());
}

TEST_F(GridMembersTest, RowHeightLastsOnlyWhileTheListIsEmpty) {
    LoadShown(0);
    EXPECT_EQ(grid->RowHeight(), 210);
    // (1500 - 270) / (315 - 15) is 4.1, and four rows of 300 need 1530.
    grid->SetRowHeight(315);
    EXPECT_EQ(grid->RowHeight(), 315);
    EXPECT_EQ(grid->VisibleRows(), 4);
    EXPECT_EQ(grid->Height(), 1530);
    EXPECT_FALSE(grid->BulkAdd());
    Fill(1);
    EXPECT_EQ(grid->RowHeight(), 240);
    grid->SetRowHeight(400);
    EXPECT_EQ(grid->RowHeight(), 240);
}

TEST_F(GridMembersTest, TheSameRowHeightDoesNothing) {
    LoadShown(2);
    grid->SetBulkAdd(true);
    grid->SetRowHeight(240);
    EXPECT_TRUE(grid->BulkAdd());
}

TEST_F(GridMembersTest, ARowHeightThatLeavesRowsNoHeightFails) {
    LoadShown(0);
    EXPECT_EQ(FailureOf([&] { grid->SetRowHeight(15); }), 11);
    grid->SetRowHeight(210);
    EXPECT_EQ(grid->VisibleRows(), 6);
}

TEST_F(GridMembersTest, OddRowHeightsKeepTheRows) {
    for (const qint16 height : {qint16{14}, qint16{0}, qint16{-300}, std::numeric_limits<qint16>::max(),
                                std::numeric_limits<qint16>::min(), qint16{16}}) {
        LoadShown(0);
        grid->SetRowHeight(height);
        EXPECT_EQ(grid->RowHeight(), height);
        Fill(3);
        grid->SetRow(2);
        QCoreApplication::processEvents();
        EXPECT_EQ(grid->Rows(), 3) << height;
        EXPECT_EQ(grid->TextMatrix(3, 1), u"r3"_s) << height;
        grid->SetRows(0);
        EXPECT_EQ(grid->Rows(), 0) << height;
    }
}

TEST_F(GridMembersTest, ActiveControlNamesTheScrollBarWhileItHasTheFocus) {
    LoadShown(20);
    EXPECT_EQ(grid->activecontrol(), QString());
    grid->setFocus();
    EXPECT_EQ(grid->activecontrol(), QString());
    ScrollBar().setFocus();
    EXPECT_EQ(grid->activecontrol(), u"VScroll"_s);
}

TEST_F(GridMembersTest, SetCurrentCellClampsItsArguments) {
    LoadShown(3);
    int row = 99;
    int column = 99;
    grid->SetCurrentCell(row, column, false);
    EXPECT_EQ(row, 3);
    EXPECT_EQ(column, 2);
    row = -1;
    column = 0;
    grid->SetCurrentCell(row, column, false);
    EXPECT_EQ(row, 1);
    EXPECT_EQ(column, 1);
}

}  // namespace
