#pragma once

#include "records/KeyLength.h"
#include "records/RecordCollection.h"
#include "records/Records.h"

namespace records {

struct Collections;

struct OwnerRules {
    using Record = Owner;
    static constexpr auto Name = &Owner::OwnersName;
    static constexpr int CodeLimit = LedgerCodeLength;
    static constexpr bool KeepsCodes = true;
    static constexpr bool FoundByName = true;
};

class Owners : public RecordCollection<OwnerRules> {
public:
    /// A renamed owner takes its properties along. Called before the record changes.
    void PropogateChanges(const Collections& all, const QString& sOriginal, const QString& sNew) const;

    /// Adds one row for each owner who has a code, all with the one management fee. Needs the codes.
    void InsertRecords(const Collections& all, const RecordWritten& recordWritten = {}) const;
};

}  // namespace records
