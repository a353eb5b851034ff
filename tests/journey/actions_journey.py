"""What a program that assists a user does for him counts as what he does himself: days picked, boxes written to and
buttons pressed through the accessibility interface lead to the very entries that keys and mouse lead to."""

from desktop import Key, wait_for
from journey import Journey, main


class Actions(Journey):
    UNITS = "This property has multiple units/rooms which we manage"

    def at_bank_accounts(self):
        wizard = self.start()
        wizard.next("Bank Accounts")
        return wizard

    def press(self, wizard, name):
        wizard.find("push button", name).act()

    def write(self, wizard, label, text):
        self.assertTrue(wizard.find("text", label).write(text), label)
        wait_for(f"{text} in {label}", lambda: wizard.find("text", label).text() == text)

    def open(self, wizard, opener, dialog):
        self.press(wizard, opener)
        wizard.wait_for_window(dialog)

    def save(self, wizard):
        self.press(wizard, "Save")
        wizard.wait_for_window("Wrenfield Wizard")

    def date(self, wizard, label):
        return "-".join(wizard.find("text", f"{label} {part}").text() for part in ("year", "month", "day"))

    def saved_date(self, wizard, account):
        """The date that has been kept, as the dialog shows it when it is opened again."""
        wizard.select(account)
        self.open(wizard, "Edit", "Bank Account")
        return self.date(wizard, "Balance Date")

    def test_a_day_picked_in_the_calendar_is_kept(self):
        wizard = self.at_bank_accounts()
        self.open(wizard, "Add", "Bank Account")
        self.write(wizard, "Account Name", "Savings")
        self.press(wizard, "Balance Date calendar")
        wizard.find("table cell", "20 March 2024").act()
        wait_for("the day to be shown", lambda: self.date(wizard, "Balance Date") == "2024-03-20")
        self.save(wizard)
        self.assertEqual(self.saved_date(wizard, "Savings"), "2024-03-20")

    def test_the_calendar_is_leafed_through_by_its_buttons(self):
        wizard = self.at_bank_accounts()
        self.open(wizard, "Add", "Bank Account")
        self.write(wizard, "Account Name", "Savings")
        self.press(wizard, "Balance Date calendar")
        self.press(wizard, "Previous month")
        self.press(wizard, "Previous year")
        wizard.find("table cell", "8 February 2023").act()
        self.save(wizard)
        self.assertEqual(self.saved_date(wizard, "Savings"), "2023-02-08")

    def test_a_date_written_into_its_boxes_is_kept(self):
        wizard = self.at_bank_accounts()
        self.open(wizard, "Add", "Bank Account")
        self.write(wizard, "Account Name", "Savings")
        # The month is short until it is the turn of the next one.
        self.write(wizard, "Balance Date month", "02")
        self.write(wizard, "Balance Date day", "31")
        self.write(wizard, "Balance Date month", "07")
        self.write(wizard, "Balance Date year", "2021")
        self.save(wizard)
        self.assertEqual(self.saved_date(wizard, "Savings"), "2021-07-31")

    def test_what_was_typed_last_is_kept_when_save_is_pressed(self):
        wizard = self.at_bank_accounts()
        self.open(wizard, "Add", "Bank Account")
        wizard.enter("Account Name", "Savings")
        wizard.click("text", "Balance Date day")
        wizard.wait_for_focus("Balance Date day")
        self.desktop.type("07")
        self.save(wizard)
        self.assertEqual(self.saved_date(wizard, "Savings"), "2024-03-07")

    def test_what_was_written_is_kept_when_save_is_clicked(self):
        wizard = self.at_bank_accounts()
        self.open(wizard, "Add", "Bank Account")
        self.write(wizard, "Account Name", "Savings")
        self.write(wizard, "Balance Date day", "07")
        wizard.click("push button", "Save")
        wizard.wait_for_window("Wrenfield Wizard")
        self.assertEqual(self.saved_date(wizard, "Savings"), "2024-03-07")

    def at_properties(self):
        wizard = self.at_bank_accounts()
        self.press(wizard, "Next")
        wizard.wait_for_tab("User Type")
        wizard.find("radio button", wizard.LANDLORD).act("Toggle")
        self.press(wizard, "Next")
        wizard.wait_for_tab("Owners")
        self.write(wizard, "Owner Name", "A. Landlord")
        self.press(wizard, "Next")
        wizard.wait_for_tab("Properties")
        self.open(wizard, "Add", "Property")
        self.write(wizard, "Address 1", "9 High Road")
        wizard.find("check box", self.UNITS).act("Toggle")
        wait_for("the units", lambda: "ENABLED" in wizard.find("text", "Number of Units").states())
        return wizard

    def units(self, wizard):
        self.press(wizard, "Next")
        wizard.wait_for_tab("Tenants")
        self.open(wizard, "Add", "Tenant")
        return wizard.entries("Property")

    def test_units_that_were_written_are_expanded(self):
        wizard = self.at_properties()
        self.write(wizard, "Number of Units", "3")
        self.save(wizard)
        self.assertEqual(self.units(wizard), ["1/9 High Road", "2/9 High Road", "3/9 High Road"])

    def test_units_that_were_typed_are_expanded_when_save_is_pressed(self):
        wizard = self.at_properties()
        wizard.enter("Number of Units", "2")
        self.save(wizard)
        self.assertEqual(self.units(wizard), ["1/9 High Road", "2/9 High Road"])

    def test_units_that_were_named_are_not_lost_to_their_number(self):
        wizard = self.at_properties()
        wizard.enter("Number of Units", "2")
        self.write(wizard, "Unit Numbers", "A,B")
        self.save(wizard)
        self.assertEqual(self.units(wizard), ["A/9 High Road", "B/9 High Road"])

    def test_a_number_that_was_written_is_put_right_as_a_typed_one_is(self):
        wizard = self.at_bank_accounts()
        self.open(wizard, "Add", "Bank Account")
        box = wizard.find("text", "Balance Amount")
        box.write("12x")
        wizard.find("text", "Account Name").write("Savings")
        wait_for("a number", lambda: box.text() == "12.00" or box.text() == "12")

    def test_an_option_that_was_chosen_brings_its_fields_to_life(self):
        wizard = self.at_bank_accounts()
        self.press(wizard, "Next")
        wizard.wait_for_tab("User Type")
        wizard.find("radio button", wizard.MANAGER).act("Toggle")
        wait_for("the fee", lambda: "ENABLED" in wizard.find(
            "text", "Typical management fee % including all taxes is").states())
        wizard.wait_for_focus(wizard.MANAGER)

    def test_what_can_not_be_typed_into_can_not_be_written_to(self):
        wizard = self.at_bank_accounts()
        self.press(wizard, "Next")
        wizard.wait_for_tab("User Type")
        for label in "Typical management fee % including all taxes is", "Date of last disbursement none":
            box = wizard.find("text", label)
            before = box.text()
            box.write("9")
            self.assertEqual(box.text(), before, label)
        wizard.find("radio button", wizard.MANAGER).act("Toggle")
        none = wizard.find("text", "Date of last disbursement none")
        none.write("9")
        self.assertEqual(none.text(), "<None>")

    def test_no_more_can_be_written_than_typed(self):
        wizard = self.at_bank_accounts()
        self.open(wizard, "Add", "Bank Account")
        box = wizard.find("text", "Account Name")
        wizard.enter("Account Name", "x" * 100)
        typed = box.text()
        box.write("y" * 100)
        wait_for("the text", lambda: box.text() == "y" * len(typed))

    def test_a_page_behind_a_dialog_can_not_be_worked(self):
        wizard = self.at_bank_accounts()
        next_button = wizard.find("push button", "Next")
        self.open(wizard, "Add", "Bank Account")
        self.assertNotIn("Press", next_button.actions())
        self.press(wizard, "Cancel")
        wizard.wait_for_window("Wrenfield Wizard")
        self.assertIn("Press", next_button.actions())
        self.assertEqual(wizard.current_tab(), "Bank Accounts")

    def test_a_row_that_is_pressed_has_the_focus(self):
        wizard = self.at_bank_accounts()
        cell = wizard.all("table cell")[0]
        cell.act()
        wizard.wait_for_focus(cell.name)
        self.desktop.keys(Key("Tab"))
        wizard.wait_for_focus("Add")

    def test_an_entry_of_a_list_is_chosen(self):
        wizard = self.at_properties()
        self.save(wizard)
        self.press(wizard, "Next")
        wizard.wait_for_tab("Tenants")
        self.open(wizard, "Add", "Tenant")
        unit = wizard.find("combo box", "Rent Frequency Unit")
        unit.act()
        entry = wait_for("the entry", lambda: wizard.root.all("list item", "Month"))[0]
        entry.act("Press")
        wait_for("Month to be chosen", lambda: unit.text() == "Month" and not unit.all("list"))
        wizard.find("text", "from day of each month")


if __name__ == "__main__":
    main()
