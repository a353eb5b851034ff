#include "records/EntryRules.h"

#include "database/IntegerText.h"
#include "platform/Failure.h"
#include "platform/Locale.h"

namespace records {
namespace {

struct Check {
    bool isBroken;
    EntryFault fault;
};

EntryFaults Broken(std::initializer_list<Check> checks) {
    EntryFaults faults;
    for (const Check& check : checks) {
        if (check.isBroken) {
            faults.push_back(check.fault);
        }
    }
    return faults;
}

void WriteEntry(BankAccount& record, const BankAccountEntry& entry) {
    record.BalanceAmount = entry.BalanceAmount;
    record.BankAccountName = entry.BankAccountName;
    record.BalanceDate = entry.BalanceDate;
}

void WriteEntry(Owner& record, const OwnerEntry& entry) {
    record.OwnersName = entry.OwnersName;
}

void WriteEntry(Tenant& record, const TenantEntry& entry) {
    record.Name = entry.Name;
    record.BalanceAmount = entry.BalanceAmount;
    record.BondHeld = entry.BondHeld;
    record.CurrentRent = entry.CurrentRent;
    record.EndDate = entry.EndDate;
    record.PropertyName = entry.PropertyName;
    record.RentFrequency = entry.RentFrequency;
    record.StartDate = entry.StartDate;
    record.FrequencyNumber = entry.FrequencyNumber;
    record.Setbalance = entry.Setbalance.value_or(false);
    record.MonthDay = entry.MonthDay;
}

void WriteEntry(Property& record, const PropertyEntry& entry) {
    record.Address1 = entry.Address1;
    record.Address2 = entry.Address2;
    record.Address3 = entry.Address3;
    record.BankAccount = entry.BankAccount;
    record.Owner = entry.Owner;
}

}  // namespace

EntryFaults FaultsOf(const BankAccountEntry& entry) {
    return Broken(
        {{entry.BankAccountName.isEmpty(), {"BankAccountName", EntryMessage::AccountNameRequired}}});
}

EntryFaults FaultsOf(const OwnerEntry& entry) {
    return Broken({{entry.OwnersName.isEmpty(), {"OwnersName", EntryMessage::NameRequired}}});
}

EntryFaults FaultsOf(const PropertyEntry& entry) {
    return Broken({{entry.Address1.isEmpty(), {"Address1", EntryMessage::Address1Required}}});
}

EntryFaults FaultsOf(const TenantEntry& entry) {
    return Broken({{entry.Name.isEmpty(), {"Name", EntryMessage::NameRequired}},
                   {entry.PropertyName.isEmpty(), {"PropertyName", EntryMessage::PropertyRequired}},
                   {platform::IsNoDate(entry.StartDate), {"StartDate", EntryMessage::StartDateRequired}},
                   {!entry.Setbalance.has_value(), {"Setbalance", EntryMessage::BalanceOptionRequired}}});
}

bool NeedsZeroRentAnswer(const TenantEntry& entry) {
    return entry.CurrentRent == 0;
}

QString FirstFault(const bankAccounts& collection) {
    return collection.Count() == 0 ? QString(EntryMessage::NoBankAccounts) : QString();
}

QString FirstFault(const Properties& collection) {
    return collection.Count() == 0 ? QString(EntryMessage::NoProperties) : QString();
}

QString FirstFault(const Tenants& collection) {
    return collection.Count() == 0 ? QString(EntryMessage::NoTenants) : QString();
}

bool NeedsNoOwnersAnswer(const Owners& collection) {
    return collection.Count() == 0;
}

std::shared_ptr<BankAccount> MakeRecord(const BankAccountEntry& entry) {
    auto record = std::make_shared<BankAccount>();
    WriteEntry(*record, entry);
    return record;
}

std::shared_ptr<Owner> MakeRecord(const OwnerEntry& entry) {
    auto record = std::make_shared<Owner>();
    WriteEntry(*record, entry);
    return record;
}

std::shared_ptr<Tenant> MakeRecord(const TenantEntry& entry) {
    auto record = std::make_shared<Tenant>();
    WriteEntry(*record, entry);
    return record;
}

void ChangeRecord(const Collections& all, BankAccount& record, const BankAccountEntry& entry) {
    all.bankAccounts.PropogateChanges(all, record.BankAccountName, entry.BankAccountName);
    WriteEntry(record, entry);
}

void ChangeRecord(const Collections& all, Owner& record, const OwnerEntry& entry) {
    all.Owners.PropogateChanges(all, record.OwnersName, entry.OwnersName);
    WriteEntry(record, entry);
}

void ChangeRecord(const Collections& all, Property& record, const PropertyEntry& entry) {
    all.Properties.PropogateChanges(all, record.Address1, entry.Address1);
    WriteEntry(record, entry);
}

void ChangeRecord(const Collections& /*all*/, Tenant& record, const TenantEntry& entry) {
    WriteEntry(record, entry);
}

std::shared_ptr<Property> AddPropertyWithUnits(Properties& properties, const PropertyEntry& entry) {
    auto added = std::make_shared<Property>();
    WriteEntry(*added, entry);
    if (!entry.UnitNumbers.isEmpty()) {
        added->iType = PropertyType::Building;
        added->ParentProperty = entry.Address1;
    }
    properties.Add(added);

    for (const QString& unit : UnitsOf(entry.UnitNumbers)) {
        added = std::make_shared<Property>();
        WriteEntry(*added, entry);
        added->Address1 = UnitAddress(unit, entry.Address1);
        added->iType = PropertyType::Unit;
        added->ParentProperty = entry.Address1;
        properties.Add(added);
    }
    return added;
}

void ReplaceOwners(Owners& owners, const QString& name) {
    while (owners.Count() >= 1) {
        owners.Remove(1);
    }
    owners.Add(MakeRecord(OwnerEntry{name}));
}

QString UnitAddress(const QString& unit, const QString& buildingAddress) {
    return unit + u'/' + buildingAddress;
}

QStringList UnitsOf(const QString& unitNumbers) {
    return unitNumbers.split(u',', Qt::SkipEmptyParts);
}

QString UnitNumbersOf(qint16 count) {
    QString unitNumbers;
    for (int unit = 1; unit <= count; ++unit) {
        unitNumbers += QString::number(unit) + u',';
    }
    return unitNumbers;
}

int UnitCountOf(const QString& unitNumbers) {
    if (unitNumbers.isEmpty()) {
        return 0;
    }
    const auto commas = static_cast<int>(unitNumbers.count(u','));
    return unitNumbers.endsWith(u',') ? commas : commas + 1;
}

bool CanBeLet(const Property& property) {
    return property.iType != PropertyType::Building;
}

qint16 ToInteger(const QString& text) {
    const auto thousands =
        platform::LocaleMoney(platform::MoneyItem::ThousandSeparator).value_or(QStringLiteral(","));
    return database::ToInteger(QString(text).remove(thousands));
}

}  // namespace records
