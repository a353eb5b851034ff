"""The database of the model: tables with typed columns, statements run on them, and row sets over them."""

from decimal import Decimal
from typing import NamedTuple

from calendar_rules import Day
from dialect import (Column, Delete, Insert, InsertSelect, Junction, Literal, NullTest, Select,
                     SyntaxFailure, Update, parse)
from money import CurrencyOverflow, currency_of_decimal, currency_of_double
from utf16 import to_stored_text, to_units

TEXT_KINDS = ("TEXT", "MEMO")
WHOLE_NUMBER_KINDS = ("BYTE", "SHORT", "LONG")
NUMBER_KINDS = (*WHOLE_NUMBER_KINDS, "CURRENCY", "SINGLE", "DOUBLE", "BOOLEAN")


class EngineFailure(Exception):
    """The engine refuses an operation. The record access layer reports it, others let it end the process."""


class OutsideTheRules(Exception):
    """A portfolio leads where the rules say nothing. The generator has to stay away from it."""


class ColumnType(NamedTuple):
    name: str
    kind: str
    size: int = 0


class Table:
    """`rows` stand in the order of their insertion; each is a dict from a column's name in lower case."""

    def __init__(self, columns):
        self.columns = columns
        self.by_name = {column.name.lower(): column for column in columns}
        self.rows = []

    def column(self, name):
        if name.lower() not in self.by_name:
            raise EngineFailure(f"no column {name}")
        return self.by_name[name.lower()]


def stored(column, value):
    """The value in the form in which the column holds it."""
    if value is None:
        return None
    if column.kind in TEXT_KINDS and isinstance(value, str):
        if column.kind == "TEXT" and len(value) > column.size:
            raise EngineFailure(f"{column.name} is too small")
        return to_units(to_stored_text(value))
    if column.kind == "DATETIME" and isinstance(value, Day):
        return value
    if column.kind == "BOOLEAN" and isinstance(value, (bool, int)):
        return -1 if value else 0
    if column.kind == "DOUBLE" and isinstance(value, (int, float, Decimal)):
        return float(value)
    if column.kind == "CURRENCY" and isinstance(value, (int, float, Decimal)):
        try:
            return currency_of_decimal(value) if isinstance(value, Decimal) else currency_of_double(value)
        except CurrencyOverflow as failure:
            raise EngineFailure(f"{column.name} can't hold {value}") from failure
    if column.kind == "SINGLE" and value == 0:
        return 0.0
    if column.kind in WHOLE_NUMBER_KINDS and isinstance(value, (int, Decimal)) and value == int(value):
        return int(value)
    raise OutsideTheRules(f"{value!r} in {column.name}, a {column.kind}")


def _kind_of_value(value):
    if isinstance(value, str):
        return "text"
    return "date" if isinstance(value, Day) else "number"


def _kind_of_column(column):
    if column.kind in TEXT_KINDS:
        return "text"
    return "date" if column.kind == "DATETIME" else "number"


class _Condition:
    """A where clause bound to one table."""

    def __init__(self, table, condition):
        self._table = table
        self._condition = condition
        self._check(condition)

    def holds(self, row):
        return self._condition is None or self._holds(self._condition, row)

    def _check(self, condition):
        if condition is None:
            return
        if isinstance(condition, Junction):
            for part in condition.parts:
                self._check(part)
            return
        column = self._table.column(condition.column.name)
        if isinstance(condition, NullTest):
            return
        if isinstance(condition.other, Column):
            other_kind = _kind_of_column(self._table.column(condition.other.name))
        elif condition.other.value is None:
            return
        else:
            other_kind = _kind_of_value(condition.other.value)
        if other_kind != _kind_of_column(column):
            raise OutsideTheRules(f"{column.name} is compared with a {other_kind}")

    def _holds(self, condition, row):
        if isinstance(condition, Junction):
            results = (self._holds(part, row) for part in condition.parts)
            return all(results) if condition.word == "and" else any(results)
        value = row[condition.column.name]
        if isinstance(condition, NullTest):
            return (value is None) == condition.wants_null
        return _compare(value, condition, row)


def _compare(value, comparison, row):
    other = (row[comparison.other.name] if isinstance(comparison.other, Column)
             else comparison.other.value)
    if value is None or other is None:
        return False
    if isinstance(other, str):
        # Text compares by characters, not by the halves in which the model holds them.
        value, other = to_stored_text(value), to_stored_text(other)
    return {"=": value == other, "<>": value != other, "<": value < other, "<=": value <= other,
            ">": value > other, ">=": value >= other}[comparison.operator]


class TableStore:
    def __init__(self, tables):
        self.tables = tables

    def table(self, name):
        if name not in self.tables:
            raise EngineFailure(f"no table {name}")
        return self.tables[name]

    def execute(self, statement):
        parsed = _parsed(statement)
        table = self.table(parsed.table)
        if isinstance(parsed, Delete):
            condition = _Condition(table, parsed.condition)
            table.rows[:] = [row for row in table.rows if not condition.holds(row)]
        elif isinstance(parsed, Update):
            self._update(table, parsed)
        elif isinstance(parsed, Insert):
            self._insert(table, parsed.columns, [parsed.values], None)
        elif isinstance(parsed, InsertSelect):
            source = self.table(parsed.select.table)
            condition = _Condition(source, parsed.select.condition)
            for item in parsed.select.items:
                if isinstance(item, Column):
                    source.column(item.name)
            if len(parsed.select.items) != len(parsed.columns):
                raise EngineFailure("as many values as columns are needed")
            rows = [row for row in source.rows if condition.holds(row)]
            self._insert(table, parsed.columns, [parsed.select.items] * len(rows), rows)
        else:
            raise EngineFailure("a select can't be executed")

    def open_rows(self, statement):
        parsed = _parsed(statement)
        if not isinstance(parsed, Select):
            raise EngineFailure("no select")
        table = self.table(parsed.table)
        if parsed.items is not None:
            for item in parsed.items:
                if isinstance(item, Column):
                    table.column(item.name)
        condition = _Condition(table, parsed.condition)
        rows = [row for row in table.rows if condition.holds(row)]
        for name, runs_down in reversed(parsed.order):
            table.column(name)
            rows.sort(key=lambda row: row[name], reverse=runs_down)
        return RowSet(table, rows)

    def _update(self, table, parsed):
        settings = {name: stored(table.column(name), literal.value) for name, literal in parsed.settings}
        condition = _Condition(table, parsed.condition)
        for row in table.rows:
            if condition.holds(row):
                row.update(settings)

    def _insert(self, table, names, lists_of_items, sources):
        columns = [table.column(name) for name in names]
        new_rows = []
        for place, items in enumerate(lists_of_items):
            if len(items) != len(columns):
                raise EngineFailure("as many values as columns are needed")
            row = {column.name.lower(): None for column in table.columns}
            for column, item in zip(columns, items):
                value = item.value if isinstance(item, Literal) else sources[place][item.name]
                row[column.name.lower()] = stored(column, value)
            new_rows.append(row)
        table.rows.extend(new_rows)


_statements = {}


def _parsed(statement):
    if statement not in _statements:
        try:
            parsed = parse(statement)
        except SyntaxFailure as failure:
            parsed = failure
        if len(_statements) > 10000:
            _statements.clear()
        _statements[statement] = parsed
    if isinstance(_statements[statement], SyntaxFailure):
        raise EngineFailure(str(_statements[statement]))
    return _statements[statement]


class RowSet:
    """Rows of one table, walked forwards, with one row at a time being added or edited."""

    def __init__(self, table, rows):
        self._table = table
        self._rows = rows
        self._place = 0
        self._buffer = None
        self._is_new = False

    @property
    def columns(self):
        return self._table.columns

    def is_empty(self):
        return not self._rows

    def is_at_end(self):
        return self._place >= len(self._rows)

    def _current(self):
        if self.is_at_end():
            raise EngineFailure("no current record")
        return self._rows[self._place]

    def get(self, name):
        self._table.column(name)
        row = self._current() if self._buffer is None else self._buffer
        return row[name.lower()]

    def set(self, name, value):
        self._table.column(name)
        if self._buffer is None:
            raise EngineFailure("no row is being edited")
        self._buffer[name.lower()] = value

    def add_new(self):
        self._buffer = {column.name.lower(): None for column in self._table.columns}
        self._is_new = True

    def edit(self):
        self._buffer = dict(self._current())
        self._is_new = False

    def update(self):
        if self._buffer is None:
            raise EngineFailure("no row is being edited")
        row = {name: stored(self._table.by_name[name], value) for name, value in self._buffer.items()}
        if self._is_new:
            self._table.rows.append(row)
        else:
            self._current().update(row)
        self._buffer = None

    def cancel_update(self):
        self._buffer = None

    def delete(self):
        gone = self._current()
        self._table.rows[:] = [row for row in self._table.rows if row is not gone]

    def move_next(self):
        self._current()
        self._buffer = None
        self._place += 1
