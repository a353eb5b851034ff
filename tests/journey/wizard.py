"""The wizard as its user has it: a folder of its own with the program and its database, worked by keys and clicks,
and read by programs that share nothing with it."""

import glob
import os
import shutil
import subprocess
import sys
import tempfile

import accessible
from desktop import wait_for

sys.path.insert(0, os.path.join(os.path.dirname(__file__), "..", "support"))
import second_reader

# Of the database files.
FORMAT = os.environ.get("WRENFIELD_FORMAT", "sqlite")

TABS = ["Introduction", "Bank Accounts", "User Type", "Owners", "Properties", "Tenants", "Finished"]


class Beginning(str):
    """Equals every text that begins with it."""

    def __eq__(self, other):
        return other.startswith(str(self))

    __hash__ = str.__hash__


class Wizard:
    """A running wizard. `programs` is the folder that the programs were built into."""

    LANDLORD = "I am a landlord.  I only manage my own properties."
    MANAGER = "I am a property manager.  I manage properties on behalf of other owners"
    SET_BALANCE = "Set this tenants rent balance as "
    DONT_SET_BALANCE = "Dont set the balance.  I will manually enter all transactions since the tenancy start date"

    def __init__(self, desktop, programs, arguments=(), today=None, prepare=None):
        self.desktop = desktop
        self.settings_file = None
        self.folder = tempfile.mkdtemp(prefix="wrenfield-wizard-", dir=desktop.folder)
        self.program = os.path.join(self.folder, "wrenfield-wizard")
        shutil.copy(os.path.join(programs, "wrenfield-wizard"), self.program)
        self.database = os.path.join(self.folder, "property.mdb")
        self.programs = programs
        subprocess.run([os.path.join(programs, "hearthbook-create-database"), "--format", FORMAT, self.database],
                       check=True)
        self.contents_at_start = self.contents()
        self.stand_ins = os.path.join(self.folder, "stand-ins")
        os.mkdir(self.stand_ins)
        self.path = self.stand_ins + ":" + os.environ["PATH"]
        if prepare is not None:
            prepare(self)
        command = ["/usr/bin/env", f"PATH={self.path}", self.program, *arguments]
        if today is not None:
            # The day stands for the whole journey; the clocks that the toolkit waits by run on.
            library = glob.glob("/usr/lib/*/faketime/libfaketime.so.1")[0]
            # The sanitizers want to be loaded first, but a pinned clock doesn't disturb them.
            options = os.environ.get("ASAN_OPTIONS", "") + ":verify_asan_link_order=0"
            command = ["/usr/bin/env", f"ASAN_OPTIONS={options}", f"LD_PRELOAD={library}", f"FAKETIME=@{today} 12:00:00",
                       "FAKETIME_DONT_FAKE_MONOTONIC=1", *command]
        self.output = os.path.join(self.folder, "output.txt")
        with open(self.output, "wb") as output:
            self.process = desktop.start(command, stdout=output, stderr=subprocess.STDOUT)
        self._root = None

    # What a journey prepares before the wizard starts.

    def stand_in(self, name, folder=None):
        """Puts a program that only writes down how it was called where the wizard looks for the real one. Gives a
        function that tells the arguments of all calls so far."""
        calls = os.path.join(self.folder, f"calls-of-{name}")
        file = os.path.join(folder or self.stand_ins, name)
        with open(file, "w") as script:
            script.write(f'#!/bin/sh\nprintf "%s\\n" "$*" >> "{calls}"\n')
        os.chmod(file, 0o755)

        def told():
            if not os.path.exists(calls):
                return []
            with open(calls) as lines:
                return lines.read().splitlines()
        return told

    def start_through(self, name, *lines):
        """Starts the wizard by a script of these lines; the last one becomes the program."""
        script = os.path.join(self.folder, name)
        with open(script, "w") as file:
            file.write("\n".join(["#!/bin/sh", *lines, ""]))
        os.chmod(script, 0o755)
        self.program = script

    def give_up_rights(self):
        """Whoever runs the journeys as root has every right to every file, unless he gives it up."""
        self.start_through("ordinary", 'if [ "$(id -u)" = 0 ]; then',
                           f'  exec setpriv --bounding-set=-all --inh-caps=-all "{self.program}" "$@"', "fi",
                           f'exec "{self.program}" "$@"')

    def settings(self, **values):
        """Hearthbook's settings, as it keeps them in its part of the settings store."""
        folder = os.path.join(self.desktop.environment["XDG_CONFIG_HOME"], "hearthbook")
        os.makedirs(folder, exist_ok=True)
        self.settings_file = os.path.join(folder, "registry.reg")
        with open(self.settings_file, "w") as file:
            file.write("Windows Registry Editor Version 5.00\n\n[HKEY_LOCAL_MACHINE\\SOFTWARE\\Hearthbook\\Settings]\n")
            for name, value in values.items():
                file.write(f'"{name}"="{value}"\n')

    @property
    def root(self):
        if self._root is None:
            self._root = accessible.application(self.process.pid)
        return self._root

    def change(self, statement):
        if FORMAT == "jet":
            subprocess.run([os.path.join(self.programs, "write-rows"), self.database], check=True,
                           input="".join(f"{line}\0" for line in statement.split(";")).encode())
        else:
            subprocess.run(["sqlite3", self.database, statement], check=True)

    # What a user does.

    def front(self):
        """The window that the user can work in: the box or dialog that was opened last, or the wizard itself."""
        windows = [window for window in self.root.children() if window.is_showing()]
        opened = [window for window in windows if window.role in ("alert", "dialog")]
        return (opened or windows)[-1]

    def find(self, role, name):
        return wait_for(f"a {role} named {name!r}", lambda: self.all(role, name))[0]

    def all(self, role=None, name=None):
        try:
            return self.front().all(role, name)
        except Exception:  # A window that is gone by the time it is asked holds nothing.
            return []

    def focused(self):
        """Role and name of what has the focus, or None."""
        try:
            focused = self.front().focused()
            return (focused[-1].role, focused[-1].name) if focused else None
        except Exception:  # A window that is gone by the time it is asked has no focus.
            return None

    def click(self, role, name):
        self.desktop.click(*self.find(role, name).middle())

    def next(self, expected_tab=None):
        self.click("push button", "Next")
        if expected_tab is not None:
            self.wait_for_tab(expected_tab)

    def wait_for_tab(self, tab):
        wait_for(f"tab {tab}", lambda: self.current_tab() == tab)

    @staticmethod
    def tabs():
        return TABS

    def current_tab(self):
        for tab in self.root.all("page tab"):
            if "SELECTED" in tab.states():
                return tab.name
        return None

    def add(self, dialog, enter):
        """Opens the dialog of a list page by Add, fills it in by `enter` and saves it."""
        self.fill("Add", dialog, enter)

    def select(self, name):
        """Makes the row of this name the current one of the page's list."""
        self.click("table cell", name)

    def remove(self, name):
        self.select(name)
        self.click("push button", "Remove")
        self.answer(f"Delete {name}?", "Yes")
        self.wait_for_window("Wrenfield Wizard")

    def cells(self):
        """What the page's list shows, row by row."""
        return [cell.name for cell in self.all("table cell")]

    def fill(self, opener, dialog, enter):
        self.click("push button", opener)
        self.wait_for_window(dialog)
        enter()
        self.click("push button", "Save")
        self.wait_for_window("Wrenfield Wizard")

    def wait_for_window(self, title):
        """The window of this title is the one that the user works in, and keys go there."""
        wait_for(f"the window {title}", lambda: self.is_active(title))

    def is_active(self, title):
        try:
            front = self.front()
            return front.name == title and "ACTIVE" in front.states()
        except Exception:  # A window that is gone by the time it is asked isn't.
            return False

    def fill_in_landlord(self, balance=None):
        """The shortest way from the first page to the last: one owner, one property, one tenant, whose balance isn't
        set unless one is given."""
        self.wait_for_tab("Introduction")
        self.next("Bank Accounts")
        self.next("User Type")
        self.click("radio button", self.LANDLORD)
        self.next("Owners")
        self.enter("Owner Name", "A. Landlord")
        self.next("Properties")
        self.add("Property", lambda: self.enter("Address 1", "1 Short Street"))
        self.next("Tenants")
        self.add("Tenant", lambda: self.enter_short_tenant(balance))
        self.next("Finished")

    def enter_short_tenant(self, balance=None):
        self.enter("Tenants Name", "T. Enant")
        self.enter_date("Tenancy Start Date", "2024-03-01")
        self.choose("Property", "1 Short Street")
        self.enter("Current Rent", "100")
        if balance is None:
            self.click("radio button", self.DONT_SET_BALANCE)
        else:
            self.click("radio button", self.SET_BALANCE)
            self.enter("Rent Balance", balance)

    def enter(self, label, text):
        """Clicks into a text box and types over what is in it."""
        self.click("text", label)
        self.wait_for_focus(label)
        self.desktop.press("ctrl+a")
        self.desktop.type(text)

    def enter_date(self, label, date):
        """Types a date, month first as in the plain locale, from the first box on."""
        year, month, day = date.split("-")
        self.click("text", f"{label} none" if self.all("text", f"{label} none") else f"{label} month")
        self.desktop.type(month + day + year)
        for part, text in ("month", month), ("day", day), ("year", year):
            wait_for(f"{text} in {label} {part}", lambda part=part, text=text:
                     [box for box in self.all("text", f"{label} {part}") if box.text() == text])

    def wait_for_focus(self, name):
        wait_for(f"the focus on {name}", lambda: (self.focused() or ("", ""))[1] == name)

    def choose(self, label, entry):
        """Picks an entry of a drop-down list with the mouse."""
        box = self.find("combo box", label)
        self.desktop.click(*box.middle())
        item = wait_for(f"the entry {entry}", lambda: self.root.all("list item", entry))[0]
        self.desktop.click(*item.middle())
        wait_for(f"{entry} to be chosen", lambda: "SELECTED" in item.states() and not box.all("list"))

    def entries(self, label):
        """What a drop-down list offers."""
        opened = self.find("combo box", label).children()[0]
        return [entry.name for entry in opened.children()]

    def answer(self, text, button, title="Wrenfield Wizard"):
        """Waits for a message box with this very text and clicks one of its buttons."""
        box = self.wait_for_box(text, title)
        self.desktop.click(*box.find("push button", button).middle())
        wait_for("the box to close", lambda: self.process.poll() is not None or not self._is_showing(box))

    def answer_all_until(self, text):
        """Says OK to one box after the other, up to the one with this text. Gives title and text of those before."""
        answered = []
        while True:
            box = wait_for("a box", self.box)
            told = box.name, box.all("label")[0].name
            self.desktop.click(*box.find("push button", "OK").middle())
            wait_for("the box to close", lambda box=box: self.process.poll() is not None or not self._is_showing(box))
            if told[1] == text:
                return answered
            answered.append(told)

    def wait_for_box(self, text, title="Wrenfield Wizard"):
        """A message box with this very text. Another one is a failure at once."""
        box = wait_for(f"a box {text!r}", self.box)
        told = (box.name, [label.name for label in box.all("label")])
        if told != (title, [text]):
            raise AssertionError(f"the box says {told}, not {text!r}")
        return box

    def box(self):
        """The message box that is open, if one is."""
        try:
            box = self.front()
            return box if box.role == "alert" and box.all("label") else None
        except Exception:  # No window yet, or none any more.
            return None

    @staticmethod
    def _is_showing(box):
        try:
            return box.is_showing()
        except Exception:  # Gone with its process.
            return False

    def close(self):
        if self.process.poll() is None:
            self.process.kill()
            self.process.wait()
        if self.settings_file:
            os.remove(self.settings_file)

    # What is there afterwards.

    def wait_for_end(self):
        """The status that the process ends with."""
        return self.process.wait(60)

    def log(self):
        """The lines of the error log beside the program, without the time in front of the first."""
        logs = glob.glob(os.path.join(self.folder, "err*.log"))
        if not logs:
            return []
        with open(logs[0]) as log:
            return log.read()[len("01/02/34 12:34:56 "):].splitlines()

    def contents(self):
        """Every row of every table."""
        return second_reader.dump(self.database).encode("utf-8", "surrogatepass")

    def rows(self, statement):
        return second_reader.query(self.database, statement)
