#pragma once

#include "date/NaiveDate.h"

/// The arithmetic behind NaiveDate, with a calendar of its own that counts day by day.

/// The number that a text begins with.
double NaiveNumber(const QString& text);

/// A fraction of whole numbers to the nearest whole number, a half to the even one. Numerator not below 0.
int NaiveHalfToEven(int numerator, int denominator);

QString NaiveMonth(int month);

/// The day in a cell of the month's page, column 1 for Sunday, with the first row left empty if the month
/// begins on a Sunday; -1 for none.
int NaiveCell(int year, int month, int column, int row);

/// The date that the boxes tell, step by step from the stored one; a step that fails is left out.
PlainDay NaiveCompose(const QString& day, const QString& month, const QString& year, PlainDay stored);
