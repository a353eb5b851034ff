#include "records/EntryRules.h"
#include "records/RentPeriods.h"
#include "tools/portfolio/Sections.h"

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
    const double rent = tenant.AmountFromZero("CurrentRent").value_or(0);
    try {
        engine::Currency::FromDouble(rent);
    } catch (const platform::Failure&) {
        // Found out halfway through the import, this would end it with the old data gone.
        tenant.Refuse("CurrentRent", QStringLiteral("The amount is too large"));
    }
    return rent;
}

// What comes behind is no date of a period any more: found out halfway through the import, it would be lost.
const QDate& DayBehindReach() {
    static const QDate day(9999, 1, 1);
    return day;
}

// The first member that a shorter period would come of. Those that are absent make the shortest.
const char* MemberToBlame(const records::TenantEntry& entry, records::Frequency frequency) {
    if (entry.StartDate >= DayBehindReach()) {
        return "StartDate";
    }
    if (records::FollowsMonthDay(frequency, entry.FrequencyNumber)) {
        return "MonthDay";
    }
    return entry.FrequencyNumber > 1 ? "FrequencyNumber" : "StartDate";
}

// Most ends lie so far before the last year that the periods needn't be counted one by one.
bool HasLastPeriodBeyondReach(const records::TenantEntry& entry, records::Frequency frequency) {
    if (entry.EndDate >= DayBehindReach()) {
        return entry.EndDate >= entry.StartDate;
    }
    // The period that an end lies in is at most some days longer than one that begins there.
    const QDate notLater =
        records::NextPeriodStart(entry.EndDate, frequency, entry.FrequencyNumber, entry.MonthDay)
            .addMonths(1);
    return notLater > DayBehindReach() &&
           records::DayAfterPeriods(entry.StartDate, entry.EndDate, frequency, entry.FrequencyNumber,
                                    entry.MonthDay) > DayBehindReach();
}

void RefusePeriodsBeyondReach(ObjectReader& tenant, const records::TenantEntry& entry) {
    if (tenant.IsRefused("RentFrequency") || platform::IsNoDate(entry.StartDate)) {
        return;
    }
    const records::Frequency frequency = records::FrequencyOf(entry.RentFrequency);
    if (records::NextPeriodStart(entry.StartDate, frequency, entry.FrequencyNumber, entry.MonthDay) >
        DayBehindReach()) {
        tenant.Refuse(MemberToBlame(entry, frequency),
                      QStringLiteral("The first rent period must end before the year 9999"));
    } else if (!platform::IsNoDate(entry.EndDate) && HasLastPeriodBeyondReach(entry, frequency)) {
        tenant.Refuse("EndDate", QStringLiteral("The last rent period must end before the year 9999"));
    }
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
    // The rent rules count on from 0 and from days past 31 too, but no text box takes a minus sign.
    entry.MonthDay = tenant.Integer("MonthDay", 0, 1).value_or(1);
    entry.BondHeld = tenant.Amount("BondHeld").value_or(0);
    entry.Setbalance = tenant.Boolean("Setbalance").value_or(false);
    entry.BalanceAmount = tenant.Amount("BalanceAmount").value_or(0);
    tenant.RefuseUnknownMembers();
    RefuseFaults(tenant, records::FaultsOf(entry));
    RefuseUnletProperty(tenant, property, reading);
    RefusePeriodsBeyondReach(tenant, entry);
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
