"""The two roads into the database: what is typed into the wizard's screens, and the same entries as a portfolio file
for the import. Row by row they have to end in the same database."""

import json
import os
import subprocess

import wizard as wizard_module
from journey import Journey, main
from random_portfolio import random_portfolio
from typist import Typist

EXAMPLE = os.path.join(os.path.dirname(__file__), "..", "..", "examples", "portfolio.json")


class Roads(Journey):
    TODAY = "2026-11-21"
    # The example, and portfolios made by chance. WRENFIELD_SHARE says which part of them is tried, as in 1/4.
    PORTFOLIOS = ["example", *range(1, 1 + int(os.environ.get("WRENFIELD_PORTFOLIOS", "20")))]
    SHARE, SHARES = map(int, os.environ.get("WRENFIELD_SHARE", "1/1").split("/"))

    def assert_roads_agree(self, portfolio):
        wizard = self.start()
        typist = Typist(wizard)
        typist.enter(portfolio)
        typist.finish()
        self.assertEqual(wizard.contents().decode(), self.imported(wizard, portfolio))

    def imported(self, wizard, portfolio):
        file = os.path.join(wizard.folder, "portfolio.json")
        with open(file, "w") as text:
            json.dump(portfolio, text)
        database = os.path.join(wizard.folder, "imported.mdb")
        subprocess.run([self.program("hearthbook-create-database"), "--format", wizard_module.FORMAT, database], check=True)
        subprocess.run([self.program("wrenfield-import"), file, "--database", database, "--today", self.TODAY, "--yes"],
                       check=True, stdout=subprocess.PIPE, stderr=subprocess.PIPE)
        return wizard_module.second_reader.dump(database)

    def program(self, name):
        return os.path.join(self.programs, name)

    def test_portfolios(self):
        for which in self.PORTFOLIOS[self.SHARE - 1::self.SHARES]:
            with self.subTest(which):
                self.assert_roads_agree(self.portfolio(which))

    def portfolio(self, which):
        if which != "example":
            return random_portfolio(which, self.TODAY)
        with open(EXAMPLE) as text:
            return json.load(text)


if __name__ == "__main__":
    main()
