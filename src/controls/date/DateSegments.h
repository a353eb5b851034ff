#pragma once

#include <QDate>
#include <QString>

namespace controls {

/// Which of the three boxes of a date, counted from 1, holds what. The user finds them in the order in which
/// his locale writes dates; the rules of a box follow what it holds and not where it stands.
struct SegmentOrder {
    int DayIndex = 1;
    int MonthIndex = 2;
    int YearIndex = 3;

    bool IsYearFirst() const { return YearIndex == 1; }
};

/// The order of the user's locale, told by what its short date begins with.
SegmentOrder FindDateOrder();

/// The texts of the three boxes.
struct SegmentTexts {
    QString day;
    QString month;
    QString year;
};

/// A date's parts as the boxes show them: day and month with at least 2 digits, the year with at least 4.
SegmentTexts TextsOf(int day, int month, int year);

/// What becomes of a text when the user leaves its box. Texts are read by their leading number, so that "1."
/// is 1 and an empty box is 0.
///
/// A day above 31 becomes "31", one below 1 becomes "1".
QString CorrectedDay(const QString& text);
/// A month above 12 becomes "12", one below 0 becomes "1". 0 stands: it means the December before.
QString CorrectedMonth(const QString& text);
/// A year of fewer than four characters is completed: "" is 2000, "9" 2009, "49" 2049, "50" 1950, "199" 1990.
QString CorrectedYear(const QString& text);

/// The years of the dates that the boxes can hold and read back. A year box takes four characters, and a
/// year of fewer than three digits is an abbreviation.
inline constexpr int FirstYear = 100;
inline constexpr int LastYear = 9999;

/// Whether the boxes can hold the date.
bool IsInRange(QDate date);

/// The date that the boxes tell, as it is stored when the user leaves the control: 1 January of the year,
/// then the days added, then the months, where the day is held back to the last of a shorter month. The days
/// go onto January, so that the 31 of February 2009 is the 28.
///
/// A step that can't be done (a year that is no whole number from 100 to 9999, a date outside those years)
/// is left out, and the next one goes on from the stored date.
QDate DateFromTexts(const SegmentTexts& texts, QDate stored);

}  // namespace controls
