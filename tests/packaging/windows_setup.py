"""The setup for Windows, under Wine: into Hearthbook's folder, an import there, over an older version, and away again.

    windows_setup.py <setup> <setup of an older version> <version>
"""

import argparse
import glob
import os
import subprocess
import sys
import time

sys.path.insert(0, os.path.join(os.path.dirname(__file__), "..", "journey"))
from desktop import wait_for  # noqa: E402
from wine_journey import IN_WINE, USUAL_DPI, WineDesktop  # noqa: E402

DRIVE = os.path.join(os.path.dirname(__file__), "..", "..", "build", "windows", "wine", "drive_c")
SETTINGS = r"HKLM\SOFTWARE\Hearthbook\Settings"
APPS = r"HKLM\Software\Microsoft\Windows\CurrentVersion\Uninstall\WrenfieldWizard"
SHORTCUT = os.path.join(DRIVE, "ProgramData", "Microsoft", "Windows", "Start Menu", "Programs", "Wrenfield Wizard.lnk")
LONGEST_WAIT_SECONDS = 30
PROGRAMS = {"wrenfield-wizard.exe", "wrenfield-import.exe", "hearthbook-create-database.exe"}


def wine(*command, status=0, folder=DRIVE):
    done = subprocess.run([IN_WINE, *command], cwd=folder, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
    expect(done.returncode, status, f"status of {command}")
    return done.stdout.decode("utf-8", "replace")


def expect(found, expected, what):
    if found != expected:
        sys.exit(f"{what}: {found!r}, not {expected!r}")


def installed(folder):
    """All files below the folder, with the names that Windows would give them."""
    return {os.path.relpath(file, folder) for file in glob.glob(os.path.join(folder, "**"), recursive=True)
            if os.path.isfile(file)}


def apps(value, view="64"):
    """What "Apps" tells, or None."""
    done = subprocess.run([IN_WINE, "reg", "query", APPS, "/v", value, f"/reg:{view}"], stdout=subprocess.PIPE,
                          stderr=subprocess.DEVNULL)
    return done.stdout.decode().split("REG_SZ")[-1].strip() if done.returncode == 0 else None


def forget_hearthbook():
    for view in "32", "64":
        subprocess.run([IN_WINE, "reg", "delete", SETTINGS, "/f", f"/reg:{view}"], stdout=subprocess.DEVNULL,
                       stderr=subprocess.DEVNULL)


class Hearthbook:
    """Its folder, with a database and a program of its own, and the setting that tells of it."""

    def __init__(self, view):
        self.view = view
        self.name = f"Hearthbook {view}"
        self.folder = os.path.join(DRIVE, self.name)
        subprocess.run(["rm", "-rf", self.folder], check=True)
        os.makedirs(os.path.join(self.folder, "platforms"))
        self.own = {name: b"Hearthbook's own" for name in
                    ("Hearthbook.exe", "property.mdb", os.path.join("platforms", "own.txt"))}
        for name, contents in self.own.items():
            with open(os.path.join(self.folder, name), "wb") as file:
                file.write(contents)
        forget_hearthbook()
        wine("reg", "add", SETTINGS, "/v", "APPPath", "/d", f"C:\\{self.name}", "/f", f"/reg:{view}")

    def contents(self, name):
        with open(os.path.join(self.folder, name), "rb") as file:
            return file.read()

    def expect_own(self):
        for name, contents in self.own.items():
            if self.contents(name) != contents:
                sys.exit(f"{name} has changed")

    def make_database(self):
        os.remove(os.path.join(self.folder, "property.mdb"))
        wine("hearthbook-create-database.exe", "property.mdb", folder=self.folder)
        self.own["property.mdb"] = self.contents("property.mdb")


def run(setup, *switches, status=0):
    wine("Z:" + os.path.abspath(setup), "/S", *switches, status=status)


def remove(name):
    """As "Apps" does it. A copy of the program does the work, so that it can take itself away."""
    wine(f"C:\\{name}\\wrenfield-uninstall.exe", "/S")
    until = time.monotonic() + LONGEST_WAIT_SECONDS
    # The last thing that goes.
    while apps("DisplayVersion") is not None:
        if time.monotonic() > until:
            sys.exit("the programs are still in Apps")
        time.sleep(0.1)


def expect_installed(hearthbook, version):
    files = installed(hearthbook.folder)
    expect(PROGRAMS - files, set(), "programs that are missing")
    expect(apps("DisplayVersion"), version, "version in Apps")
    expect(apps("InstallLocation"), f"C:\\{hearthbook.name}", "folder in Apps")
    expect(os.path.exists(SHORTCUT), True, "shortcut")
    hearthbook.expect_own()


def expect_removed(hearthbook):
    expect(installed(hearthbook.folder), set(hearthbook.own), "files that are left")
    expect(sorted(os.listdir(hearthbook.folder)), ["Hearthbook.exe", "platforms", "property.mdb"], "what is left")
    expect(apps("DisplayVersion"), None, "version in Apps")
    expect(os.path.exists(SHORTCUT), False, "shortcut")
    hearthbook.expect_own()


def try_import(hearthbook):
    """The tool finds Hearthbook's database by the settings."""
    wine("wrenfield-import.exe", r"WrenfieldWizard\portfolio.json", "--yes", folder=hearthbook.folder)
    filled = hearthbook.contents("property.mdb")
    expect(b"A\0d\0a\0 \0F\0i\0n\0c\0h" in filled or b"Ada Finch" in filled, True, "a tenant in the database")
    hearthbook.own["property.mdb"] = filled


def try_wizard(desktop, hearthbook, setup):
    """The wizard starts on Hearthbook's database. While it runs, nothing of it is replaced or removed."""
    before = installed(hearthbook.folder)
    wizard = desktop.start([IN_WINE, f"C:\\{hearthbook.name}\\wrenfield-wizard.exe"])
    wait_for("the wizard", lambda: (desktop.front() or [None])[0] == "Wrenfield Wizard")
    run(setup, status=2)
    # It has the database open.
    expect(installed(hearthbook.folder) - {"property.ldb"}, before, "files")
    desktop.press("alt+F4")
    expect(wizard.wait(LONGEST_WAIT_SECONDS), 0, "status of the wizard")


def try_setup(desktop, options):
    for view in "32", "64":
        hearthbook = Hearthbook(view)
        run(options.older)
        expect_installed(hearthbook, "0.0.1")
        leftover = os.path.join(hearthbook.folder, "of-the-older-one.txt")
        expect(os.path.exists(leftover), True, "file of the older version")
        run(options.setup)
        expect_installed(hearthbook, options.version)
        expect(os.path.exists(leftover), False, "file of the older version")
        hearthbook.make_database()
        try_wizard(desktop, hearthbook, options.setup)
        try_import(hearthbook)
        remove(hearthbook.name)
        expect_removed(hearthbook)
    forget_hearthbook()
    # Where to is told: nothing is looked for.
    run(options.setup, r"/D=C:\Elsewhere")
    expect(PROGRAMS - installed(os.path.join(DRIVE, "Elsewhere")), set(), "programs that are missing")
    remove("Elsewhere")
    expect(os.path.exists(os.path.join(DRIVE, "Elsewhere")), False, "the folder")


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("setup")
    parser.add_argument("older")
    parser.add_argument("version")
    options = parser.parse_args()
    with WineDesktop(USUAL_DPI) as desktop:
        desktop.use_in_this_process()
        try:
            try_setup(desktop, options)
        finally:
            forget_hearthbook()
    print("The setup brings and takes away what it should.")


if __name__ == "__main__":
    main()
