#include "support/GridOnScreen.h"
#include "support/PrintQt.h"

#include <QElapsedTimer>
#include <QStandardItemModel>
#include <QTableView>

#include <functional>

namespace {

using namespace controls;
using namespace Qt::StringLiterals;

constexpr int manyRows = 32000;

class GridSpeedTest : public GridTest {
protected:
    /// The best of a few runs: what else runs on the machine only ever makes it slower.
    static qint64 Nanoseconds(int runs, const std::function<void()>& work) {
        qint64 best = std::numeric_limits<qint64>::max();
        for (int run = 0; run < runs; ++run) {
            QElapsedTimer timer;
            timer.start();
            work();
            QCoreApplication::processEvents();
            best = std::min(best, timer.nsecsElapsed());
        }
        return best;
    }

    qint64 ScrollTime() {
        return Nanoseconds(5, [this] {
            for (int topRow = 2; topRow <= 60; ++topRow) {
                ScrollTo(topRow);
                QCoreApplication::processEvents();
            }
            ScrollTo(1);
        });
    }
};

TEST_F(GridSpeedTest, FillingIsAsQuickAsFillingAModelUnderATableView) {
    LoadShown(0);
    const qint64 ours = Nanoseconds(3, [this] {
        grid->SetRows(0);
        for (int row = 0; row < manyRows; ++row) {
            grid->AddItem(u"12 Main Road\tSmith Family Trust"_s);
        }
    });
    QStandardItemModel model(0, 2);
    QTableView view(&window);
    view.setModel(&model);
    view.show();
    const qint64 theirs = Nanoseconds(3, [&model] {
        model.removeRows(0, model.rowCount());
        for (int row = 0; row < manyRows; ++row) {
            model.appendRow(
                {new QStandardItem(u"12 Main Road"_s), new QStandardItem(u"Smith Family Trust"_s)});
        }
    });
    EXPECT_EQ(grid->Rows(), manyRows);
    EXPECT_LE(ours, theirs);
}

TEST_F(GridSpeedTest, AStepThroughALongListCostsNoMoreThanThroughAShortOne) {
    LoadShown(100);
    const qint64 shortList = ScrollTime();
    Fill(manyRows - 100);
    const qint64 longList = ScrollTime();
    EXPECT_EQ(grid->Rows(), manyRows);
    EXPECT_LT(longList, shortList * 2);
}

}  // namespace
