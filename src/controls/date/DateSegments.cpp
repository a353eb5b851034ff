#include "controls/date/DateSegments.h"

#include "controls/base/LeadingNumber.h"
#include "platform/Failure.h"
#include "platform/Locale.h"
#include "platform/Rounding.h"

#include <algorithm>
#include <cstdlib>
#include <optional>

namespace controls {

namespace {

QString WithDigits(int number, int digits) {
    const QString plain = QString::number(std::abs(number)).rightJustified(digits, QLatin1Char('0'));
    return number < 0 ? QLatin1Char('-') + plain : plain;
}

/// Only a plain whole number is a year. Leaving the box has completed shorter ones by then; what still is
/// short has been typed with leading zeroes or pasted, and guessing a century for it would store a date that
/// stands nowhere on the screen.
std::optional<int> YearOf(const QString& text) {
    const bool plain = !text.isEmpty() && std::all_of(text.begin(), text.end(), [](QChar c) {
        return c >= QLatin1Char('0') && c <= QLatin1Char('9');
    });
    bool fits = false;
    const int year = plain ? text.toInt(&fits) : 0;
    return fits && year >= FirstYear && year <= LastYear ? std::optional(year) : std::nullopt;
}

/// How many whole steps lie between the first (day or month) and the one in the text.
std::optional<int> StepsFromFirst(const QString& text) {
    try {
        return platform::ToInteger(LeadingNumber(text) - 1);
    } catch (const platform::Failure&) {
        return std::nullopt;
    }
}

}  // namespace

SegmentOrder FindDateOrder() {
    switch (platform::ShortDateOrder()) {
        case platform::DateOrder::MonthDayYear:
            return {.DayIndex = 2, .MonthIndex = 1, .YearIndex = 3};
        case platform::DateOrder::DayMonthYear:
            return {.DayIndex = 1, .MonthIndex = 2, .YearIndex = 3};
        case platform::DateOrder::YearMonthDay:
            break;
    }
    return {.DayIndex = 3, .MonthIndex = 2, .YearIndex = 1};
}

SegmentTexts TextsOf(int day, int month, int year) {
    return {.day = WithDigits(day, 2), .month = WithDigits(month, 2), .year = WithDigits(year, 4)};
}

QString CorrectedDay(const QString& text) {
    const double number = LeadingNumber(text);
    if (number > 31) {
        return QStringLiteral("31");
    }
    return number < 1 ? QStringLiteral("1") : text;
}

QString CorrectedMonth(const QString& text) {
    const double number = LeadingNumber(text);
    if (number > 12) {
        return QStringLiteral("12");
    }
    return number < 0 ? QStringLiteral("1") : text;
}

QString CorrectedYear(const QString& text) {
    // Two digits mean the century around the turn of the millennium.
    constexpr double FirstOfLastCentury = 50;
    switch (text.length()) {
        case 0:
            return QStringLiteral("2000");
        case 1:
            return QStringLiteral("200") + text;
        case 2:
            return (LeadingNumber(text) < FirstOfLastCentury ? QStringLiteral("20") : QStringLiteral("19")) +
                   text;
        case 3:
            return text + QLatin1Char('0');
        default:
            return text;
    }
}

bool IsInRange(QDate date) {
    return date.isValid() && date.year() >= FirstYear && date.year() <= LastYear;
}

QDate DateFromTexts(const SegmentTexts& texts, QDate stored) {
    QDate date = stored;
    const auto takeIfInRange = [&date](QDate next) {
        if (IsInRange(next)) {
            date = next;
        }
    };
    if (const auto year = YearOf(texts.year)) {
        takeIfInRange(QDate(*year, 1, 1));
    }
    if (const auto days = StepsFromFirst(texts.day)) {
        takeIfInRange(date.addDays(*days));
    }
    if (const auto months = StepsFromFirst(texts.month)) {
        takeIfInRange(date.addMonths(*months));
    }
    return date;
}

}  // namespace controls
