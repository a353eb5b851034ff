#include "controls/grid/GridRowStore.h"
#include "grid/GridOnScreen.h"
#include "platform/Failure.h"
#include "support/PrintQt.h"

#include <limits>

namespace {

using namespace controls;
using namespace Qt::StringLiterals;

class GridRowStoreTest : public ::testing::Test {
protected:
    GridRowStoreTest() {
        store.Recreate(3, 2);
        for (int row = 0; row < 3; ++row) {
            store.SetText(row, 0, u"a%1"_s.arg(row));
            store.SetText(row, 1, u"b%1"_s.arg(row));
        }
    }

    GridRowStore store;
};

TEST_F(GridRowStoreTest, RecreatingEmptiesEveryCell) {
    store.Recreate(3, 2);
    EXPECT_EQ(store.Rows(), 3);
    EXPECT_EQ(store.Text(0, 0), QString());
    EXPECT_EQ(store.Text(2, 1), QString());
}

TEST_F(GridRowStoreTest, ResizingKeepsTheTextsThatStay) {
    store.Resize(4);
    EXPECT_EQ(store.Text(2, 1), u"b2"_s);
    EXPECT_EQ(store.Text(3, 0), QString());
    store.Resize(1);
    EXPECT_EQ(store.Text(0, 1), u"b0"_s);
    store.Resize(3);
    EXPECT_EQ(store.Text(1, 0), QString());
}

TEST_F(GridRowStoreTest, RowsBehindARemovedOneMoveUp) {
    store.RemoveRow(1);
    EXPECT_EQ(store.Rows(), 2);
    EXPECT_EQ(store.Text(0, 0), u"a0"_s);
    EXPECT_EQ(store.Text(1, 0), u"a2"_s);
    EXPECT_EQ(store.Text(1, 1), u"b2"_s);
}

TEST_F(GridRowStoreTest, ARowThatWasNeverWrittenCanBeRemoved) {
    store.Resize(5);
    store.RemoveRow(4);
    EXPECT_EQ(store.Rows(), 4);
    EXPECT_EQ(store.Text(2, 0), u"a2"_s);
    EXPECT_EQ(store.Text(3, 0), QString());
}

TEST_F(GridRowStoreTest, AWriteFarBehindLeavesEmptyRowsBetween) {
    store.Recreate(10, 2);
    store.SetText(7, 1, u"x"_s);
    EXPECT_EQ(store.Text(7, 0), QString());
    EXPECT_EQ(store.Text(3, 1), QString());
    EXPECT_EQ(store.Text(7, 1), u"x"_s);
    EXPECT_EQ(store.Text(9, 1), QString());
}

TEST_F(GridRowStoreTest, RowsThatNobodyWroteToCostNothing) {
    store.Recreate(std::numeric_limits<int>::max(), 2);
    EXPECT_EQ(store.Text(std::numeric_limits<int>::max() - 1, 1), QString());
}

TEST_F(GridRowStoreTest, PlacesOutsideFail) {
    const std::pair<int, int> places[] = {{3, 0}, {-1, 0}, {0, 2}, {0, -1}};
    for (const auto& [row, column] : places) {
        EXPECT_FALSE(store.Holds(row, column));
        EXPECT_EQ(FailureOf([&, r = row, c = column] { store.Text(r, c); }), 9);
        EXPECT_EQ(FailureOf([&, r = row, c = column] { store.SetText(r, c, u"x"_s); }), 9);
    }
    EXPECT_EQ(FailureOf([&] { store.RemoveRow(3); }), 9);
    EXPECT_EQ(FailureOf([&] { store.Recreate(-1, 2); }), 9);
    EXPECT_EQ(FailureOf([&] { store.Resize(-1); }), 9);
    EXPECT_EQ(store.Rows(), 3);
}

}  // namespace
