"""What the comparisons of random portfolios in Jet files share: their arguments, the portfolios, and how they end."""

import argparse
import os
from dataclasses import replace

from compare_import import as_jet_can_hold_it
from random_portfolios import random_scenario


def arguments_for(description, variable, usual, reader=None, add=None):
    """`variable` of the environment says how many portfolios where no argument does, or else it is the usual number.
    `add` gives the parser arguments that one comparison alone has."""
    parser = argparse.ArgumentParser(description=description)
    parser.add_argument("--tool", required=True, help="the program wrenfield-import")
    parser.add_argument("--maker", required=True, help="the program hearthbook-create-database")
    parser.add_argument("--writer", required=True, help="the program write-rows")
    if reader:
        parser.add_argument("--reader", required=True, help=f"the program {reader}")
    if add:
        add(parser)
    parser.add_argument("--count", type=int, default=int(os.environ.get(variable, usual)),
                        help=f"how many portfolios (default: ${variable}, or {usual})")
    parser.add_argument("--seed", default="1", help="another seed gives other portfolios")
    return parser.parse_args()


def compare_all(arguments, compare, agreement):
    """Has each portfolio compared, which gives the number of rows and a list of differences, up to the first that has
    any. Returns the exit status. `agreement` begins the sentence of a good end."""
    rows = 0
    for number in range(arguments.count):
        scenario = random_scenario(arguments.seed, number)
        more, differences = compare(replace(scenario, portfolio=as_jet_can_hold_it(scenario.portfolio)))
        rows += more
        if differences:
            print(f"Portfolio {number} of seed {arguments.seed}:", *differences[:8], sep="\n  ")
            return 1
    if rows < 10 * arguments.count:
        print(f"{arguments.count} portfolios left only {rows} rows")
        return 1
    print(f"{agreement} the same {rows} rows of {arguments.count} portfolios")
    return 0
