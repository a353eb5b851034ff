#include "records/Properties.h"

#include "records/Collections.h"
#include "records/NewRow.h"

namespace records {
namespace {

/// The width of the column address1. The address of a unit can be longer than what the user can enter.
constexpr int AddressColumnWidth = 30;

constexpr qint64 DepreciationRate = 4;
constexpr qint64 Occupied = 0;
constexpr qint64 Vacant = 1;

}  // namespace

void Properties::PropogateChanges(const Collections& all, const QString& sOriginal,
                                  const QString& sNew) const {
    RenameReferences(all.Tenants, &Tenant::PropertyName, sOriginal, sNew);
}

void Properties::InsertRecords(const Collections& all, const RecordWritten& recordWritten) const {
    const auto accountCodes = all.bankAccounts.CodesByName();
    const auto ownerCodes = all.Owners.CodesByName();
    const auto propertyCodes = CodesByName();
    const auto occupied = all.Tenants.OccupiedProperties();

    const auto properties = OpenForChange(QStringLiteral("select * from property"));
    for (const Reference& property : Walk()) {
        const bool isOccupied = occupied.contains(property->Address1);
        AddRow(properties,
               {
                   {QStringLiteral("code"), property->Code},
                   {QStringLiteral("address1"), property->Address1.left(AddressColumnWidth)},
                   {QStringLiteral("address2"), property->Address2},
                   {QStringLiteral("address3"), property->Address3},
                   {QStringLiteral("default_gl"), accountCodes.value(property->BankAccount)},
                   {QStringLiteral("ownercode"), ownerCodes.value(property->Owner)},
                   {QStringLiteral("type"), qint64{property->iType}},
                   {QStringLiteral("parent_property"), propertyCodes.value(property->ParentProperty)},
                   {QStringLiteral("depn_rate"), DepreciationRate},
                   {QStringLiteral("depn_method"), QStringLiteral("DV")},
                   {QStringLiteral("property_type"), QStringLiteral("House")},
                   {QStringLiteral("vacancy_status"), isOccupied ? Occupied : Vacant},
               });
        if (recordWritten) {
            recordWritten();
        }
    }
}

QString Properties::GetBankAccount(const bankAccounts& accounts, const QString& Name) const {
    return BankAccountsByName(accounts).value(Name);
}

QHash<QString, QString> Properties::BankAccountsByName(const bankAccounts& accounts) const {
    const auto accountCodes = accounts.FinalCodesByName();
    QHash<QString, QString> codes;
    codes.reserve(Count());
    for (const Reference& property : Walk()) {
        codes.insert(property->Address1, accountCodes.value(property->BankAccount, property->BankAccount));
    }
    return codes;
}

}  // namespace records
