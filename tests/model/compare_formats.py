#!/usr/bin/env python3
"""Imports random portfolios into a Jet file and into a SQLite file and compares the two, row by row."""

import argparse
import os
import sys
import tempfile
from dataclasses import replace

import hearthbook_model
from compare_import import Comparison, as_jet_can_hold_it
from random_portfolios import random_scenario


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


def _arguments():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--tool", required=True, help="the program wrenfield-import")
    parser.add_argument("--maker", required=True, help="the program hearthbook-create-database")
    parser.add_argument("--writer", required=True, help="the program write-rows")
    parser.add_argument("--count", type=int, default=int(os.environ.get("WRENFIELD_BOTH_PORTFOLIOS", "60")),
                        help="how many portfolios (default: $WRENFIELD_BOTH_PORTFOLIOS, or 60)")
    parser.add_argument("--seed", default="1", help="another seed gives other portfolios")
    return parser.parse_args()


def main():
    arguments = _arguments()
    rows = 0
    columns = None
    with tempfile.TemporaryDirectory(prefix="compare-jet-") as for_jet, \
            tempfile.TemporaryDirectory(prefix="compare-sqlite-") as for_sqlite:
        formats = [Comparison(arguments.tool, arguments.maker, arguments.writer, name, folder)
                   for name, folder in (("jet", for_jet), ("sqlite", for_sqlite))]
        for number in range(arguments.count):
            scenario = random_scenario(arguments.seed, number)
            scenario = replace(scenario, portfolio=as_jet_can_hold_it(scenario.portfolio))
            for comparison in formats:
                comparison.prepare(scenario)
            jet, sqlite = (comparison.run(scenario) for comparison in formats)
            columns = columns or Columns(formats[0].database)
            rows += sum(len(of_table) for of_table in jet.tables.values())
            differences = list(_differences(columns, jet, sqlite))
            if differences:
                print(f"Portfolio {number} of seed {arguments.seed}:", *differences[:8], sep="\n  ")
                return 1
    if rows < 10 * arguments.count:
        print(f"{arguments.count} portfolios left only {rows} rows")
        return 1
    print(f"Both formats have the same {rows} rows of {arguments.count} portfolios")
    return 0


if __name__ == "__main__":
    sys.exit(main())
