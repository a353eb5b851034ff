"""Installs the built programs into a folder that is thrown away, and looks whether everything is where it belongs."""

import argparse
import os
import shutil
import stat
import subprocess
import sys
import tempfile
import unittest
import xml.etree.ElementTree

PROGRAMS = ["wrenfield-wizard", "wrenfield-import", "hearthbook-create-database"]
HELP = "WrenfieldHelp.chm"
METAINFO = "share/metainfo/example.hearthbook.wrenfield_wizard.metainfo.xml"
DESKTOP_ENTRY = "share/applications/wrenfield-wizard.desktop"
ICON = "share/icons/hicolor/scalable/apps/wrenfield-wizard.svg"
DATA = [
    DESKTOP_ENTRY,
    METAINFO,
    ICON,
    *[f"share/man/man1/{program}.1" for program in PROGRAMS],
    *[f"share/bash-completion/completions/{program}" for program in PROGRAMS[1:]],
    *[f"share/doc/wrenfield-wizard/{name}" for name in
      ["README.md", "LICENSE", "CHANGELOG.md", "docs/database.md", "examples/portfolio.json"]],
]

options = None


def run(*command, **more):
    """Runs a program to its end; a failure shows what it printed."""
    result = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, **more)
    if result.returncode != 0:
        raise AssertionError(f"{command} ended with {result.returncode}:\n{result.stdout}")
    return result.stdout


class Folder(unittest.TestCase):
    def setUp(self):
        self.folder = os.path.realpath(tempfile.mkdtemp(prefix="wrenfield-install-"))
        self.addCleanup(shutil.rmtree, self.folder)

    def in_folder(self, *names):
        return os.path.join(self.folder, *[name.lstrip("/") for name in names])

    def database_looked_for_by(self, program):
        """The database that an import without settings would fill."""
        portfolio = os.path.join(options.source, "examples/portfolio.json")
        empty = self.in_folder("no settings")
        result = subprocess.run([program, portfolio], stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True,
                                env={**os.environ, "XDG_CONFIG_HOME": empty, "XDG_CONFIG_DIRS": empty,
                                     "LC_ALL": "C.UTF-8"})
        self.assertEqual(result.returncode, 2, result.stdout)
        told = [line.partition(", using ")[2] for line in result.stdout.splitlines() if ", using " in line]
        self.assertEqual(len(told), 1, result.stdout)
        return told[0]


class StagedInstall(Folder):
    """As a packager installs: the default places, below DESTDIR."""

    def setUp(self):
        super().setUp()
        # What administrators set for their own files must not become what the users can't read.
        run(options.cmake, "--install", options.build, "--prefix", "/usr", umask=0o077,
            env={**os.environ, "DESTDIR": self.folder})

    def test_everything_is_in_its_place_and_nothing_else(self):
        found = [os.path.join(place, name)[len(self.folder):]
                 for place, _, names in os.walk(self.folder) for name in names]
        expected = [os.path.join(options.directory, name) for name in [*PROGRAMS, HELP]]
        expected += [f"/usr/bin/{program}" for program in PROGRAMS]
        expected += [f"/usr/{name}" for name in DATA]
        self.assertEqual(sorted(found), sorted(expected))

    def test_all_users_can_read_the_files_and_start_the_programs(self):
        for name in [*PROGRAMS, HELP]:
            mode = stat.S_IMODE(os.stat(self.in_folder(options.directory, name)).st_mode)
            self.assertEqual(oct(mode), oct(0o755 if name in PROGRAMS else 0o644), name)
        for name in DATA:
            mode = stat.S_IMODE(os.stat(self.in_folder("usr", name)).st_mode)
            self.assertEqual(oct(mode), oct(0o644), name)

    def test_links_lead_to_the_programs(self):
        for program in PROGRAMS:
            target = os.readlink(self.in_folder("usr/bin", program))
            self.assertEqual(target, os.path.join(options.directory, program))
            self.assertTrue(os.path.isfile(self.in_folder(target)))

    def test_the_desktop_finds_program_and_icon(self):
        entry = self.in_folder("usr", DESKTOP_ENTRY)
        self.assertEqual(run("desktop-file-validate", entry), "")
        with open(entry, encoding="utf-8") as file:
            values = dict(line.rstrip("\n").split("=", 1) for line in file if "=" in line)
        self.assertTrue(os.path.lexists(self.in_folder("usr/bin", values["Exec"])))
        self.assertEqual(os.path.basename(ICON), values["Icon"] + ".svg")

    def test_software_centres_are_told_about_this_version(self):
        file = self.in_folder("usr", METAINFO)
        run("appstreamcli", "validate", "--no-net", file)
        component = xml.etree.ElementTree.parse(file).getroot()
        self.assertEqual(component.find("releases/release").get("version"), options.version)
        self.assertEqual(component.findtext("launchable"), os.path.basename(DESKTOP_ENTRY))
        self.assertTrue(component.findtext("url").startswith("http"))

    def test_the_installed_import_fills_a_database(self):
        database = self.in_folder("trial.mdb")
        run(self.in_folder(options.directory, "hearthbook-create-database"), "--format", "sqlite", database)
        run(self.in_folder(options.directory, "wrenfield-import"), "--database", database, "--yes",
            self.in_folder("usr/share/doc/wrenfield-wizard/examples/portfolio.json"),
            env={**os.environ, "LC_ALL": "C.UTF-8"})
        self.assertNotEqual(run("sqlite3", database, "select count(*) from tenancy").strip(), "0")

    def test_started_through_a_link_it_looks_beside_the_program(self):
        link = self.in_folder("a link")
        os.symlink(self.in_folder(options.directory, "wrenfield-import"), link)
        self.assertEqual(self.database_looked_for_by(link), self.in_folder(options.directory, "property.mdb"))


class MovableInstall(Folder):
    """With Hearthbook's directory told from the prefix, and the prefix moved after installing."""

    def test_links_work_wherever_the_prefix_is(self):
        build = self.in_folder("build")
        run(options.cmake, "-S", options.source, "-B", build, "-G", "Ninja", "-DBUILD_TESTING=OFF",
            "-DHEARTHBOOK_DIRECTORY=lib/hearthbook")
        # Nothing is built anew: the programs don't know where they will lie.
        shutil.rmtree(os.path.join(build, "bin"), ignore_errors=True)
        os.symlink(os.path.join(options.build, "bin"), os.path.join(build, "bin"))
        run(options.cmake, "--install", build, "--prefix", self.in_folder("first"))
        os.rename(self.in_folder("first"), self.in_folder("second"))
        self.assertEqual(self.database_looked_for_by(self.in_folder("second/bin/wrenfield-import")),
                         self.in_folder("second/lib/hearthbook/property.mdb"))
        for program in PROGRAMS:
            self.assertTrue(os.path.isfile(self.in_folder("second/bin", program)))


def main():
    global options
    parser = argparse.ArgumentParser(description=__doc__)
    for name in ["cmake", "build", "source", "version", "directory"]:
        parser.add_argument(f"--{name}", required=True)
    options, others = parser.parse_known_args()
    unittest.main(argv=[sys.argv[0], *others], verbosity=2)


if __name__ == "__main__":
    main()
