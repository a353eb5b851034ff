#include "grid/GridOnScreen.h"
#include "support/PrintQt.h"

#include <limits>

namespace {

using namespace controls;
using namespace Qt::StringLiterals;

class GridSelectionTest : public GridTest {
protected:
    void Select(int row, int column, bool force = false) { grid->SetCurrentCell(row, column, force); }
};

TEST_F(GridSelectionTest, AWholeRowIsHighlit) {
    LoadShown(5);
    Select(2, 1);
    EXPECT_TRUE(IsHighlit(2, 1));
    EXPECT_TRUE(IsHighlit(2, 2));
    Select(4, 2);
    EXPECT_EQ(HighlitRows(), QList<int>{4});
}

TEST_F(GridSelectionTest, InCellModeOnlyTheCellIsHighlit) {
    LoadShown(5, 1);
    Select(2, 2);
    EXPECT_FALSE(IsHighlit(2, 1));
    EXPECT_TRUE(IsHighlit(2, 2));
    Select(2, 1);
    EXPECT_TRUE(IsHighlit(2, 1));
    EXPECT_FALSE(IsHighlit(2, 2));
}

TEST_F(GridSelectionTest, AnySelectTypeButZeroIsCellMode) {
    LoadShown(5, -7);
    Select(1, 1);
    EXPECT_FALSE(IsHighlit(1, 2));
}

TEST_F(GridSelectionTest, TheVeryLastCellOnViewCanBeSelected) {
    for (const int selectType : {0, 1}) {
        LoadShown(20, selectType);
        grid->SetColWidth(1, 2100);  // Leaves just the cells on view.
        ASSERT_EQ(grid->CellLabels().size(), 10U);
        Select(5, 2);
        EXPECT_TRUE(IsHighlit(5, 2)) << selectType;
    }
}

TEST_F(GridSelectionTest, AHiddenColumnInCellModePaintsNothingToSee) {
    LoadShown(5, 1);
    grid->SetColWidth(2, 0);
    Select(2, 2);
    EXPECT_EQ(grid->Col(), 2);
    for (const GridLabel& cell : grid->CellLabels()) {
        EXPECT_TRUE(!cell.Visible || cell.BackColour == White);
    }
}

TEST_F(GridSelectionTest, AWholeRowTakesInItsHiddenColumns) {
    LoadShown(5);
    grid->SetColWidth(2, 0);
    Select(2, 1);
    EXPECT_TRUE(IsHighlit(2, 2));
    EXPECT_FALSE(Cell(2, 2).Visible);
}

TEST_F(GridSelectionTest, TheCurrentCellIsNotSelectedAgainUnlessForced) {
    LoadShown(5);
    Select(2, 1);
    Events();
    Select(2, 1);
    EXPECT_EQ(Events(), QStringList());
    Select(2, 1, true);
    EXPECT_EQ(Events(), QStringList{u"RowColumnChange 2 1 2 1"_s});
    EXPECT_EQ(HighlitRows(), QList<int>{2});
}

TEST_F(GridSelectionTest, TheEventTellsWhereFromAndWhereTo) {
    LoadShown(5);
    Select(2, 1);
    Select(99, -4);
    EXPECT_EQ(Events(), (QStringList{u"RowColumnChange 2 1 0 0"_s, u"RowColumnChange 5 1 2 1"_s}));
}

TEST_F(GridSelectionTest, AnEmptyListHasNoRowToSelect) {
    LoadShown(0);
    Select(1, 2);
    EXPECT_EQ(grid->Row(), 0);
    EXPECT_EQ(grid->AbsoluteRow(), 0);
    EXPECT_EQ(grid->Col(), 2);
    EXPECT_FALSE(Cell(1, 1).Visible);
    EXPECT_EQ(HighlitRows(), QList<int>());
    EXPECT_EQ(Events(), QStringList{u"RowColumnChange 0 2 0 0"_s});
}

TEST_F(GridSelectionTest, TheHandlerFindsTheOldPositionAndNoHighlight) {
    LoadShown(5);
    Select(2, 1);
    bool asked = false;
    QObject::connect(grid.get(), &akGrid::RowColumnChange, &window, [&] {
        asked = true;
        EXPECT_EQ(grid->Row(), 2);
        EXPECT_EQ(grid->Col(), 1);
        EXPECT_EQ(HighlitRows(), QList<int>());
    });
    Select(4, 2);
    EXPECT_TRUE(asked);
}

TEST_F(GridSelectionTest, TheHandlerCanSendTheSelectionElsewhere) {
    LoadShown(5);
    QObject::connect(grid.get(), &akGrid::RowColumnChange, &window, [](int& row, int& column) {
        row = 3;
        column = 2;
    });
    int row = 1;
    int column = 1;
    grid->SetCurrentCell(row, column, false);
    EXPECT_EQ(grid->Row(), 3);
    EXPECT_EQ(grid->Col(), 2);
    EXPECT_EQ(row, 3);
    EXPECT_EQ(column, 2);
    EXPECT_EQ(HighlitRows(), QList<int>{3});
}

TEST_F(GridSelectionTest, ThePreviousPositionIsTheLiveOne) {
    LoadShown(5);
    Select(2, 1);
    int rowInside = 0;
    QObject::connect(grid.get(), &akGrid::RowColumnChange, &window,
                     [&](int& row, int&, int& previousRow, int&) {
                         previousRow = 5;
                         rowInside = grid->Row();
                         row = 4;
                     });
    Select(3, 1);
    EXPECT_EQ(rowInside, 5);
    EXPECT_EQ(grid->Row(), 4);
}

TEST_F(GridSelectionTest, TheHandlerCanMoveTheSelectionItself) {
    LoadShown(5);
    bool inside = false;
    QObject::connect(grid.get(), &akGrid::RowColumnChange, &window, [&] {
        if (!std::exchange(inside, true)) {
            grid->SetRow(5);
        }
    });
    Select(2, 1);
    EXPECT_EQ(grid->Row(), 2);
    // The inner selection's highlight is nobody's any more.
    EXPECT_EQ(HighlitRows(), (QList<int>{2, 5}));
}

TEST_F(GridSelectionTest, WildNumbersFromTheHandlerCrashNothing) {
    LoadShown(5);
    constexpr int Most = std::numeric_limits<int>::max();
    constexpr int Least = std::numeric_limits<int>::min();
    const std::pair<int, int> positions[] = {{Most, Most}, {Least, Least}, {0, 0},   {-1, 5},
                                             {1, 99},      {99, 1},        {0, 1},   {6, 2},
                                             {7, 1},       {Most, 1},      {1, Most}};
    std::pair<int, int> position;
    auto connection =
        QObject::connect(grid.get(), &akGrid::RowColumnChange, &window, [&](int& row, int& column) {
            row = position.first;
            column = position.second;
        });
    for (const auto& one : positions) {
        position = one;
        Select(2, 1, true);
        EXPECT_EQ(grid->Row(), position.first);
        FailureOf([&] { grid->Text(); });
        FailureOf([&] { grid->RemoveItem(0); });
        FailureOf([&] { grid->SetTopRow(2); });
        for (const int key : {Qt::Key_Right, Qt::Key_Left, Qt::Key_Up, Qt::Key_Down}) {
            QTest::keyClick(grid.get(), static_cast<Qt::Key>(key));
        }
        Fill(1);
        QCoreApplication::processEvents();
    }
    QObject::disconnect(connection);
    grid->SetRow(1);
    EXPECT_EQ(grid->Row(), 1);
}

TEST_F(GridSelectionTest, ARowWithoutCellsYetCanBeSelected) {
    LoadShown(0);
    grid->SetBulkAdd(true);
    Fill(3);
    grid->SetRow(2);
    EXPECT_EQ(grid->Text(), u"r2"_s);
    grid->SetRow(1);
    grid->SetBulkAdd(false);
    EXPECT_EQ(grid->Row(), 1);
}

TEST_F(GridSelectionTest, TheListTellsWhatIsSelected) {
    LoadShown(20);
    EXPECT_FALSE(grid->IsSelected(1, 1));
    grid->SetAbsoluteRow(12);
    EXPECT_TRUE(grid->IsSelected(12, 2));
    EXPECT_FALSE(grid->IsSelected(11, 2));
    EXPECT_FALSE(grid->IsSelected(12, 3));
    LoadShown(20, 1);
    grid->SetAbsoluteRow(12);
    EXPECT_TRUE(grid->IsSelected(12, 1));
    EXPECT_FALSE(grid->IsSelected(12, 2));
}

}  // namespace
