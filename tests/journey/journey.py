"""What all journeys share: one desktop for a file of journeys, a wizard for each journey, and a picture of the screen
where one fails.

A journey is called with the folder of the programs, and then with what unittest takes."""

import os
import sys
import unittest

from desktop import Desktop
from wizard import Wizard


class Journey(unittest.TestCase):
    # All dates of the journeys are told from this day.
    TODAY = "2024-03-15"
    LOCALE = "C.UTF-8"
    programs = None

    @classmethod
    def setUpClass(cls):
        cls.desktop = Desktop(locale=cls.LOCALE)
        cls.addClassCleanup(cls.desktop.close)
        cls.desktop.use_in_this_process()

    def start(self, *arguments, today=None, prepare=None):
        """A wizard beside a fresh database. `prepare` may change both before the wizard starts."""
        wizard = Wizard(self.desktop, self.programs, arguments, today or self.TODAY, prepare)
        self.addCleanup(wizard.close)
        self.addCleanup(self._tell_failure, wizard)
        return wizard

    def _tell_failure(self, wizard):
        result = self._outcome.result
        if all(test is not self for test, _ in result.failures + result.errors):
            return
        picture = os.path.join(os.getcwd(), f"failed-{self.id()}.png")
        self.desktop.picture(picture)
        with open(wizard.output, errors="replace") as output:
            print(f"{self.id()}: see {picture}\n{output.read()}", file=sys.stderr)

    # What is looked at again and again.

    def assert_buttons(self, wizard, enabled, disabled):
        for name in enabled:
            self.assertIn("ENABLED", wizard.find("push button", name).states(), name)
        for name in disabled:
            self.assertNotIn("ENABLED", wizard.find("push button", name).states(), name)

    def assert_untouched(self, wizard):
        self.assertEqual(wizard.contents(), wizard.contents_at_start, "the database has changed")


def main():
    if len(sys.argv) < 2:
        sys.exit(f"usage: {sys.argv[0]} <folder of the programs> [journey ...]")
    Journey.programs = os.path.abspath(sys.argv.pop(1))
    unittest.main(verbosity=2, warnings="ignore")
