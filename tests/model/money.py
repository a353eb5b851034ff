"""Money: fixed-point currency with four decimals, held as a Decimal, and how statements write numbers."""

from decimal import ROUND_HALF_EVEN, Context, Decimal

_TEN_THOUSANDTH = Decimal("0.0001")
_CENT = Decimal("0.01")
_LARGEST_SCALED = 2 ** 63 - 1
_EXACT = Context(prec=60, rounding=ROUND_HALF_EVEN)


class CurrencyOverflow(Exception):
    """An amount that currency can't hold."""


def currency_of_double(number):
    """The double as currency. The scaled double is rounded, ties to even."""
    if abs(number) * 10000.0 > float(_LARGEST_SCALED):
        raise CurrencyOverflow(repr(number))
    return Decimal(round(number * 10000.0)) * _TEN_THOUSANDTH


def currency_of_decimal(number):
    """A decimal as currency, rounded to four decimals with ties to even."""
    rounded = number.quantize(_TEN_THOUSANDTH, context=_EXACT)
    if abs(rounded) * 10000 > _LARGEST_SCALED:
        raise CurrencyOverflow(str(number))
    return rounded


def round_double_to_cents(number):
    """Two decimals, ties to even, worked out on the double as it stands."""
    return round(number * 100.0) / 100.0


def round_currency_to_cents(amount):
    return amount.quantize(_CENT, context=_EXACT)


def currency_text(amount):
    """Decimal text without thousands separators and without trailing zeros."""
    text = format(amount, "f")
    if "." in text:
        text = text.rstrip("0").rstrip(".")
    return "0" if text in ("-0", "") else text


def double_text(number):
    """Decimal text of up to 15 significant digits, with an exponent where the number is far from 1."""
    text = format(number, ".15G")
    return "0" if text == "-0" else text
