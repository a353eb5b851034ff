"""Small portfolios made by chance, of what can be typed on the screens: awkward names, all frequencies, dates at the
ends of months, tenancies that are over, balances and credits."""

import datetime
import random

# What a name is made of. Screens take no apostrophe.
PIECES = ["true", "False", "#1/2/2024#", ";", "--", "[x]", '"q"', "(", "%", "_", "ā", "Ü", "ß", "É", "ø", "A", "b",
          "Lane", "12", "/", "\\", "&", "<b>", "  ", "0", "date", "*", "?"]
FREQUENCIES = ["Day", "Week", "Month", "Year"]


def random_portfolio(seed, today):
    return _Maker(random.Random(seed), datetime.date.fromisoformat(today)).portfolio()


class _Maker:
    def __init__(self, chance, today):
        self.chance = chance
        self.today = today

    def portfolio(self):
        is_landlord = self.chance.random() < 0.3
        portfolio = {"UserType": "Landlord" if is_landlord else "Manager"}
        if not is_landlord:
            portfolio["ManagementFee"] = self.chance.choice([0, 7.5, 8.1234, 100])
            portfolio["LastDisbursement"] = self.date() if self.chance.random() < 0.6 else None
        accounts = self.add_accounts(portfolio)
        owners = self.names(1 if is_landlord else self.chance.randint(0, 3), 30 if is_landlord else 40)
        portfolio["Owners"] = [{"OwnersName": owner} for owner in owners]
        properties = [self.property(address, owners, accounts) for address in self.names(self.chance.randint(1, 3), 30)]
        portfolio["Properties"] = properties
        lettable = [address for each in properties for address in self.lettable(each)]
        if not lettable:
            address = "1 Last Resort"
            properties.append(self.property(address, owners, accounts, may_have_units=False))
            lettable = [address]
        portfolio["Tenants"] = [self.tenant(name, lettable) for name in self.names(self.chance.randint(1, 3), 30)]
        return portfolio

    def add_accounts(self, portfolio):
        """Gives the names of all accounts in their order."""
        names = self.names(self.chance.randint(0, 2), 30)
        accounts = [self.account(name) for name in names]
        portfolio["BankAccounts"] = accounts
        fate = self.chance.choice(["kept", "changed", "removed"])
        if fate == "changed":
            portfolio["MainBankAccount"] = self.account("Changed " + str(self.chance.randint(1, 99)))
            return [portfolio["MainBankAccount"]["BankAccountName"], *names]
        if fate == "removed" and names:
            portfolio["MainBankAccount"] = None
            return names
        return ["Main Bank Account", *names]

    def account(self, name):
        return {"BankAccountName": name, "BalanceDate": self.date(), "BalanceAmount": self.amount(signed=True)}

    def property(self, address, owners, accounts, may_have_units=True):
        each = {"Address1": address, "Address2": self.chance.choice(["", "Flat 2"]),
                "Address3": self.chance.choice(["", "Wrenfield"])}
        # A single owner or account is chosen by the dialog itself.
        if len(owners) == 1 or (owners and self.chance.random() < 0.8):
            each["Owner"] = self.chance.choice(owners)
        if len(accounts) == 1 or self.chance.random() < 0.8:
            each["BankAccount"] = self.chance.choice(accounts)
        if may_have_units and self.chance.random() < 0.5:
            each["UnitNumbers"] = self.chance.choice(["1,2", "a, b", "1,,2,", ",", "up"])
        return each

    @staticmethod
    def lettable(each):
        if not each.get("UnitNumbers"):
            return [each["Address1"]]
        return [f"{unit}/{each['Address1']}" for unit in each["UnitNumbers"].split(",") if unit]

    def tenant(self, name, lettable):
        start = self.date()
        tenant = {"Name": name, "PropertyName": self.chance.choice(lettable), "StartDate": start,
                  "CurrentRent": self.chance.choice([0, 0.01, 99.99, 250, 1234.5]),
                  "RentFrequency": self.chance.choice(FREQUENCIES), "FrequencyNumber": self.chance.randint(1, 14),
                  "BondHeld": self.amount(signed=True), "Setbalance": self.chance.random() < 0.7,
                  "BalanceAmount": self.amount(signed=True)}
        if tenant["RentFrequency"] == "Month":
            tenant["MonthDay"] = self.chance.choice([1, 15, 28, 29, 30, 31])
        if self.chance.random() < 0.3:
            tenant["EndDate"] = self.date()
        return tenant

    def names(self, count, longest):
        """Names that differ also without regard to letter case."""
        names = {}
        while len(names) < count:
            name = " ".join(self.chance.choices(PIECES, k=self.chance.randint(1, 6)))[:longest]
            if name.strip():
                names.setdefault(name.lower(), name)
        return list(names.values())

    def date(self):
        return (self.today - datetime.timedelta(days=self.chance.randint(0, 700))).isoformat()

    def amount(self, signed=False):
        amount = self.chance.choice([0, 1, 0.5, 100, 1050.25, 99999.99])
        return -amount if signed and self.chance.random() < 0.3 and amount else amount
