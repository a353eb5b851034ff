#pragma once

#include "records/KeyLength.h"
#include "records/RecordCollection.h"
#include "records/Records.h"

namespace records {

class bankAccounts;
struct Collections;

struct PropertyRules {
    using Record = Property;
    static constexpr auto Name = &Property::Address1;
    static constexpr int CodeLimit = PropertyCodeLength;
    static constexpr bool KeepsCodes = true;
    static constexpr bool FoundByName = true;
};

class Properties : public RecordCollection<PropertyRules> {
public:
    /// A renamed property takes its tenants along, but not its units: they keep naming the old address.
    /// Called before the record changes.
    void PropogateChanges(const Collections& all, const QString& sOriginal, const QString& sNew) const;

    /// Adds one row for each property. Needs the codes of all four collections.
    void InsertRecords(const Collections& all, const RecordWritten& recordWritten = {}) const;

    /// The code of the bank account of the property of this name: empty if the property has no account or
    /// there is no such property, and the account's name itself if no account bears it.
    QString GetBankAccount(const bankAccounts& accounts, const QString& Name) const;

    /// The answers of GetBankAccount by property name, for callers that need many.
    QHash<QString, QString> BankAccountsByName(const bankAccounts& accounts) const;
};

}  // namespace records
