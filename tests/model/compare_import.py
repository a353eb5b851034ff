#!/usr/bin/env python3
"""Runs the batch tool on random portfolios and compares what it leaves with what the model expects."""

import argparse
import json
import os
import re
import shutil
import subprocess
import sys
import tempfile
from dataclasses import dataclass, replace
from pathlib import Path

import hearthbook_model
import hostile_names
from random_portfolios import random_scenario
from shrinking import shrunk
from table_store import OutsideTheRules
from utf16 import to_stored_text

_LABEL = re.compile(r"^(Data Create Set|Execute SQL|Add Record|Edit Record|Update Record|Data Is Empty"
                    r"|Data EOF|Move Next): ", re.MULTILINE)
_UNHANDLED = re.compile(r"^Wrenfield Wizard: \d+: ", re.MULTILINE)
LOG_STAMP = re.compile(r"^\d\d/\d\d/\d\d \d\d:\d\d:\d\d ", re.MULTILINE)
_REFUSED = 2
_PORTFOLIOS = int(os.environ.get("WRENFIELD_MODEL_PORTFOLIOS", "400"))
_TIME_LIMIT_SECONDS = 120


@dataclass
class ToolResult:
    status: int
    errors: str
    log: str
    tables: dict


class Comparison:
    """One folder with copies of the tools, a fresh database, and the files of the portfolio at hand."""

    def __init__(self, tool, maker, writer, file_format, folder):
        self._writer = writer
        self._folder = Path(folder)
        # The tool writes its log beside itself, so that a copy keeps the logs of this run apart.
        self._tool = self._folder / "wrenfield-import"
        shutil.copy2(tool, self._tool)
        self._fresh = self._folder / "fresh.mdb"
        subprocess.run([maker, "--format", file_format, self._fresh], check=True, env=self._environment(), timeout=_TIME_LIMIT_SECONDS)
        self.database = self._folder / "property.mdb"
        self.portfolio = self._folder / "portfolio.json"

    def differences(self, scenario):
        """What the tool and the model disagree on, as lines of text."""
        self.prepare(scenario)
        before = hearthbook_model.read_tables(self.database)
        try:
            expected = hearthbook_model.import_portfolio(before, scenario.portfolio, scenario.today)
        except OutsideTheRules as situation:
            return [f"the model has no rule: {situation}"]
        return list(_compare(expected, self.run(scenario), before))

    def _environment(self):
        return {**os.environ, "LC_ALL": "C.UTF-8", "XDG_CONFIG_HOME": str(self._folder),
                "XDG_CONFIG_DIRS": str(self._folder)}

    def prepare(self, scenario, database=None):
        """The portfolio, and a copy of the database that is to be filled, or else a fresh one."""
        shutil.copy2(database or self._fresh, self.database)
        for log in self._folder.glob("err*.log"):
            log.unlink()
        with open(self.portfolio, "w", encoding="utf-8") as file:
            json.dump(scenario.portfolio, file, ensure_ascii=False, indent=1)
        statements = list(scenario.old_rows)
        if scenario.options is None:
            statements.append("delete from options")
        else:
            statements += [f"update options set {column} = {_literal(value)}"
                           for column, value in scenario.options.items()]
        subprocess.run([self._writer, self.database], input="".join(f"{line}\0" for line in statements).encode("utf-8"),
                       check=True, timeout=_TIME_LIMIT_SECONDS)

    def run(self, scenario):
        command = [self._tool, self.portfolio, "--yes", "--today", scenario.today.iso(), "--database",
                   self.database]
        finished = subprocess.run(command, capture_output=True, env=self._environment(), check=False,
                                  timeout=_TIME_LIMIT_SECONDS, stdin=subprocess.DEVNULL)
        log = "".join(path.read_text(encoding="utf-8") for path in self._folder.glob("err*.log"))
        tables = hearthbook_model.rows_as_in_file(hearthbook_model.read_tables(self.database))
        return ToolResult(finished.returncode, finished.stderr.decode("utf-8"), log, tables)


def as_jet_can_hold_it(portfolio):
    """A Jet file can't hold a text that begins with U+FEFF and has a character whose lower byte is 0: portfolios with
    such characters are compared with another one in its place."""
    text = json.dumps(portfolio)
    has_low_byte_zero = re.search(r"\\u[0-9a-f]{2}00", text)
    return json.loads(text.replace("\\ufeff", "\\u2020")) if has_low_byte_zero else portfolio


def _literal(value):
    if value is None:
        return "null"
    return "'" + value.replace("'", "''") + "'" if isinstance(value, str) else repr(value)


def _compare(expected, result, before):
    if result.status == _REFUSED:
        yield f"refused: {result.errors}"
        return
    if expected.exit_status != result.status:
        yield f"exit status: expected {expected.exit_status}, got {result.status}: {result.errors[-600:]}"
    yield from _compare_reports(expected, result)
    for name, rows in expected.tables.items():
        columns = [column.name for column in before[name].columns]
        yield from _compare_rows(name, columns, rows, result.tables[name])


def _compare_reports(expected, result):
    labels = _LABEL.findall(result.errors)
    if labels != [report.label for report in expected.reports]:
        yield f"failures reported: expected {[report.label for report in expected.reports]}, got {labels}"
    entries = LOG_STAMP.split(result.log)[1:]
    if len(entries) != len(expected.reports):
        yield f"log: expected {len(expected.reports)} entries, got {len(entries)}"
    for report, entry in zip(expected.reports, entries):
        if not entry.endswith(f"\n\n{to_stored_text(report.extra)}\n"):
            yield f"log: expected {report.extra!r}, got {entry!r}"
    if bool(expected.unhandled) != bool(_UNHANDLED.search(result.errors)):
        yield f"end by an unhandled failure: expected {expected.unhandled}, got {result.errors[-600:]!r}"
    unknown_types = result.errors.count("Unknown type ")
    if len(expected.other_messages) != unknown_types:
        yield f"unknown types: expected {expected.other_messages}, got {unknown_types}"


def _compare_rows(name, columns, expected, got):
    if len(expected) != len(got):
        yield f"{name}: expected {len(expected)} rows, got {len(got)}"
    for place, (expected_row, got_row) in enumerate(zip(expected, got), start=1):
        for column, expected_value, got_value in zip(columns, expected_row, got_row):
            if expected_value != got_value or isinstance(expected_value, str) != isinstance(got_value, str):
                yield (f"{name}, row {place}, {column}: expected {expected_value!r}, got {got_value!r}"
                       f" (expected row: {expected_row})")


def _keep(folder, number, comparison, scenario, differences):
    target = Path(folder)
    target.mkdir(parents=True, exist_ok=True)
    comparison.differences(scenario)
    shutil.copy2(comparison.portfolio, target / f"{number}.json")
    shutil.copy2(comparison.database, target / f"{number}.mdb")
    notes = [f"today: {scenario.today.iso()}", f"options: {scenario.options}",
             f"old rows: {scenario.old_rows}"]
    (target / f"{number}.txt").write_text("\n".join(notes + differences) + "\n", encoding="utf-8",
                                          errors="backslashreplace")


def _print_finding(seed, number, scenario, differences):
    print(f"\nPortfolio {number} of seed {seed}, today {scenario.today.iso()}, options {scenario.options}:")
    print(json.dumps(scenario.portfolio, indent=1))
    for line in differences[:8]:
        print("  " + line.encode("utf-8", "backslashreplace").decode("utf-8"))
    if len(differences) > 8:
        print(f"  ... and {len(differences) - 8} more")
    sys.stdout.flush()


def _arguments():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--tool", required=True, help="the program wrenfield-import")
    parser.add_argument("--maker", required=True, help="the program hearthbook-create-database")
    parser.add_argument("--writer", required=True, help="the program write-rows")
    parser.add_argument("--format", default="jet", choices=["jet", "sqlite"], help="of the database files")
    parser.add_argument("--count", type=int, help="how many portfolios to compare (default: $WRENFIELD_MODEL_PORTFOLIOS, or 400)")
    parser.add_argument("--hostile-names", action="store_true",
                        help=f"portfolios with {hostile_names.COUNT} names chosen to do harm")
    parser.add_argument("--first", type=int, default=0, help="the number of the first portfolio")
    parser.add_argument("--seed", default="1", help="another seed gives other portfolios")
    parser.add_argument("--keep", metavar="DIR", help="keep the files of portfolios that differ")
    parser.add_argument("--findings", type=int, default=3, help="stop after so many portfolios that differ")
    return parser.parse_args()


def main():
    arguments = _arguments()
    make = hostile_names.hostile_scenario if arguments.hostile_names else random_scenario
    count = arguments.count or (hostile_names.PORTFOLIOS if arguments.hostile_names else _PORTFOLIOS)
    findings = 0
    with tempfile.TemporaryDirectory(prefix="compare-import-") as folder:
        comparison = Comparison(arguments.tool, arguments.maker, arguments.writer, arguments.format, folder)
        for number in range(arguments.first, arguments.first + count):
            scenario = make(arguments.seed, number)
            if arguments.format == "jet":
                scenario = replace(scenario, portfolio=as_jet_can_hold_it(scenario.portfolio))
            if not comparison.differences(scenario):
                continue
            scenario = shrunk(scenario, lambda smaller: bool(comparison.differences(smaller)))
            differences = comparison.differences(scenario)
            _print_finding(arguments.seed, number, scenario, differences)
            if arguments.keep:
                _keep(arguments.keep, number, comparison, scenario, differences)
            findings += 1
            if findings >= arguments.findings:
                break
    if findings:
        print(f"\n{findings} portfolios differ")
        return 1
    print(f"{count} portfolios of seed {arguments.seed} agree")
    return 0


if __name__ == "__main__":
    sys.exit(main())
