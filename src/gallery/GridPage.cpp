#include "controls/akGrid.h"
#include "gallery/EventLog.h"
#include "gallery/Pages.h"
#include "gallery/Sheet.h"

namespace gallery {

using controls::akGrid;

namespace {

constexpr int Columns = 3;
constexpr int Width = 3750;
constexpr int Height = 1680;

void LogEvents(akGrid* grid, EventLog* log) {
    const auto write = [log, name = grid->accessibleName()](const QString& event) {
        log->Write(name, event);
    };
    QObject::connect(grid, &akGrid::RowColumnChange, log,
                     [write](int Row, int Column, int PrevRow, int PrevColumn) {
                         write(QStringLiteral("RowColumnChange %1 %2, before %3 %4")
                                   .arg(Row)
                                   .arg(Column)
                                   .arg(PrevRow)
                                   .arg(PrevColumn));
                     });
    QObject::connect(grid, &akGrid::Click, log, [write] { write(QStringLiteral("Click")); });
    QObject::connect(grid, &akGrid::DblClick, log, [write] { write(QStringLiteral("DblClick")); });
    QObject::connect(grid, &akGrid::HeadClick, log,
                     [write](qint16 column) { write(QStringLiteral("HeadClick %1").arg(column)); });
    QObject::connect(grid, &akGrid::HyperLinkClick, log,
                     [write](qint16 column) { write(QStringLiteral("HyperLinkClick %1").arg(column)); });
}

/// Two columns in the width of the grid, as the pages of the wizard have them.
akGrid::Properties TwoColumns() {
    return {.ColumnHeadings = QStringLiteral("Tenant|Property|"),
            .ColumnWidths = QStringLiteral("1500|1560|"),
            .ColumnAlignments = QStringLiteral("0|0|"),
            .Hyperlinks = QStringLiteral("0|0|"),
            .RowCount = QStringLiteral("0")};
}

akGrid* AddGrid(EventLog& log, Sheet* sheet, const QString& caption, const akGrid::Properties& properties) {
    auto* grid = new akGrid(properties, sheet, QRect(0, 0, Width, Height));
    grid->setObjectName(caption);
    grid->setAccessibleName(caption);
    // A grid has its own mind of its height.
    sheet->Add(grid, caption, {});
    LogEvents(grid, &log);
    return grid;
}

void Fill(akGrid* grid, int rows) {
    grid->SetBulkAdd(true);
    for (int row = 1; row <= rows; ++row) {
        grid->AddItem(QStringLiteral("Tenant %1\t%1/12 Main Road").arg(row));
    }
    grid->SetBulkAdd(false);
}

void AddSelections(EventLog& log, Sheet* sheet) {
    akGrid* rows = AddGrid(log, sheet, QStringLiteral("Rows are selected, with the focus"), TwoColumns());
    rows->SetRowHeight(240);
    Fill(rows, 40);
    rows->SetAbsoluteRow(2);
    sheet->FocusOn(rows);

    akGrid::Properties cells = TwoColumns();
    cells.SelectType = 1;
    akGrid* single = AddGrid(log, sheet, QStringLiteral("Cells are selected"), cells);
    single->SetRowHeight(240);
    Fill(single, 40);
    single->SetAbsoluteRow(20);
    single->SetCol(2);

    akGrid::Properties links = TwoColumns();
    links.Hyperlinks = QStringLiteral("1|0|");
    Fill(AddGrid(log, sheet, QStringLiteral("Links, too few rows to scroll"), links), 3);
}

void AddColumns(EventLog& log, Sheet* sheet) {
    akGrid* aligned = AddGrid(log, sheet, QStringLiteral("Left, right, centre, a hidden column"),
                              {.ColumnHeadings = QStringLiteral("Left|Right|Hidden|Centre|"),
                               .ColumnWidths = QStringLiteral("1000|1000|0|1060|"),
                               .ColumnAlignments = QStringLiteral("0|1|0|2|"),
                               .Hyperlinks = QStringLiteral("0|0|0|0|"),
                               .RowCount = QStringLiteral("0")});
    for (int row = 0; row < 4; ++row) {
        aligned->AddItem(QStringLiteral("one\t420.00\tunseen\ttwo"));
    }

    akGrid::Properties noStrip = TwoColumns();
    noStrip.RowSelectorWidth = 0;
    akGrid* disabled = AddGrid(log, sheet, QStringLiteral("Not Enabled, no RowSelectorWidth"), noStrip);
    Fill(disabled, 12);
    disabled->SetAbsoluteRow(2);
    disabled->SetEnabled(false);

    akGrid* font = AddGrid(log, sheet, QStringLiteral("ColumnFont, text too long"), TwoColumns());
    font->AddItem(QStringLiteral("The trustees of the Smith Family\tSerif"));
    font->SetColumnFont(2, QStringLiteral("DejaVu Serif"));
}

/// How many rows fit is reckoned from the height of the first cell, which an empty list can be told.
void AddHeights(EventLog& log, Sheet* sheet) {
    AddGrid(log, sheet, QStringLiteral("No rows, rows 210 high"), TwoColumns());
    AddGrid(log, sheet, QStringLiteral("No rows, RowHeight 240"), TwoColumns())->SetRowHeight(240);

    auto* fresh = new akGrid(sheet);
    fresh->setObjectName(QStringLiteral("A new one"));
    fresh->setAccessibleName(fresh->objectName());
    // Its rows come on view when it finds itself higher than a whole number of them.
    sheet->Add(fresh, fresh->objectName(), {Width, Height - 120});
    LogEvents(fresh, &log);
}

}  // namespace

Sheet* GridPage(EventLog& log, QWidget* parent) {
    auto* sheet = new Sheet(QStringLiteral("Grid"), Columns, parent);
    AddSelections(log, sheet);
    AddColumns(log, sheet);
    AddHeights(log, sheet);
    return sheet;
}

}  // namespace gallery
