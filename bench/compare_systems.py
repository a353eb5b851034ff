#!/usr/bin/env python3
"""Measures the import for Windows, under Wine, beside that for this system, by turns in one run.

    python3 bench/compare_systems.py --programs build/release/bin --windows build/windows/programs/bin
"""

import argparse
import os
import pathlib
import tempfile

from compare_import import Bench, Measured, compare_by_turns


def server_seconds():
    """Of processor time that Wine's server has taken, which locks and opens files for its programs."""
    ticks = 0
    for process in pathlib.Path("/proc").glob("[0-9]*"):
        try:
            name, _, figures = (process / "stat").read_text().rpartition(") ")
        except OSError:
            continue
        if "(wineserver" in name:
            ticks += sum(int(figure) for figure in figures.split()[11:13])
    return ticks / os.sysconf("SC_CLK_TCK")


class MeasuredUnderWine(Measured):
    def run(self):
        before = server_seconds()
        super().run()
        self.processor[-1] += server_seconds() - before


def compare(programs, windows, folder, form, tenants, start, rounds):
    here = Bench(programs, folder, form)
    portfolio = here.portfolio(tenants, start, "Week")
    for_windows = here.path("windows")
    os.mkdir(for_windows)
    compare_by_turns(f"{tenants} weekly tenancies since {start}, {form}", ("this system", Measured(here, portfolio)),
                     ("under Wine", MeasuredUnderWine(Bench(windows, for_windows, form), portfolio)), rounds)


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--programs", default="build/release/bin")
    parser.add_argument("--windows", default="build/windows/programs/bin")
    parser.add_argument("--brief", action="store_true", help="a small size, for seeing that it runs")
    arguments = parser.parse_args()
    size = (20, "2025-11-24", 1) if arguments.brief else (2000, "2021-11-22", 5)
    for form in ("sqlite", "jet"):
        with tempfile.TemporaryDirectory() as folder:
            compare(arguments.programs, arguments.windows, folder, form, *size)


if __name__ == "__main__":
    main()
