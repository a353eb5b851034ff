#include "grid/GridOnScreen.h"
#include "support/PrintQt.h"
#include "support/WorkTime.h"

#include <QStandardItemModel>
#include <QTableView>

namespace {

using namespace controls;
using namespace Qt::StringLiterals;

constexpr int ManyRows = 32000;

class GridSpeedTest : public GridTest {
protected:
    /// What the work costs, with the drawing that it leads to.
    template <typename Work>
    static std::int64_t Cost(int runs, Work work) {
        return LeastWork(runs, [&work] {
            work();
            QCoreApplication::processEvents();
        });
    }

    std::int64_t CostOfScrolling() {
        return Cost(5, [this] {
            for (int topRow = 2; topRow <= 60; ++topRow) {
                ScrollTo(topRow);
                QCoreApplication::processEvents();
            }
            ScrollTo(1);
        });
    }
};

TEST_F(GridSpeedTest, FillingCostsNoMoreThanFillingAModelUnderATableView) {
    LoadShown(0);
    const std::int64_t ours = Cost(3, [this] {
        grid->SetRows(0);
        for (int row = 0; row < ManyRows; ++row) {
            grid->AddItem(u"12 Main Road\tSmith Family Trust"_s);
        }
    });
    QStandardItemModel model(0, 2);
    QTableView view(&window);
    view.setModel(&model);
    view.show();
    const std::int64_t theirs = Cost(3, [&model] {
        model.removeRows(0, model.rowCount());
        for (int row = 0; row < ManyRows; ++row) {
            model.appendRow(
                {new QStandardItem(u"12 Main Road"_s), new QStandardItem(u"Smith Family Trust"_s)});
        }
    });
    EXPECT_EQ(grid->Rows(), ManyRows);
    EXPECT_LE(ours, theirs);
}

TEST_F(GridSpeedTest, AStepThroughALongListCostsNoMoreThanThroughAShortOne) {
    LoadShown(100);
    const std::int64_t shortList = CostOfScrolling();
    Fill(ManyRows - 100);
    const std::int64_t longList = CostOfScrolling();
    EXPECT_EQ(grid->Rows(), ManyRows);
    EXPECT_LT(longList, shortList * 2);
}

}  // namespace
