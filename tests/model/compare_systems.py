#!/usr/bin/env python3
"""Imports random portfolios with the programs of this system and with those for another one, and compares the two, row
by row. What one system has left is what the other fills next."""

import itertools
import shutil
import sys
import tempfile
from pathlib import Path

from compare_import import LOG_STAMP, Comparison
from jet_portfolios import arguments_for, compare_all

# So many portfolios go into one file, one after the other, before a fresh one is taken.
_PORTFOLIOS_OF_A_FILE = 4


class System:
    """The programs of a system, with a folder of their own."""

    def __init__(self, name, tool, arguments, maker, folder):
        self.name = name
        self._folder = folder
        self._comparison = Comparison(tool, maker, arguments.writer, arguments.format, folder)
        self._left = Path(folder) / "left.mdb"

    def run(self, scenario, other):
        """Into a fresh file, or into what another system has left."""
        self._comparison.prepare(scenario, other and other._left)
        return self._comparison.run(scenario)

    def keep(self):
        shutil.copy2(self._comparison.database, self._left)

    def told(self, text):
        """Without the moment, and without the folder, which each system writes in its own way."""
        return LOG_STAMP.sub("", text).replace(f"Z:{self._folder}", "").replace(self._folder, "")


def _differences(here, result, there, other):
    if result.status != other.status:
        yield f"exit status: {result.status} {here.name}, {other.status} {there.name}"
    for kind in ("errors", "log"):
        told, told_there = (system.told(getattr(outcome, kind)) for system, outcome in
                            ((here, result), (there, other)))
        if told != told_there:
            yield f"{kind}: {told!r} {here.name}, {told_there!r} {there.name}"
    if list(result.tables) != list(other.tables):
        yield f"tables: {list(result.tables)} {here.name}, {list(other.tables)} {there.name}"
    for table, rows in result.tables.items():
        for place, (row, other_row) in enumerate(itertools.zip_longest(rows, other.tables.get(table, [])), start=1):
            if row != other_row:
                yield f"{table}, row {place}: {row} {here.name}, {other_row} {there.name}"


def _add_arguments(parser):
    parser.add_argument("--other-tool", required=True, help="wrenfield-import for the other system")
    parser.add_argument("--other-maker", required=True, help="hearthbook-create-database for the other system")
    parser.add_argument("--format", default="jet", choices=["jet", "sqlite"], help="of the database files")


def main():
    arguments = arguments_for(__doc__, "WRENFIELD_SYSTEM_PORTFOLIOS", 1000, add=_add_arguments)
    places = itertools.count()
    with tempfile.TemporaryDirectory(prefix="compare-here-") as for_here, \
            tempfile.TemporaryDirectory(prefix="compare-there-") as for_there:
        here = System("here", arguments.tool, arguments, arguments.maker, for_here)
        there = System("there", arguments.other_tool, arguments, arguments.other_maker, for_there)

        def compare(scenario):
            is_fresh = next(places) % _PORTFOLIOS_OF_A_FILE == 0
            result = here.run(scenario, None if is_fresh else there)
            other = there.run(scenario, None if is_fresh else here)
            for system in (here, there):
                system.keep()
            return sum(len(rows) for rows in result.tables.values()), list(_differences(here, result, there, other))

        return compare_all(arguments, compare, "Both systems have left")


if __name__ == "__main__":
    sys.exit(main())
