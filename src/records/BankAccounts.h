#pragma once

#include "records/KeyLength.h"
#include "records/RecordCollection.h"
#include "records/Records.h"

namespace records {

struct Collections;

struct BankAccountRules {
    using Record = BankAccount;
    static constexpr auto Name = &BankAccount::BankAccountName;
    static constexpr int CodeLimit = LedgerCodeLength;
    static constexpr bool KeepsCodes = true;  ///< The preset account has its code from the start.
    static constexpr bool FoundByName = true;
};

class bankAccounts : public RecordCollection<BankAccountRules> {
public:
    /// A renamed account takes its properties along. Called before the record changes.
    void PropogateChanges(const Collections& all, const QString& sOriginal, const QString& sNew) const;

    /// Adds one row of the chart of accounts for each account. Needs the codes.
    void InsertRecords(const Collections& all, const RecordWritten& recordWritten = {}) const;

    /// The code for each account name, followed on as GetBankAccount of the properties does: where a code is
    /// the name of a later account, that account's code takes its place.
    QHash<QString, QString> FinalCodesByName() const;
};

}  // namespace records
