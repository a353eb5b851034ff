#include "controls/date/Calendar.h"

#include "controls/date/DateSegments.h"
#include "platform/Rounding.h"

#include <limits>

namespace controls {

namespace {

constexpr int MonthsInYear = 12;

CalendarMonth IfItsYearFits(CalendarMonth wanted, CalendarMonth otherwise) {
    using Bits = std::numeric_limits<std::int16_t>;
    return wanted.year >= Bits::min() && wanted.year <= Bits::max() ? wanted : otherwise;
}

/// QDate counts from 1 for Monday to 7 for Sunday.
int WeekdayFromSunday(QDate date) {
    return date.dayOfWeek() % DayColumns + 1;
}

}  // namespace

CalendarMonth MonthBefore(CalendarMonth shown) {
    const CalendarMonth before = shown.month > 1 ? CalendarMonth{shown.month - 1, shown.year}
                                                 : CalendarMonth{MonthsInYear, shown.year - 1};
    return IfItsYearFits(before, shown);
}

CalendarMonth MonthAfter(CalendarMonth shown) {
    const CalendarMonth after = shown.month < MonthsInYear ? CalendarMonth{shown.month + 1, shown.year}
                                                           : CalendarMonth{1, shown.year + 1};
    return IfItsYearFits(after, shown);
}

CalendarMonth YearBefore(CalendarMonth shown) {
    return IfItsYearFits({shown.month, shown.year - 1}, shown);
}

CalendarMonth YearAfter(CalendarMonth shown) {
    return IfItsYearFits({shown.month, shown.year + 1}, shown);
}

DayGrid BuildDayGrid(CalendarMonth shown) {
    DayGrid grid{};
    for (size_t column = 1; column < grid.size(); ++column) {
        for (size_t row = 1; row < grid[column].size(); ++row) {
            grid[column][row] = -1;
        }
    }
    const QDate first(shown.year, shown.month, 1);
    if (!IsInRange(first)) {
        return grid;
    }
    size_t row = 1;
    for (int day = 1; day <= first.daysInMonth(); ++day) {
        const int column = WeekdayFromSunday(first.addDays(day - 1));
        // On the first of the month too, which leaves row 1 empty then. Six rows are enough all the same.
        if (column == 1) {
            ++row;
        }
        grid.at(static_cast<size_t>(column)).at(row) = static_cast<std::int16_t>(day);
    }
    return grid;
}

QString MonthName(int month) {
    static const QString names = QStringLiteral(
        "January  February March    April    May      June     July     August   SeptemberOctober  November "
        "December ");
    constexpr qsizetype Width = 9;
    return month >= 1 ? names.mid((month - 1) * Width, Width).trimmed() : QString();
}

QString DayName(int weekday) {
    static const QString names = QStringLiteral("SunMonTueWedThuFriSat");
    constexpr qsizetype Width = 3;
    return weekday >= 1 ? names.mid((weekday - 1) * Width, Width) : QString();
}

QString MonthTitle(CalendarMonth shown) {
    return MonthName(shown.month) + QLatin1Char(' ') + QString::number(shown.year);
}

std::optional<CalendarCell> CellAt(int X, int Y) {
    using namespace CalendarPlaces;
    if (Y < GridTop || Y > GridEnd) {
        return std::nullopt;
    }
    constexpr double HalfColumn = ColumnWidth / 2.0;
    constexpr double HalfRow = RowHeight / 2.0;
    const int column = platform::ToLong((X - GridLeft + HalfColumn) / ColumnWidth);
    const int row = platform::ToLong((Y - GridTop + HalfRow) / RowHeight);
    if (column < 0 || column > DayColumns) {
        return std::nullopt;
    }
    return CalendarCell{column, row};
}

}  // namespace controls
