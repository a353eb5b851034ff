"""Everything that a page or a dialog refuses or asks, with each answer, in its very words."""

from journey import Journey, main

DUPLICATE = "Another record already exists with the same name"
NO_OWNERS = "You have not entered any owners.  Are you sure you want to continue with no owners?"
ZERO_RENT = "The rent amount is set to zero.  Is this correct?"
NO_BALANCE = "You need to select one of the options to either enter the rent balance or leave it blank"


class Refusals(Journey):
    def start_at(self, tab):
        """A manager's wizard, on this page, with one of everything that comes before it."""
        wizard = self.start()
        wizard.wait_for_tab("Introduction")
        steps = {
            "Bank Accounts": lambda: None,
            "User Type": lambda: None,
            "Owners": lambda: wizard.click("radio button", wizard.MANAGER),
            "Properties": lambda: wizard.add("Owner", lambda: wizard.enter("Owner Name", "Ann Owner")),
            "Tenants": lambda: wizard.add("Property", lambda: wizard.enter("Address 1", "1 Short Street")),
        }
        for next_tab, prepare in steps.items():
            prepare()
            wizard.next(next_tab)
            if next_tab == tab:
                return wizard
        raise AssertionError(f"no page {tab}")

    def refuse(self, wizard, text, *, title):
        """Save is refused with this text, and the dialog stays."""
        wizard.click("push button", "Save")
        wizard.answer(text, "OK")
        wizard.wait_for_window(title)

    # Pages.

    def test_no_account(self):
        wizard = self.start_at("Bank Accounts")
        wizard.remove("Main Bank Account")
        self.assertEqual(wizard.cells(), [])
        wizard.next()
        wizard.answer("You need to have at least one bank account", "OK")
        self.assertEqual(wizard.current_tab(), "Bank Accounts")
        self.assertNotIn("ENABLED", wizard.find("page tab", "User Type").states())

    def test_a_double_click_on_next_turns_one_page(self):
        wizard = self.start_at("Bank Accounts")
        wizard.desktop.double_click(*wizard.find("push button", "Next").middle())
        wizard.wait_for_tab("User Type")
        wizard.click("radio button", wizard.LANDLORD)
        wizard.desktop.double_click(*wizard.find("push button", "Next").middle())
        wizard.wait_for_tab("Owners")
        wizard.enter("Owner Name", "Ann Owner")
        wizard.desktop.double_click(*wizard.find("push button", "Back").middle())
        wizard.wait_for_tab("User Type")
        wizard.desktop.settle()
        self.assertEqual(wizard.current_tab(), "User Type")

    def test_no_type(self):
        wizard = self.start_at("User Type")
        wizard.next()
        wizard.answer("You must select a type", "OK")
        self.assertEqual(wizard.current_tab(), "User Type")

    def test_no_owners(self):
        wizard = self.start_at("Owners")
        wizard.next()
        wizard.answer(NO_OWNERS, "No")
        self.assertEqual(wizard.current_tab(), "Owners")
        wizard.next()
        wizard.answer(NO_OWNERS, "Yes")
        wizard.wait_for_tab("Properties")

    def test_no_is_the_default_of_a_question(self):
        for key in "Return", "Escape":
            wizard = self.start_at("Owners")
            wizard.next()
            wizard.wait_for_box(NO_OWNERS)
            wizard.wait_for_focus("No")
            self.desktop.press(key)
            wizard.wait_for_window("Wrenfield Wizard")
            self.assertEqual(wizard.current_tab(), "Owners")
            wizard.close()

    def test_no_property(self):
        wizard = self.start_at("Properties")
        wizard.next()
        wizard.answer("You have not entered any properties", "OK")
        self.assertEqual(wizard.current_tab(), "Properties")

    def test_no_tenant(self):
        wizard = self.start_at("Tenants")
        wizard.next()
        wizard.answer("You have not entered any tenants", "OK")
        self.assertEqual(wizard.current_tab(), "Tenants")

    def test_the_wheel_over_a_list_without_the_focus(self):
        wizard = self.start_at("Tenants")
        wizard.click("push button", "Add")
        wizard.wait_for_window("Tenant")
        wizard.enter("Tenants Name", "T. Enant")
        unit = wizard.find("combo box", "Rent Frequency Unit")
        wizard.desktop.click(*unit.middle(), button=5)
        wizard.desktop.settle()
        self.assertEqual(wizard.focused(), ("text", "Tenants Name"))
        # By the month there would be a day of each month to enter.
        self.assertEqual(wizard.all("text", "from day of each month"), [])

    def test_remove_asks(self):
        wizard = self.start_at("Properties")
        wizard.click("page tab", "Owners")
        wizard.select("Ann Owner")
        wizard.click("push button", "Remove")
        wizard.answer("Delete Ann Owner?", "No")
        self.assertEqual(wizard.cells(), ["Ann Owner"])
        wizard.remove("Ann Owner")
        self.assertEqual(wizard.cells(), [])

    def test_a_name_is_told_as_it_stands(self):
        # Not as markup.
        name = "<b>Ann</b> & <i>Bo</i>"
        wizard = self.start_at("Owners")
        wizard.add("Owner", lambda: wizard.enter("Owner Name", name))
        self.assertEqual(wizard.cells(), [name])
        wizard.remove(name)

    def test_edit_and_remove_without_a_current_row(self):
        # Nothing happens and nothing is said.
        wizard = self.start_at("Owners")
        wizard.click("push button", "Edit")
        wizard.click("push button", "Remove")
        wizard.next()
        wizard.answer(NO_OWNERS, "No")

    # The small dialogs.

    def test_account(self):
        wizard = self.start_at("Bank Accounts")
        wizard.click("push button", "Add")
        wizard.wait_for_window("Bank Account")
        self.refuse(wizard, "An account name is required", title="Bank Account")
        wizard.enter("Account Name", "MAIN bank account")
        self.refuse(wizard, DUPLICATE, title="Bank Account")
        self.assertEqual(wizard.find("text", "Account Name").text(), "MAIN bank account")
        wizard.enter("Account Name", "Office")
        wizard.click("push button", "Save")
        wizard.wait_for_window("Wrenfield Wizard")
        self.assertEqual(wizard.cells(), ["Main Bank Account", "Office"])

    def test_account_renamed_in_other_letter_case(self):
        wizard = self.start_at("Bank Accounts")
        wizard.select("Main Bank Account")
        wizard.fill("Edit", "Bank Account", lambda: wizard.enter("Account Name", "MAIN BANK ACCOUNT"))
        self.assertEqual(wizard.cells(), ["MAIN BANK ACCOUNT"])

    def test_owner(self):
        wizard = self.start_at("Properties")
        wizard.click("page tab", "Owners")
        wizard.click("push button", "Add")
        wizard.wait_for_window("Owner")
        self.refuse(wizard, "A name is required", title="Owner")
        wizard.enter("Owner Name", "ann owner")
        self.refuse(wizard, DUPLICATE, title="Owner")
        wizard.click("push button", "Cancel")
        wizard.wait_for_window("Wrenfield Wizard")
        self.assertEqual(wizard.cells(), ["Ann Owner"])

    def test_property(self):
        wizard = self.start_at("Tenants")
        wizard.click("page tab", "Properties")
        wizard.click("push button", "Add")
        wizard.wait_for_window("Property")
        self.refuse(wizard, "An address 1 is required", title="Property")
        wizard.enter("Address 1", "1 SHORT Street")
        self.refuse(wizard, DUPLICATE, title="Property")
        wizard.click("push button", "Cancel")
        wizard.wait_for_window("Wrenfield Wizard")
        self.assertEqual(wizard.cells(), ["1 Short Street", "Ann Owner"])

    def test_cancel_writes_nothing(self):
        wizard = self.start_at("Tenants")
        wizard.click("page tab", "Properties")
        wizard.select("1 Short Street")
        wizard.click("push button", "Edit")
        wizard.wait_for_window("Property")
        wizard.enter("Address 1", "2 Short Street")
        wizard.click("push button", "Cancel")
        wizard.wait_for_window("Wrenfield Wizard")
        self.assertEqual(wizard.cells(), ["1 Short Street", "Ann Owner"])

    # The tenant.

    def test_tenant_in_the_order_of_the_checks(self):
        wizard = self.start_at("Tenants")
        wizard.click("push button", "Add")
        wizard.wait_for_window("Tenant")
        self.refuse(wizard, "A name is required", title="Tenant")
        wizard.enter("Tenants Name", "Tom Tenant")
        self.refuse(wizard, "A property selection is required", title="Tenant")
        wizard.choose("Property", "1 Short Street")
        self.refuse(wizard, "A start date is required.", title="Tenant")
        wizard.enter_date("Tenancy Start Date", "2024-02-29")
        self.refuse(wizard, NO_BALANCE, title="Tenant")
        wizard.click("radio button", wizard.DONT_SET_BALANCE)
        wizard.click("push button", "Save")
        wizard.answer(ZERO_RENT, "No")
        wizard.wait_for_window("Tenant")
        wizard.click("push button", "Save")
        wizard.answer(ZERO_RENT, "Yes")
        wizard.wait_for_window("Wrenfield Wizard")
        self.assertEqual(wizard.cells(), ["Tom Tenant", "1 Short Street"])

    def test_tenant_of_the_same_name(self):
        wizard = self.start_at("Tenants")
        wizard.add("Tenant", wizard.enter_short_tenant)
        wizard.click("push button", "Add")
        wizard.wait_for_window("Tenant")
        wizard.enter_short_tenant()
        self.refuse(wizard, DUPLICATE, title="Tenant")
        wizard.enter("Tenants Name", "Another")
        wizard.click("push button", "Save")
        wizard.wait_for_window("Wrenfield Wizard")
        self.assertEqual(wizard.cells(), ["T. Enant", "1 Short Street", "Another", "1 Short Street"])

    def test_tenant_without_any_property_that_can_be_let(self):
        wizard = self.start_at("Properties")
        wizard.add("Property", lambda: self.enter_building_without_units(wizard))
        wizard.next("Tenants")
        wizard.click("push button", "Add")
        wizard.wait_for_window("Tenant")
        wizard.enter("Tenants Name", "Tom Tenant")
        self.refuse(wizard, "A property selection is required", title="Tenant")
        self.assertEqual(wizard.entries("Property"), [])

    @staticmethod
    def enter_building_without_units(wizard):
        wizard.enter("Address 1", "1 Short Street")
        wizard.click("check box", "This property has multiple units/rooms which we manage")
        wizard.enter("Unit Numbers", ",")

    def test_more_properties_than_a_counter_holds_are_the_end(self):
        # A building with as many units as its dialog takes: one record more than the page can count.
        wizard = self.start_at("Properties")
        wizard.click("push button", "Add")
        wizard.wait_for_window("Property")
        wizard.enter("Address 1", "1 Endless Street")
        wizard.click("check box", "This property has multiple units/rooms which we manage")
        wizard.enter("Number of Units", "32767")
        wizard.click("push button", "Save")
        wizard.answer("6: Overflow", "OK")
        self.assertEqual(wizard.wait_for_end(), 1)
        self.assert_untouched(wizard)

    def test_a_count_that_fits_no_counter_is_the_end(self):
        # Nobody looks at the number before it is stored, and it can't be stored.
        wizard = self.start_at("Tenants")
        wizard.click("push button", "Add")
        wizard.wait_for_window("Tenant")
        wizard.enter_short_tenant()
        wizard.enter("Rent Frequency", "32768")
        wizard.click("push button", "Save")
        wizard.answer("6: Overflow", "OK")
        self.assertEqual(wizard.wait_for_end(), 1)
        self.assert_untouched(wizard)


if __name__ == "__main__":
    main()
