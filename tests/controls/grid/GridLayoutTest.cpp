#include "grid/GridOnScreen.h"
#include "platform/Files.h"
#include "support/PrintQt.h"

#include <QBuffer>
#include <QFile>
#include <QTemporaryDir>

namespace {

using namespace controls;
using namespace Qt::StringLiterals;

class GridLayoutTest : public GridTest {};

TEST_F(GridLayoutTest, HeadingsStandSideBySideBehindTheSelectorStrip) {
    LoadShown(1);
    const GridLabel& first = grid->HeadingLabels()[0];
    const GridLabel& second = grid->HeadingLabels()[1];
    EXPECT_EQ(first.Left, 255);
    EXPECT_EQ(first.Top, 0);
    EXPECT_EQ(first.Width, 2100);
    EXPECT_EQ(first.Height, 270);
    EXPECT_EQ(second.Left, 2355);
    EXPECT_EQ(second.Width, 1500);
    EXPECT_EQ(second.Caption, u"Owner"_s);
    EXPECT_EQ(second.Alignment, GridAlignment::Left);
    EXPECT_EQ(second.Border, GridBorder::None);
}

TEST_F(GridLayoutTest, CellsOverlapByOnePixel) {
    LoadShown(3);
    EXPECT_EQ(Cell(1, 1).Left, 240);
    EXPECT_EQ(Cell(1, 1).Width, 2115);
    EXPECT_EQ(Cell(1, 2).Left, 2340);
    EXPECT_EQ(Cell(1, 1).Top, 270);
    EXPECT_EQ(Cell(3, 1).Top, 720);
    EXPECT_EQ(Cell(3, 1).Height, 240);
    EXPECT_EQ(Cell(1, 2).Alignment, GridAlignment::Right);
    EXPECT_EQ(Cell(1, 1).Border, GridBorder::SingleLine);
}

TEST_F(GridLayoutTest, OnAnotherDisplayOnlyWhatCountsInPixelsChanges) {
    const AnotherDensity density(12);
    LoadShown(3);
    EXPECT_EQ(grid->HeadingLabels()[0].Height, 267);
    EXPECT_EQ(grid->ColWidth(1), 2100);
    EXPECT_EQ(Cell(1, 1).Left, 243);
    EXPECT_EQ(Cell(1, 1).Width, 2112);
    EXPECT_EQ(Cell(2, 1).Top, 267 + 225);
    EXPECT_EQ(Cell(2, 1).Height, 240);
}

TEST_F(GridLayoutTest, ACellIs210HighUntilItIsFirstSeen) {
    LoadShown(0);
    EXPECT_EQ(Cell(1, 1).Height, 210);
    EXPECT_FALSE(Cell(1, 1).Visible);
    Fill(1);
    EXPECT_EQ(Cell(1, 1).Height, 240);
    EXPECT_TRUE(Cell(1, 1).Visible);
    EXPECT_EQ(Cell(1, 1).BackColour, White);
}

TEST_F(GridLayoutTest, ThereAreCellsOnlyForTheRowsPresent) {
    LoadShown(2);
    EXPECT_EQ(grid->CellLabels().size(), 4U);
    EXPECT_TRUE(ScrollBar().isHidden());
    EXPECT_EQ(ScrollBar().minimum(), ScrollBar().maximum());
}

TEST_F(GridLayoutTest, AsManyRowsAsFitNeedNoScrollBar) {
    LoadShown(5);
    EXPECT_TRUE(ScrollBar().isHidden());
    Fill(1);
    EXPECT_TRUE(ScrollBar().isVisible());
}

TEST_F(GridLayoutTest, ALongListHasNoMoreCellsThanAShortOne) {
    LoadShown(1000);
    EXPECT_EQ(grid->CellLabels().size(), 12U);
    EXPECT_EQ(FirstColumn().size(), 5);
}

TEST_F(GridLayoutTest, CellsAreHiddenAndWhitenedUntilTheirNextUse) {
    LoadShown(5);
    grid->SetRow(5);
    grid->SetRows(2);
    EXPECT_EQ(grid->CellLabels().size(), 10U);
    EXPECT_FALSE(Cell(5, 1).Visible);
    EXPECT_EQ(Cell(5, 1).BackColour, White);
}

TEST_F(GridLayoutTest, AReusedCellKeepsItsHighlight) {
    LoadShown(5);
    grid->SetRow(2);
    grid->SetRows(4);
    EXPECT_EQ(HighlitRows(), QList<int>{2});
}

TEST_F(GridLayoutTest, LayingOutTheColumnsDropsAllCellsButTheFirst) {
    LoadShown(5);
    grid->SetRow(1);
    grid->SetColWidth(1, 1200);
    // The first cell is kept, and with it its part of the highlight.
    EXPECT_TRUE(IsHighlit(1, 1));
    EXPECT_FALSE(IsHighlit(1, 2));
    EXPECT_EQ(grid->CellLabels().size(), 10U);
    EXPECT_EQ(grid->Row(), 1);
}

TEST_F(GridLayoutTest, AHiddenColumnHasItsPlacesButNothingToSee) {
    akGrid::Properties properties = TwoColumns();
    properties.ColumnWidths = u"0|1500|"_s;
    Load(properties);
    Fill(3);
    EXPECT_EQ(grid->Cols(), 2);
    EXPECT_EQ(grid->CellLabels().size(), 6U);
    EXPECT_FALSE(grid->HeadingLabels()[0].Visible);
    EXPECT_FALSE(Cell(2, 1).Visible);
    EXPECT_EQ(Cell(2, 1).Width, 0);
    EXPECT_TRUE(Cell(2, 2).Visible);
    EXPECT_EQ(Cell(2, 2).Left, 240);
    EXPECT_EQ(Caption(2, 2), u"o2 "_s);
    EXPECT_EQ(grid->TextMatrix(2, 1), u"r2"_s);
    // The height of the first cell, which is never seen, stays the low one.
    EXPECT_EQ(grid->RowHeight(), 210);
}

TEST_F(GridLayoutTest, ATextIsSetOffFromTheLineThatItLeansOn) {
    LoadShown(2);
    EXPECT_EQ(Caption(2, 1), u" r2"_s);
    EXPECT_EQ(Caption(2, 2), u"o2 "_s);
    grid->SetColumnAlignments(u"2|2|"_s);
    grid->SetTextMatrix(1, 1, u"x"_s);
    EXPECT_EQ(Caption(1, 1), u"x"_s);
    EXPECT_EQ(Caption(2, 1), QString());
}

TEST_F(GridLayoutTest, TheToolTipIsTheCaption) {
    LoadShown(2);
    EXPECT_EQ(Cell(2, 1).ToolTip, u" r2"_s);
    grid->SetRows(2);
    EXPECT_EQ(Cell(2, 1).ToolTip, QString());
}

TEST_F(GridLayoutTest, LinksAreBlueAndUnderlined) {
    akGrid::Properties properties = TwoColumns();
    properties.Hyperlinks = u"0|1|"_s;
    Load(properties);
    Fill(1);
    EXPECT_EQ(Cell(1, 1).TextColour, Black);
    EXPECT_FALSE(Cell(1, 1).Underlined);
    EXPECT_EQ(Cell(1, 2).TextColour, RGB(0, 0, 255));
    EXPECT_TRUE(Cell(1, 2).Underlined);
    grid->SetColumnHyperlinks(u"1|0|"_s);
    EXPECT_TRUE(Cell(1, 1).Underlined);
    EXPECT_EQ(Cell(1, 2).TextColour, Black);
    EXPECT_FALSE(Cell(1, 2).Underlined);
}

/// A cursor file of one grey pixel.
QByteArray SmallestCursor() {
    return QByteArray::fromHex(
        "00000200010001010000000000003000000016000000"
        "28000000010000000200000001002000000000000800000000000000000000000000000000000000"
        "808080ff00000000");
}

class GridPointerTest : public GridLayoutTest {
protected:
    GridPointerTest() { platform::SetProgramDirectory(folder.path()); }
    ~GridPointerTest() override { platform::SetProgramDirectory({}); }

    void PutCursorFile() {
        QFile file(folder.filePath(u"hand.cur"_s));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(SmallestCursor());
    }
    void LoadLinks() {
        akGrid::Properties properties = TwoColumns();
        properties.Hyperlinks = u"0|1|"_s;
        Load(properties);
        Fill(2);
    }

    QTemporaryDir folder;
};

TEST_F(GridPointerTest, LinksHaveTheHandOfTheFileBesideTheProgram) {
    PutCursorFile();
    LoadLinks();
    EXPECT_EQ(Cell(1, 2).Pointer.shape(), Qt::BitmapCursor);
    EXPECT_EQ(Cell(1, 1).Pointer.shape(), Qt::ArrowCursor);
    Show();
    QTest::mouseMove(grid.get(), Inside(1, 2));
    EXPECT_EQ(grid->cursor().shape(), Qt::BitmapCursor);
    QTest::mouseMove(grid.get(), Inside(1, 1));
    EXPECT_EQ(grid->cursor().shape(), Qt::ArrowCursor);
}

TEST_F(GridPointerTest, WithoutTheFileLinksHaveTheDefaultPointer) {
    LoadLinks();
    EXPECT_EQ(Cell(1, 2).Pointer.shape(), Qt::ArrowCursor);
}

TEST_F(GridPointerTest, TheFileIsLookedForWheneverCellsAreLaidOut) {
    LoadLinks();
    PutCursorFile();
    grid->SetRowSelectorWidth(255);
    EXPECT_EQ(Cell(1, 2).Pointer.shape(), Qt::BitmapCursor);
    EXPECT_TRUE(QFile::remove(folder.filePath(u"hand.cur"_s)));
    grid->SetRowSelectorWidth(255);
    EXPECT_EQ(Cell(1, 2).Pointer.shape(), Qt::ArrowCursor);
}

}  // namespace
