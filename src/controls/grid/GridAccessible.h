#pragma once

#include <QAccessible>

namespace controls {

class akGrid;

/// From here on assistive programs see each list as a table: its column headers, then all its cells row by
/// row, those out of view too, and last the scroll bar. A cell's name is its text; pressing it brings it into
/// view and makes it current. Pressing a header is a click on it.
void RegisterGridAccessible();

/// Tells them that a cell has become the current one. Row and column are absolute and counted from 1.
void AnnounceCell(akGrid& grid, int row, int column);

/// Tells them that a cell isn't selected any more.
void AnnounceCellDeselected(akGrid& grid, int row, int column);

/// Tells them that a row (counted from 0) came or went, or without a row that all may be different now.
void AnnounceRows(akGrid& grid, QAccessibleTableModelChangeEvent::ModelChangeType change, int row = -1);

}  // namespace controls
