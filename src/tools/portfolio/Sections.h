#pragma once

#include "records/Collections.h"
#include "records/EntryRules.h"
#include "tools/portfolio/NameBook.h"
#include "tools/portfolio/ObjectReader.h"

namespace tools {

/// What is known while a portfolio is read, section by section.
struct Reading {
    records::Collections& collections;
    Faults& faults;
    bool isLandlord = false;
    NameBook accounts;
    NameBook owners;
    NameBook properties;
    NameBook lettable;  ///< Properties that a tenant can be on.
    NameBook tenants;
};

/// Each reads its member of the portfolio, in the order of the wizard's pages: a section refers to records of
/// earlier ones only.
void ReadBankAccounts(ObjectReader& portfolio, Reading& reading);
void ReadOwners(ObjectReader& portfolio, Reading& reading);
void ReadProperties(ObjectReader& portfolio, Reading& reading);
void ReadTenants(ObjectReader& portfolio, Reading& reading);

/// Places in a collection are counted in 16 bits.
void RefuseTooManyRecords(ObjectReader& portfolio, const char* section, qsizetype count, Faults& faults);
bool FitsACollection(qsizetype count);

/// Refuses what the rules of entry find, member by member. One that is refused already could not be read, or
/// the user has something to mend there anyway.
void RefuseFaults(ObjectReader& record, const records::EntryFaults& faults);

/// Notes a record's name: one that is taken already is a fault. Without a name (it couldn't be read) the book
/// knows that it is incomplete.
void EnterName(ObjectReader& record, const char* member, const std::optional<QString>& name, NameBook& book);

}  // namespace tools
