"""The wizard as its user has it: a folder of its own with the program and its database, worked by keys and clicks,
and read by the sqlite3 program."""

import glob
import os
import shutil
import subprocess
import tempfile

import accessible
from desktop import wait_for

TABS = ["Introduction", "Bank Accounts", "User Type", "Owners", "Properties", "Tenants", "Finished"]


class Wizard:
    """A running wizard. `programs` is the folder that the programs were built into."""

    def __init__(self, desktop, programs, arguments=(), today=None, prepare=None):
        self.desktop = desktop
        self.folder = tempfile.mkdtemp(prefix="wrenfield-wizard-", dir=desktop.folder)
        self.program = os.path.join(self.folder, "wrenfield-wizard")
        shutil.copy(os.path.join(programs, "wrenfield-wizard"), self.program)
        self.database = os.path.join(self.folder, "property.mdb")
        subprocess.run([os.path.join(programs, "hearthbook-create-database"), self.database], check=True)
        if prepare is not None:
            prepare(self)
        command = [self.program, *arguments]
        if today is not None:
            # The day stands for the whole journey; the clocks that the toolkit waits by run on.
            library = glob.glob("/usr/lib/*/faketime/libfaketime.so.1")[0]
            command = ["env", f"LD_PRELOAD={library}", f"FAKETIME=@{today} 12:00:00",
                       "FAKETIME_DONT_FAKE_MONOTONIC=1", *command]
        self.output = os.path.join(self.folder, "output.txt")
        with open(self.output, "wb") as output:
            self.process = desktop.start(command, stdout=output, stderr=subprocess.STDOUT)
        self._root = None

    @property
    def root(self):
        if self._root is None:
            self._root = accessible.application(self.process.pid)
        return self._root

    # What a user does.

    def find(self, role, name):
        return self.root.find(role, name)

    def click(self, role, name):
        self.desktop.click(*self.find(role, name).middle())

    def next(self, expected_tab=None):
        self.click("push button", "Next")
        if expected_tab is not None:
            self.wait_for_tab(expected_tab)

    def wait_for_tab(self, tab):
        wait_for(f"tab {tab}", lambda: self.current_tab() == tab)

    def current_tab(self):
        for tab in self.root.all("page tab"):
            if "SELECTED" in tab.states():
                return tab.name
        return None

    def enter(self, label, text):
        """Clicks into a text box and types over what is in it."""
        self.click("text", label)
        self.wait_for_focus(label)
        self.desktop.press("ctrl+a")
        self.desktop.type(text)

    def enter_date(self, label, date):
        """Types a date, day first, into the three boxes; "" means no date."""
        day, month, year = date.split("-")[::-1]
        self.click("text", f"{label} {'none' if self.root.all('text', f'{label} none') else 'day'}")
        self.desktop.type(day + month + year)

    def wait_for_focus(self, name):
        wait_for(f"the focus on {name}", lambda: any(
            "FOCUSED" in node.states() for node in self.root.all(name=name)))

    def choose(self, label, entry):
        """Picks an entry of a drop-down list by the keyboard."""
        box = self.find("combo box", label)
        self.desktop.click(*box.middle())
        item = wait_for(f"the entry {entry}", lambda: [node for node in self.root.all("list item", entry)])[0]
        self.desktop.click(*item.middle())
        wait_for("the list to close", lambda: "SHOWING" not in item.states() or not box.all("list"))

    def answer(self, text, button):
        """Waits for a message box with this text and presses one of its buttons."""
        box = wait_for(f"the box {text!r}", lambda: [
            dialog for role in ("alert", "dialog") for dialog in self.root.all(role)
            if dialog.all(name=text)])[0]
        self.desktop.click(*box.find("push button", button).middle())
        wait_for("the box to close", lambda: self.process.poll() is not None or not self._shows("label", text))

    def _shows(self, role, name):
        try:
            return bool(self.root.all(role, name))
        except Exception:  # The program may end by the button that was just pressed.
            return False

    # What is there afterwards.

    def wait_for_end(self):
        return self.process.wait(60)

    def rows(self, statement):
        result = subprocess.run(["sqlite3", "-readonly", self.database, statement], check=True,
                                stdout=subprocess.PIPE)
        return result.stdout.decode().splitlines()
