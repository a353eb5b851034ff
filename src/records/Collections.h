#pragma once

#include "records/BankAccounts.h"
#include "records/Owners.h"
#include "records/Properties.h"
#include "records/Tenants.h"

namespace records {

/// All that the user has entered.
struct Collections {
    records::bankAccounts bankAccounts;
    records::Owners Owners;
    records::Properties Properties;
    records::Tenants Tenants;
};

/// The one set of collections of the process, which the wizard and the batch tool hand to whatever works on
/// records. Before CreateCollections all four are empty.
Collections& TheCollections();

/// How many records of each kind there are, one line each, as the user is told before and after an import.
/// The words stay plural for any count.
QString CountsOf(const Collections& collections);

/// Begins anew: every collection empty, but for the preset bank account "Main Bank Account" with balance 0 as
/// of today, so that the first page is never empty. Its code is fixed; the others are made at the import.
void CreateCollections(Collections& all);

/// The start of the wizard: opens the database and creates the collections. The process ends with status 1 if
/// the database can't be opened; the user has been told then.
void InitialiseData(Collections& all);

}  // namespace records
