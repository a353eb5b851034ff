"""Enters a whole portfolio into the wizard by the keyboard alone, as someone does who types it from a paper.

A portfolio is what wrenfield-import reads; both roads have to end in the same database."""

from desktop import Key, wait_for

TAB, BACK_TAB, RETURN, SPACE = Key("Tab"), Key("shift+Tab"), Key("Return"), Key("space")
ALL, HOME, DOWN = Key("ctrl+a"), Key("Home"), Key("Down")
FREQUENCIES = ["Day", "Week", "Month", "Year"]


def times(count, key):
    return [key] * count


def number(value):
    """As it is typed: no thousands separators, no more decimals than there are."""
    return str(int(value)) if value == int(value) else repr(value)


def date_keys(date, shows_none=False):
    """Into a date field with the focus on its first box, and on to the field behind it. Month first, as in the plain
    locale. "<None>" gives way to the first digit, and the last one leads round to the first box."""
    if date is None:
        return times(2 if shows_none else 4, TAB)
    year, month, day = date.split("-")
    return [month + day + year, *times(4, TAB)]


class Typist:
    """`look`, if given, is called with a word for each page and dialog once it is filled in, to take pictures."""

    def __init__(self, wizard, look=None):
        self.wizard = wizard
        self.keys = wizard.desktop.keys
        self.look = look or (lambda what: None)

    def enter(self, portfolio):
        """From the first page to the last, ready for Finish."""
        accounts = self._accounts(portfolio)
        self._accounts_page(portfolio)
        self._user_type_page(portfolio)
        owners = portfolio.get("Owners", [])
        if portfolio["UserType"] == "Landlord":
            self._single_owner_page(owners[0]["OwnersName"])
        else:
            self._list_page("Owner", [lambda owner=owner: [owner["OwnersName"], TAB] for owner in owners])
            if not owners:
                self._answer_yes()
        self._wait_for_tab("Properties")
        owner_names = [owner["OwnersName"] for owner in owners]
        lettable = self._properties_page(portfolio["Properties"], owner_names, accounts)
        self._tenants_page(portfolio["Tenants"], lettable)
        self.look("finished")

    def finish(self):
        """From the last page to the end of the process. Gives the message at the end."""
        self._until_focus("Finish")
        self.keys(RETURN)
        message = wait_for("the last message", lambda: self.wizard.box() and
                           self.wizard.all("label"), patience=120)[0].name
        self.look("message")
        self.keys(RETURN)
        self.wizard.wait_for_end()
        return message

    # One page after the other.

    @staticmethod
    def _accounts(portfolio):
        main = portfolio.get("MainBankAccount", {})
        preset = [] if main is None else [main.get("BankAccountName", "Main Bank Account")]
        return preset + [account["BankAccountName"] for account in portfolio.get("BankAccounts", [])]

    def _accounts_page(self, portfolio):
        self.wizard.wait_for_tab("Introduction")
        self._until_focus("Next")
        self.look("introduction")
        self.keys(RETURN)
        self._wait_for_tab("Bank Accounts")
        if "MainBankAccount" in portfolio:
            self._change_main_account(portfolio["MainBankAccount"])
        self._list_page("Bank Account", [lambda account=account: self._account_keys(account)
                                         for account in portfolio.get("BankAccounts", [])])
        self._wait_for_tab("User Type")

    def _change_main_account(self, account):
        self._until_focus("List of bank accounts")
        self.keys(DOWN)
        if account is None:
            self._until_focus("Remove")
            self.keys(RETURN)
            self._answer_yes()
            self.wizard.wait_for_focus("Remove")
        else:
            self._until_focus("Edit")
            self._dialog("Bank Account", self._account_keys(account), "Edit")

    @staticmethod
    def _account_keys(account):
        keys = [ALL, account["BankAccountName"]] if "BankAccountName" in account else []
        keys += [TAB, *date_keys(account.get("BalanceDate"))]
        if "BalanceAmount" in account:
            keys += [ALL, number(account["BalanceAmount"])]
        return keys + [TAB]

    def _user_type_page(self, portfolio):
        is_landlord = portfolio["UserType"] == "Landlord"
        self._until_focus(self.wizard.LANDLORD)
        self.keys(*([] if is_landlord else [DOWN]), SPACE)
        if not is_landlord:
            self.keys(TAB, ALL, number(portfolio.get("ManagementFee", 0)), TAB,
                      *date_keys(portfolio.get("LastDisbursement"), shows_none=True))
        self.look("user type")
        self._leave_page()
        self._wait_for_tab("Owners")

    def _single_owner_page(self, name):
        self._until_focus("Owner Name")
        self.keys(ALL, Key("Delete"), name)
        self.look("single owner")
        self._leave_page()

    def _properties_page(self, properties, owners, accounts):
        """Gives the properties that a tenancy can name, in the order of the list."""
        lettable = []
        for each in properties:
            units = [unit for unit in each.get("UnitNumbers", "").split(",") if unit]
            if not each.get("UnitNumbers"):
                lettable.append(each["Address1"])
            lettable += [f"{unit}/{each['Address1']}" for unit in units]
        self._list_page("Property", [lambda each=each: self._property_keys(each, owners, accounts)
                                     for each in properties])
        self._wait_for_tab("Tenants")
        return lettable

    def _property_keys(self, each, owners, accounts):
        keys = []
        for line in ("Address1", "Address2", "Address3"):
            keys += [each.get(line, ""), TAB]
        keys += self._choose(each.get("Owner"), owners) + [TAB]
        keys += self._choose(each.get("BankAccount"), accounts) + [TAB]
        if each.get("UnitNumbers"):
            keys += [TAB, TAB, SPACE, TAB, TAB, each["UnitNumbers"], *times(4, BACK_TAB)]
        return keys

    def _tenants_page(self, tenants, lettable):
        self._list_page("Tenant", [lambda tenant=tenant: self._tenant_keys(tenant, lettable) for tenant in tenants],
                        [tenant.get("CurrentRent", 0) == 0 for tenant in tenants])
        self._wait_for_tab("Finished")

    def _tenant_keys(self, tenant, lettable):
        frequency = tenant.get("RentFrequency", "Week")
        keys = [tenant["Name"], TAB, *date_keys(tenant["StartDate"], shows_none=True),
                *date_keys(tenant.get("EndDate"), shows_none=True)]
        keys += self._choose(tenant["PropertyName"], lettable)
        keys += [TAB, ALL, number(tenant.get("CurrentRent", 0)), TAB, ALL, str(tenant.get("FrequencyNumber", 1)), TAB]
        keys += self._choose(frequency, FREQUENCIES)
        keys += [TAB, ALL, number(tenant.get("BondHeld", 0)), TAB, ALL, number(tenant.get("BalanceAmount", 0))]
        keys += [TAB, TAB, TAB, SPACE]
        if tenant.get("Setbalance"):
            keys.append(DOWN)
        if frequency == "Month":
            keys += [TAB, ALL, str(tenant.get("MonthDay", 1)), BACK_TAB]
        return keys + [BACK_TAB, BACK_TAB]

    # What they have in common.

    @staticmethod
    def _choose(entry, entries):
        return [] if entry is None else [HOME, *times(entries.index(entry), DOWN)]

    def _list_page(self, dialog, records, asks=None):
        """Adds the records one by one and goes on."""
        if records:
            self._until_focus("Add")
        for place, keys in enumerate(records):
            self._dialog(dialog, keys(), "Add", bool(asks and asks[place]))
        self.look(f"list {dialog}".lower())
        self._leave_page()

    def _dialog(self, title, keys, opener, asks=False):
        """Fills in a dialog with the focus on its first field at the start and on Save at the end."""
        self.keys(RETURN)
        wait_for(f"the dialog {title}", lambda: self.wizard.is_active(title) and self.wizard.focused())
        self.keys(*keys)
        self.wizard.wait_for_focus("Save")
        self.look(f"dialog {title}".lower())
        self.keys(RETURN)
        if asks:
            self._answer_yes()
        self.wizard.wait_for_window("Wrenfield Wizard")
        self.wizard.wait_for_focus(opener)

    def _answer_yes(self):
        """The answer that a question doesn't offer by itself."""
        wait_for("a question", lambda: self.wizard.box() and
                 self.wizard.focused() == ("push button", "No"))
        self.keys(Key("Left"))
        self.wizard.wait_for_focus("Yes")
        self.keys(RETURN)

    def _leave_page(self):
        self._until_focus("Next")
        self.keys(RETURN)

    def _wait_for_tab(self, tab):
        self.wizard.wait_for_tab(tab)
        self.wizard.wait_for_window("Wrenfield Wizard")

    def _until_focus(self, name):
        """Goes on by the Tab key until the control of this name has the focus."""
        for _ in range(40):
            focused = self.wizard.focused()
            if focused and focused[1] == name:
                return
            self.keys(TAB)
            wait_for("the focus to move", lambda: self.wizard.focused() != focused)
        raise AssertionError(f"the Tab key never reaches {name!r}")
