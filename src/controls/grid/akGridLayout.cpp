#include "controls/akGrid.h"
#include "controls/base/Display.h"
#include "controls/base/HandCursor.h"
#include "controls/grid/GridAccessible.h"
#include "platform/Failure.h"
#include "platform/Rounding.h"

#include <QResizeEvent>
#include <QScrollBar>

#include <algorithm>
#include <limits>

namespace controls {

namespace {

// Twips, on every display. Borders of one pixel are allowed for with 15, so that on a display with another
// number of twips to the pixel the rows come out a little apart from the heights that are reckoned with here.
constexpr int borderAllowance = 15;
constexpr int rowPitch = 225;
constexpr int cellHeight = 240;
constexpr int headingText = 255;
constexpr int scrollBarWidth = 255;
constexpr int frameAllowance = 60;

constexpr Colour linkColour = RGB(0, 0, 255);

/// The bar comes up to date as far as it can: a step that fails is left out.
template <class Step>
void Attempt(Step step) {
    try {
        step();
    } catch (const platform::Failure&) {
        return;
    }
}

}  // namespace

void akGrid::CreateParts() {
    headings_.push_back(NewHeadingLabel());
    cells_.push_back(NewCellLabel());

    VScroll_ = new QScrollBar(Qt::Vertical, this);
    VScroll_->setObjectName(QStringLiteral("VScroll"));
    VScroll_->setAccessibleName(QStringLiteral("Scroll the list"));
    // Its numbers have 16 bits, which shows in lists longer than that.
    VScroll_->setRange(0, std::numeric_limits<qint16>::max());
    VScroll_->setSingleStep(1);
    VScroll_->setPageStep(1);
    // A dragged thumb moves the list when it is let go.
    VScroll_->setTracking(false);
    // The list's pointer over a link must not stay when the mouse moves on to the bar, and a wheel that the
    // list hands to the bar must not come back.
    VScroll_->setCursor(Qt::ArrowCursor);
    VScroll_->setAttribute(Qt::WA_NoMousePropagation);
    VScroll_->hide();
    connect(VScroll_, &QScrollBar::valueChanged, this, &akGrid::Scrolled);

    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setAttribute(Qt::WA_OpaquePaintEvent);
    RegisterGridAccessible();
}

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
        heading.Height = TwipsPerPixel() + headingText;
        left = platform::ToLong(double{1} * left + column.Width);
    }
    CalculateVisibleRows();
    LayoutCells();
    ResizeStore();
    PositionScrollBar();
    RefreshCells();
    AnnounceRows(*this, QAccessibleTableModelChangeEvent::ModelReset);
}

void akGrid::CalculateVisibleRows() {
    const int headingHeight = headings_.front().Height;
    const int pitch = cells_.front().Height - borderAllowance;
    if (pitch == 0) {
        throw platform::Failure(platform::FailureNumber::DivisionByZero, QStringLiteral("Division by zero"));
    }
    visibleRows_ = platform::ToInteger(static_cast<double>(Height() - headingHeight) / pitch);
    const auto wanted = static_cast<float>(pitch * visibleRows_ + headingHeight + frameAllowance);
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
    cell.Top = headings_.front().Height + windowRow * rowPitch;
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
    cell.Height = cellHeight;
    cell.TextColour = column.Hyperlink ? linkColour : Black;
    cell.Underlined = column.Hyperlink;
    cell.Pointer = column.Hyperlink ? linkPointer : QCursor();
}

void akGrid::ResizeStore() {
    store_.Recreate(rows_, Cols());
}

void akGrid::PositionScrollBar() {
    if (!shown_) {
        return;
    }
    const int height = Height() - frameAllowance;
    const int left = Width() - scrollBarWidth - frameAllowance;
    if (height >= 0) {
        VScroll_->resize(ToPixels(scrollBarWidth), ToPixels(height));
    }
    VScroll_->move(ToPixels(left), 0);
    Attempt([this] { VScroll_->setMinimum(visibleRows_); });
    Attempt([this] { VScroll_->setMaximum(std::max(platform::ToInteger(rows_), visibleRows_)); });
    VScroll_->setSingleStep(1);
    if (visibleRows_ > 1) {
        VScroll_->setPageStep(visibleRows_ - 1);
    }
    VScroll_->setVisible(VScroll_->minimum() != VScroll_->maximum());
    Attempt([this] { VScroll_->setValue(platform::ToInteger(topOffset_ + VScroll_->minimum())); });
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

void akGrid::Scrolled() {
    const int rowBefore = AbsoluteRow();
    const auto offset = [this] { return VScroll_->value() - VScroll_->minimum(); };
    const auto step = static_cast<qint16>(offset() - topOffset_);
    if (currentRow_ != 0) {
        int row = Moved(currentRow_, -step);
        int column = currentColumn_;
        ChangeCurrentCell(row, column, false);
    }
    topOffset_ = offset();
    RefreshCells();
    if (AbsoluteRow() != rowBefore) {
        AnnounceCurrentCell();
    }
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
