"""The shapes of statements that the engine accepts, and what each of them says.

    delete from T [where C]
    update T set column = V, ... [where C]
    insert into T (columns) values (V, ...)
    insert into T (columns) select I, ... from T [where C]
    select * | I, ... from T [where C] [order by column [asc | desc], ...]

V is one literal, I a literal or a column, C comparisons joined by "and", "or" and parentheses. Whatever is
not of these shapes fails as a whole.
"""

import re
from dataclasses import dataclass
from decimal import Decimal
from typing import NamedTuple

from calendar_rules import Day, days_in_month


class SyntaxFailure(Exception):
    """The statement is none that the engine accepts."""


class Literal(NamedTuple):
    """`value` is text, a Decimal, a Day, a bool or None."""

    value: object


class Column(NamedTuple):
    name: str


class Comparison(NamedTuple):
    column: Column
    operator: str
    other: object


class NullTest(NamedTuple):
    column: Column
    wants_null: bool


class Junction(NamedTuple):
    """Conditions joined by "and" or by "or"."""

    word: str
    parts: tuple


@dataclass
class Delete:
    table: str
    condition: object = None


@dataclass
class Update:
    table: str
    settings: list
    condition: object = None


@dataclass
class Insert:
    table: str
    columns: list
    values: list


@dataclass
class Select:
    """`items` is None for all columns; `order` holds pairs of a column and whether it runs down."""

    items: list
    table: str
    condition: object = None
    order: tuple = ()


@dataclass
class InsertSelect:
    table: str
    columns: list
    select: Select


class Token(NamedTuple):
    kind: str
    value: object


_TOKEN = re.compile(
    r"""(?P<blank>[ \t\r\n]+)
    | '(?P<single>(?:[^']|'')*)'
    | "(?P<double>(?:[^"]|"")*)"
    | \#(?P<date>[^#]*)\#
    | \[(?P<bracketed>[^\]]+)\]
    | (?P<number>-?(?:\d+(?:\.\d*)?|\.\d+)(?:[eE][+-]?\d+)?)
    | (?P<name>[^\W\d]\w*)
    | (?P<sign><=|>=|<>|[=<>(),;*])
    """, re.VERBOSE | re.ASCII)
_DATE = re.compile(r"\s*(\d{1,2})([/.-])(\d{1,2})[/.-](\d{4})\s*", re.ASCII)
_COMPARISONS = ("=", "<>", "<", "<=", ">", ">=")
_WORDS_OF_VALUES = {"true": True, "false": False, "null": None}


def _date_of(text):
    match = _DATE.fullmatch(text)
    if not match:
        raise SyntaxFailure(f"no date: {text}")
    month, day, year = int(match[1]), int(match[3]), int(match[4])
    if not (1 <= month <= 12 and year >= 1 and 1 <= day <= days_in_month(year, month)):
        raise SyntaxFailure(f"no date: {text}")
    return Day(year, month, day)


def _tokens(statement):
    tokens = []
    place = 0
    while place < len(statement):
        match = _TOKEN.match(statement, place)
        if not match:
            raise SyntaxFailure(f"unexpected: {statement[place:]}")
        place = match.end()
        kind, text = match.lastgroup, match[match.lastgroup]
        if kind == "single":
            tokens.append(Token("literal", text.replace("''", "'")))
        elif kind == "double":
            tokens.append(Token("literal", text.replace('""', '"')))
        elif kind == "date":
            tokens.append(Token("literal", _date_of(text)))
        elif kind == "number":
            tokens.append(Token("literal", Decimal(text)))
        elif kind != "blank":
            tokens.append(Token(kind, text))
    return tokens


class _Parser:
    def __init__(self, statement):
        self._tokens = _tokens(statement)
        self._place = 0

    def statement(self):
        word = self._word_among("delete", "update", "insert", "select")
        parsed = getattr(self, "_" + word)()
        if self._sign(";") and not self._is_at_end():
            raise SyntaxFailure("text after the end of the statement")
        if not self._is_at_end():
            raise SyntaxFailure("text after the end of the statement")
        return parsed

    def _is_at_end(self):
        return self._place >= len(self._tokens)

    def _next(self):
        if self._is_at_end():
            raise SyntaxFailure("unexpected end")
        self._place += 1
        return self._tokens[self._place - 1]

    def _is_word(self, word):
        return (not self._is_at_end() and self._tokens[self._place].kind == "name"
                and self._tokens[self._place].value.lower() == word)

    def _word(self, word):
        if self._is_word(word):
            self._place += 1
            return True
        return False

    def _need_word(self, word):
        if not self._word(word):
            raise SyntaxFailure(f"{word} expected")

    def _word_among(self, *words):
        for word in words:
            if self._word(word):
                return word
        raise SyntaxFailure("no statement")

    def _sign(self, sign):
        if not self._is_at_end() and self._tokens[self._place] == Token("sign", sign):
            self._place += 1
            return True
        return False

    def _need_sign(self, sign):
        if not self._sign(sign):
            raise SyntaxFailure(f"{sign} expected")

    def _name(self):
        token = self._next()
        if token.kind not in ("name", "bracketed"):
            raise SyntaxFailure("name expected")
        return token.value.lower()

    def _value(self):
        token = self._next()
        if token.kind == "literal":
            return Literal(token.value)
        if token.kind == "name" and token.value.lower() in _WORDS_OF_VALUES:
            return Literal(_WORDS_OF_VALUES[token.value.lower()])
        raise SyntaxFailure("value expected")

    def _item(self):
        start = self._place
        try:
            return self._value()
        except SyntaxFailure:
            self._place = start
            return Column(self._name())

    def _list(self, element):
        elements = [element()]
        while self._sign(","):
            elements.append(element())
        return elements

    def _where(self):
        return self._either() if self._word("where") else None

    def _either(self):
        parts = [self._both()]
        while self._word("or"):
            parts.append(self._both())
        return parts[0] if len(parts) == 1 else Junction("or", tuple(parts))

    def _both(self):
        parts = [self._single()]
        while self._word("and"):
            parts.append(self._single())
        return parts[0] if len(parts) == 1 else Junction("and", tuple(parts))

    def _single(self):
        if self._sign("("):
            inner = self._either()
            self._need_sign(")")
            return inner
        column = Column(self._name())
        if self._word("is"):
            wants_null = not self._word("not")
            self._need_word("null")
            return NullTest(column, wants_null)
        sign = self._next()
        if sign.kind != "sign" or sign.value not in _COMPARISONS:
            raise SyntaxFailure("comparison expected")
        return Comparison(column, sign.value, self._item())

    def _delete(self):
        self._need_word("from")
        return Delete(self._name(), self._where())

    def _setting(self):
        column = self._name()
        self._need_sign("=")
        return column, self._value()

    def _update(self):
        table = self._name()
        self._need_word("set")
        return Update(table, self._list(self._setting), self._where())

    def _insert(self):
        self._need_word("into")
        table = self._name()
        self._need_sign("(")
        columns = self._list(self._name)
        self._need_sign(")")
        if self._word("select"):
            return InsertSelect(table, columns, self._rows_to_copy())
        self._need_word("values")
        self._need_sign("(")
        values = self._list(self._value)
        self._need_sign(")")
        return Insert(table, columns, values)

    def _rows_to_copy(self):
        items = self._list(self._item)
        self._need_word("from")
        return Select(items, self._name(), self._where())

    def _select(self):
        items = None if self._sign("*") else self._list(self._item)
        self._need_word("from")
        select = Select(items, self._name(), self._where())
        if self._word("order"):
            self._need_word("by")
            select.order = tuple(self._list(self._direction))
        return select

    def _direction(self):
        column = self._name()
        if self._word("desc"):
            return column, True
        self._word("asc")
        return column, False


def parse(statement):
    return _Parser(statement).statement()
