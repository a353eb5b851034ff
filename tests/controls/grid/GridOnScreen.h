#pragma once

#include "controls/akGrid.h"
#include "platform/Failure.h"
#include "support/OnScreen.h"

#include <QScrollBar>
#include <QStringList>
#include <QTest>

#include <gtest/gtest.h>

#include <memory>
#include <utility>

/// A stored list with two columns and no rows.
inline controls::akGrid::Properties TwoColumns() {
    return {.ColumnHeadings = QStringLiteral("Property|Owner|"),
            .ColumnWidths = QStringLiteral("2100|1500|"),
            .ColumnAlignments = QStringLiteral("0|1|"),
            .Hyperlinks = QStringLiteral("0|0|"),
            .RowCount = QStringLiteral("0")};
}

/// A list in a window, its events noted in the order they come.
class GridTest : public ::testing::Test {
protected:
    GridTest() { window.resize(600, 400); }

    /// A height that makes five rows fit exactly once the list has any.
    static constexpr int FiveRows = 5 * 225 + 330;
    static constexpr int Width = 6000;

    controls::akGrid& Load(const controls::akGrid::Properties& properties, int height = FiveRows) {
        grid = std::make_unique<controls::akGrid>(properties, &window, QRect(0, 0, Width, height));
        Listen();
        return *grid;
    }

    /// The list with rows "r1", "o1" to "rN", "oN" before it is shown for the first time, five of them on
    /// view.
    controls::akGrid& LoadShown(int rows, int selectType = 0) {
        controls::akGrid::Properties properties = TwoColumns();
        properties.SelectType = selectType;
        Load(properties);
        Fill(rows);
        Show();
        return *grid;
    }

    void Listen() {
        using controls::akGrid;
        QObject::connect(grid.get(), &akGrid::RowColumnChange, &window,
                         [this](int& row, int& column, int& previousRow, int& previousColumn) {
                             events += QStringLiteral("RowColumnChange %1 %2 %3 %4")
                                           .arg(row)
                                           .arg(column)
                                           .arg(previousRow)
                                           .arg(previousColumn);
                         });
        QObject::connect(grid.get(), &akGrid::Click, &window, [this] { events += QStringLiteral("Click"); });
        QObject::connect(grid.get(), &akGrid::DblClick, &window,
                         [this] { events += QStringLiteral("DblClick"); });
        QObject::connect(grid.get(), &akGrid::HeadClick, &window,
                         [this](qint16& column) { events += QStringLiteral("HeadClick %1").arg(column); });
        QObject::connect(grid.get(), &akGrid::HyperLinkClick, &window, [this](qint16& column) {
            events += QStringLiteral("HyperLinkClick %1").arg(column);
        });
    }

    void Fill(int rows) {
        for (int row = 1; row <= rows; ++row) {
            grid->AddItem(QStringLiteral("r%1\to%1").arg(row));
        }
    }

    void Show() {
        ShowAndActivate(window);
        QCoreApplication::processEvents();
    }

    QStringList Events() { return std::exchange(events, {}); }

    QScrollBar& ScrollBar() { return *grid->findChild<QScrollBar*>(QStringLiteral("VScroll")); }
    void ScrollTo(int topRow) { ScrollBar().setValue(ScrollBar().minimum() + topRow - 1); }

    /// Both counted from 1, the row in the window.
    const controls::GridLabel& Cell(int row, int column) {
        return grid->CellLabels().at(static_cast<size_t>((row - 1) * grid->Cols() + column - 1));
    }
    QString Caption(int row, int column) { return Cell(row, column).Caption; }
    bool IsHighlit(int row, int column) { return Cell(row, column).BackColour == grid->SelectColour(); }

    /// What can be read in the first column.
    QStringList FirstColumn() {
        QStringList captions;
        for (size_t index = 0; index < grid->CellLabels().size();
             index += static_cast<size_t>(grid->Cols())) {
            if (grid->CellLabels()[index].Visible) {
                captions += grid->CellLabels()[index].Caption.trimmed();
            }
        }
        return captions;
    }

    /// The rows of the window with any selected cell.
    QList<int> HighlitRows() {
        QList<int> rows;
        for (size_t index = 0; index < grid->CellLabels().size(); ++index) {
            const int row = static_cast<int>(index) / grid->Cols() + 1;
            if (grid->CellLabels()[index].BackColour == grid->SelectColour() && !rows.contains(row)) {
                rows += row;
            }
        }
        return rows;
    }

    /// A pixel within a cell, away from its text and its border.
    QPoint Inside(int row, int column) {
        const QRect pixels = Cell(row, column).Pixels();
        return {pixels.center().x(), pixels.bottom() - 2};
    }

    QWidget window;
    QStringList events;
    std::unique_ptr<controls::akGrid> grid;
};

/// The number of the failure that an action ends with, 0 if it ends well.
template <class Action>
int FailureOf(Action action) {
    try {
        action();
    } catch (const platform::Failure& failure) {
        return failure.Number();
    }
    return 0;
}
