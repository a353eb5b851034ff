#include "controls/akGrid.h"
#include "controls/base/Display.h"
#include "controls/base/HandCursor.h"
#include "controls/grid/GridAccessible.h"
#include "platform/Failure.h"
#include "platform/Rounding.h"

#include <QResizeEvent>

#include <algorithm>
#include <limits>

namespace controls {

namespace {

// Twips, on every display. Borders of one pixel are allowed for with 15, so that on a display with another
// number of twips to the pixel the rows come out a little apart from the heights that are reckoned with here.
constexpr int BorderAllowance = 15;
constexpr int RowPitch = 225;
constexpr int CellHeight = 240;
constexpr int HeadingText = 255;

constexpr Colour LinkColour = RGB(0, 0, 255);

}  // namespace

int akGrid::Moved(int position, int step) {
    return static_cast<int>(std::clamp<qint64>(qint64{position} + step, std::numeric_limits<int>::min(),
                                               std::numeric_limits<int>::max()));
}

int akGrid::RowInList(int windowRow) const {
    return Moved(windowRow, topOffset_);
}

int akGrid::WindowRows() const {
    return std::min<int>(visibleRows_, rows_);
}

void akGrid::LayoutColumns() {
    headings_.resize(1, NewHeadingLabel());
    cells_.resize(1, NewCellLabel());
    int left = rowSelectorWidth_;
    for (size_t index = 0; index < columns_.size(); ++index) {
        if (index > 0) {
            headings_.push_back(NewHeadingLabel());
        }
        GridColumn& column = columns_[index];
        GridLabel& heading = headings_[index];
        heading.Left = left;
        column.Left = left;
        heading.Width = column.Width;
        heading.Visible = column.Width >= 1;
        heading.Top = 0;
        heading.Caption = column.Heading;
        heading.Height = TwipsPerPixel() + HeadingText;
        left = platform::ToLong(double{1} * left + column.Width);
    }
    // In this order: see akGrid.h.
    CalculateVisibleRows();
    LayoutCells();
    ResizeStore();
    PositionScrollBar();
    RefreshCells();
    AnnounceRows(*this, QAccessibleTableModelChangeEvent::ModelReset);
}

void akGrid::CalculateVisibleRows() {
    const int headingHeight = headings_.front().Height;
    const int pitch = cells_.front().Height - BorderAllowance;
    if (pitch == 0) {
        platform::RaiseDivisionByZero();
    }
    visibleRows_ = platform::ToInteger(static_cast<double>(Height() - headingHeight) / pitch);
    const auto wanted = static_cast<float>(pitch * visibleRows_ + headingHeight + FrameAllowance);
    if (wanted == static_cast<float>(Height())) {
        return;
    }
    SetHeight(static_cast<int>(wanted));
    if (!isVisible()) {
        // Qt keeps the news of a new size back until the widget is shown; the rows are needed before.
        Resized();
    }
}

void akGrid::LayoutCells() {
    const qint64 rows = WindowRows();
    const qint64 last = std::max<qint64>(Cols() * rows - 1, rows == 0 ? 0 : -1);
    for (auto index = static_cast<size_t>(std::max<qint64>(last + 1, 1)); index < cells_.size(); ++index) {
        cells_[index].Visible = false;
        cells_[index].BackColour = White;
    }
    update();
    if (rows == 0) {
        cells_.front().Visible = false;
        return;
    }
    const bool hasLink = std::any_of(columns_.begin(), columns_.end(),
                                     [](const GridColumn& column) { return column.Hyperlink; });
    const QCursor linkPointer = hasLink ? HandCursor() : QCursor();
    size_t index = 0;
    for (int row = 0; row < rows; ++row) {
        for (const GridColumn& column : columns_) {
            LayoutCell(index++, row, column, linkPointer);
        }
    }
}

void akGrid::LayoutCell(size_t index, int windowRow, const GridColumn& column, const QCursor& linkPointer) {
    if (index >= cells_.size()) {
        cells_.push_back(NewCellLabel());
    }
    GridLabel& cell = cells_[index];
    cell.Top = headings_.front().Height + windowRow * RowPitch;
    // A pixel wider than the column and a pixel further left: the borders of neighbours make one grid line.
    cell.Left = column.Left - TwipsPerPixel();
    cell.SetCaption(QString());
    if (column.Width == 0) {
        cell.Width = 0;
        cell.Visible = false;
        return;
    }
    cell.Visible = true;
    cell.Width = platform::ToLong(double{1} * column.Width + TwipsPerPixel());
    cell.Alignment = column.Alignment;
    cell.FontName = column.FontName;
    cell.Height = CellHeight;
    cell.TextColour = column.Hyperlink ? LinkColour : Black;
    cell.Underlined = column.Hyperlink;
    cell.Pointer = column.Hyperlink ? linkPointer : QCursor();
}

void akGrid::ResizeStore() {
    store_.Recreate(rows_, Cols());
}

void akGrid::RefreshCells() {
    const int rows = WindowRows();
    size_t index = 0;
    for (int row = 0; row < rows; ++row) {
        for (int column = 0; column < Cols(); ++column, ++index) {
            if (index < cells_.size() && store_.Holds(row + topOffset_, column)) {
                cells_[index].SetCaption(
                    PaddedText(store_.Text(row + topOffset_, column), ColumnAt(column + 1).Alignment));
            }
        }
    }
    update();
}

akGrid::Relaid akGrid::Resized() {
    const bool relaid = Height() != lastHeight_;
    if (relaid) {
        LayoutCells();
        lastHeight_ = static_cast<qint16>(Height());
    }
    if (shown_) {
        PositionScrollBar();
        RefreshCells();
    }
    return relaid ? Relaid::Yes : Relaid::No;
}

void akGrid::resizeEvent(QResizeEvent* event) {
    Control::resizeEvent(event);
    // A hidden list hears of its size late, when rows may have come since. They must not show as blanks.
    if (Resized() == Relaid::Yes && !shown_) {
        RefreshCells();
    }
}

void akGrid::showEvent(QShowEvent* event) {
    Control::showEvent(event);
    if (event->spontaneous()) {
        return;  // The window came back from being minimised: nothing in it was hidden by its owner.
    }
    shown_ = true;
    CalculateVisibleRows();
    PositionScrollBar();
}

}  // namespace controls
