#pragma once

#include "controls/base/Font.h"

#include <QString>

#include <vector>

namespace controls {

/// How a column's cells are written. The numbers are those of the alignments string.
enum class GridAlignment { Left = 0, Right = 1, Centre = 2 };

/// One column of a list.
struct GridColumn {
    QString Heading;
    int Width = 1500;  ///< Twips, a whole number of pixels and never negative. 0 hides the column.
    int Left = 0;      ///< Twips from the list's left edge to the heading, set when the columns are laid out.
    QString FontName = QString::fromUtf16(UsualFontName);  ///< Of the cells, not of the heading.
    GridAlignment Alignment = GridAlignment::Left;
    bool Hyperlink = false;  ///< The cells look and act as links.
};

/// What a form says of its list's columns: four texts with one token a column and a "|" behind each token.
struct ColumnStrings {
    QString Headings;
    QString Widths;      ///< Twips.
    QString Alignments;  ///< As numbered in GridAlignment; others are taken as the nearest of them.
    QString Hyperlinks;  ///< Any number but 0 makes links.

    bool operator==(const ColumnStrings&) const = default;
};

/// The columns that the four texts describe. The headings alone decide how many there are, and there is
/// always one at least: tokens beyond the last column are ignored, and a column without a token keeps what a
/// GridColumn starts with. A token that doesn't begin with a number counts as 0, so such a width hides its
/// column. Widths are cut to whole pixels.
///
/// Each text gets the "|" that is missing at its end, and that is kept even if what follows fails: failure 6
/// (overflow) for a width or an alignment beyond 32 bits.
std::vector<GridColumn> ParseColumnStrings(ColumnStrings& strings, int twipsPerPixel);

/// A cell's text as it is shown: a blank keeps it off the grid line that it stands against.
QString PaddedText(const QString& text, GridAlignment alignment);

}  // namespace controls
