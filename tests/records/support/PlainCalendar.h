#pragma once

#include <cstdint>
#include <string>

/// A calendar of its own for checking the one that the program uses: days are counted from an arbitrary first
/// day and dates are worked out from the lengths of months and years.
namespace plain {

struct Day {
    std::int64_t year = 0;
    int month = 1;
    int day = 1;

    auto operator<=>(const Day&) const = default;
};

inline bool IsLeap(std::int64_t year) {
    return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
}

inline int LengthOf(std::int64_t year, int month) {
    if (month == 2) {
        return IsLeap(year) ? 29 : 28;
    }
    return month == 4 || month == 6 || month == 9 || month == 11 ? 30 : 31;
}

/// Days since the last day of the year before year 1. For years from 1 on.
inline std::int64_t Number(Day day) {
    const std::int64_t full = day.year - 1;
    std::int64_t number = full * 365 + full / 4 - full / 100 + full / 400;
    for (int month = 1; month < day.month; ++month) {
        number += LengthOf(day.year, month);
    }
    return number + day.day;
}

inline Day FromNumber(std::int64_t number) {
    Day day;
    day.year = number / 366 + 1;
    while (Number({day.year + 1, 1, 1}) <= number) {
        ++day.year;
    }
    number -= Number({day.year, 1, 1});
    while (number >= LengthOf(day.year, day.month)) {
        number -= LengthOf(day.year, day.month);
        ++day.month;
    }
    day.day = static_cast<int>(number) + 1;
    return day;
}

inline Day AddDays(Day day, std::int64_t count) {
    return FromNumber(Number(day) + count);
}

/// The same day number in the other month, or that month's last day.
inline Day AddMonths(Day day, std::int64_t count) {
    for (; count > 0; --count) {
        day.year += day.month == 12 ? 1 : 0;
        day.month = day.month == 12 ? 1 : day.month + 1;
    }
    for (; count < 0; ++count) {
        day.year -= day.month == 1 ? 1 : 0;
        day.month = day.month == 1 ? 12 : day.month - 1;
    }
    if (day.day > LengthOf(day.year, day.month)) {
        day.day = LengthOf(day.year, day.month);
    }
    return day;
}

}  // namespace plain
