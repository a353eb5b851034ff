"""What ./run brings along: a wizard whose Help button finds no viewer ends. Everything that it calls is a stand-in here
that only writes down how it was called."""

import os
import shutil
import subprocess
import sys
import tempfile
import unittest

SOURCE = sys.argv.pop(1)

STAND_IN = """#!/bin/sh
printf '%s %s\\n' "$(basename "$0")" "$*" >> "{calls}"
{more}
"""


class Run(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = folder.name
        self.calls = os.path.join(self.folder, "calls")
        for name in "run", "packaging/install-dependencies":
            os.makedirs(os.path.dirname(os.path.join(self.folder, name)), exist_ok=True)
            shutil.copy(os.path.join(SOURCE, name), os.path.join(self.folder, name))
        self.stand_in("cmake")
        # No package is there, and whoever gives the command has the right to install them.
        self.stand_in("dpkg-query", "exit 1")
        self.stand_in("apt-get")
        self.stand_in("sudo", 'exec "$@"')
        self.stand_in("wrenfield-wizard", folder="build/run/bin")
        self.stand_in("wrenfield-import", folder="build/run/bin")
        self.stand_in("hearthbook-create-database", folder="build/run/bin")

    def stand_in(self, name, more="exit 0", folder="stand-ins"):
        os.makedirs(os.path.join(self.folder, folder), exist_ok=True)
        file = os.path.join(self.folder, folder, name)
        with open(file, "w") as script:
            script.write(STAND_IN.format(calls=self.calls, more=more))
        os.chmod(file, 0o755)

    def run_it(self, *arguments, **environment):
        """The calls of the stand-ins, word by word."""
        path = os.path.join(self.folder, "stand-ins") + ":" + os.environ["PATH"]
        kept = {name: value for name, value in os.environ.items() if name not in ("DISPLAY", "WAYLAND_DISPLAY")}
        subprocess.run([os.path.join(self.folder, "run"), *arguments], env={**kept, "PATH": path, **environment},
                       check=False, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        with open(self.calls) as calls:
            return [line.split() for line in calls]

    def installed(self, calls):
        return {package for call in calls if call[:2] == ["apt-get", "install"] for package in call[2:]}

    def test_on_a_display_the_help_viewer_is_installed_before_the_wizard_starts(self):
        for display in "DISPLAY", "WAYLAND_DISPLAY":
            with self.subTest(display):
                calls = self.run_it(**{display: ":1"})
                self.assertIn("xchm", self.installed(calls))
                self.assertEqual(calls[-1][0], "wrenfield-wizard")

    def test_an_import_needs_no_help_viewer(self):
        installed = self.installed(self.run_it("--import", "portfolio.json"))
        self.assertIn("cmake", installed)
        self.assertNotIn("xchm", installed)


if __name__ == "__main__":
    unittest.main()
