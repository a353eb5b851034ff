"""What the import has to leave behind, stated a second time and apart from the program.

`import_portfolio` takes the tables of a Hearthbook database, a portfolio and a day, and answers with the
tables after the import, the failures that are reported on the way and the exit status of the batch tool.
"""

import copy
import os
import re
import sys
from decimal import Decimal
from typing import NamedTuple, Optional

sys.path.insert(0, os.path.join(os.path.dirname(__file__), "..", "support"))
import second_reader
from calendar_rules import Day, parse_iso
from import_run import ImportRun
from record_access import RecordAccess, UnhandledFailure
from table_store import TEXT_KINDS, ColumnType, Table, TableStore
from utf16 import to_stored_text, to_units

EXIT_DONE, EXIT_WITH_FAILURES = 0, 1

_DECLARED_TYPE = re.compile(r"(\w+)(?:\((\d+)\))?")


class Outcome(NamedTuple):
    """`tables` maps each table's name to its rows, lists of values as the database file holds them."""

    tables: dict
    reports: list
    other_messages: list
    unhandled: Optional[str]
    exit_status: int


def read_tables(path):
    """The tables of a database file as the model holds them, by their names in lower case."""
    with second_reader.connect(path) as connection:
        names = [name for (name,) in connection.execute(
            "select name from sqlite_master where type = 'table' and name not like 'sqlite%'")]
        tables = {name.lower(): _read_table(connection, name) for name in names}
    connection.close()
    return tables


def _read_table(connection, name):
    columns = []
    for _, column, declared, *_ in connection.execute(f"pragma table_info([{name}])"):
        kind, size = _DECLARED_TYPE.fullmatch(declared).groups()
        columns.append(ColumnType(column, kind.upper(), int(size or 0)))
    table = Table(columns)
    for values in connection.execute(f"select * from [{name}] order by rowid"):
        table.rows.append({column.name.lower(): _from_file(column, value)
                           for column, value in zip(columns, values)})
    return table


def _from_file(column, value):
    if value is None:
        return None
    if column.kind in TEXT_KINDS:
        return to_units(value)
    if column.kind == "DATETIME":
        return parse_iso(value)
    if column.kind == "CURRENCY":
        return Decimal(repr(value))
    return value


def _to_file(value):
    if isinstance(value, str):
        return to_stored_text(value)
    if isinstance(value, Day):
        return value.iso()
    return float(value) if isinstance(value, Decimal) else value


def rows_as_in_file(tables):
    return {name: [[_to_file(row[column.name.lower()]) for column in table.columns] for row in table.rows]
            for name, table in tables.items()}


def import_portfolio(tables, portfolio, today):
    """Runs the model. The tables given stay as they are."""
    store = TableStore(copy.deepcopy(tables))
    access = RecordAccess(store, today)
    unhandled = None
    try:
        ImportRun(access, portfolio).run()
    except UnhandledFailure as failure:
        unhandled = str(failure)
    has_failed = bool(access.reports) or unhandled is not None
    return Outcome(
        tables=rows_as_in_file(store.tables),
        reports=access.reports,
        other_messages=access.other_messages,
        unhandled=unhandled,
        exit_status=EXIT_WITH_FAILURES if has_failed else EXIT_DONE)
