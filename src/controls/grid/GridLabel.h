#pragma once

#include "controls/base/Colour.h"
#include "controls/grid/GridColumn.h"

#include <QCursor>
#include <QRect>
#include <QString>

class QPainter;

namespace controls {

enum class GridBorder { None, SingleLine };

/// A heading or a cell of a list as it is seen. Labels are plain data, which the list paints all at once: a
/// step through the list changes their captions and moves nothing.
struct GridLabel {
    QString Caption;  ///< Plain text on one line, cut off at the label's edge.
    QString ToolTip;
    Colour BackColour = White;
    Colour TextColour = Black;
    int Left = 0;  ///< Twips from the list's top left, as all lengths here.
    int Top = 0;
    int Width = 0;
    int Height = 0;
    GridAlignment Alignment = GridAlignment::Left;
    GridBorder Border = GridBorder::None;
    QString FontName = QString::fromUtf16(UsualFontName);
    bool Underlined = false;
    QCursor Pointer;
    bool Visible = false;

    /// A text too long for its column can be read in the tool tip, so the two go together.
    void SetCaption(const QString& caption);

    /// The pixels that the label covers.
    QRect Pixels() const;
};

/// A heading before the columns are laid out.
GridLabel NewHeadingLabel();
/// A cell before the rows are laid out: white, 210 high, hidden.
GridLabel NewCellLabel();

enum class GridLook { Enabled, Disabled };

/// Draws a visible label. On a disabled list the text is grey.
void DrawLabel(QPainter* painter, const GridLabel& label, GridLook look);

}  // namespace controls
