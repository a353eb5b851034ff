#include "controls/akGrid.h"

#include "controls/base/Display.h"
#include "controls/base/Palette.h"
#include "controls/grid/GridAccessible.h"
#include "platform/Failure.h"
#include "platform/Rounding.h"

#include <QLocale>
#include <QScrollBar>

#include <algorithm>
#include <limits>

namespace controls {

namespace {

int RowCountFrom(const QString& text) {
    bool understood = false;
    const double number = QLocale::c().toDouble(text.trimmed(), &understood);
    if (!understood) {
        throw platform::Failure(platform::FailureNumber::TypeMismatch, QStringLiteral("Type mismatch"));
    }
    return platform::ToLong(number);
}

}  // namespace

akGrid::akGrid(QWidget* parent) : Control(parent) {
    CreateParts();
    headings_.front().BackColour = ThePalette().Heading;
    enabled_ = true;
    const Properties usual;
    strings_ = {usual.ColumnHeadings, usual.ColumnWidths, usual.ColumnAlignments, usual.Hyperlinks};
    rows_ = RowCountFrom(usual.RowCount);
    columns_ = ParseColumnStrings(strings_, TwipsPerPixel());
    LayoutColumns();
    CalculateVisibleRows();
    LayoutCells();
    ResizeStore();
}

akGrid::akGrid(const Properties& saved, QWidget* parent, const QRect& place) : Control(parent) {
    CreateParts();
    if (!place.isNull()) {
        Move(place.x(), place.y(), place.width(), place.height());
    }
    strings_ = {saved.ColumnHeadings, saved.ColumnWidths, saved.ColumnAlignments, saved.Hyperlinks};
    rows_ = RowCountFrom(saved.RowCount);
    selectType_ = saved.SelectType;
    rowSelectorWidth_ = saved.RowSelectorWidth;
    columns_ = ParseColumnStrings(strings_, TwipsPerPixel());
    LayoutColumns();
}

void akGrid::SetRowSelectorWidth(qint16 value) {
    rowSelectorWidth_ = value;
    LayoutCells();
}

int akGrid::ColWidth(int Col) const {
    return ValidColumn(Col) ? ColumnAt(Col).Width : 0;
}

void akGrid::SetColWidth(int Col, int Width) {
    if (ValidColumn(Col)) {
        ColumnAt(Col).Width = std::max(0, Width / TwipsPerPixel() * TwipsPerPixel());
        LayoutColumns();
    }
}

QString akGrid::ColumnFont(int Col) const {
    return ValidColumn(Col) ? ColumnAt(Col).FontName : QString();
}

void akGrid::SetColumnFont(int Col, const QString& FontName) {
    if (ValidColumn(Col)) {
        ColumnAt(Col).FontName = FontName;
        LayoutCells();
        RefreshCells();
    }
}

QString akGrid::Text() const {
    return currentRow_ == 0 || currentColumn_ == 0 ? QString()
                                                   : TextMatrix(RowInList(currentRow_), currentColumn_);
}

bool akGrid::FindCell(int& row, int& column) const {
    row = row == 0 ? RowInList(currentRow_) : row;
    column = column == 0 ? currentColumn_ : column;
    // The row behind the last passes: after AddItem there is one.
    return row != 0 && row - qint64{1} <= rows_ && ValidColumn(column);
}

QString akGrid::TextMatrix(int Row, int Col) const {
    // All rows below 0 fail alike.
    return FindCell(Row, Col) ? store_.Text(std::max(Row, 0) - 1, Col - 1) : QString();
}

void akGrid::SetTextMatrix(int Row, int Col, const QString& sValue) {
    if (!FindCell(Row, Col)) {
        return;
    }
    store_.SetText(std::max(Row, 0) - 1, Col - 1, sValue);
    const int index = CellIndex(qint64{Row} - topOffset_, Col - 1);
    if (index == -1) {
        return;
    }
    if (index == static_cast<int>(cells_.size())) {
        throw platform::Failure(platform::FailureNumber::SubscriptOutOfRange,
                                QStringLiteral("Subscript out of range"));
    }
    cells_[static_cast<size_t>(index)].SetCaption(PaddedText(sValue, ColumnAt(Col).Alignment));
    update();
}

QString akGrid::CellText(int row, int column) const {
    return row > 0 && column > 0 && store_.Holds(row - 1, column - 1) ? store_.Text(row - 1, column - 1)
                                                                      : QString();
}

void akGrid::SetRows(int value) {
    rows_ = value;
    if (rows_ != 0) {
        ResizeStore();
    } else {
        cells_.front().BackColour = White;
    }
    LayoutCells();
    PositionScrollBar();
    if (currentRow_ > rows_) {
        currentRow_ = 0;
    }
    AnnounceRows(*this, QAccessibleTableModelChangeEvent::ModelReset);
}

QString akGrid::ColumnHeading(int Col) const {
    return ValidColumn(Col) ? ColumnAt(Col).Heading : QString();
}

void akGrid::SetColumnHeading(int Col, const QString& Heading) {
    if (ValidColumn(Col)) {
        ColumnAt(Col).Heading = Heading;
        if (const auto index = static_cast<size_t>(Col - 1); index < headings_.size()) {
            headings_[index].Caption = Heading;
            update();
        }
    }
}

void akGrid::SetColumnString(QString ColumnStrings::*string, const QString& text) {
    strings_.*string = text;
    columns_ = ParseColumnStrings(strings_, TwipsPerPixel());
    LayoutColumns();
}

void akGrid::SetColumnHeadings(const QString& text) {
    SetColumnString(&ColumnStrings::Headings, text);
}

void akGrid::SetColumnAlignments(const QString& text) {
    SetColumnString(&ColumnStrings::Alignments, text);
}

void akGrid::SetColumnHyperlinks(const QString& text) {
    SetColumnString(&ColumnStrings::Hyperlinks, text);
}

void akGrid::SetColumnWidths(const QString& text) {
    SetColumnString(&ColumnStrings::Widths, text);
}

void akGrid::AddItem(const QString& text) {
    if (rows_ == std::numeric_limits<int>::max()) {
        platform::RaiseOverflow();
    }
    ++rows_;
    const int withSpareRow = rows_ < std::numeric_limits<int>::max() ? rows_ + 1 : rows_;
    if (rows_ == 1) {
        store_.Recreate(withSpareRow, Cols());
    } else {
        store_.Resize(withSpareRow);
    }
    int column = -1;
    qsizetype start = 0;
    for (qsizetype tab = text.indexOf(QLatin1Char('\t')); tab >= 0;
         tab = text.indexOf(QLatin1Char('\t'), start)) {
        if (++column < Cols()) {
            store_.SetText(rows_ - 1, column, text.mid(start, tab - start));
        }
        start = tab + 1;
    }
    if (start < text.size() && ++column < Cols()) {
        store_.SetText(rows_ - 1, column, text.mid(start));
    }
    AnnounceRows(*this, QAccessibleTableModelChangeEvent::RowsInserted, rows_ - 1);
    if (bulkAdd_) {
        return;
    }
    if (rows_ - 1 < visibleRows_) {
        LayoutCells();
        RefreshCells();
    }
    PositionScrollBar();
}

void akGrid::RemoveItem(int Row) {
    const int removed = Row == 0 ? RowInList(currentRow_) : Row;
    if (removed <= 0 || removed > rows_) {
        return;
    }
    if (rows_ > 1) {
        store_.RemoveRow(removed - 1);
        store_.Resize(rows_ - 1);
    }
    --rows_;
    AnnounceRows(*this, QAccessibleTableModelChangeEvent::RowsRemoved, removed - 1);
    const bool windowStaysFull = removed < rows_ - topOffset_ && removed <= qint64{rows_} - visibleRows_;
    if (!windowStaysFull) {
        LayoutCells();
    }
    PositionScrollBar();
    RefreshCells();
    if (currentRow_ > rows_) {
        currentRow_ = 0;
    }
    if (currentRow_ > visibleRows_) {
        currentRow_ = visibleRows_;
    }
    int row = currentRow_;
    int column = currentColumn_;
    SetCurrentCell(row, column, true);
    if (rows_ == 0) {
        cells_.front().BackColour = White;
        update();
    }
}

void akGrid::SetBulkAdd(bool bBulk) {
    bulkAdd_ = bBulk;
    if (!bulkAdd_) {
        LayoutCells();
        RefreshCells();
        PositionScrollBar();
    }
}

void akGrid::SetEnabled(bool New_Enabled) {
    scrollBar_->setEnabled(New_Enabled);
    enabled_ = New_Enabled;
    setEnabled(New_Enabled);
}

qint16 akGrid::RowHeight() const {
    return static_cast<qint16>(cells_.front().Height);
}

void akGrid::SetRowHeight(qint16 value) {
    if (value == cells_.front().Height) {
        return;
    }
    SetBulkAdd(true);
    cells_.front().Height = value;
    SetBulkAdd(false);
    CalculateVisibleRows();
    PositionScrollBar();
}

QString akGrid::activecontrol() const {
    return scrollBar_->hasFocus() ? scrollBar_->objectName() : QString();
}

}  // namespace controls
