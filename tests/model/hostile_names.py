"""300 names that somebody might choose to do harm, each as an account, an owner, an address and a tenant."""

import random

from awkward_names import cut_units
from calendar_rules import Day
from random_portfolios import Scenario
from utf16 import to_units

COUNT = 300
PORTFOLIOS = 15
_LONGEST = 30
_TODAY = Day(2026, 11, 21)

_FRAGMENTS = (
    # What ends a text or a name, and what begins one.
    "'", "''", "'''", '"', '""', "`", "[", "]", "]]", "[]", "\\'", "\\", "\u2019", "\u02bc", "\uff07", "\u201c",
    # Statements, and parts of them.
    "'; delete from owner; --", "' or 1=1 --", "' or ''='", "'); drop table owner", "' union select * from owner",
    "]; delete from owner", "] where 1=1 --", '" or ""="', "x', 'y', 'z", "', 0, 0), ('", "' where 'a'='a",
    "null", "select", "rowid", "-1", "true", "false", "untrue", "date()", "char(39)", "sqlite_master", "and", " or ",
    # Comments, wild cards, places for values.
    "--", "-- ", "/*", "*/", "#", ";", "%", "_", "*", "?", "?1", ":a", "@a", "$a", "{0}", "%1", "%s", "%n",
    # What looks like a date or a number.
    "#1/2/2026#", "2026-11-21", "21/11/2026", "1e999", "0x7F", "007", "-0", "1,5", ".5", "NaN", "inf", "1_000",
    # What is shown otherwise than it is stored.
    "\u202e", "\u202d", "\u200f", "\u200b", "\u2066", "\ufeff", "\u0301", "\u00ad", "\ufffd", "\uffff", "\ufffe",
    "\u05d0\u05d1", "\u0627\u0644", "\u0130", "\u0131", "\u00df", "\u017f", "\u212a", "\u1e9e", "\ufb01",
    "\u3000", "\u00a0", "\u0085", "\u2028", "\x7f",
    # Two units each.
    "\U0001f600", "\U0001d518", "\U0010ffff", "\U00020000", "\U0001f1f3\U0001f1ff", "\U0001f468\u200d\U0001f469")


def hostile_names(seed):
    """The names, no two equal without regard to case, of at most 30 UTF-16 units each."""
    source = random.Random(f"hostile names {seed}")
    names = {}
    candidates = _candidates(source)
    while len(names) < COUNT:
        name = cut_units(next(candidates), _LONGEST)
        if name:
            names.setdefault(name.casefold(), name)
    return list(names.values())


def _candidates(source):
    yield from _FRAGMENTS
    # Full length, with characters of two units across every place where a code is cut.
    for astral in ("\U0001f600", "\U0001d518"):
        for before in ("", "x"):
            yield before + astral * 15
    while True:
        kind = source.randrange(4)
        if kind == 0:
            yield "".join(source.choice(_FRAGMENTS) for _ in range(source.randint(2, 6)))
        elif kind == 1:
            # Something of interest just where the codes end, after 10 and after 20 units.
            end = source.choice((10, 20)) - source.randint(0, 2)
            start = cut_units(source.choice(_FRAGMENTS) * 30, end)
            filled = start + "x" * (end - len(to_units(start)))
            yield filled + source.choice(_FRAGMENTS) + str(source.randint(0, 9))
        elif kind == 2:
            yield source.choice(_FRAGMENTS) * source.randint(2, 30)
        else:
            yield f"Bo{source.choice(_FRAGMENTS)}b{source.choice(_FRAGMENTS)} {source.randint(0, 99)}"


def hostile_scenario(seed, number):
    """One of the portfolios that bear all the names between them."""
    names = hostile_names(seed)[number % PORTFOLIOS::PORTFOLIOS]
    source = random.Random(f"{seed}/{number}")
    others = names[1:] + names[:1]
    properties = [{"Address1": name, "Address2": other, "Owner": other, "BankAccount": name}
                  for name, other in zip(names, others)]
    return Scenario({
        "UserType": "Manager",
        "LastDisbursement": "2026-10-31",
        "BankAccounts": [{"BankAccountName": name} for name in names],
        "Owners": [{"OwnersName": name} for name in names],
        "Properties": properties,
        "Tenants": [{"Name": name, "PropertyName": source.choice(names), "StartDate": "2026-10-02",
                     "CurrentRent": source.randint(1, 90000) / 100, "Setbalance": source.random() < 0.8,
                     "BalanceAmount": source.randint(-9000, 90000) / 100, "BondHeld": source.choice((0, 100.5))}
                    for name in names]}, _TODAY)
