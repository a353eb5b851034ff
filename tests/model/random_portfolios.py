"""Random portfolios that the batch tool accepts, with the state of the database that they meet."""

import random
from dataclasses import dataclass, field

from awkward_names import NameMaker, cut_units
from calendar_rules import Day, add_days, add_months, add_years, days_in_month, no_date
from utf16 import to_units

_FREQUENCIES = ("Day", "Week", "Month", "Year")
_MOST_PERIODS = 220


@dataclass
class Scenario:
    """`options` are the columns of the options row to change, or None for a table without a row.

    `old_rows` holds statements that leave rows of an earlier time in the database.
    """

    portfolio: dict
    today: Day
    options: dict = field(default_factory=dict)
    old_rows: list = field(default_factory=list)


def random_scenario(seed, number):
    return _ScenarioMaker(random.Random(f"{seed}/{number}")).make()


class _ScenarioMaker:
    def __init__(self, source):
        self._source = source
        self._names = NameMaker(source, source.choice((0, 0, 0, 0.05, 0.2, 0.5)),
                                source.choice((0.2, 0.4, 0.4, 0.9)))
        self._today = self._any_today()
        self._accounts = []
        self._owners = []
        self._lettable = []

    def make(self):
        is_landlord = self._chance(0.3)
        portfolio = {"UserType": "Landlord" if is_landlord else "Manager"}
        if self._chance(0.7):
            portfolio["ManagementFee"] = self._source.choice((0, 8.5, 10, 7.1234, 12.3456, 100))
        if self._chance(0.5):
            portfolio["LastDisbursement"] = self._source.choice(
                (None, self._around_today(400).iso(), self._around_today(30).iso(), self._today.iso(),
                 "1234-02-03"))
        self._add_accounts(portfolio)
        self._add_owners(portfolio, is_landlord)
        portfolio["Properties"] = []
        for _ in range(self._count(1, 8, 30)):
            portfolio["Properties"].extend(self._properties())
        if not self._lettable:
            # A building alone can't be let.
            address = self._names.make("property", 30, 20)
            portfolio["Properties"].append({"Address1": address})
            self._lettable.append(address)
        portfolio["Tenants"] = []
        for _ in range(self._count(1, 6, 25)):
            portfolio["Tenants"].append(self._tenant(portfolio["Tenants"]))
        return Scenario(portfolio, self._today, self._options(), self._old_rows())

    def _chance(self, share):
        return self._source.random() < share

    def _count(self, least, usual, most):
        return self._source.randint(least, most if self._chance(0.07) else usual)

    def _any_today(self):
        source = self._source
        year = source.randint(2019, 2033)
        if source.random() < 0.3:
            return source.choice((Day(2024, 2, 29), Day(2028, 2, 29), Day(year, 1, 1), Day(year, 12, 31),
                                  Day(year, 3, 1), Day(year, 1, 31), Day(2023, 2, 28)))
        month = source.randint(1, 12)
        return Day(year, month, source.randint(1, days_in_month(year, month)))

    def _around_today(self, days):
        return add_days(self._today, self._source.randint(-days, days // 3))

    def _amount(self):
        source = self._source
        dice = source.random()
        if dice < 0.35:
            return source.randint(0, 3000)
        if dice < 0.8:
            return source.randint(0, 300000) / 100
        if dice < 0.9:
            return round(source.uniform(0, 2000), source.randint(3, 4))
        return source.choice((0, 0.01, 0.005, 0.0005, 0.0001, 10.25, 99.999, 1234.5678, 33.3335, 1e6,
                              123456789.12, 1e10, 0.3333))

    def _signed_amount(self):
        amount = self._amount()
        return -amount if self._chance(0.35) else amount

    def _dated(self, entry):
        if self._chance(0.7):
            entry["BalanceDate"] = self._around_today(900).iso()
        if self._chance(0.7):
            entry["BalanceAmount"] = self._signed_amount()
        return entry

    def _add_accounts(self, portfolio):
        source = self._source
        main = "Main Bank Account"
        dice = source.random()
        if dice < 0.15:
            portfolio["MainBankAccount"] = None
            main = None
        elif dice < 0.5:
            preset = self._dated({})
            if self._chance(0.8):
                main = preset["BankAccountName"] = self._names.make("account", 30, 10)
            portfolio["MainBankAccount"] = preset
        if main is not None:
            self._names.take("account", main)
            self._accounts.append(main)
        count = self._count(0 if main is not None else 1, 4, 25)
        entries = []
        for _ in range(count):
            name = "BankAcct" if self._chance(0.03) else None
            if name is None or not self._names.take("account", name):
                name = self._names.make("account", 30, 10)
            self._accounts.append(name)
            entries.append(self._dated({"BankAccountName": name}))
        if entries or self._chance(0.5):
            portfolio["BankAccounts"] = entries

    def _add_owners(self, portfolio, is_landlord):
        if is_landlord:
            name = "" if self._chance(0.15) else self._names.make("owner", 30, 10)
            entries = [{}] if not name and self._chance(0.5) else [{"OwnersName": name}]
            self._owners = [name]
        else:
            self._owners = [self._names.make("owner", 40, 10) for _ in range(self._count(0, 5, 25))]
            entries = [{"OwnersName": name} for name in self._owners]
        if entries or self._chance(0.5):
            portfolio["Owners"] = entries

    def _properties(self):
        """A property, and sometimes before it one that bears the address of one of its units."""
        entry = self._property(self._names.make("property", 30, 20))
        numbers = [number for number in entry.get("UnitNumbers", "").split(",") if number]
        if numbers and self._chance(0.15):
            address = f"{self._source.choice(numbers)}/{entry['Address1']}"
            if len(to_units(address)) <= 30 and self._names.take("property", address):
                yield self._property(address)
        yield entry
        for number in numbers:
            # A unit may repeat an address that stands already; a later building may not.
            self._names.take("property", f"{number}/{entry['Address1']}")

    def _property(self, address):
        source = self._source
        entry = {"Address1": address}
        if self._chance(0.7):
            entry["Address2"] = self._names.text(30)
        if self._chance(0.5):
            entry["Address3"] = self._names.text(30)
        if self._owners and self._chance(0.8):
            entry["Owner"] = source.choice(self._owners)
        if self._chance(0.75):
            entry["BankAccount"] = source.choice(self._accounts)
        if self._chance(0.3):
            entry["UnitNumbers"] = self._unit_numbers()
        if not entry.get("UnitNumbers"):
            self._lettable.append(address)
            return entry
        for number in entry["UnitNumbers"].split(","):
            if number:
                self._lettable.append(f"{number}/{address}")
        return entry

    def _unit_numbers(self):
        source = self._source
        if self._chance(0.1):
            return source.choice((",", ",,", "", " ", ", ,"))
        items = ["" if self._chance(0.1) else self._names.fragment() for _ in range(source.randint(1, 5))]
        if self._chance(0.1):
            items = [str(number) for number in range(1, source.randint(3, 14))]
        return ",".join(items) + ("," if self._chance(0.3) else "")

    def _name_and_property(self, others):
        """Sometimes the name is made to come out with another tenant's code, on the same property."""
        source = self._source
        if others and self._chance(0.06):
            other = source.choice(others)
            name = cut_units(other["Name"], 19).ljust(20) + source.choice((" ", "x", " 2", "  3"))
            if self._names.take("tenant", name):
                return name, other["PropertyName"]
        return self._names.make("tenant", 30, 20), source.choice(self._lettable)

    def _tenant(self, others):
        source = self._source
        frequency = source.choice((*_FREQUENCIES, "Month", "Month"))
        number = source.choice((1, 1, 1, 2, 3, 4, 7, 13))
        if self._chance(0.03):
            number = source.choice((32767, 5000)) if frequency != "Year" else source.choice((50, 4000))
        month_day = self._month_day()
        start = self._start(frequency, number)
        name, property_name = self._name_and_property(others)
        tenant = {"Name": name, "PropertyName": property_name, "StartDate": start.iso()}
        if self._chance(0.95):
            tenant["CurrentRent"] = self._rent()
        if frequency != "Week" or self._chance(0.8):
            tenant["RentFrequency"] = frequency
        if number != 1 or self._chance(0.8):
            tenant["FrequencyNumber"] = number
        if month_day != 1 or self._chance(0.5):
            tenant["MonthDay"] = month_day
        self._end(tenant, start)
        if self._chance(0.6):
            tenant["BondHeld"] = self._signed_amount()
        if self._chance(0.75):
            tenant["Setbalance"] = self._chance(0.9)
        if self._chance(0.85):
            tenant["BalanceAmount"] = self._balance(tenant.get("CurrentRent", 0))
        return tenant

    def _rent(self):
        if self._chance(0.01):
            return self._source.choice((1e10 + 0.01, 99999999999.99, 1e11))
        return self._amount()

    def _month_day(self):
        source = self._source
        if self._chance(0.12):
            return source.choice((0, 0, 32, 40, 59, 400, 32767))
        return source.choice((1, 1, source.randint(1, 31), source.randint(1, 31), 28, 29, 30, 31))

    def _start(self, frequency, number):
        source = self._source
        if self._chance(0.08):
            return add_days(self._today, source.randint(0, 500))
        if self._chance(0.02) and frequency == "Year" and number >= 13:
            return Day(source.choice((150, 999, 1600)), 2, source.randint(1, 28))
        periods = source.randint(0, source.choice((5, 20, 60, _MOST_PERIODS)))
        if frequency == "Day":
            start = add_days(self._today, -min(periods * number, 100000))
        elif frequency == "Week":
            start = add_days(self._today, -min(periods * number * 7, 100000))
        elif frequency == "Month":
            start = add_months(self._today, -min(periods * number // 2, 2000))
        else:
            start = add_years(self._today, -min(periods * number // 8, 300))
        start = add_days(start, source.choice((0, 0, -1, 1, source.randint(-20, 20))))
        if self._chance(0.25):
            start = Day(start.year, start.month, days_in_month(start.year, start.month))
        return start

    def _end(self, tenant, start):
        source = self._source
        dice = source.random()
        if dice < 0.2:
            tenant["EndDate"] = None
        elif dice < 0.3:
            tenant["EndDate"] = add_days(start, source.randint(-400, 0)).iso()
        elif dice < 0.5:
            tenant["EndDate"] = add_days(start, source.randint(0, 200)).iso()
        elif dice < 0.55:
            tenant["EndDate"] = source.choice((self._today, no_date(self._today), Day(1234, 12, 31),
                                               Day(1899, 12, 30), add_days(self._today, 1))).iso()

    def _balance(self, rent):
        source = self._source
        dice = source.random()
        if dice < 0.3:
            return 0
        if dice < 0.5:
            return round(rent * source.randint(1, 4), 4)
        if dice < 0.6:
            return source.choice((round(rent * 500 + 0.01, 4), 1e9, 0.0001, -0.0001, 0.1, -0.01, -1e9))
        if dice < 0.8:
            return round(rent * source.uniform(0, 6), 4)
        return self._signed_amount()

    def _options(self):
        source = self._source
        if self._chance(0.01):
            return None
        options = {}
        if self._chance(0.5):
            options["taxincome"] = source.choice((-1, -1, -1, -1, 0, None))
            options["taxincrate"] = source.choice((15.0, 15.0, 12.5, 0.0, 10.0, 700.0, 33.3, -50.0))
            if self._chance(0.03):
                options["taxincrate"] = None
        if self._chance(0.15):
            options["Rent_Group"] = source.choice(
                ("rent", "", "Rent true", "Mieten", cut_units("R" + self._names.text(28), 30)))
        return options

    def _old_rows(self):
        source = self._source
        rows = []
        if self._chance(0.3):
            contractor = "insert into contractor (contractornumber, name) values"
            rows.append(f"{contractor} (1000, 'Freds Lawns')")
            rows.append(f"{contractor} (1002, 'Toms Tree Services')")
            ledger = "insert into glcodes (gl_code, description, type) values"
            rows.append(f"{ledger} ('payee1', 'Fence Repairs Ltd', 4)")
            rows.append(f"{ledger} ('OldBank', 'Old', 3)")
        if self._chance(0.3):
            rows.append("insert into expenses ([date], amount, disburse_id) values ('2001-02-03', 5, 0)")
            rows.append("insert into revenues ([date], amount, tenant_code) values ('2001-02-03', 5, 'Old')")
            rows.append("insert into rent_periods (tenant_code, rent_due) values ('Old', 5)")
        if source.random() < 0.2:
            rows.append("insert into tenancy (reference, name) values ('Old', 'Old')")
            rows.append("insert into property (code, address1) values ('Old', 'Old')")
            rows.append("insert into owner (code, name) values ('Old', 'Old')")
            rows.append("insert into tenant_bond (tenant_code, amount) values ('Old', 1)")
        return rows
