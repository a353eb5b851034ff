#!/usr/bin/env python3
"""Measures the import against the sqlite3 program and against prepared statements doing the very same writes, and the
import into a Jet file against that into a SQLite file, side by side in one run.

    bench/compare_import.py --programs build/release/bin

Prints the tables of docs/performance.md. Every figure is a ratio of two measurements of the same run.
"""

import argparse
import os
import shutil
import signal
import sqlite3
import statistics
import subprocess
import sys
import tempfile
import time

TODAY = "2026-11-21"
WORK = "work.mdb"
ROWS_OF_AN_INSERT = 16
TABLES = ["glcodes", "owner", "property", "tenancy", "tenant_bond", "rent_periods", "revenues"]


class Bench:
    """Of databases of one format."""

    def __init__(self, programs, folder, form="sqlite"):
        self.programs = programs
        self.folder = folder
        self.fresh = self.path(f"fresh-{form}.mdb")
        subprocess.run([self.program("hearthbook-create-database"), "--format", form, self.fresh], check=True)

    def path(self, name):
        return os.path.join(self.folder, name)

    def program(self, name):
        return os.path.join(self.programs, name)

    def portfolio(self, tenants, start, frequency, *options):
        path = self.path(f"portfolio-{tenants}-{start}-{frequency}{''.join(options)}.json")
        with open(path, "wb") as file:
            subprocess.run([self.program("make-portfolio"), str(tenants), start, frequency, *options],
                           stdout=file, check=True)
        return path

    def fresh_copy(self, name=WORK):
        path = self.path(name)
        shutil.copy(self.fresh, path)
        return path

    def import_command(self, portfolio, database, program="wrenfield-import", *first):
        return [self.program(program), *first, portfolio, "--database", database, "--yes", "--today", TODAY]

    def timed(self, command, standard_input=None, standard_output=subprocess.DEVNULL):
        """Seconds, and the peak memory of the process in bytes."""
        began = time.monotonic()
        process = subprocess.Popen(command, stdin=standard_input, stdout=standard_output)
        _, status, usage = os.wait4(process.pid, 0)
        seconds = time.monotonic() - began
        process.returncode = os.waitstatus_to_exitcode(status)
        if process.returncode != 0:
            sys.exit(f"{command} ended with {process.returncode}")
        return seconds, usage.ru_maxrss * 1024

    def time_import(self, portfolio, name=WORK):
        database = self.fresh_copy(name)
        seconds, memory = self.timed(self.import_command(portfolio, database))
        return seconds, memory, row_counts(database)

    def recorded_writes(self, portfolio):
        path = self.path("writes.sql")
        self.timed(self.import_command(portfolio, self.fresh_copy(), "record-writes", path))
        return path

    def time_shell(self, script):
        database = self.fresh_copy()
        with open(script, "rb") as file:
            seconds, _ = self.timed(["sqlite3", database], file)
        return seconds, row_counts(database)

    def time_prepared(self, script, rows):
        """Without the time that it takes to read the script."""
        database = self.fresh_copy()
        answer = self.path("seconds")
        with open(answer, "w") as file:
            self.timed([self.program("prepared-writes"), script, database, str(rows)], standard_output=file)
        with open(answer) as file:
            return float(file.read()), row_counts(database)


def row_counts(database):
    with open(database, "rb") as file:
        is_sqlite = file.read(6) == b"SQLite"
    if not is_sqlite:
        return [int(subprocess.check_output(["mdb-count", database, table])) for table in TABLES]
    connection = sqlite3.connect(database)
    try:
        return [connection.execute(f"select count(*) from [{table}]").fetchone()[0] for table in TABLES]
    finally:
        connection.close()


def compare_in_one_transaction(bench, tenants, start, rounds):
    portfolio = bench.portfolio(tenants, start, "Week")
    writes = bench.recorded_writes(portfolio)
    transaction = bench.path("transaction.sql")
    with open(writes, "rb") as source, open(transaction, "wb") as target:
        target.write(b"begin;\n")
        shutil.copyfileobj(source, target)
        target.write(b"commit;\n")
    others = {
        "sqlite3": lambda: bench.time_shell(transaction),
        "prepared statements": lambda: bench.time_prepared(writes, 1),
        f"prepared statements of {ROWS_OF_AN_INSERT} rows": lambda: bench.time_prepared(writes, ROWS_OF_AN_INSERT),
    }
    ours, theirs = [], {name: [] for name in others}
    for _ in range(rounds):
        seconds, _, counts = bench.time_import(portfolio)
        ours.append(seconds)
        for name, write in others.items():
            seconds, their_counts = write()
            theirs[name].append(seconds)
            if counts != their_counts:
                sys.exit(f"the rows differ: {counts} and {their_counts}")
    rows = sum(counts)
    print(f"{tenants} weekly tenancies since {start}: {counts[5]} periods, {counts[6]} receipts, {rows} rows")
    print(f"  import {rows / statistics.median(ours):,.0f} rows/s")
    for name, measured in theirs.items():
        ratio = statistics.median(own / their for own, their in zip(ours, measured))
        print(f"  {name} in one transaction {rows / statistics.median(measured):,.0f} rows/s: "
              f"the import takes {ratio:.2f} times as long")
    return rows / statistics.median(ours)


def compare_with_autocommit(bench, tenants, start):
    portfolio = bench.portfolio(tenants, start, "Week")
    writes = bench.recorded_writes(portfolio)
    shell, counts = bench.time_shell(writes)
    ours, _, own_counts = bench.time_import(portfolio)
    if counts != own_counts:
        sys.exit(f"the rows differ: {counts} and {own_counts}")
    rows = sum(counts)
    print(f"{tenants} weekly tenancies since {start}: {rows} rows")
    print(f"  sqlite3 committing each write {rows / shell:,.0f} rows/s")
    return rows / shell


class ImportInTurns:
    """An import that runs for a while when told, and waits in between."""

    def __init__(self, bench, portfolio, database):
        self.seconds = 0
        self.process = subprocess.Popen(bench.import_command(portfolio, database), stdout=subprocess.DEVNULL)
        self.process.send_signal(signal.SIGSTOP)

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.process.kill()
        self.process.wait()

    def run(self, at_most):
        """Whether it has ended."""
        began = time.monotonic()
        self.process.send_signal(signal.SIGCONT)
        try:
            status = self.process.wait(at_most)
        except subprocess.TimeoutExpired:
            self.process.send_signal(signal.SIGSTOP)
            return False
        finally:
            self.seconds += time.monotonic() - began
        if status != 0:
            sys.exit(f"{self.process.args} ended with {status}")
        return True


def import_in_turns(bench, many, few):
    """Seconds and rows of each table when the portfolio of many is imported, and those of each import of few, over
    and over.

    They take turns, since the machine's pace may change within a minute and must weigh on either side. All
    databases stay until the end, so that both have as much in memory. A turn is as long as an import writes before
    it lets other programs write: it pauses once in each, as it would in one go."""
    turn = 3.1
    database = bench.fresh_copy("many.mdb")
    names, imports_of_few = [], []
    with ImportInTurns(bench, many, database) as import_of_many:
        ended = False
        while not ended:
            ended = import_of_many.run(turn)
            while sum(seconds for seconds, _ in imports_of_few) < import_of_many.seconds:
                names.append(f"few-{len(names)}.mdb")
                seconds, _, counts = bench.time_import(few, names[-1])
                imports_of_few.append((seconds, counts))
    result = (import_of_many.seconds, row_counts(database)), imports_of_few
    for name in ["many.mdb", *names]:
        os.remove(bench.path(name))
    return result


def compare_tenant_counts(bench, few, many, start, *options):
    portfolios = [bench.portfolio(count, start, "Week", *options) for count in (many, few)]
    rows = {}
    per_row = {few: [], many: []}
    for _ in range(5):
        import_of_many, imports_of_few = import_in_turns(bench, *portfolios)
        for count, imports in ((many, [import_of_many]), (few, imports_of_few)):
            for _, counts in imports:
                if rows.setdefault(count, counts) != counts:
                    sys.exit(f"the rows differ: {rows[count]} and {counts}")
            seconds = statistics.mean(seconds for seconds, _ in imports)
            per_row[count].append(seconds / sum(rows[count]))
    low, high = (statistics.median(per_row[count]) for count in (few, many))
    ratios = sorted(of_many / of_few for of_few, of_many in zip(per_row[few], per_row[many]))
    order = "mixed order" if options else "order of names"
    print(f"time per row, weekly since {start}, tenants in {order}: with {few} tenants {low * 1e6:.2f} us, "
          f"with {many} {high * 1e6:.2f} us, ratio {statistics.median(ratios):.2f} "
          f"({ratios[0]:.2f} to {ratios[-1]:.2f})")


def compare_memory(bench, tenants, starts):
    for start in starts:
        portfolio = bench.portfolio(tenants, start, "Day")
        _, memory, counts = bench.time_import(portfolio)
        print(f"{tenants} tenants paying daily since {start}: {counts[5]} periods, peak memory {memory / 2**20:.1f} MiB")


def compare_memory_of_tenants(bench, few, many):
    """With one period each, so that the portfolio itself is what counts."""
    few_peak, many_peak = (bench.time_import(bench.portfolio(count, TODAY, "Year"))[1] for count in (few, many))
    print(f"peak memory with {few} tenants {few_peak / 2**20:.1f} MiB, with {many} {many_peak / 2**20:.1f} MiB: "
          f"{(many_peak - few_peak) / (many - few):,.0f} bytes for each more")


class Measured:
    """Imports of one portfolio into a fresh file of one format."""

    def __init__(self, bench, portfolio):
        self.bench, self.portfolio = bench, portfolio
        self.seconds, self.processor, self.memory = [], [], []

    def run(self):
        before = os.times()
        seconds, memory, self.counts = self.bench.time_import(self.portfolio)
        after = os.times()
        self.seconds.append(seconds)
        self.processor.append(after.children_user - before.children_user
                              + after.children_system - before.children_system)
        self.memory.append(memory)
        self.size = os.path.getsize(self.bench.path(WORK))

    def tell(self, name):
        rows = sum(self.counts)
        print(f"  {name}: {rows / statistics.median(self.seconds):,.0f} rows/s, "
              f"{statistics.median(self.processor):.2f} s of processor time, "
              f"peak memory {max(self.memory) / 2**20:.0f} MiB, {self.size / rows:.1f} bytes per row")


def compare_by_turns(title, usual, other, rounds):
    """Two measurements, each with its name: how much longer the other one takes."""
    (usual_name, usual), (other_name, other) = usual, other
    for _ in range(rounds):
        usual.run()
        other.run()
        if usual.counts != other.counts:
            sys.exit(f"the rows differ: {usual.counts} and {other.counts}")
    print(f"{title}: {sum(usual.counts)} rows")
    usual.tell(usual_name)
    other.tell(other_name)
    for what, own, their in (("time", other.seconds, usual.seconds),
                             ("processor time", other.processor, usual.processor)):
        ratios = sorted(mine / theirs for mine, theirs in zip(own, their))
        print(f"  {other_name} takes {statistics.median(ratios):.2f} times the {what} "
              f"({ratios[0]:.2f} to {ratios[-1]:.2f})")


def compare_formats(sqlite, jet, tenants, start, rounds):
    portfolio = sqlite.portfolio(tenants, start, "Week")
    compare_by_turns(f"{tenants} weekly tenancies since {start}", ("SQLite", Measured(sqlite, portfolio)),
                     ("Jet", Measured(jet, portfolio)), rounds)


def compare_wipe(bench, tenants, start, rounds):
    """How much longer an import of one tenant takes where it has to wipe the rows of many."""
    many, one = bench.portfolio(tenants, start, "Week"), bench.portfolio(1, TODAY, "Week")
    writing, _, counts = bench.time_import(many, "full.mdb")
    wipes = []
    for _ in range(rounds):
        shutil.copy(bench.path("full.mdb"), bench.path(WORK))
        wiping, _ = bench.timed(bench.import_command(one, bench.path(WORK)))
        wipes.append(wiping - bench.time_import(one)[0])
    print(f"wiping {sum(counts)} rows takes {statistics.median(wipes) / writing:.1%} of the time that wrote them")


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--programs", default="build/release/bin")
    parser.add_argument("--brief", action="store_true", help="small sizes, for seeing that it runs")
    arguments = parser.parse_args()
    with tempfile.TemporaryDirectory() as folder:
        bench = Bench(arguments.programs, folder)
        jet = Bench(arguments.programs, folder, "jet")
        if arguments.brief:
            compare_in_one_transaction(bench, 20, "2025-11-24", 1)
            compare_with_autocommit(bench, 5, "2026-08-03")
            compare_tenant_counts(bench, 10, 80, "2026-10-05")
            compare_memory(bench, 5, ["2026-09-01"])
            compare_memory_of_tenants(bench, 5, 50)
            compare_formats(bench, jet, 20, "2025-11-24", 1)
            compare_wipe(jet, 20, "2025-11-24", 1)
            compare_tenant_counts(jet, 10, 80, "2026-10-05")
            return
        ours = compare_in_one_transaction(bench, 2000, "2021-11-22", 5)
        autocommit = compare_with_autocommit(bench, 20, "2021-11-22")
        print(f"  the import is {ours / autocommit:.0f} times as fast")
        for start, *options in (["2021-11-22"], ["2021-11-22", "mixed"], ["2026-05-25", "mixed"]):
            compare_tenant_counts(bench, 1000, 32000, start, *options)
        compare_memory(bench, 100, ["2024-11-21", "2016-11-21", "1996-11-21"])
        compare_memory_of_tenants(bench, 1000, 32000)
        compare_formats(bench, jet, 2000, "2021-11-22", 5)
        compare_wipe(jet, 2600, "2021-11-22", 5)
        compare_tenant_counts(jet, 1000, 32000, "2026-05-25")


if __name__ == "__main__":
    main()
