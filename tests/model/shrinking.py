"""Makes a scenario smaller as long as it still shows what it showed."""

import copy
from dataclasses import replace

_COLLECTIONS = ("Tenants", "Properties", "Owners", "BankAccounts")
_NEEDED_MEMBERS = ("UserType", "Properties", "Tenants", "Name", "PropertyName", "StartDate", "Address1",
                   "BankAccountName", "OwnersName")
_MOST_ATTEMPTS = 300


def _is_sound(portfolio):
    """Whether nothing is missing that something else names."""
    accounts = {entry["BankAccountName"] for entry in portfolio.get("BankAccounts", [])}
    if portfolio.get("MainBankAccount", {}) is not None:
        accounts.add(portfolio.get("MainBankAccount", {}).get("BankAccountName", "Main Bank Account"))
    owners = {entry.get("OwnersName", "") for entry in portfolio.get("Owners", [])}
    addresses = set()
    for entry in portfolio["Properties"]:
        numbers = entry.get("UnitNumbers", "")
        addresses.update([f"{number}/{entry['Address1']}" for number in numbers.split(",") if number]
                         if numbers else [entry["Address1"]])
        if entry.get("BankAccount") and entry["BankAccount"] not in accounts:
            return False
        if entry.get("Owner") and entry["Owner"] not in owners:
            return False
    if portfolio["UserType"] == "Landlord" and len(portfolio.get("Owners", [])) != 1:
        return False
    return (bool(accounts) and bool(portfolio["Tenants"])
            and all(tenant["PropertyName"] in addresses for tenant in portfolio["Tenants"]))


def _smaller_ones(scenario):
    for collection in _COLLECTIONS:
        for place in reversed(range(len(scenario.portfolio.get(collection, [])))):
            smaller = copy.deepcopy(scenario)
            del smaller.portfolio[collection][place]
            yield smaller
    for member in list(scenario.portfolio):
        if member not in _NEEDED_MEMBERS:
            smaller = copy.deepcopy(scenario)
            del smaller.portfolio[member]
            yield smaller
    for collection in _COLLECTIONS:
        for place, entry in enumerate(scenario.portfolio.get(collection, [])):
            for member in entry:
                if member not in _NEEDED_MEMBERS:
                    smaller = copy.deepcopy(scenario)
                    del smaller.portfolio[collection][place][member]
                    yield smaller
    if scenario.options:
        yield replace(scenario, options={})
    if scenario.old_rows:
        yield replace(scenario, old_rows=[])


def shrunk(scenario, still_shows_it):
    attempts = 0
    is_smaller = True
    while is_smaller and attempts < _MOST_ATTEMPTS:
        is_smaller = False
        for smaller in _smaller_ones(scenario):
            if not _is_sound(smaller.portfolio):
                continue
            attempts += 1
            if still_shows_it(smaller):
                scenario, is_smaller = smaller, True
                break
            if attempts >= _MOST_ATTEMPTS:
                break
    return scenario
