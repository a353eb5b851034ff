"""Holds the controls against the toolkit's own in one run and prints the ratios.

    python3 bench/compare_controls.py --programs build/release/bin
"""

import argparse
import json
import os
import pathlib
import subprocess
import sys

# What is compared, with what, and how large the ratio may be.
COMPARISONS = [
    ("32,000 rows into a list", "GridFilled", "TableViewFilled", 1.0),
    ("one row scrolled in a list of 32,000", "GridScrolled/32000", "TableViewScrolled/32000", 1.0),
    ("the same against a list of 100", "GridScrolled/32000", "GridScrolled/100", 1.2),
    ("a key typed into a text box", "KeyIntoTextBox", "KeyIntoLineEdit", 2.0),
]


def measure(program, arguments):
    result = subprocess.run(
        [program, "--benchmark_format=json", *arguments],
        check=True, stdout=subprocess.PIPE, env={**os.environ, "QT_QPA_PLATFORM": "offscreen"})
    times = {}
    for entry in json.loads(result.stdout)["benchmarks"]:
        if entry["run_type"] == "aggregate" and entry["aggregate_name"] != "median":
            continue
        times[entry["run_name"]] = (entry["cpu_time"], entry["time_unit"])
    return times


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--programs", type=pathlib.Path, required=True, help="folder of the built programs")
    parser.add_argument("--brief", action="store_true", help="only to see that it runs")
    options = parser.parse_args()
    arguments = ["--benchmark_min_time=0.01"] if options.brief else [
        "--benchmark_repetitions=5", "--benchmark_report_aggregates_only=true"]
    times = measure(options.programs / "control-benchmarks", arguments)
    print(f"{'what':40} {'control':>12} {'toolkit':>12} {'ratio':>7} {'at most':>8}")
    for what, ours, other, limit in COMPARISONS:
        (time, unit), (other_time, other_unit) = times[ours], times[other]
        if unit != other_unit:
            sys.exit(f"{ours} and {other} are told in different units")
        print(f"{what:40} {time:9.1f} {unit} {other_time:9.1f} {other_unit} {time / other_time:7.2f} {limit:8.1f}")


if __name__ == "__main__":
    main()
