"""Whole days at work: a landlord with one house, and a manager who changes his mind a lot. What each leaves in the
database is told here row by row."""

from journey import Journey, main

FINISHED = ("Import complete.  If Hearthbook is running, it is recommended you restart it to reload the most recent "
            "changes.")


class People(Journey):
    def finish(self, wizard):
        wizard.click("push button", "Finish")
        wizard.answer(FINISHED, "OK")
        self.assertEqual(wizard.wait_for_end(), 0)
        self.assertEqual(wizard.log(), [])

    def test_a_landlord(self):
        wizard = self.start(prepare=lambda wizard: wizard.change("insert into notes default values"))
        wizard.wait_for_tab("Introduction")
        self.assert_buttons(wizard, enabled=["Help", "Cancel", "Next"], disabled=["Back", "Finish"])
        wizard.next("Bank Accounts")
        wizard.select("Main Bank Account")
        wizard.fill("Edit", "Bank Account", lambda: self.enter_account(wizard))
        self.assertEqual(wizard.cells(), ["House Account"])
        wizard.next("User Type")
        wizard.click("radio button", wizard.LANDLORD)
        wizard.next("Owners")
        wizard.enter("Owner Name", "J. O'Neil")
        wizard.next("Properties")
        wizard.add("Property", lambda: wizard.enter("Address 1", "5 Elm Street"))
        # No name takes an apostrophe.
        self.assertEqual(wizard.cells(), ["5 Elm Street", "J. ONeil"])
        wizard.next("Tenants")
        wizard.add("Tenant", lambda: self.enter_tenant(wizard))
        wizard.next("Finished")
        self.assert_buttons(wizard, enabled=["Help", "Cancel", "Back", "Finish"], disabled=["Next"])
        self.assertIn("The following items will be created.\n1 bank accounts\n1 property owners\n1 properties\n"
                      "1 tenants\n", [label.name for label in wizard.all("label")])
        self.assert_nothing_written(wizard)
        self.finish(wizard)
        self.assertEqual(wizard.rows("select * from glcodes where type = 3"),
                         ["BankAcct|House Account|3|-1|-1234.56|2024-02-29|0|0|0||"])
        self.assertEqual(wizard.rows("select * from owner"),
                         ["J. ONeil|J. ONeil|0.0||||||0|0|0|2024-03-15|"])
        self.assertEqual(wizard.rows("select * from property"),
                         ["5 Elm Street|5 Elm Street|||BankAcct|J. ONeil|0||4|DV|House|0|0|2024-03-15|0|0|0|"])
        tenant = 'Tom "T" Tenant; --'
        self.assertEqual(wizard.rows("select * from tenancy"),
                         [f"{tenant}|{tenant}|5 Elm Street|250.5|1000.0|2024-02-23|1234-03-15|1|Never|1|Week|2025-02-23"
                          "|0|1|||0|0|0|0|"])
        self.assertEqual(wizard.rows("select * from tenant_bond"), [f"{tenant}|2024-03-15|1000.0|Opening Balance|"])
        # Four weeks of rent less three receipts: 1002 - 702 is the balance of 300.
        self.assertEqual(wizard.rows("select * from rent_periods"),
                         [f"{tenant}|2024-02-23|2024-02-29|250.5|0|0.0|0.0",
                          f"{tenant}|2024-03-01|2024-03-07|250.5|0|0.0|0.0",
                          f"{tenant}|2024-03-08|2024-03-14|250.5|0|-49.5|0.0",
                          f"{tenant}|2024-03-15|2024-03-21|250.5|0|0.0|0.0"])
        self.assertEqual(wizard.rows("select * from revenues"),
                         [f"2024-02-23|5 Elm Street|250.5|Rent|||0.0|1900-01-01|BankAcct|{tenant}|0|0|0",
                          f"2024-03-01|5 Elm Street|250.5|Rent|||0.0|1900-01-01|BankAcct|{tenant}|0|0|0",
                          f"2024-03-08|5 Elm Street|201.0|Rent|||0.0|1900-01-01|BankAcct|{tenant}|0|0|0"])
        self.assertEqual(wizard.rows("select count(*) from notes"), ["0"])

    @staticmethod
    def enter_account(wizard):
        wizard.enter("Account Name", "House Account")
        wizard.enter_date("Balance Date", "2024-02-29")
        wizard.enter("Balance Amount", "-1234.56")

    @staticmethod
    def enter_tenant(wizard):
        wizard.enter("Tenants Name", "Tom \"T\" Tenant; --")
        wizard.enter_date("Tenancy Start Date", "2024-02-23")
        wizard.choose("Property", "5 Elm Street")
        wizard.enter("Current Rent", "250.50")
        wizard.enter("Bond/Deposit Held", "1000")
        wizard.click("radio button", wizard.SET_BALANCE)
        wizard.enter("Rent Balance", "300")

    def test_a_manager_who_changes_his_mind(self):
        wizard = self.start()
        wizard.next("Bank Accounts")
        wizard.add("Bank Account", lambda: wizard.enter("Account Name", "Trust Account"))
        wizard.add("Bank Account", lambda: wizard.enter("Account Name", "Closed Account"))
        wizard.next("User Type")
        wizard.click("radio button", wizard.MANAGER)
        wizard.enter("Typical management fee % including all taxes is", "8.25")
        wizard.enter_date("Date of last disbursement", "2024-02-29")
        wizard.next("Owners")
        for name in "Ann Owner", "Bo Owner", "Cy Owner":
            wizard.add("Owner", lambda name=name: wizard.enter("Owner Name", name))
        wizard.next("Properties")
        wizard.add("Property", lambda: self.enter_building(wizard))
        wizard.add("Property", lambda: self.enter_house(wizard, "7 Oak Lane", "Bo Owner", "Closed Account"))
        self.assertEqual(wizard.cells(), ["12 Main Road", "Ann Owner", "1/12 Main Road", "Ann Owner",
                                          "2/12 Main Road", "Ann Owner", "3/12 Main Road", "Ann Owner",
                                          "7 Oak Lane", "Bo Owner"])
        wizard.next("Tenants")
        wizard.add("Tenant", lambda: self.enter_monthly_tenant(wizard))
        self.assert_property_offered(wizard)

        # Renames reach what refers to the old name: the owner's properties, the account's properties, the tenants.
        wizard.click("page tab", "Owners")
        wizard.select("Ann Owner")
        wizard.fill("Edit", "Owner", lambda: wizard.enter("Owner Name", "Anna Owner"))
        wizard.click("page tab", "Bank Accounts")
        wizard.select("Trust Account")
        wizard.fill("Edit", "Bank Account", lambda: wizard.enter("Account Name", "Client Money"))
        wizard.click("page tab", "Properties")
        wizard.select("2/12 Main Road")
        wizard.fill("Edit", "Property", lambda: wizard.enter("Address 1", "2b/12 Main Road"))
        wizard.select("12 Main Road")
        wizard.fill("Edit", "Property", lambda: wizard.enter("Address 1", "12 High Road"))
        # A building's new name leaves its units as they are.
        self.assertEqual(wizard.cells(), ["12 High Road", "Anna Owner", "1/12 Main Road", "Anna Owner",
                                          "2b/12 Main Road", "Anna Owner", "3/12 Main Road", "Anna Owner",
                                          "7 Oak Lane", "Bo Owner"])
        wizard.click("page tab", "Tenants")
        self.assertEqual(wizard.cells(), ["Mo Nthly", "2b/12 Main Road"])

        # What is removed leaves no code where it was named.
        wizard.click("page tab", "Bank Accounts")
        wizard.remove("Closed Account")
        wizard.click("page tab", "Owners")
        wizard.remove("Bo Owner")
        wizard.click("page tab", "Properties")
        wizard.remove("1/12 Main Road")

        # A landlord after all: the choice counts with the next Next on that page, and one owner is left by the one
        # behind it. Then a manager again, whose properties still name the owners of before.
        wizard.click("page tab", "User Type")
        wizard.click("radio button", wizard.LANDLORD)
        wizard.click("page tab", "Owners")
        self.assertEqual(wizard.cells(), ["Anna Owner", "Cy Owner"])
        wizard.click("page tab", "User Type")
        wizard.next("Owners")
        self.assertEqual(wizard.find("text", "Owner Name").text(), "Anna Owner")
        wizard.next("Properties")
        wizard.click("page tab", "User Type")
        wizard.click("radio button", wizard.MANAGER)
        wizard.next("Owners")
        self.assertEqual(wizard.cells(), ["Anna Owner"])
        wizard.click("page tab", "Tenants")
        wizard.next("Finished")
        self.assertIn("The following items will be created.\n2 bank accounts\n1 property owners\n4 properties\n"
                      "1 tenants\n", [label.name for label in wizard.all("label")])
        self.finish(wizard)

        self.assertEqual(wizard.rows("select * from glcodes where type = 3"),
                         ["BankAcct|Main Bank Account|3|-1|0.0|2024-03-15|0|0|0||",
                          "Client Mon|Client Money|3|-1|0.0|2024-03-15|0|0|0||"])
        self.assertEqual(wizard.rows("select * from owner"),
                         ["Anna Owner|Anna Owner|8.25||||||0|0|0|2024-03-15|"])
        self.assertEqual(wizard.rows("select * from property"),
                         ["12 High Road|12 High Road|||Client Mon|Anna Owner|2||4|DV|House|1|0|2024-03-15|0|0|0|",
                          "2b/12 Main Road|2b/12 Main Road|||Client Mon|Anna Owner|1||4|DV|House|0|0|2024-03-15"
                          "|0|0|0|",
                          "3/12 Main Road|3/12 Main Road|||Client Mon|Anna Owner|1||4|DV|House|1|0|2024-03-15|0|0|0|",
                          "7 Oak Lane|7 Oak Lane|||||0||4|DV|House|1|0|2024-03-15|0|0|0|"])
        self.assertEqual(wizard.rows("select * from tenancy"),
                         ["Mo Nthly|Mo Nthly|2b/12 Main Road|900.0|0.0|2024-01-20|1234-03-15|1|Never|1|Month"
                          "|2025-01-20|0|1|||0|0|0|0|"])
        self.assertEqual(wizard.rows("select * from tenant_bond"), [])
        # From the 20th to the end of January are 12 of 31 days.
        self.assertEqual(wizard.rows("select * from rent_periods"),
                         ["Mo Nthly|2024-01-20|2024-01-31|348.39|0|0.0|0.0",
                          "Mo Nthly|2024-02-01|2024-02-29|900|0|0.0|0.0",
                          "Mo Nthly|2024-03-01|2024-03-31|900|0|100.0|0.0"])
        # Overpaid by 100. What came in up to the last disbursement counts as disbursed.
        self.assertEqual(wizard.rows("select * from revenues"),
                         ["2024-01-20|2b/12 Main Road|348.39|Rent|||0.0|1900-01-01|Client Mon|Mo Nthly|0|0|-1",
                          "2024-02-01|2b/12 Main Road|900.0|Rent|||0.0|1900-01-01|Client Mon|Mo Nthly|0|0|-1",
                          "2024-03-01|2b/12 Main Road|1000.0|Rent|||0.0|1900-01-01|Client Mon|Mo Nthly|0|0|0"])

    def enter_building(self, wizard):
        self.enter_house(wizard, "12 Main Road", "Ann Owner", "Trust Account")
        wizard.click("check box", "This property has multiple units/rooms which we manage")
        wizard.enter("Number of Units", "3")
        wizard.click("text", "Unit Numbers")
        wizard.wait_for_focus("Unit Numbers")
        self.assertEqual(wizard.find("text", "Unit Numbers").text(), "1,2,3,")

    @staticmethod
    def enter_house(wizard, address, owner, account):
        wizard.enter("Address 1", address)
        wizard.choose("Owner", owner)
        wizard.choose("Default Bank Account", account)

    @staticmethod
    def enter_monthly_tenant(wizard):
        wizard.enter("Tenants Name", "Mo Nthly")
        wizard.enter_date("Tenancy Start Date", "2024-01-20")
        wizard.choose("Property", "2/12 Main Road")
        wizard.enter("Current Rent", "900")
        wizard.choose("Rent Frequency Unit", "Month")
        wizard.enter("from day of each month", "1")
        wizard.click("radio button", wizard.SET_BALANCE)
        wizard.enter("Rent Balance", "-100")

    def assert_property_offered(self, wizard):
        """Buildings with units can't be let, their units can."""
        wizard.click("push button", "Add")
        wizard.wait_for_window("Tenant")
        self.assertEqual(wizard.entries("Property"),
                         ["1/12 Main Road", "2/12 Main Road", "3/12 Main Road", "7 Oak Lane"])
        wizard.click("push button", "Cancel")
        wizard.wait_for_window("Wrenfield Wizard")

    def assert_nothing_written(self, wizard):
        self.assertEqual(wizard.rows("select count(*) from notes"), ["1"])
        self.assertEqual(wizard.rows("select count(*) from tenancy"), ["0"])


if __name__ == "__main__":
    main()
