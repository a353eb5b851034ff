#!/usr/bin/env python3
"""Imports into hostile database files, and among other hostile files, and looks at what comes of it.

Whatever the file is, the batch tool must end soon, by itself and with little memory, and leave all other files
alone. It may say that all is done only if an independent reader finds every row there; otherwise it must say
what is wrong.
"""

import argparse
import hashlib
import json
import os
import re
import resource
import shutil
import sqlite3
import stat
import subprocess
import sys
import tempfile
from collections import Counter

import hostile_databases
from hostile_databases import Genuine
from hostile_surroundings import SURROUNDINGS
from work import DATABASE, FILLED

_TIME_LIMIT_SECONDS = 60
_MEMORY_LIMIT = 1 << 30
_DONE, _WITH_FAILURES, _NOTHING_DONE = 0, 1, 2
_TODAY = "2026-11-21"
_OWN_FILES = re.compile(rf"{re.escape(DATABASE)}(-journal|-wal|-shm)?|err\w+\.log")
# A failure has a number, in whichever of the program's forms; a refusal says that nothing was changed.
_MESSAGE = re.compile(r"\d+ - \w|Wrenfield Wizard: \d+: \w|nothing was changed|Unknown type \d+"
                      r"|Unable to access")

_PORTFOLIO = {
    "UserType": "Manager", "ManagementFee": 8.5, "LastDisbursement": "2026-10-31",
    "BankAccounts": [{"BankAccountName": "Trust Account", "BalanceDate": "2026-01-31", "BalanceAmount": -12.5}],
    "Owners": [{"OwnersName": "Smith Family Trust"}, {"OwnersName": "Oskar O'Brien"}],
    "Properties": [
        {"Address1": "12 Main Road", "Address2": "Wrenfield", "Owner": "Smith Family Trust",
         "BankAccount": "Trust Account", "UnitNumbers": "1,2,3"},
        {"Address1": "7 Harbour View", "Owner": "Oskar O'Brien"}],
    "Tenants": [
        {"Name": "Ada Finch", "PropertyName": "2/12 Main Road", "StartDate": "2026-03-15", "CurrentRent": 420,
         "RentFrequency": "Week", "FrequencyNumber": 2, "BondHeld": 1680, "Setbalance": True,
         "BalanceAmount": 210.5},
        {"Name": "ada finch 2", "PropertyName": "1/12 Main Road", "StartDate": "2025-01-31",
         "CurrentRent": 333.33, "RentFrequency": "Month", "MonthDay": 31, "Setbalance": True, "BalanceAmount": -77.25},
        {"Name": "007", "PropertyName": "7 Harbour View", "StartDate": "2026-11-01", "CurrentRent": 90.05,
         "RentFrequency": "Day", "Setbalance": True}]}


class Attack:
    """A folder of its own for each file, and what is expected of an import into it."""

    def __init__(self, tool, maker, folder, limits_memory):
        # The tool writes its log beside itself: each folder gets a link to it, which takes one file system.
        self._tool = shutil.copy2(tool, os.path.join(folder, "wrenfield-import"))
        self._folder = folder
        self._limits_memory = limits_memory
        fresh = os.path.join(folder, "fresh.mdb")
        filled = os.path.join(folder, "filled.mdb")
        subprocess.run([maker, "--format", "sqlite", fresh], check=True, timeout=_TIME_LIMIT_SECONDS)
        place = os.path.join(folder, "genuine")
        os.mkdir(place)
        shutil.copy2(fresh, os.path.join(place, DATABASE))
        result = self._import(place, [])
        assert result.returncode == _DONE, result.stderr
        shutil.copy2(os.path.join(place, DATABASE), filled)
        self._genuine = Genuine(fresh, filled)
        self._expected = _imported_rows(filled)
        self._fresh_columns = _columns(fresh)
        self.outcomes = Counter()

    def faults(self, seed, number):
        """What is wrong with an import into one hostile file, as lines of text."""
        place = tempfile.mkdtemp(dir=self._folder)
        made = hostile_databases.make(seed, number, self._genuine, place)
        try:
            for fault in self._attack(place, made, with_backup=number % 5 == 0):
                yield f"{made.kind}: {fault}"
        finally:
            shutil.rmtree(place)

    def faults_of_surroundings(self, lay):
        """What is wrong with an import into a sound file among hostile others."""
        place = tempfile.mkdtemp(dir=self._folder)
        shutil.copy2(self._genuine.fresh, os.path.join(place, DATABASE))
        arguments = lay(place)
        try:
            before = _snapshot(place)
            for mode in ("--dry-run", "--yes"):
                result = self._run(place, [mode, *arguments])
                yield from _faults_of_end(result)
            yield from _changes(before, _snapshot(place))
        finally:
            shutil.rmtree(place)

    def _attack(self, place, made, with_backup):
        before = _snapshot(place)
        database = os.path.join(place, DATABASE)
        content = _contents(database)
        result = self._import(place, [], mode="--dry-run")
        yield from (f"dry run: {fault}" for fault in _faults_of_end(result))
        if not made.recovers and _contents(database) != content:
            yield "dry run: the database has changed"
        yield from (f"dry run: {fault}" for fault in _changes(before, _snapshot(place)))

        content = _contents(database)
        backup = ["--backup", os.path.join(place, "backup.mdb")] if with_backup else []
        result = self._import(place, backup)
        self.outcomes[(made.kind, result.returncode)] += 1
        yield from _faults_of_end(result)
        if result.returncode == _NOTHING_DONE and not made.recovers and _contents(database) != content:
            yield "nothing done, and yet the database has changed"
        if made.is_sound and result.returncode != _DONE:
            yield f"a sound file was not imported into: {result.stderr.decode()[-500:]}"
        if result.returncode == _DONE:
            yield from self._faults_of_rows(database)
        after = _snapshot(place)
        after.pop("backup.mdb", None)
        yield from _changes(before, after)

    def _import(self, place, arguments, mode="--yes"):
        return self._run(place, [mode, "--database", os.path.join(place, DATABASE), *arguments])

    def _run(self, place, arguments):
        tool = os.path.join(place, "wrenfield-import")
        if not os.path.exists(tool):
            os.link(self._tool, tool)
        portfolio = os.path.join(place, "portfolio.json")
        if not os.path.lexists(portfolio):
            with open(portfolio, "w", encoding="utf-8") as file:
                json.dump(_PORTFOLIO, file)
        environment = {**os.environ, "LC_ALL": "C.UTF-8", "XDG_CONFIG_HOME": os.path.join(place, "config"),
                       "XDG_CONFIG_DIRS": os.path.join(place, "config")}
        command = [tool, portfolio, "--today", _TODAY, *arguments]
        try:
            return subprocess.run(command, capture_output=True, env=environment, check=False,
                                  timeout=_TIME_LIMIT_SECONDS, stdin=subprocess.DEVNULL,
                                  preexec_fn=self._limit)
        except subprocess.TimeoutExpired:
            return subprocess.CompletedProcess(command, None, b"", b"")

    def _limit(self):
        if self._limits_memory:
            resource.setrlimit(resource.RLIMIT_AS, (_MEMORY_LIMIT, _MEMORY_LIMIT))
        resource.setrlimit(resource.RLIMIT_CORE, (0, 0))

    def _faults_of_rows(self, database):
        connection = sqlite3.connect(database)
        (sound,) = connection.execute("pragma integrity_check").fetchone()
        connection.close()
        if sound != "ok":
            yield f"done, and yet the database is damaged: {sound}"
            return
        found_columns = _columns(database)
        found = _imported_rows(database)
        for table, rows in self._expected.items():
            comparable = [column for column, declared in self._fresh_columns[table].items()
                          if found_columns.get(table, {}).get(column) == declared]
            for column in self._fresh_columns[table].keys() - found_columns.get(table, {}).keys():
                if not _is_default({row[column] for row in rows}):
                    yield f"done, and yet {table} has no column {column}"
            wanted = Counter(_row_key(row, comparable) for row in rows)
            got = Counter(_row_key(row, comparable) for row in found.get(table, []))
            if wanted != got:
                yield (f"done, and yet {table} differs: missing {list((wanted - got).elements())[:3]}, "
                       f"besides {list((got - wanted).elements())[:3]}")


def _is_default(values):
    return values <= {0, 0.0, "", None, _TODAY}


def _row_key(row, columns):
    return tuple(row.get(column) for column in columns)


def _columns(database):
    """For each table the columns, by their names in small letters, with the types that are declared."""
    connection = sqlite3.connect(database)
    connection.text_factory = bytes
    tables = {}
    for table in FILLED:
        declared = {_name(name): _name(kind) for _, name, kind, *_ in
                    connection.execute(f"pragma table_info({table})")}
        if declared:
            tables[table] = declared
    connection.close()
    return tables


def _name(name):
    # One that isn't UTF-8 is none of Hearthbook's.
    return name.decode("utf-8", "backslashreplace").lower()


def _imported_rows(database):
    """The rows of the tables that an import fills, by the names of their columns in small letters."""
    connection = sqlite3.connect(database)
    # Texts in rows that are none of ours need not be UTF-8.
    connection.text_factory = lambda text: text.decode("utf-8", "backslashreplace")
    tables = {}
    for table, columns in _columns(database).items():
        # Ledger accounts of other types are none of the import's.
        rest = " where type = 3" if table == "glcodes" else ""
        names = [column for column in columns if "\\" not in column]
        quoted = (name.replace('"', '""') for name in names)
        wanted = ", ".join(f'"{name}" as c{place}' for place, name in enumerate(quoted))
        rows = connection.execute(f"select {wanted} from {table}{rest}")
        tables[table] = [dict(zip(names, row)) for row in rows]
    connection.close()
    return tables


def _faults_of_end(result):
    errors = result.stderr.decode("utf-8", "replace")
    if result.returncode is None:
        yield f"did not end within {_TIME_LIMIT_SECONDS} s"
    elif result.returncode not in (_DONE, _WITH_FAILURES, _NOTHING_DONE):
        yield f"ended with {result.returncode}: {errors[-500:]}"
    elif result.returncode != _DONE and not _MESSAGE.search(errors):
        yield f"status {result.returncode} and no message: {errors!r}"


def _contents(path):
    if not os.path.isfile(path) or os.path.getsize(path) > 100_000_000:
        return None
    with open(path, "rb") as file:
        return file.read()


def _snapshot(place):
    """What lies in a folder, but for the files that the import may change."""
    files = {}
    for folder, folders, names in os.walk(place):
        for name in folders + names:
            path = os.path.join(folder, name)
            if name in ("wrenfield-import", "portfolio.json") or (folder == place and _OWN_FILES.fullmatch(name)
                                                                 and os.path.isfile(path)
                                                                 and not os.path.islink(path)):
                continue
            status = os.lstat(path)
            content = _contents(path) if stat.S_ISREG(status.st_mode) else None
            files[os.path.relpath(path, place)] = (stat.S_IFMT(status.st_mode), status.st_size,
                                                   content and hashlib.sha256(content).hexdigest())
    return files


def _changes(before, after):
    for name in sorted(before.keys() | after.keys()):
        if before.get(name) != after.get(name):
            yield f"another file has changed: {name}, from {before.get(name)} to {after.get(name)}"


def _arguments():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--tool", required=True, help="the program wrenfield-import")
    parser.add_argument("--maker", required=True, help="the program hearthbook-create-database")
    parser.add_argument("--count", type=int, default=int(os.environ.get("WRENFIELD_HOSTILE_FILES", "300")),
                        help="how many database files (default: $WRENFIELD_HOSTILE_FILES, or 300)")
    parser.add_argument("--first", type=int, default=0, help="the number of the first file")
    parser.add_argument("--seed", default="1", help="another seed gives other files")
    parser.add_argument("--no-memory-limit", action="store_true", help="for sanitizers, which map all memory")
    parser.add_argument("--outcomes", action="store_true", help="tell how the imports ended, by kind")
    return parser.parse_args()


def main():
    arguments = _arguments()
    found = 0
    with tempfile.TemporaryDirectory(prefix="import-hostile-") as folder:
        attack = Attack(arguments.tool, arguments.maker, folder, not arguments.no_memory_limit)
        for number in range(arguments.first, arguments.first + arguments.count):
            for fault in attack.faults(arguments.seed, number):
                print(f"file {number} of seed {arguments.seed}: {fault}", flush=True)
                found += 1
        for lay in SURROUNDINGS:
            for fault in attack.faults_of_surroundings(lay):
                print(f"{lay.__name__}: {fault}", flush=True)
                found += 1
        if arguments.outcomes:
            for (kind, status), count in sorted(attack.outcomes.items(), key=str):
                print(f"{kind}: status {status}, {count} times")
    if found:
        print(f"\n{found} faults")
        return 1
    print(f"{arguments.count} hostile files of seed {arguments.seed} and {len(SURROUNDINGS)} surroundings "
          "did no harm")
    return 0


if __name__ == "__main__":
    sys.exit(main())
