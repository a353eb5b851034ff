"""The thin layer that every read and write of the import passes through. It reports failures and goes on."""

from typing import NamedTuple

from fix_sql import TextBeforeTheStart, fix_sql
from table_store import EngineFailure

_ZERO_KINDS = ("SHORT", "LONG", "CURRENCY", "SINGLE", "DOUBLE")
_KINDS_BY_NUMBER = {"BOOLEAN": 1, "BYTE": 2, "SHORT": 3, "LONG": 4, "CURRENCY": 5, "SINGLE": 6, "DOUBLE": 7,
                    "DATETIME": 8, "TEXT": 10, "LONGBINARY": 11, "MEMO": 12}


class UnhandledFailure(Exception):
    """A failure outside the layer: it ends the process."""


class Report(NamedTuple):
    """A failure that the layer caught: the title of its message, and what its log line ends with."""

    label: str
    extra: str


class RecordAccess:
    def __init__(self, store, today):
        self.store = store
        self.today = today
        self.reports = []
        self.other_messages = []

    def execute(self, statement):
        """Whether the statement ran."""
        fixed = statement
        try:
            fixed = fix_sql(statement)
            self.store.execute(fixed)
        except (EngineFailure, TextBeforeTheStart):
            self.reports.append(Report("Execute SQL", fixed))
            return False
        return True

    def create_set(self, statement):
        """The rows of a select, or None after a failure."""
        fixed = statement
        try:
            fixed = fix_sql(statement)
            return self.store.open_rows(fixed)
        except (EngineFailure, TextBeforeTheStart):
            self.reports.append(Report("Data Create Set", fixed))
            return None

    def add(self, row_set):
        self._on(row_set, "add_new", "Add Record")

    def edit(self, row_set):
        self._on(row_set, "edit", "Edit Record")

    def move_next(self, row_set):
        self._on(row_set, "move_next", "Move Next")

    def update(self, row_set):
        if not self._on(row_set, "update", "Update Record") and row_set is not None:
            row_set.cancel_update()

    def is_at_end(self, row_set):
        return row_set is None or row_set.is_at_end()

    def _on(self, row_set, operation, label):
        try:
            if row_set is None:
                raise EngineFailure("no row set")
            getattr(row_set, operation)()
        except EngineFailure:
            self.reports.append(Report(label, ""))
            return False
        return True

    def set_field_defaults(self, row_set):
        for column in row_set.columns:
            if column.kind in _ZERO_KINDS:
                row_set.set(column.name, 0)
            elif column.kind in ("TEXT", "MEMO"):
                row_set.set(column.name, "")
            elif column.kind == "DATETIME":
                row_set.set(column.name, self.today)
            elif column.kind == "BOOLEAN":
                row_set.set(column.name, False)
            else:
                self.other_messages.append(f"Unknown type {_KINDS_BY_NUMBER[column.kind]}")

    def insert_row(self, row_set, values):
        """A new row with the defaults of its columns and these values."""
        self.add(row_set)
        if row_set is None:
            raise UnhandledFailure("no row set to add to")
        self.set_field_defaults(row_set)
        for name, value in values.items():
            set_field(row_set, name, value)
        self.update(row_set)


def get_field(row_set, name):
    """A read that goes straight to the row set."""
    if row_set is None:
        raise UnhandledFailure("no row set to read from")
    try:
        return row_set.get(name)
    except EngineFailure as failure:
        raise UnhandledFailure(str(failure)) from failure


def set_field(row_set, name, value):
    """A write that goes straight to the row set."""
    if row_set is None:
        raise UnhandledFailure("no row set to write to")
    try:
        row_set.set(name, value)
    except EngineFailure as failure:
        raise UnhandledFailure(str(failure)) from failure
