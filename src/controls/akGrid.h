#pragma once

#include "controls/base/Control.h"
#include "controls/grid/GridColumn.h"
#include "controls/grid/GridLabel.h"
#include "controls/grid/GridRowStore.h"

#include <QRect>

#include <vector>

class QScrollBar;

namespace controls {

/// A read-only list with a heading strip, a vertical scroll bar and a current cell. Every text in it comes
/// from its owner, who reads the current row to know what the user has chosen.
///
/// Lengths are twips. Rows and columns are counted from 1, where nothing else is said, and a number is either
/// absolute (a row of the list) or a row of the window that is on view. A column number that no column has
/// reads as nothing and writes nothing. Bad positions are clamped; what can fail is said at the member. All
/// failures are platform::Failure.
///
/// While the list has the focus, a line of one pixel in the highlight's colour runs around its outer edge,
/// beneath headings and cells.
class akGrid : public Control {
    Q_OBJECT
    Q_PROPERTY(bool Enabled READ Enabled WRITE SetEnabled)

public:
    /// What a form stores of its list.
    struct Properties {
        QString ColumnHeadings = QStringLiteral("Col1|Col2|Col3|");
        QString ColumnWidths = QStringLiteral("1000|1000|1000|");
        QString ColumnAlignments = QStringLiteral("0|0|0|");
        QString Hyperlinks = QStringLiteral("0|0|0|");
        /// A whole number; failure 13 (type mismatch) if it is none.
        QString RowCount = QStringLiteral("15");
        /// 0 selects whole rows, any other number single cells.
        int SelectType = 0;
        /// Stored with the form and not read back: a list has its usual colour until its owner sets another.
        Colour SelectColour = RGB(255, 255, 150);
        qint16 RowSelectorWidth = 255;
    };

    /// A new list: three columns, fifteen empty rows, and a first heading in the palette's colour.
    explicit akGrid(QWidget* parent = nullptr);

    /// A list as a form stored it. The form's place for it, in twips, counts already here: the height decides
    /// how many rows fit, and the list then grows or shrinks to a whole number of them. Without a place the
    /// widget's own size does. The headings are of a stronger blue than on a new list.
    explicit akGrid(const Properties& saved, QWidget* parent = nullptr, const QRect& place = QRect());

    /// Width of the blank strip left of the first column. A new one is seen when the columns are next laid
    /// out, that is after a write of a column string or of a width.
    qint16 RowSelectorWidth() const { return rowSelectorWidth_; }
    void SetRowSelectorWidth(qint16 value);

    /// Written widths are cut to whole pixels, below 0 to 0, which hides the column. A write empties all
    /// cells. 0 for a bad column.
    int ColWidth(int Col) const;
    void SetColWidth(int Col, int Width);

    /// Lasts until a column string is written.
    QString ColumnFont(int Col) const;
    void SetColumnFont(int Col, const QString& FontName);

    /// Colour of the selected cells. What is selected keeps the old one until it is next selected.
    Colour SelectColour() const { return selectColour_; }
    void SetSelectColour(Colour colour) { selectColour_ = colour; }

    /// What shows where no heading and no cell lies: in the strip, beside and below them. The desktop's
    /// colour behind documents, unless a form gives another.
    Colour BackColor() const { return backColor_; }
    void SetBackColor(Colour colour);

    int Cols() const { return static_cast<int>(columns_.size()); }

    /// Absolute number of the first row on view. A write scrolls as far as the rows go.
    int TopRow() const { return topOffset_ + 1; }
    void SetTopRow(int value);

    /// Absolute number of the current row, 0 while there is none. A write brings the row into view and
    /// selects it. Rows beyond the 32,767 that the scroll bar can tell apart can't be reached.
    int AbsoluteRow() const;
    void SetAbsoluteRow(int value);

    /// Number of the current row in the window, 0 while there is none. It can lie beyond the window: the list
    /// was scrolled up past the selected row.
    int Row() const { return currentRow_; }
    void SetRow(int value);
    int Col() const { return currentColumn_; }
    void SetCol(int value);

    /// The current cell's text, empty while there is none.
    QString Text() const;

    /// A cell by absolute row and column. Row 0 means the current row and column 0 the current column; empty,
    /// or nothing written, while there is none. One row behind the last can be written after AddItem and
    /// becomes part of the row that is added next. Failure 9 (subscript out of range) for a row below 0, and
    /// for the row behind the last if it doesn't exist. A write of the first cell just below the rows on view
    /// stores the text and then fails with 9, too.
    QString TextMatrix(int Row, int Col) const;
    void SetTextMatrix(int Row, int Col, const QString& sValue);

    /// Number of rows. A write other than 0 empties all cells; 0 leaves their texts where they were, out of
    /// sight. The cells on view stay blank until they are filled. Failure 9 below 0.
    int Rows() const { return rows_; }
    void SetRows(int value);

    QString ColumnHeading(int Col) const;
    void SetColumnHeading(int Col, const QString& Heading);

    /// The four column strings as last written, each with a "|" behind each token. A write describes all
    /// columns anew and empties all cells. See ParseColumnStrings for what they say and how that fails.
    const QString& ColumnHeadings() const { return strings_.Headings; }
    void SetColumnHeadings(const QString& text);
    const QString& ColumnAlignments() const { return strings_.Alignments; }
    void SetColumnAlignments(const QString& text);
    const QString& ColumnHyperlinks() const { return strings_.Hyperlinks; }
    void SetColumnHyperlinks(const QString& text);
    const QString& ColumnWidths() const { return strings_.Widths; }
    void SetColumnWidths(const QString& text);

    /// Selects a cell by its row in the window. Both numbers are clamped in place: a row to the rows of the
    /// list, not to those on view. Without bForce nothing happens if the cell is current already.
    void SetCurrentCell(int& Row, int& Col, bool bForce);

    /// Adds a row behind the last, with a tab between the values. Values beyond the last column are dropped.
    /// The current cell doesn't move.
    void AddItem(const QString& text);

    /// Takes a row out by its absolute number; 0 means the current row. Nothing happens for a row that
    /// doesn't exist. Afterwards some cell is current as long as there are rows.
    void RemoveItem(int Row);

    /// True while the owner adds many rows: they are laid out and drawn once, when it is set to false again.
    bool BulkAdd() const { return bulkAdd_; }
    void SetBulkAdd(bool bBulk);

    /// The value last written; before that true on a new list and false on a stored one, which works all the
    /// same.
    bool Enabled() const { return enabled_; }
    void SetEnabled(bool New_Enabled);

    /// Height of the first cell. Cells get their usual height back as soon as there are rows, so a write
    /// counts only on an empty list, where it decides how many rows fit. Failure 11 (division by zero) for
    /// 15, which leaves rows no height at all.
    qint16 RowHeight() const;
    void SetRowHeight(qint16 value);

    /// Name of the part that has the focus, "VScroll"; empty while it is the list itself or nothing in it.
    QString activecontrol() const;

    /// What is on view, for whoever reads the list by other means than the eye. Cells go row by row; some
    /// behind the rows on view may be hidden ones that await their next use.
    const std::vector<GridLabel>& HeadingLabels() const { return headings_; }
    const std::vector<GridLabel>& CellLabels() const { return cells_; }
    qint16 VisibleRows() const { return visibleRows_; }
    /// True for what the selection covers, in view or not: the current row, or the current cell alone.
    /// The row is absolute.
    bool IsSelected(int row, int column) const;
    /// A cell's own text, empty for a place that doesn't exist. The row is absolute.
    QString CellText(int row, int column) const;
    /// Whether the scroll bar, whose numbers have 16 bits, reaches the row. It is absolute.
    bool CanShowRow(int row) const;
    /// Does what a click on a cell does, after bringing it into view, or on the heading where the row is 0.
    /// The row is absolute; nothing happens for a place that can't be shown.
    void ClickPart(int row, int column);

Q_SIGNALS:
    /// The current cell is about to change; the list itself still gives the old one. A handler may change the
    /// first two, and the list goes where they say.
    void RowColumnChange(int& Row, int& Column, int& PrevRow, int& PrevColumn);
    /// A cell was clicked twice. What a single click raises came first.
    void DblClick();
    /// A cell was clicked that is no link, and is now current.
    void Click();
    /// A heading was clicked. Its column is counted from 0.
    void HeadClick(qint16& ColumnIndex);
    /// A link was clicked, and is now current. Its column is counted from 1.
    void HyperLinkClick(qint16& ColumnIndex);

protected:
    bool event(QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    enum class LabelKind { None, Heading, Cell };
    struct LabelPlace {
        LabelKind kind = LabelKind::None;
        size_t index = 0;
        bool operator==(const LabelPlace&) const = default;
    };
    enum class Relaid { No, Yes };

    /// Room for the frame below the last row, and right of and below the scroll bar; twips.
    static constexpr int FrameAllowance = 60;

    // What the list is made of (akGridParts.cpp).
    void CreateParts();

    // What the members share (akGrid.cpp).
    void SetColumnString(QString ColumnStrings::*string, const QString& text);
    bool ValidColumn(int Col) const { return Col >= 1 && Col <= Cols(); }
    const GridColumn& ColumnAt(int Col) const { return columns_[static_cast<size_t>(Col - 1)]; }
    GridColumn& ColumnAt(int Col) { return columns_[static_cast<size_t>(Col - 1)]; }
    bool FindCell(int& row, int& column) const;

    // The steps that bring the view up to date (akGridLayout.cpp). Where several run, this order is required:
    // CalculateVisibleRows before LayoutCells, which raises the height that it reckons with; LayoutCells and
    // ResizeStore, which leave captions and texts empty, before RefreshCells. PositionScrollBar comes behind
    // LayoutCells; if its range moves the list, Scrolled refreshes the cells once more.
    // The rest is the toolkit's order. It tells a shown list of its new size at once, within SetHeight, but a
    // hidden one with its next show only, before showEvent: CalculateVisibleRows then runs Resized itself.
    void LayoutColumns();
    void CalculateVisibleRows();
    void LayoutCells();
    void LayoutCell(size_t index, int windowRow, const GridColumn& column, const QCursor& linkPointer);
    void ResizeStore();
    void RefreshCells();
    Relaid Resized();
    /// Stays within the numbers there are: a handler can send the selection to any of them.
    static int Moved(int position, int step);
    int RowInList(int windowRow) const;
    int WindowRows() const;

    // The scroll bar (akGridScroll.cpp).
    void PositionScrollBar();
    void Scrolled();

    // The selection (akGridSelection.cpp).
    int CellIndex(qint64 row, qint64 column) const;
    void ColourSelection(Colour colour);
    /// False if the cell was current already.
    bool ChangeCurrentCell(int& row, int& column, bool force);
    void AnnounceCurrentCell();
    /// What the selection covered with its current cell there, as far as it has gone on.
    void AnnounceDeselected(int row, int column);

    // Keys and mouse (akGridInput.cpp).
    LabelPlace LabelAt(const QPoint& pixel) const;
    const GridLabel* LabelOf(const LabelPlace& place) const;
    void ClickLabel(const LabelPlace& place);
    void ClickCell(size_t index);
    bool ShowToolTip(QEvent* event);

    ColumnStrings strings_;
    std::vector<GridColumn> columns_;
    GridRowStore store_;
    std::vector<GridLabel> headings_;
    std::vector<GridLabel> cells_;
    QScrollBar* scrollBar_ = nullptr;

    int rows_ = 0;
    qint16 visibleRows_ = 0;
    int topOffset_ = 0;
    int currentRow_ = 0;
    int currentColumn_ = 0;
    int selectType_ = 0;
    Colour selectColour_ = RGB(255, 255, 150);
    Colour backColor_ = SystemColours::ApplicationWorkspace;
    qint16 rowSelectorWidth_ = 255;
    qint16 lastHeight_ = 0;
    bool bulkAdd_ = false;
    bool enabled_ = false;
    bool shown_ = false;
    LabelPlace pressed_;
};

}  // namespace controls
