#include "records/RentFrequency.h"
#include "tools/import/Options.h"

namespace tools {

QString ImportHelpText() {
    return QStringLiteral(
               R"(Usage: wrenfield-import PORTFOLIO.json [options]

Sets up Hearthbook's database from a portfolio file, as the Wrenfield Wizard does from what is typed in:
all existing properties, owners, tenants, bank accounts and transactions are deleted, and those of the
file are written with their rent history.

  --database FILE      the database to fill; without it, the one that Hearthbook's settings name
  --backup FILE        keep a copy of the database in FILE before anything is deleted
  --today YYYY-MM-DD   work as if it were this day
  --locale NAME        write numbers and dates as this locale of the system does; C, which every system knows,
                       has a point before the decimals, as amounts with cents need it
  --yes                do not ask before deleting (needed where there is no terminal to ask on)
  --dry-run            check everything, tell what would be written, and change nothing
  --help               show this text
  --version            show the version

A portfolio is a UTF-8 JSON file:

  {
    "UserType": "Manager",                "Landlord" or "Manager"
    "ManagementFee": 8.5,                 per cent; 0 if absent
    "LastDisbursement": "2026-10-31",     null or absent: none
    "MainBankAccount": {                  absent: stays "Main Bank Account"; null: removed
      "BankAccountName": "Trust Account", at most 30 characters
      "BalanceDate": "2026-01-31",        today if absent
      "BalanceAmount": -12.5 },           0 if absent
    "BankAccounts": [ ... ],              more accounts with the same members
    "Owners": [
      { "OwnersName": "Smith Family" } ], at most 40 characters; of a landlord exactly one, at most 30
    "Properties": [
      { "Address1": "12 Main Road",       at most 30 characters, as the other two lines
        "Address2": "", "Address3": "",
        "Owner": "Smith Family",          an owner above, or empty
        "BankAccount": "Trust Account",   a bank account above, or empty
        "UnitNumbers": "1,2,3" } ],       makes it a building with the units 1/12 Main Road and so on
    "Tenants": [
      { "Name": "Ada Finch",              at most 30 characters
        "PropertyName": "2/12 Main Road", a property or unit above, no building
        "StartDate": "2025-03-15",        required; its first rent period ends before the year 9999
        "EndDate": null,                  null or absent: the tenancy goes on; the last rent period too
                                          ends before the year 9999
        "CurrentRent": 420,               for one rent period
        "RentFrequency": "Week",          %1; "%2" if absent
        "FrequencyNumber": 2,             a rent period is so many of them; 1 if absent
        "MonthDay": 1,                    day on which monthly rent falls due, from 0; 1 if absent
        "BondHeld": 1680,
        "Setbalance": true,               write rent transactions that give the balance; false if absent
        "BalanceAmount": 210.5 } ]        what the tenant owes; negative: has overpaid
  }

Amounts and the fee have at most 4 decimals; rent and fee are not negative.
Names must be unique within their list, upper and lower case counted as the same. Faults of the file are
listed all at once, each with the place where it stands, and nothing is changed then.

Exit status: 0 done; 1 done, but with failures, which were reported and logged, or without standard output, or
ended halfway by a failure that the last message tells; 2 nothing was done: bad usage, a portfolio that can't be
read or has faults, no database that can be written to, another import under way in it, the answer was No, or what
was only to be shown could not be written.
)")
        .arg(records::FrequencyChoice(), records::DefaultFrequency());
}

}  // namespace tools
