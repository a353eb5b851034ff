"""Calendar days and their arithmetic, worked out from the Gregorian rules alone."""

from typing import NamedTuple

NO_DATE_YEAR = 1234

_DAYS_IN_400_YEARS = 146097
_DAYS_BEFORE_MONTH = (0, 31, 59, 90, 120, 151, 181, 212, 243, 273, 304, 334)


class Day(NamedTuple):
    """One day. Days compare by their order in time."""

    year: int
    month: int
    day: int

    def iso(self):
        """The form in which the database file holds a date."""
        return f"{self.year:04d}-{self.month:02d}-{self.day:02d}"

    def as_literal(self):
        """The form in which statements hold a date, month first."""
        return f"#{self.month:02d}/{self.day:02d}/{self.year:04d}#"


def parse_iso(text):
    year, month, day = text.split("-")
    return Day(int(year), int(month), int(day))


def is_leap_year(year):
    return year % 4 == 0 and (year % 100 != 0 or year % 400 == 0)


def days_in_month(year, month):
    if month == 2:
        return 29 if is_leap_year(year) else 28
    return 30 if month in (4, 6, 9, 11) else 31


def _days_before_year(year):
    past = year - 1
    return past * 365 + past // 4 - past // 100 + past // 400


def day_number(day):
    """Days since the last day of the year 0."""
    number = _days_before_year(day.year) + _DAYS_BEFORE_MONTH[day.month - 1] + day.day
    if day.month > 2 and is_leap_year(day.year):
        number += 1
    return number


def day_of_number(number):
    """The day that bears this number."""
    year = number * 400 // _DAYS_IN_400_YEARS + 1
    while _days_before_year(year) >= number:
        year -= 1
    while _days_before_year(year + 1) < number:
        year += 1
    rest = number - _days_before_year(year)
    month = 1
    while rest > days_in_month(year, month):
        rest -= days_in_month(year, month)
        month += 1
    return Day(year, month, rest)


def add_days(day, count):
    return day_of_number(day_number(day) + count)


def add_weeks(day, count):
    return add_days(day, 7 * count)


def add_months(day, count):
    """The same day of the target month, or that month's last day where the month is too short."""
    months = day.year * 12 + (day.month - 1) + count
    year, month = months // 12, months % 12 + 1
    return Day(year, month, min(day.day, days_in_month(year, month)))


def add_years(day, count):
    return add_months(day, 12 * count)


def days_counting_both(first, last):
    """How many days there are from the first to the last, both counted."""
    return day_number(last) - day_number(first) + 1


def no_date(today):
    """What stands for "no date": today, moved to a year that nobody enters."""
    return add_years(today, NO_DATE_YEAR - today.year)


def is_no_date(day):
    return day.year == NO_DATE_YEAR
