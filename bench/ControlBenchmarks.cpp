#include "controls/akGrid.h"
#include "controls/base/Palette.h"
#include "controls/ctlTextBox.h"

#include <QApplication>
#include <QHeaderView>
#include <QLineEdit>
#include <QScrollBar>
#include <QStandardItemModel>
#include <QTableView>
#include <QTest>

#include <benchmark/benchmark.h>

// Each control beside the toolkit's own nearest one, in one window of the same size: compare_controls.py
// works out the ratios.

namespace {

using controls::akGrid;
using controls::ctlTextBox;

constexpr int WindowWidth = 600;
constexpr int WindowHeight = 350;
constexpr int ManyRows = 32000;
constexpr int FewRows = 100;

/// A table with as many rows on view as our list has, and no row numbers, which our list doesn't show either.
class Table : public QTableView {
public:
    explicit Table(QStandardItemModel& model) {
        verticalHeader()->hide();
        verticalHeader()->setMinimumSectionSize(1);
        verticalHeader()->setDefaultSectionSize(15);
        setModel(&model);
    }
};

QString NameOf(int row) {
    return QStringLiteral("Tenant %1").arg(row, 5, 10, QLatin1Char('0'));
}

QString PropertyOf(int row) {
    return QStringLiteral("%1 Main Road").arg(row);
}

template <typename Widget>
void ShowOnScreen(Widget& widget) {
    widget.resize(WindowWidth, WindowHeight);
    widget.show();
    widget.activateWindow();
    if (!QTest::qWaitForWindowActive(&widget)) {
        qFatal("The window doesn't become active");
    }
}

const akGrid::Properties& ListOfTenants() {
    static const akGrid::Properties properties{.ColumnHeadings = QStringLiteral("Tenant|Property|"),
                                               .ColumnWidths = QStringLiteral("4000|4000|"),
                                               .ColumnAlignments = QStringLiteral("0|0|"),
                                               .Hyperlinks = QStringLiteral("0|0|"),
                                               .RowCount = QStringLiteral("0")};
    return properties;
}

void FillGrid(akGrid& grid, int rows) {
    for (int row = 1; row <= rows; ++row) {
        grid.AddItem(NameOf(row) + QLatin1Char('\t') + PropertyOf(row));
    }
}

void FillModel(QStandardItemModel& model, int rows) {
    for (int row = 1; row <= rows; ++row) {
        model.appendRow({new QStandardItem(NameOf(row)), new QStandardItem(PropertyOf(row))});
    }
}

void GridFilled(benchmark::State& state) {
    akGrid grid(ListOfTenants());
    ShowOnScreen(grid);
    for (auto _ : state) {
        grid.SetRows(0);
        FillGrid(grid, ManyRows);
        QCoreApplication::processEvents();
    }
}
BENCHMARK(GridFilled)->Unit(benchmark::kMillisecond);

void TableViewFilled(benchmark::State& state) {
    QStandardItemModel model(0, 2);
    Table view(model);
    ShowOnScreen(view);
    for (auto _ : state) {
        model.removeRows(0, model.rowCount());
        FillModel(model, ManyRows);
        QCoreApplication::processEvents();
    }
}
BENCHMARK(TableViewFilled)->Unit(benchmark::kMillisecond);

/// One row down and back up again, each with its picture.
template <typename Scroll>
void ScrollOneRow(benchmark::State& state, QWidget& widget, Scroll scroll) {
    QCoreApplication::processEvents();
    for (auto _ : state) {
        scroll(+1);
        widget.repaint();
        scroll(-1);
        widget.repaint();
    }
}

void GridScrolled(benchmark::State& state) {
    akGrid grid(ListOfTenants());
    ShowOnScreen(grid);
    FillGrid(grid, static_cast<int>(state.range(0)));
    ScrollOneRow(state, grid, [&grid](int step) { grid.SetTopRow(grid.TopRow() + step); });
}
BENCHMARK(GridScrolled)->Arg(FewRows)->Arg(ManyRows)->Unit(benchmark::kMicrosecond);

void TableViewScrolled(benchmark::State& state) {
    QStandardItemModel model(0, 2);
    FillModel(model, static_cast<int>(state.range(0)));
    Table view(model);
    ShowOnScreen(view);
    QScrollBar* bar = view.verticalScrollBar();
    ScrollOneRow(state, *view.viewport(), [bar](int step) { bar->setValue(bar->value() + step); });
}
BENCHMARK(TableViewScrolled)->Arg(FewRows)->Arg(ManyRows)->Unit(benchmark::kMicrosecond);

/// Seven digits typed, then the box is emptied.
template <typename Clear>
void TypeDigits(benchmark::State& state, QWidget& box, Clear clear) {
    for (auto _ : state) {
        QTest::keyClicks(&box, QStringLiteral("1234567"));
        clear();
    }
    state.SetItemsProcessed(state.iterations() * 7);
}

void KeyIntoTextBox(benchmark::State& state) {
    ctlTextBox box({.Text = QString(), .IsNumeric = true, .DecimalPlaces = 2}, nullptr);
    ShowOnScreen(box);
    auto* inner = box.findChild<QLineEdit*>();
    inner->setFocus();
    TypeDigits(state, *inner, [&box] { box.SetText(QString()); });
}
BENCHMARK(KeyIntoTextBox)->Unit(benchmark::kMicrosecond);

void KeyIntoLineEdit(benchmark::State& state) {
    QLineEdit box;
    ShowOnScreen(box);
    box.setFocus();
    TypeDigits(state, box, [&box] { box.setText(QString()); });
}
BENCHMARK(KeyIntoLineEdit)->Unit(benchmark::kMicrosecond);

}  // namespace

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    controls::InitialiseColours();
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
