#!/usr/bin/env python3
"""Imports random portfolios into a Jet file and into a SQLite file and compares the two, row by row."""

import sys
import tempfile

import hearthbook_model
from compare_import import Comparison
from jet_portfolios import arguments_for, compare_all


class Columns:
    """Of which kind the columns of each table are."""

    def __init__(self, database):
        self._kinds = {name: [column.kind for column in table.columns]
                       for name, table in hearthbook_model.read_tables(database).items()}

    def as_jet_holds_it(self, table, row):
        """With its values' types. A yes or no that nobody has said is null in a SQLite file, and no in a Jet file."""
        values = [0 if kind == "BOOLEAN" and value is None else value for kind, value in zip(self._kinds[table], row)]
        return [(type(value), value) for value in values]


def _differences(columns, jet, sqlite):
    if jet.status != sqlite.status:
        yield f"exit status: {jet.status} with the Jet file, {sqlite.status} with the SQLite file"
    if jet.errors != sqlite.errors:
        yield f"told: {jet.errors!r} with the Jet file, {sqlite.errors!r} with the SQLite file"
    if list(jet.tables) != list(sqlite.tables):
        yield f"tables: {list(jet.tables)} and {list(sqlite.tables)}"
    for name, rows in jet.tables.items():
        others = sqlite.tables.get(name, [])
        if len(rows) != len(others):
            yield f"{name}: {len(rows)} rows in the Jet file, {len(others)} in the SQLite file"
        for place, (row, other) in enumerate(zip(rows, others), start=1):
            if columns.as_jet_holds_it(name, row) != columns.as_jet_holds_it(name, other):
                yield f"{name}, row {place}: {row} in the Jet file, {other} in the SQLite file"


def main():
    arguments = arguments_for(__doc__, "WRENFIELD_BOTH_PORTFOLIOS", 60)
    columns = None
    with tempfile.TemporaryDirectory(prefix="compare-jet-") as for_jet, \
            tempfile.TemporaryDirectory(prefix="compare-sqlite-") as for_sqlite:
        formats = [Comparison(arguments.tool, arguments.maker, arguments.writer, name, folder)
                   for name, folder in (("jet", for_jet), ("sqlite", for_sqlite))]

        def compare(scenario):
            nonlocal columns
            for comparison in formats:
                comparison.prepare(scenario)
            jet, sqlite = (comparison.run(scenario) for comparison in formats)
            columns = columns or Columns(formats[0].database)
            return sum(len(rows) for rows in jet.tables.values()), list(_differences(columns, jet, sqlite))

        return compare_all(arguments, compare, "Both formats have")


if __name__ == "__main__":
    sys.exit(main())
