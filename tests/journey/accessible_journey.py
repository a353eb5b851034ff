"""What a person with a screen reader finds: on every page and in every dialog a role and a name for each control that
takes input, no two of them alike, and a focus that goes round all of them and can be seen."""

from desktop import Key, wait_for
from journey import Journey, main

# What nothing is entered into and nothing can be done with.
SILENT = {"filler", "label", "panel", "image", "table column header", "list", "list item", "page tab list", "alert",
          "dialog", "frame", "notification"}


class ScreenReader(Journey):
    def inputs(self, wizard):
        return [(node.role, node.name) for node in wizard.front().showing(but_not_in=("combo box",))
                if node.role not in SILENT]

    def assert_all_named(self, wizard, where):
        inputs = self.inputs(wizard)
        self.assertTrue(inputs, where)
        for role, name in inputs:
            self.assertTrue(name.strip(), f"{where}: a {role} without a name")
        names = [name.strip().lower() for role, name in inputs if role != "table cell"]
        self.assertEqual(sorted(names), sorted(set(names)), where)

    def assert_focus_goes_round(self, wizard, where):
        """By the Tab key, and each time the picture changes where the focus comes and goes."""
        wanted = {(node.role, node.name) for node in wizard.front().showing(but_not_in=("combo box", "table"))
                  if {"FOCUSABLE", "ENABLED"} <= node.states() and node.role not in SILENT}
        seen = set()
        for _ in range(len(wanted) + 1):
            focused = wait_for("a focus", wizard.focused)
            seen.add(focused)
            self.assertIn(focused, wanted, where)
            self.desktop.keys(Key("Tab"))
            wait_for(f"{where}: the focus to leave {focused}", lambda: wizard.focused() != focused)
        # Of options that none is chosen of, the Tab key reaches the first and the arrows the others.
        missed = {control for control in wanted - seen if control[0] != "radio button"}
        self.assertEqual(missed, set(), where)

    def look(self, wizard, where):
        self.assert_all_named(wizard, where)
        self.assert_focus_goes_round(wizard, where)

    def look_at_dialog(self, wizard, title):
        wizard.click("push button", "Add")
        wizard.wait_for_window(title)
        self.look(wizard, title)
        wizard.click("push button", "Cancel")
        wizard.wait_for_window("Wrenfield Wizard")

    def test_a_manager(self):
        wizard = self.start()
        wizard.wait_for_tab("Introduction")
        self.look(wizard, "Introduction")
        wizard.next("Bank Accounts")
        self.look(wizard, "Bank Accounts")
        self.look_at_dialog(wizard, "Bank Account")
        wizard.next("User Type")
        self.look(wizard, "User Type")
        wizard.click("radio button", wizard.MANAGER)
        self.look(wizard, "User Type")
        wizard.next("Owners")
        self.look_at_dialog(wizard, "Owner")
        wizard.add("Owner", lambda: wizard.enter("Owner Name", "Ann Owner"))
        self.look(wizard, "Owners")
        wizard.next("Properties")
        self.look_at_dialog(wizard, "Property")
        wizard.add("Property", lambda: wizard.enter("Address 1", "1 Short Street"))
        self.look(wizard, "Properties")
        wizard.next("Tenants")
        self.look_at_dialog(wizard, "Tenant")
        wizard.add("Tenant", wizard.enter_short_tenant)
        self.look(wizard, "Tenants")
        wizard.next("Finished")
        self.look(wizard, "Finished")

    def test_a_landlord(self):
        wizard = self.start()
        wizard.next("Bank Accounts")
        wizard.next("User Type")
        wizard.click("radio button", wizard.LANDLORD)
        wizard.next("Owners")
        self.look(wizard, "Owners")

    def test_a_building_and_a_monthly_rent(self):
        # Fields that come to life while the dialog is open.
        wizard = self.start()
        wizard.next("Bank Accounts")
        wizard.next("User Type")
        wizard.click("radio button", wizard.LANDLORD)
        wizard.next("Owners")
        wizard.next("Properties")
        wizard.click("push button", "Add")
        wizard.wait_for_window("Property")
        wizard.click("check box", "This property has multiple units/rooms which we manage")
        self.look(wizard, "Property")
        wizard.enter("Address 1", "1 Short Street")
        wizard.enter("Unit Numbers", "")
        wizard.click("push button", "Save")
        wizard.wait_for_window("Wrenfield Wizard")
        wizard.next("Tenants")
        wizard.click("push button", "Add")
        wizard.wait_for_window("Tenant")
        wizard.choose("Rent Frequency Unit", "Month")
        self.look(wizard, "Tenant")

    def test_boxes(self):
        wizard = self.start()
        wizard.next("Bank Accounts")
        wizard.next("User Type")
        wizard.next()
        box = wizard.wait_for_box("You must select a type")
        self.assertEqual([button.name for button in box.all("push button")], ["OK"])
        wizard.answer("You must select a type", "OK")


if __name__ == "__main__":
    main()
