#pragma once

#include "records/KeyLength.h"
#include "records/RecordCollection.h"
#include "records/Records.h"
#include "records/RentPeriods.h"

#include <QSet>

namespace records {

struct Collections;

struct TenantRules {
    using Record = Tenant;
    static constexpr auto Name = &Tenant::Name;
    static constexpr int CodeLimit = PropertyCodeLength;
    static constexpr bool KeepsCodes =
        false;  ///< Nothing refers to a tenant, so all are coded anew each time.
    static constexpr bool FoundByName = false;
};

class Tenants : public RecordCollection<TenantRules> {
public:
    /// Writes for each tenant the tenancy, the bond, the rent periods and the rent transactions. Needs the
    /// codes of all four collections.
    void InsertRecords(const Collections& all, const RecordWritten& recordWritten = {}) const;

    /// True if any tenant, past ones included, has this property. Names are compared exactly.
    bool PropertyOccupied(const QString& Name) const;

    /// The names for which PropertyOccupied is true, for callers that ask often.
    QSet<QString> OccupiedProperties() const;

    static constexpr auto GeneratePeriods = &records::GeneratePeriods;
    static constexpr auto RentSplit = &records::RentSplit;
};

}  // namespace records
