#pragma once

#include <QDate>

namespace platform {

/// The year that stands for "no date was entered". Month and day are of no interest.
inline constexpr int NoDateYear = 1234;

/// Today's date moved to the year 1234, as the date control gives it.
QDate NoDate();

inline bool IsNoDate(QDate date) {
    return date.year() == NoDateYear;
}

}  // namespace platform
