#!/usr/bin/env python3
"""Imports random portfolios into Jet files and compares what mdb-export reads there with what the engine reads."""

import csv
import io
import json
import re
import struct
import subprocess
import sys
import tempfile

from compare_import import Comparison
from jet_portfolios import arguments_for, compare_all

_NULL = "\x01null\x01"
# What mdb-export makes of all days before 1900, and of those that are more than a million days behind that.
_NO_DAY = "1900-01-00 00:00:00"
_FIRST_DAY, _LAST_DAY = "1900-01-01", "4637-11-26"
_TIME_LIMIT_SECONDS = 60


def _lines(command):
    finished = subprocess.run(command, capture_output=True, check=True, timeout=_TIME_LIMIT_SECONDS)
    return finished.stdout.decode("utf-8")


def _rows_of_engine(reader, database, tables):
    rows = {table: [] for table in tables}
    for line in _lines([reader, database, *tables]).split("\n")[:-1]:
        table, *values = json.loads(line)
        rows[table].append(values)
    return rows


def _rows_of_mdb_export(database, table):
    exported = _lines(["mdb-export", "-H", "-0", _NULL, "-T", "%Y-%m-%d %H:%M:%S", database, table])
    return list(csv.reader(io.StringIO(exported, newline="")))


def _as_single(number):
    return struct.unpack("f", struct.pack("f", number))[0]


def _is_same(value, exported):
    if value is None or value == "":
        # It tells an empty text from null no more than this does.
        return exported in (_NULL, "")
    if isinstance(value, bool):
        return exported == ("1" if value else "0")
    if isinstance(value, (int, float)):
        digits = (8, 16) if value == _as_single(value) else (16,)
        return float(exported) in [float(f"{value:.{count}g}") for count in digits]
    # It has a question mark for each half of a surrogate pair.
    return exported == re.sub("[\U00010000-\U0010ffff]", "??", value)


def _is_moment(value):
    return isinstance(value, str) and len(value) == len(_NO_DAY) and value[4:5] == value[7:8] == "-"


def _differences(table, rows, exported):
    if len(rows) != len(exported):
        yield f"{table}: the engine reads {len(rows)} rows, mdb-export {len(exported)}"
    for place, (row, others) in enumerate(zip(rows, exported), start=1):
        if len(row) != len(others):
            yield f"{table}, row {place}: {len(row)} columns and {len(others)}"
        for value, other in zip(row, others):
            is_unshown_day = other == _NO_DAY and _is_moment(value) and not _FIRST_DAY <= value < _LAST_DAY
            if not is_unshown_day and not _is_same(value, other):
                yield f"{table}, row {place}: the engine reads {value!r}, mdb-export {other!r}"


def _compare(reader, database):
    tables = _lines(["mdb-tables", "-1", database]).splitlines()
    rows = _rows_of_engine(reader, database, tables)
    found = []
    for table in tables:
        found += _differences(table, rows[table], _rows_of_mdb_export(database, table))
    return sum(len(of_table) for of_table in rows.values()), found


def main():
    arguments = arguments_for(__doc__, "WRENFIELD_EXPORTED_PORTFOLIOS", 40, reader="read-rows")
    with tempfile.TemporaryDirectory(prefix="compare-mdb-export-") as folder:
        comparison = Comparison(arguments.tool, arguments.maker, arguments.writer, "jet", folder)

        def compare(scenario):
            comparison.prepare(scenario)
            comparison.run(scenario)
            return _compare(arguments.reader, comparison.database)

        return compare_all(arguments, compare, "mdb-export and the engine read")


if __name__ == "__main__":
    sys.exit(main())
