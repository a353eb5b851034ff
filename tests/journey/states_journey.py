"""What assistive programs are told of the controls: by asking them, and by listening on the accessibility bus from
another process."""

import os
import subprocess
import sys
import threading

from desktop import Key, wait_for
from journey import Journey, main


class Listener:
    """Everything that is told on the bus of changes of these states, while it lives."""

    def __init__(self, desktop, *states):
        script = os.path.join(os.path.dirname(os.path.abspath(__file__)), "bus_listener.py")
        self.process = desktop.start([sys.executable, "-B", script, *states], stdin=subprocess.PIPE,
                                     stdout=subprocess.PIPE, text=True)
        self.told = []
        if self.process.stdout.readline() != "listening\n":
            raise AssertionError("nobody listens")
        threading.Thread(target=self._hear, daemon=True).start()

    def _hear(self):
        for line in self.process.stdout:
            self.told.append(tuple(line.rstrip("\n").split("\t")))

    def wait_for(self, state, on, role, name):
        told = (state, "1" if on else "0", role, name)
        wait_for(f"{told} among {self.told}", lambda: told in self.told, patience=10)

    def close(self):
        self.process.stdin.close()
        self.process.wait(10)


class States(Journey):
    def listen(self, *states):
        listener = Listener(self.desktop, *states)
        self.addCleanup(listener.close)
        return listener

    def at_bank_accounts(self):
        wizard = self.start()
        wizard.next("Bank Accounts")
        return wizard

    def with_accounts(self):
        wizard = self.at_bank_accounts()
        for name in "First", "Second":
            wizard.add("Bank Account", lambda name=name: wizard.enter("Account Name", name))
        return wizard

    def at_tenant(self):
        wizard = self.at_bank_accounts()
        wizard.next("User Type")
        wizard.click("radio button", wizard.LANDLORD)
        wizard.next("Owners")
        wizard.next("Properties")
        wizard.add("Property", lambda: wizard.enter("Address 1", "1 Short Street"))
        wizard.next("Tenants")
        wizard.click("push button", "Add")
        wizard.wait_for_window("Tenant")
        return wizard

    def focused(self, wizard):
        return [(node.role, node.name) for node in wizard.root.focused()]

    def assert_one_focus(self, wizard, role, name):
        wait_for(f"the focus on {role} {name!r} alone, not {self.focused(wizard)}",
                 lambda: self.focused(wizard) == [(role, name)], patience=10)

    def test_the_form_is_a_frame(self):
        wizard = self.at_bank_accounts()
        form = wizard.front()
        self.assertEqual((form.role, form.name), ("frame", "Wrenfield Wizard"))
        self.assertIn("ACTIVE", form.states())

    def test_tab_leads_to_the_current_cell_of_a_list(self):
        wizard = self.with_accounts()
        wizard.select("First")
        listener = self.listen("focused")
        self.desktop.keys(Key("Tab"))
        listener.wait_for("focused", True, "push button", "Add")
        self.desktop.keys(Key("shift+Tab"))
        listener.wait_for("focused", True, "table cell", "First")
        self.desktop.settle()
        self.assertEqual([told for told in listener.told if told[1] == "1"][-1],
                         ("focused", "1", "table cell", "First"))
        self.assert_one_focus(wizard, "table cell", "First")

    def test_one_control_has_the_focus(self):
        wizard = self.at_tenant()
        wizard.click("text", "Tenants Name")
        self.assert_one_focus(wizard, "text", "Tenants Name")
        wizard.choose("Rent Frequency Unit", "Month")
        self.assert_one_focus(wizard, "combo box", "Rent Frequency Unit")
        self.desktop.keys(Key("Tab"))
        wait_for("the focus to go on", lambda: wizard.focused() != ("combo box", "Rent Frequency Unit"))
        self.assertEqual(len(self.focused(wizard)), 1, self.focused(wizard))

    def test_a_cell_that_is_clicked_has_the_focus_alone(self):
        wizard = self.with_accounts()
        wizard.select("Second")
        self.assert_one_focus(wizard, "table cell", "Second")

    def test_a_closed_list_tells_its_choice(self):
        wizard = self.at_tenant()
        for label, choice in ("Rent Frequency Unit", "Week"), ("Property", ""):
            self.assertEqual(wizard.find("combo box", label).text(), choice, label)
        wizard.choose("Property", "1 Short Street")
        unit = wizard.find("combo box", "Property")
        wait_for("the choice", lambda: unit.text() == "1 Short Street")
        entries = unit.children()[0].children()
        self.assertEqual([entry.name for entry in entries if "SELECTED" in entry.states()], ["1 Short Street"])

    def test_a_disabled_date_says_so(self):
        wizard = self.at_bank_accounts()
        wizard.next("User Type")
        date = wizard.find("panel", "Date of last disbursement")
        self.assertNotIn("ENABLED", date.states())
        listener = self.listen("enabled")
        wizard.click("radio button", wizard.MANAGER)
        listener.wait_for("enabled", True, "panel", "Date of last disbursement")
        self.assertIn("ENABLED", date.states())
        wizard.click("radio button", wizard.LANDLORD)
        listener.wait_for("enabled", False, "panel", "Date of last disbursement")

    def test_a_button_that_is_held_down_says_so(self):
        wizard = self.at_bank_accounts()
        listener = self.listen("pressed")
        self.desktop.move(*wizard.find("push button", "Edit").middle())
        self.desktop.run(["xdotool", "mousedown", "1"])
        listener.wait_for("pressed", True, "push button", "Edit")
        self.desktop.run(["xdotool", "mouseup", "1"])
        listener.wait_for("pressed", False, "push button", "Edit")

    def test_a_row_that_is_no_longer_selected_says_so(self):
        wizard = self.with_accounts()
        wizard.select("First")
        listener = self.listen("selected")
        wizard.select("Second")
        listener.wait_for("selected", True, "table cell", "Second")
        listener.wait_for("selected", False, "table cell", "First")

    def test_a_tab_that_is_no_longer_selected_says_so(self):
        wizard = self.at_bank_accounts()
        listener = self.listen("selected")
        wizard.next("User Type")
        listener.wait_for("selected", True, "page tab", "User Type")
        listener.wait_for("selected", False, "page tab", "Bank Accounts")


if __name__ == "__main__":
    main()
