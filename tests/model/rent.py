"""The rent periods of a tenancy, and how a month's rent is shared out when a tenancy starts within it."""

from decimal import Decimal
from typing import NamedTuple

from calendar_rules import (Day, add_days, add_months, add_weeks, add_years, days_counting_both,
                            is_no_date)
from money import (CurrencyOverflow, currency_of_decimal, currency_of_double, round_currency_to_cents,
                   round_double_to_cents)


class RentPeriod(NamedTuple):
    first: Day
    last: Day
    rent: Decimal


class RentTerms(NamedTuple):
    start: Day
    end: Day
    rent: Decimal
    frequency: str
    number: int
    month_day: int


def rent_split(period_from, period_to, end, rent):
    """The rent of the days up to and with `end`, and the rent of the remaining days of the period."""
    share = days_counting_both(period_from, end) / days_counting_both(period_from, period_to)
    first = currency_of_double(round_double_to_cents(float(rent) * share))
    return first, round_currency_to_cents(currency_of_decimal(rent - first))


def _next_by_month_day(start, month_day):
    if start.day < month_day:
        following = add_days(start, month_day - start.day)
    else:
        following = add_days(add_months(start, 1), month_day - start.day)
    return following if start < following else add_days(start, 1)


def _monthly_period(start, terms):
    if start.day == terms.month_day:
        return add_months(start, 1), terms.rent
    following = _next_by_month_day(start, terms.month_day)
    try:
        _, rent = rent_split(add_months(following, -1), add_days(following, -1), add_days(start, -1),
                             terms.rent)
    except CurrencyOverflow:
        rent = terms.rent
    return following, rent


def _period_after(start, terms):
    """The first day after the period that starts then, and the rent of the period."""
    if terms.frequency == "Day":
        return add_days(start, terms.number), terms.rent
    if terms.frequency == "Week":
        return add_weeks(start, terms.number), terms.rent
    if terms.frequency == "Year":
        return add_years(start, terms.number), terms.rent
    if terms.number != 1:
        return add_months(start, terms.number), terms.rent
    return _monthly_period(start, terms)


def rent_periods(terms, today):
    """The periods from the start up to today or the end, at least one of them."""
    stop = today if is_no_date(terms.end) else terms.end
    start = terms.start
    is_forced = True
    while is_forced or start <= stop:
        following, rent = _period_after(start, terms)
        yield RentPeriod(start, add_days(following, -1), rent)
        start = following
        is_forced = False
