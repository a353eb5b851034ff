#pragma once

#include "controls/base/Canvas.h"
#include "controls/date/Calendar.h"

namespace controls {

/// What an open calendar shows, as it was when it was last redrawn.
struct CalendarPicture {
    CalendarMonth shown;
    DayGrid days{};
    /// The day with the yellow disc: the one in the boxes, if its month is on show.
    std::optional<int> markedDay;
    bool IncludeNone = false;
    /// Height in twips of the closed control, which lies above the calendar.
    int closedHeight = 0;
};

/// The height in twips of the control with its calendar open.
int OpenHeight(bool IncludeNone);

/// The band with the month's title and the day names, the white ground below it, frame and shadow.
void DrawFrame(PaintedCanvas& canvas, const CalendarPicture& picture);

/// The days, the disc behind the marked one, and the row "<None>".
void DrawDays(PaintedCanvas& canvas, const CalendarPicture& picture);

/// The top left of a day's cell, and of the row "<None>", in twips.
struct TwipsPoint {
    int left;
    int top;
};
TwipsPoint CellPlace(CalendarCell cell);
int NoneLine(bool IncludeNone);

}  // namespace controls
