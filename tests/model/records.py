"""The records that a portfolio stands for."""

from dataclasses import dataclass

from calendar_rules import Day, no_date, parse_iso
from utf16 import to_units

SINGLE_PROPERTY, UNIT, BUILDING = 0, 1, 2


@dataclass
class BankAccount:
    name: str
    balance_date: Day
    balance: float
    code: str = ""


@dataclass
class Owner:
    name: str
    code: str = ""


@dataclass
class Property:
    address1: str
    address2: str
    address3: str
    owner: str
    bank_account: str
    kind: int
    parent: str
    code: str = ""


@dataclass
class Tenant:
    name: str
    property_name: str
    start: Day
    end: Day
    rent: float
    frequency: str
    number: int
    month_day: int
    bond: float
    sets_balance: bool
    balance: float
    code: str = ""


def bank_accounts_of(portfolio, today):
    accounts = []
    preset = portfolio.get("MainBankAccount", {})
    if preset is not None:
        named = {"BankAccountName": "Main Bank Account", **preset}
        accounts.append(_bank_account(named, today))
        accounts[0].code = "BankAcct"
    accounts.extend(_bank_account(entry, today) for entry in portfolio.get("BankAccounts", []))
    return accounts


def _bank_account(entry, today):
    date = parse_iso(entry["BalanceDate"]) if "BalanceDate" in entry else today
    return BankAccount(to_units(entry["BankAccountName"]), date, float(entry.get("BalanceAmount", 0)))


def owners_of(portfolio):
    return [Owner(to_units(entry.get("OwnersName", ""))) for entry in portfolio.get("Owners", [])]


def unit_numbers(text):
    """The items of a comma-separated list, without the empty ones. Blanks in an item stay."""
    return [item for item in text.split(",") if item]


def properties_of(portfolio):
    properties = []
    for entry in portfolio["Properties"]:
        texts = {member: to_units(entry.get(member, "")) for member in (
            "Address1", "Address2", "Address3", "Owner", "BankAccount", "UnitNumbers")}
        shared = (texts["Address2"], texts["Address3"], texts["Owner"], texts["BankAccount"])
        address = texts["Address1"]
        if not texts["UnitNumbers"]:
            properties.append(Property(address, *shared, SINGLE_PROPERTY, ""))
            continue
        properties.append(Property(address, *shared, BUILDING, address))
        for number in unit_numbers(texts["UnitNumbers"]):
            properties.append(Property(f"{number}/{address}", *shared, UNIT, address))
    return properties


def tenants_of(portfolio, today):
    return [_tenant(entry, today) for entry in portfolio["Tenants"]]


def _tenant(entry, today):
    end = entry.get("EndDate")
    return Tenant(
        name=to_units(entry["Name"]),
        property_name=to_units(entry["PropertyName"]),
        start=parse_iso(entry["StartDate"]),
        end=no_date(today) if end is None else parse_iso(end),
        rent=float(entry.get("CurrentRent", 0)),
        frequency=entry.get("RentFrequency", "Week"),
        number=entry.get("FrequencyNumber", 1),
        month_day=entry.get("MonthDay", 1),
        bond=float(entry.get("BondHeld", 0)),
        sets_balance=entry.get("Setbalance", False),
        balance=float(entry.get("BalanceAmount", 0)))
