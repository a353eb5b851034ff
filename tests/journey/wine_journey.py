"""The wizard for Windows, under Wine. No accessibility bus tells there what is on show, so that its user is blind: a
portfolio is entered into this system's wizard first, by sight, and then into that for Windows by the very same keys, in
windows of the same titles. Both must leave the same rows.

    wine_journey.py <folder of this system's programs> <folder of those for Windows> <portfolio> [folder for pictures]

With the folder, pictures of each page and dialog are taken as the guided tour does. WRENFIELD_DPI says how many dots the
display has to the inch.
"""

import datetime
import glob
import json
import os
import shutil
import subprocess
import sys

from desktop import Desktop, wait_for
from tour import Photographer
from typist import Typist
from wizard import FORMAT, Wizard, second_reader

IN_WINE = os.path.join(os.path.dirname(__file__), "..", "..", "packaging", "windows", "in-wine")
USUAL_DPI = 96
# What a key has led to is drawn by then.
STILL_SECONDS = 0.15


class WatchedDesktop(Desktop):
    """Knows the window in front by its title, and whether it's the first one that was opened."""

    main = None

    def front(self):
        window = self.run(["xdotool", "getactivewindow"], check=False).strip()
        if not window:
            return None
        self.main = self.main or window
        return self.run(["xdotool", "getwindowname", window], check=False).strip(), window == self.main


class RecordingDesktop(WatchedDesktop):
    """Writes down each call with the window that the keys went to."""

    def __init__(self):
        self.steps = []
        super().__init__()

    def keys(self, *strokes):
        self.steps.append((self.front(), strokes))
        super().keys(*strokes)


class WineWizard:
    """The wizard in a folder of its own, beside a fresh database."""

    def __init__(self, desktop, programs, arguments=()):
        self.desktop = desktop
        self.folder = os.path.join(desktop.folder, "wizard")
        shutil.copytree(programs, self.folder, ignore=lambda folder, names: [
            name for name in names if os.path.isfile(os.path.join(folder, name)) and not name.endswith((".dll", ".chm")) and
            name not in ("wrenfield-wizard.exe", "hearthbook-create-database.exe")])
        self.database = os.path.join(self.folder, "property.mdb")
        self.wine("hearthbook-create-database.exe", "--format", FORMAT, "property.mdb")
        self.process = desktop.start([IN_WINE, "wrenfield-wizard.exe", *arguments], cwd=self.folder)

    def wine(self, *command):
        subprocess.run([IN_WINE, *command], cwd=self.folder, env=self.desktop.environment, check=True,
                       stdout=subprocess.DEVNULL)

    def wait_for_window(self, window):
        wait_for(f"the window {window}", lambda: self.desktop.front() == window, patience=20)
        self.desktop.settle(STILL_SECONDS)


class WineDesktop(WatchedDesktop):
    """A screen with Wine on it, which is ended with it. Its programs know one screen from their start."""

    def __init__(self, dpi, **size):
        super().__init__(**size)
        self.run([IN_WINE, "reg", "add", r"HKCU\Control Panel\Desktop", "/v", "LogPixels", "/t", "REG_DWORD", "/d",
                  str(dpi), "/f"])
        self.end_wine()

    def end_wine(self):
        self.run([IN_WINE, "wineboot", "--end-session", "--force", "--shutdown"], check=False)

    def close(self):
        self.end_wine()
        super().close()


def enter_by_sight(programs, entries):
    """Gives the keys, pictures to be taken among them, and the rows that they have led to."""
    with RecordingDesktop() as desktop:
        desktop.use_in_this_process()
        wizard = Wizard(desktop, programs)
        typist = Typist(wizard, lambda what: desktop.steps.append((None, what)))
        typist.enter(entries)
        typist.finish()
        return desktop.steps, wizard.contents()


def enter_by_keys(programs, steps, dpi, pictures):
    """Gives the rows that the same keys have led to."""
    width, height = (1280 * dpi // USUAL_DPI, 900 * dpi // USUAL_DPI)
    with WineDesktop(dpi, width=width, height=height) as desktop:
        wizard = WineWizard(desktop, programs)
        photographer = Photographer(desktop, pictures)
        for window, strokes in steps:
            if window is not None:
                wizard.wait_for_window(window)
                desktop.keys(*strokes)
            elif pictures:
                desktop.settle(STILL_SECONDS)
                photographer.look(strokes)
        wizard.process.wait(60)
        logs = glob.glob(os.path.join(wizard.folder, "err*.log"))
        if logs:
            sys.exit(f"the wizard has reported failures:\n{open(logs[0], encoding='utf-8').read()}")
        return second_reader.dump(wizard.database).encode("utf-8", "surrogatepass")


def main():
    here, windows, portfolio, *pictures = sys.argv[1:]
    with open(portfolio, encoding="utf-8") as text:
        entries = json.load(text)
    if pictures:
        os.makedirs(pictures[0], exist_ok=True)
    # Rents are written up to today: both must mean the same day.
    while True:
        day = datetime.date.today()
        steps, expected = enter_by_sight(here, entries)
        found = enter_by_keys(windows, steps, int(os.environ.get("WRENFIELD_DPI", USUAL_DPI)), *(pictures or [None]))
        if day == datetime.date.today():
            break
    if found != expected:
        differing = set(found.splitlines()) ^ set(expected.splitlines())
        sys.exit("the rows differ:\n" + "\n".join(line.decode("utf-8", "replace") for line in sorted(differing)))
    print(f"{sum(1 for window, _ in steps if window)} calls for keys have led to the same rows under Wine.")


if __name__ == "__main__":
    main()
