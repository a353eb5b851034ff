"""The guided tour: the real wizard on a screen of its own, worked by real keys through all seven pages with a
portfolio, with a picture of each page and dialog, up to the last message.

    tour.py <folder of the programs> <portfolio> <database> <folder for the pictures>
"""

import json
import os
import sys

from desktop import Desktop, wait_for
from typist import Typist
from wizard import Wizard

# The word that the typist has for what is on show, and the name of its picture.
PICTURES = {
    "introduction": "1-introduction",
    "dialog bank account": "2-bank-account",
    "list bank account": "2-bank-accounts",
    "user type": "3-user-type",
    "single owner": "4-single-owner",
    "dialog owner": "4-owner",
    "list owner": "4-owners",
    "dialog property": "5-property",
    "list property": "5-properties",
    "dialog tenant": "6-tenant",
    "list tenant": "6-tenants",
    "finished": "7-finished",
    "message": "7-import-complete",
}


class Photographer:
    """Takes each picture once, the first time that there is something to see."""

    def __init__(self, desktop, folder):
        self.desktop = desktop
        self.folder = folder
        self.taken = set()

    def look(self, what):
        name = PICTURES[what]
        if name in self.taken:
            return
        self.taken.add(name)
        file = os.path.join(self.folder, name + ".png")
        wait_for("the window", lambda: self.desktop.run(["xdotool", "getactivewindow"], check=False).strip())
        window = self.desktop.run(["xdotool", "getactivewindow"]).strip()
        self.desktop.settle()
        self.desktop.picture(file, window)
        print(f"  {file}")


def main():
    programs, portfolio, database, folder = sys.argv[1:]
    os.makedirs(folder, exist_ok=True)
    with open(portfolio) as text:
        entries = json.load(text)
    with Desktop() as desktop:
        desktop.use_in_this_process()
        wizard = Wizard(desktop, programs, prepare=lambda it: it.settings(Networkable="1", DatabaseLocation=database))
        typist = Typist(wizard, Photographer(desktop, folder).look)
        typist.enter(entries)
        message = typist.finish()
    print(f"The wizard said: {message}")


if __name__ == "__main__":
    main()
