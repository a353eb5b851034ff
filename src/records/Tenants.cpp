#include "records/Tenants.h"

#include "database/RecordAccess.h"
#include "database/StatementText.h"
#include "platform/Clock.h"
#include "records/BalanceTransactions.h"
#include "records/Collections.h"
#include "records/NewRow.h"

namespace records {
namespace {

/// The first anniversary of the start that is not before today, and never the start itself: the day on which
/// Hearthbook reminds of the rent review. Year by year, so that a start on February 29 settles on the 28th.
QDate RentReviewDate(QDate start) {
    QDate review = start.addYears(1);
    while (review < platform::Today()) {
        review = review.addYears(1);
    }
    return review;
}

void InsertTenancy(const database::RecordsetReference& tenancies, const Tenant& tenant,
                   const QString& propertyCode) {
    AddRow(tenancies,
           {
               {QStringLiteral("current rent"), tenant.CurrentRent},
               {QStringLiteral("bond"), tenant.BondHeld},
               {QStringLiteral("when started"), engine::FromDate(tenant.StartDate)},
               {QStringLiteral("when ended"), engine::FromDate(tenant.EndDate)},
               {QStringLiteral("property code"), propertyCode},
               {QStringLiteral("reference"), tenant.Code},
               {QStringLiteral("name"), tenant.Name},
               {QStringLiteral("insp_number"), qint64{1}},
               {QStringLiteral("insp_every"), QStringLiteral("Never")},
               {QStringLiteral("every_amt"), qint64{tenant.FrequencyNumber}},
               {QStringLiteral("every_freq"), tenant.RentFrequency},
               {QStringLiteral("rentreviewdate"), engine::FromDate(RentReviewDate(tenant.StartDate))},
               {QStringLiteral("water_meter"), qint64{0}},
               {QStringLiteral("monthly_day"), qint64{tenant.MonthDay}},
           });
}

void InsertBond(const Tenant& tenant) {
    if (tenant.BondHeld > 0) {
        QString statement =
            QStringLiteral("insert into tenant_bond(tenant_code, [date], amount, reason) values ('") +
            tenant.Code + QStringLiteral("', ") + database::SqlDate(platform::Today()) +
            QStringLiteral(", ") + database::DecimalText(tenant.BondHeld) +
            QStringLiteral(", 'Opening Balance')");
        database::ExecuteSql(statement);
    }
}

void InsertRentPeriods(const Tenant& tenant) {
    QDate dStartDate = tenant.StartDate;
    bool bForceAtLeastOne = true;
    GeneratePeriods(dStartDate, tenant.Code, engine::Currency::FromDouble(tenant.CurrentRent),
                    bForceAtLeastOne, tenant.MonthDay, tenant.EndDate, tenant.FrequencyNumber,
                    tenant.RentFrequency);
}

}  // namespace

void Tenants::InsertRecords(const Collections& all, const RecordWritten& recordWritten) const {
    const LetProperties properties(all);
    const auto tenancies = OpenForChange(QStringLiteral("select * from tenancy"));
    for (const Reference& tenant : Walk()) {
        // The tenancy comes first, since its end may be read back for the periods, and the receipts last,
        // since they are copied from the periods.
        InsertTenancy(tenancies, *tenant, properties.CodeOf(tenant->PropertyName));
        InsertBond(*tenant);
        InsertRentPeriods(*tenant);
        InsertBalanceTransactions(*tenant, properties);
        if (recordWritten) {
            recordWritten();
        }
    }
}

bool Tenants::PropertyOccupied(const QString& Name) const {
    return OccupiedProperties().contains(Name);
}

QSet<QString> Tenants::OccupiedProperties() const {
    QSet<QString> occupied;
    occupied.reserve(Count());
    for (const Reference& tenant : Walk()) {
        occupied.insert(tenant->PropertyName);
    }
    return occupied;
}

}  // namespace records
