#include "controls/base/Palette.h"
#include "grid/GridOnScreen.h"
#include "support/PrintQt.h"

namespace {

using namespace controls;
using namespace Qt::StringLiterals;

const Colour strongBlue = RGB(45, 127, 242);

class GridCreationTest : public GridTest {};

TEST_F(GridCreationTest, ANewListHasThreeColumnsAndFifteenEmptyRows) {
    grid = std::make_unique<akGrid>(&window);
    EXPECT_EQ(grid->ColumnHeadings(), u"Col1|Col2|Col3|"_s);
    EXPECT_EQ(grid->ColumnWidths(), u"1000|1000|1000|"_s);
    EXPECT_EQ(grid->ColumnAlignments(), u"0|0|0|"_s);
    EXPECT_EQ(grid->ColumnHyperlinks(), u"0|0|0|"_s);
    EXPECT_EQ(grid->Cols(), 3);
    EXPECT_EQ(grid->Rows(), 15);
    EXPECT_EQ(grid->RowSelectorWidth(), 255);
    EXPECT_EQ(grid->SelectColour(), RGB(255, 255, 150));
    EXPECT_TRUE(grid->Enabled());
    EXPECT_FALSE(grid->BulkAdd());
    EXPECT_EQ(grid->Row(), 0);
    EXPECT_EQ(grid->Col(), 0);
    EXPECT_EQ(grid->TopRow(), 1);
    EXPECT_EQ(grid->TextMatrix(15, 3), QString());
    EXPECT_EQ(FailureOf([&] { grid->TextMatrix(16, 1); }), 9);
}

TEST_F(GridCreationTest, ANewListSelectsWholeRows) {
    grid = std::make_unique<akGrid>(&window);
    grid->SetRow(1);
    EXPECT_TRUE(IsHighlit(1, 1));
    EXPECT_TRUE(IsHighlit(1, 3));
}

TEST_F(GridCreationTest, TheFirstHeadingOfANewListHasThePalettesColour) {
    grid = std::make_unique<akGrid>(&window);
    EXPECT_EQ(ThePalette().Heading, RGB(221, 234, 243));
    EXPECT_EQ(grid->HeadingLabels()[0].BackColour, RGB(221, 234, 243));
    EXPECT_EQ(grid->HeadingLabels()[1].BackColour, strongBlue);
    grid->SetColumnHeadings(u"A|B|"_s);
    EXPECT_EQ(grid->HeadingLabels()[0].BackColour, RGB(221, 234, 243));
}

TEST_F(GridCreationTest, AStoredListTakesItsPropertiesAndKeepsItsHeadingsBlue) {
    akGrid::Properties properties = TwoColumns();
    properties.RowCount = u"7"_s;
    properties.RowSelectorWidth = 300;
    Load(properties);
    EXPECT_EQ(grid->Rows(), 7);
    EXPECT_EQ(grid->Cols(), 2);
    EXPECT_EQ(grid->RowSelectorWidth(), 300);
    EXPECT_EQ(grid->HeadingLabels()[0].Left, 300);
    EXPECT_EQ(grid->HeadingLabels()[0].Caption, u"Property"_s);
    EXPECT_EQ(grid->ColumnAlignments(), u"0|1|"_s);
    EXPECT_EQ(grid->HeadingLabels()[0].BackColour, strongBlue);
    EXPECT_EQ(grid->HeadingLabels()[1].BackColour, strongBlue);
    EXPECT_EQ(grid->TextMatrix(7, 2), QString());
}

TEST_F(GridCreationTest, PropertiesThatAFormLeavesOutHaveTheirUsualValues) {
    const akGrid::Properties usual;
    EXPECT_EQ(usual.RowCount, u"15"_s);
    EXPECT_EQ(usual.SelectType, 0);
    EXPECT_EQ(usual.SelectColour, 9895935U);
    Load(usual);
    EXPECT_EQ(grid->ColumnHeadings(), u"Col1|Col2|Col3|"_s);
    EXPECT_EQ(grid->ColumnWidths(), u"1000|1000|1000|"_s);
    EXPECT_EQ(grid->ColumnHyperlinks(), u"0|0|0|"_s);
    EXPECT_EQ(grid->Rows(), 15);
    EXPECT_EQ(grid->RowSelectorWidth(), 255);
}

TEST_F(GridCreationTest, TheStoredSelectColourIsNotReadBack) {
    akGrid::Properties properties = TwoColumns();
    properties.SelectColour = RGB(255, 0, 0);
    Load(properties);
    EXPECT_EQ(grid->SelectColour(), RGB(255, 255, 150));
}

TEST_F(GridCreationTest, AStoredListReadsAsDisabledAndWorks) {
    LoadShown(3);
    EXPECT_FALSE(grid->Enabled());
    EXPECT_TRUE(grid->isEnabled());
    QTest::mouseClick(grid.get(), Qt::LeftButton, {}, Inside(2, 1));
    EXPECT_EQ(grid->Row(), 2);
}

TEST_F(GridCreationTest, TheRowCountIsReadAsAText) {
    akGrid::Properties properties = TwoColumns();
    properties.RowCount = u" 2.5 "_s;
    EXPECT_EQ(Load(properties).Rows(), 2);
    properties.RowCount = u"many"_s;
    EXPECT_EQ(FailureOf([&] { Load(properties); }), 13);
    properties.RowCount = QString();
    EXPECT_EQ(FailureOf([&] { Load(properties); }), 13);
    properties.RowCount = u"3000000000"_s;
    EXPECT_EQ(FailureOf([&] { Load(properties); }), 6);
    properties.RowCount = u"-1"_s;
    EXPECT_EQ(FailureOf([&] { Load(properties); }), 9);
}

TEST_F(GridCreationTest, WithoutAPlaceTheWidgetsOwnSizeCounts) {
    grid = std::make_unique<akGrid>(TwoColumns(), &window);
    // A child widget is 30 pixels high: 180 twips below the heading, one row of 195.
    EXPECT_EQ(grid->VisibleRows(), 1);
    EXPECT_EQ(grid->Height(), 525);
}

TEST_F(GridCreationTest, LoadingGrowsTheListToWholeRows) {
    Load(TwoColumns(), 2130);
    EXPECT_EQ(grid->VisibleRows(), 10);
    EXPECT_EQ(grid->Height(), 2280);
    EXPECT_EQ(grid->Width(), Width);
}

TEST_F(GridCreationTest, LoadingWithRowsReckonsWithTheLowCellsToo) {
    akGrid::Properties properties = TwoColumns();
    properties.RowCount = u"15"_s;
    Load(properties, 2130);
    EXPECT_EQ(grid->VisibleRows(), 10);
    EXPECT_EQ(grid->Height(), 2280);
    EXPECT_EQ(FirstColumn().size(), 10);
}

TEST_F(GridCreationTest, TheFirstShowGrowsAListThatHasRowsByThen) {
    Load(TwoColumns(), 2130);
    Fill(20);
    EXPECT_EQ(FirstColumn().size(), 10);
    Show();
    EXPECT_EQ(grid->VisibleRows(), 9);
    EXPECT_EQ(grid->Height(), 2355);
    EXPECT_EQ(FirstColumn().size(), 9);
    EXPECT_EQ(FirstColumn().first(), u"r1"_s);
    EXPECT_EQ(FirstColumn().last(), u"r9"_s);
}

TEST_F(GridCreationTest, AHeightThatFitsWholeRowsStays) {
    Load(TwoColumns(), 2130);
    Fill(20);
    grid->SetHeight(2130);
    Show();
    EXPECT_EQ(grid->VisibleRows(), 8);
    EXPECT_EQ(grid->Height(), 2130);
    // Nothing was resized, so nothing was laid out anew.
    EXPECT_EQ(FirstColumn().size(), 10);
}

TEST_F(GridCreationTest, TheFirstShowOfAnEmptyListChangesNothing) {
    Load(TwoColumns(), 2130);
    Show();
    EXPECT_EQ(grid->VisibleRows(), 10);
    EXPECT_EQ(grid->Height(), 2280);
}

TEST_F(GridCreationTest, EveryShowReckonsAnew) {
    Load(TwoColumns(), 2130);
    Show();
    Fill(20);
    EXPECT_EQ(grid->VisibleRows(), 10);
    grid->hide();
    grid->show();
    EXPECT_EQ(grid->VisibleRows(), 9);
    EXPECT_EQ(grid->Height(), 2355);
    EXPECT_EQ(FirstColumn().size(), 9);
}

TEST_F(GridCreationTest, AWindowThatComesBackToTheScreenIsNoShow) {
    Load(TwoColumns(), 2130);
    Show();
    Fill(20);
    QShowEvent event;
    QSpontaneKeyEvent::setSpontaneous(&event);
    qApp->notify(grid.get(), &event);
    EXPECT_EQ(grid->VisibleRows(), 10);
}

TEST_F(GridCreationTest, RowsThatFitHalfwayGoToTheEvenNumber) {
    const std::pair<int, int> heights[] = {{270 + 1050, 4}, {270 + 1350, 4}, {270 + 1650, 6}};
    for (const auto& [height, rows] : heights) {
        LoadShown(0);
        grid->SetHeight(height);
        grid->SetRowHeight(315);  // Rows of 300: 3.5, 4.5 and 5.5 of them.
        EXPECT_EQ(grid->VisibleRows(), rows) << height;
    }
}

TEST_F(GridCreationTest, WholeRowsAreReckonedInTwipsOnOtherDisplaysToo) {
    const AnotherDensity density(12);
    Load(TwoColumns(), 2160);
    // The heading has 267 twips: (2160 - 267) / 195 is 9.7, and 10 rows need 2277, 190 pixels of 12.
    EXPECT_EQ(grid->HeadingLabels()[0].Height, 267);
    EXPECT_EQ(grid->VisibleRows(), 10);
    EXPECT_EQ(grid->Height(), 2280);
    Fill(20);
    Show();
    // (2280 - 267) / 225 is 8.9, and 9 rows need 2352.
    EXPECT_EQ(grid->VisibleRows(), 9);
    EXPECT_EQ(grid->Height(), 2352);
}

TEST_F(GridCreationTest, AListTooLowForItsHeadingCrashesNothing) {
    Load(TwoColumns(), 15);
    EXPECT_EQ(grid->VisibleRows(), -1);
    Fill(3);
    Show();
    grid->SetRow(1);
    EXPECT_GE(grid->Height(), 0);
    QTest::keyClick(grid.get(), Qt::Key_Down);
}

TEST_F(GridCreationTest, TheScrollBarWaitsForTheFirstShow) {
    Load(TwoColumns());
    Fill(20);
    EXPECT_TRUE(ScrollBar().isHidden());
    EXPECT_EQ(ScrollBar().minimum(), 0);
    Show();
    EXPECT_TRUE(ScrollBar().isVisible());
    EXPECT_EQ(ScrollBar().minimum(), 5);
    EXPECT_EQ(ScrollBar().maximum(), 20);
    EXPECT_EQ(ScrollBar().value(), 5);
    EXPECT_EQ(ScrollBar().singleStep(), 1);
    EXPECT_EQ(ScrollBar().pageStep(), 4);
    EXPECT_EQ(ScrollBar().geometry(), QRect(379, 0, 17, 93));
}

TEST_F(GridCreationTest, AResizeMovesTheScrollBarAndNotTheRows) {
    LoadShown(20);
    grid->Move(0, 0, 5000, 3000);
    EXPECT_EQ(grid->Height(), 3000);
    EXPECT_EQ(grid->VisibleRows(), 5);
    EXPECT_EQ(ScrollBar().geometry(), QRect(312, 0, 17, 196));
    EXPECT_EQ(FirstColumn(), (QStringList{u"r1"_s, u"r2"_s, u"r3"_s, u"r4"_s, u"r5"_s}));
}

TEST_F(GridCreationTest, OnlyAnotherHeightLaysTheRowsOut) {
    LoadShown(1);
    grid->SetBulkAdd(true);
    grid->AddItem(u"late"_s);
    grid->SetWidth(5400);
    EXPECT_EQ(FirstColumn(), QStringList{u"r1"_s});
    grid->SetHeight(1600);
    EXPECT_EQ(FirstColumn(), (QStringList{u"r1"_s, u"late"_s}));
}

TEST_F(GridCreationTest, RowsThatCameBeforeTheSizeAreNotBlankWhenShown) {
    Load(TwoColumns());
    Fill(4);
    grid->resize(400, (8 * 225 + 330) / 15);
    Show();
    EXPECT_EQ(FirstColumn(), (QStringList{u"r1"_s, u"r2"_s, u"r3"_s, u"r4"_s}));
}

TEST_F(GridCreationTest, AHeightBeyond16BitsCrashesNothing) {
    LoadShown(3);
    grid->SetHeight(45000);
    grid->SetWidth(5000);
    EXPECT_EQ(FirstColumn(), (QStringList{u"r1"_s, u"r2"_s, u"r3"_s}));
}

}  // namespace
