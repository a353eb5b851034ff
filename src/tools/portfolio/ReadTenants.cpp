#include "records/EntryRules.h"
#include "records/RentFrequency.h"
#include "tools/portfolio/Sections.h"

#include <limits>

namespace tools {

namespace {

void RefuseUnletProperty(ObjectReader& tenant, const std::optional<QString>& name, const Reading& reading) {
    if (!name || name->isEmpty()) {
        return;
    }
    if (!reading.properties.MayHold(*name)) {
        tenant.Refuse("PropertyName", QStringLiteral("No property has this name"));
    } else if (reading.properties.Holds(*name) && !reading.lettable.MayHold(*name)) {
        tenant.Refuse("PropertyName", QStringLiteral("A building with units can't be let itself"));
    }
}

QString ReadFrequency(ObjectReader& tenant) {
    if (!tenant.Value("RentFrequency")) {
        return records::DefaultFrequency();
    }
    const std::optional<QString> frequency = tenant.Text("RentFrequency");
    if (frequency && !records::OfferedFrequencies().contains(*frequency)) {
        tenant.Refuse("RentFrequency", records::FrequencyRequired());
    }
    return frequency.value_or(records::DefaultFrequency());
}

double ReadRent(ObjectReader& tenant) {
    const double rent = tenant.NumberFromZero("CurrentRent").value_or(0);
    try {
        engine::Currency::FromDouble(rent);
    } catch (const platform::Failure&) {
        // Found out halfway through the import, this would end it with the old data gone.
        tenant.Refuse("CurrentRent", QStringLiteral("The amount is too large"));
    }
    return rent;
}

// Found out halfway through the import, the period would be lost.
void RefusePeriodBeyondReach(ObjectReader& tenant, const records::TenantEntry& entry) {
    constexpr int LastYear = 9999;
    const records::Frequency frequency = records::FrequencyOf(entry.RentFrequency);
    if (records::StepFrom(entry.StartDate, frequency, entry.FrequencyNumber).year() < LastYear) {
        return;
    }
    const bool isByStart = entry.StartDate.year() >= LastYear;
    tenant.Refuse(isByStart ? "StartDate" : "FrequencyNumber",
                  QStringLiteral("The first rent period must end before the year 9999"));
}

void ReadTenant(ObjectReader& tenant, Reading& reading) {
    records::TenantEntry entry;
    const std::optional<QString> name = tenant.Text("Name", records::EntryLimit::TenantsName);
    const std::optional<QString> property = tenant.Text("PropertyName");
    const std::optional<QDate> start = tenant.Date("StartDate", platform::NoDate(), NullMeans::Fault);
    const std::optional<QDate> end = tenant.Date("EndDate", platform::NoDate(), NullMeans::Absent);
    entry.Name = name.value_or(QString());
    entry.PropertyName = property.value_or(QString());
    entry.StartDate = start.value_or(platform::NoDate());
    entry.EndDate = end.value_or(platform::NoDate());
    entry.CurrentRent = ReadRent(tenant);
    entry.RentFrequency = ReadFrequency(tenant);
    // A period of no length would be followed by itself for ever.
    entry.FrequencyNumber = tenant.Integer("FrequencyNumber", 1, 1).value_or(1);
    // Any number is a day to the rent rules, a negative one too: they count on from it.
    entry.MonthDay = tenant.Integer("MonthDay", std::numeric_limits<qint16>::min(), 1).value_or(1);
    entry.BondHeld = tenant.Number("BondHeld").value_or(0);
    entry.Setbalance = tenant.Boolean("Setbalance").value_or(false);
    entry.BalanceAmount = tenant.Number("BalanceAmount").value_or(0);
    tenant.RefuseUnknownMembers();
    RefuseFaults(tenant, records::FaultsOf(entry));
    RefuseUnletProperty(tenant, property, reading);
    if (!platform::IsNoDate(entry.StartDate)) {
        RefusePeriodBeyondReach(tenant, entry);
    }
    EnterName(tenant, "Name", name, reading.tenants);
    reading.collections.Tenants.Add(records::MakeRecord(entry));
}

}  // namespace

void ReadTenants(ObjectReader& portfolio, Reading& reading) {
    const std::vector<JsonValue>* values = portfolio.Array("Tenants");
    if (!values) {
        return;
    }
    for (std::size_t place = 0; place < values->size(); ++place) {
        const QString pointer = ElementPointer(portfolio.PointerTo("Tenants"), static_cast<qsizetype>(place));
        if (MustBeObject((*values)[place], pointer, reading.faults)) {
            ObjectReader tenant((*values)[place], pointer, reading.faults);
            ReadTenant(tenant, reading);
        }
    }
    if (values->empty()) {
        portfolio.Refuse("Tenants", records::EntryMessage::NoTenants);
    }
    RefuseTooManyRecords(portfolio, "Tenants", static_cast<qsizetype>(values->size()), reading.faults);
}

}  // namespace tools
