#pragma once

#include <QString>

#include <array>
#include <cstdint>
#include <optional>

namespace controls {

/// Where things stand on the open calendar, in twips from the top left of the date control. Drawing and
/// clicking both go by these numbers.
namespace CalendarPlaces {
inline constexpr int Width = 2500;
inline constexpr int HeightWithNone = 2160;
inline constexpr int HeightWithoutNone = 1960;
inline constexpr int GridLeft = 25;
inline constexpr int ColumnWidth = 350;
inline constexpr int GridTop = 800;
inline constexpr int RowHeight = 190;
inline constexpr int GridEnd = 1940;
inline constexpr int TitleLine = 350;
inline constexpr int DayNameLine = 600;
}  // namespace CalendarPlaces

/// The days of one month by weekday and week: DayGrid[column][row], column 1 for Sunday to 7 for Saturday,
/// rows from 1 to 6. -1 where there is no day. Column 0 and row 0 always hold 0: a click on the left margin
/// or the top edge of the grid finds them.
inline constexpr int DayColumns = 7;
inline constexpr int DayRows = 6;
using DayGrid = std::array<std::array<std::int16_t, DayRows + 1>, DayColumns + 1>;

/// A month on show. The year has 16 bits, so that there is always one more to step to within them; a step
/// beyond them stays where it is.
struct CalendarMonth {
    int month = 1;
    int year = 2000;
};

CalendarMonth MonthBefore(CalendarMonth shown);
CalendarMonth MonthAfter(CalendarMonth shown);
CalendarMonth YearBefore(CalendarMonth shown);
CalendarMonth YearAfter(CalendarMonth shown);

/// A month that begins on a Sunday leaves row 1 empty and starts in row 2. A month of a year outside 100 to
/// 9999 has no days.
DayGrid BuildDayGrid(CalendarMonth shown);

/// English whatever the locale is, as all texts of the wizard are. Empty for what is no month (1 to 12), no
/// weekday (1 for Sunday to 7).
QString MonthName(int month);
QString DayName(int weekday);

/// "March 2009".
QString MonthTitle(CalendarMonth shown);

struct CalendarCell {
    int column = 0;
    int row = 0;
};

/// The cell of the grid that a click at (X, Y) meant: the nearest one, a half to the even neighbour. Nothing
/// for a click above or below the grid, and for one in the last 25 twips at the right edge, where an eighth
/// column would be.
std::optional<CalendarCell> CellAt(int X, int Y);

}  // namespace controls
