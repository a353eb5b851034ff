#include "date/NaiveDays.h"

#include <QRegularExpression>

#include <cmath>

namespace {

bool IsLeap(int year) {
    return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
}

int DaysIn(int year, int month) {
    if (month == 2) {
        return IsLeap(year) ? 29 : 28;
    }
    return month == 4 || month == 6 || month == 9 || month == 11 ? 30 : 31;
}

bool Exists(PlainDay day) {
    return day.year >= 100 && day.year <= 9999;
}

PlainDay NextDay(PlainDay day) {
    if (++day.day > DaysIn(day.year, day.month)) {
        day.day = 1;
        if (++day.month > 12) {
            day.month = 1;
            ++day.year;
        }
    }
    return day;
}

PlainDay DayBefore(PlainDay day) {
    if (--day.day < 1) {
        if (--day.month < 1) {
            day.month = 12;
            --day.year;
        }
        day.day = DaysIn(day.year, day.month);
    }
    return day;
}

/// 0 for Sunday. Counted on from Saturday, 1 January 2000, in whole years.
int Weekday(int year, int month, int day) {
    int days = 6;
    for (int y = 2000; y < year; ++y) {
        days += IsLeap(y) ? 366 : 365;
    }
    for (int y = year; y < 2000; ++y) {
        days -= IsLeap(y) ? 366 : 365;
    }
    for (int m = 1; m < month; ++m) {
        days += DaysIn(year, m);
    }
    days += day - 1;
    return (days % 7 + 7) % 7;
}

}  // namespace

double NaiveNumber(const QString& text) {
    static const QRegularExpression beginning(QStringLiteral("^\\s*([+-]?[0-9]*\\.?[0-9]*)"));
    bool isNumber = false;
    const double number = beginning.match(text).captured(1).toDouble(&isNumber);
    return isNumber ? number : 0;
}

int NaiveHalfToEven(int numerator, int denominator) {
    const int down = numerator / denominator;
    const int twice = 2 * (numerator - down * denominator);
    if (twice == denominator) {
        return down % 2 == 0 ? down : down + 1;
    }
    return twice > denominator ? down + 1 : down;
}

QString NaiveMonth(int month) {
    static const char* names[] = {"January", "February", "March",     "April",   "May",      "June",
                                  "July",    "August",   "September", "October", "November", "December"};
    return QString::fromLatin1(names[month - 1]);
}

int NaiveCell(int year, int month, int column, int row) {
    if (year < 100 || year > 9999) {
        return -1;
    }
    const int first = Weekday(year, month, 1);
    const int rowsBefore = first == 0 ? 1 : 0;
    const int day = (row - 1 - rowsBefore) * 7 + column - first;
    return day >= 1 && day <= DaysIn(year, month) ? day : -1;
}

PlainDay NaiveCompose(const QString& day, const QString& month, const QString& year, PlainDay stored) {
    PlainDay date = stored;
    static const QRegularExpression digits(QStringLiteral("^[0-9]+$"));
    if (digits.match(year).hasMatch() && Exists({year.toInt(), 1, 1})) {
        date = {year.toInt(), 1, 1};
    }
    PlainDay moved = date;
    for (double days = std::nearbyint(NaiveNumber(day) - 1); days != 0; days += days > 0 ? -1 : 1) {
        moved = days > 0 ? NextDay(moved) : DayBefore(moved);
    }
    if (Exists(moved)) {
        date = moved;
    }
    moved = date;
    for (double months = std::nearbyint(NaiveNumber(month) - 1); months != 0; months += months > 0 ? -1 : 1) {
        moved.month += months > 0 ? 1 : -1;
        if (moved.month == 13) {
            moved.month = 1;
            ++moved.year;
        }
        if (moved.month == 0) {
            moved.month = 12;
            --moved.year;
        }
    }
    moved.day = std::min(moved.day, DaysIn(moved.year, moved.month));
    return Exists(moved) ? moved : date;
}
