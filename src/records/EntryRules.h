#pragma once

#include "platform/NoDate.h"
#include "records/Collections.h"
#include "records/EntryMessages.h"

#include <QDate>
#include <QString>
#include <QStringList>

#include <memory>
#include <optional>
#include <vector>

/// The rules that decide what may enter the collections, for everything that lets records in: the dialogs and
/// the batch tool. No rule here shows a message, but NameExists of the collections does.
namespace records {

/// What was entered for a bank account.
struct BankAccountEntry {
    QString BankAccountName;
    QDate BalanceDate;
    double BalanceAmount = 0;
};

/// What was entered for an owner.
struct OwnerEntry {
    QString OwnersName;
};

/// What was entered for a property, or for a building with its units.
struct PropertyEntry {
    QString Address1;
    QString Address2;
    QString Address3;
    QString Owner;
    QString BankAccount;
    QString UnitNumbers;  ///< Separated by commas. Any text at all makes the property a building.
};

/// What was entered for a tenant.
struct TenantEntry {
    QString Name;
    QString PropertyName;
    QDate StartDate = platform::NoDate();
    QDate EndDate = platform::NoDate();
    double CurrentRent = 0;
    QString RentFrequency;
    qint16 FrequencyNumber = 1;
    double BondHeld = 0;
    double BalanceAmount = 0;
    std::optional<bool> Setbalance;  ///< Empty until the user has decided.
    qint16 MonthDay = 1;
};

/// What is wrong with an entry, and the member of it that is to be mended.
struct EntryFault {
    const char* Field;
    QLatin1String Message;
};

/// All faults of an entry, in the order in which a user is told them one by one; none if it may be taken.
/// Whether the name is free, and whether a rent of zero is meant, is looked at after these.
using EntryFaults = std::vector<EntryFault>;
EntryFaults FaultsOf(const BankAccountEntry& entry);
EntryFaults FaultsOf(const OwnerEntry& entry);
EntryFaults FaultsOf(const PropertyEntry& entry);
EntryFaults FaultsOf(const TenantEntry& entry);

/// Whether EntryQuestion::ZeroRent has to be asked.
bool NeedsZeroRentAnswer(const TenantEntry& entry);

/// The checks on leaving a page forward: the message, empty if the page may be left.
QString FirstFault(const bankAccounts& collection);
QString FirstFault(const Properties& collection);
QString FirstFault(const Tenants& collection);

/// Whether EntryQuestion::NoOwners has to be asked.
bool NeedsNoOwnersAnswer(const Owners& collection);

/// New records as entered. No code is given to them.
std::shared_ptr<BankAccount> MakeRecord(const BankAccountEntry& entry);
std::shared_ptr<Owner> MakeRecord(const OwnerEntry& entry);
std::shared_ptr<Tenant> MakeRecord(const TenantEntry& entry);

/// Changes a record of the collections in place. A changed name is passed on to the records that refer to it
/// by the old one; of a property, units and iType stay as they are: its units keep the old address.
void ChangeRecord(const Collections& all, BankAccount& record, const BankAccountEntry& entry);
void ChangeRecord(const Collections& all, Owner& record, const OwnerEntry& entry);
void ChangeRecord(const Collections& all, Property& record, const PropertyEntry& entry);
void ChangeRecord(const Collections& all, Tenant& record, const TenantEntry& entry);

/// Adds the property, and behind it its units if there are unit numbers. The units' addresses are not tested
/// against anything. Returns the record added last.
std::shared_ptr<Property> AddPropertyWithUnits(Properties& properties, const PropertyEntry& entry);

/// A landlord's one owner takes the place of all owners. The name may be empty.
void ReplaceOwners(Owners& owners, const QString& name);

/// The name of a unit: unit 3 of 12 Main Road is 3/12 Main Road.
QString UnitAddress(const QString& unit, const QString& buildingAddress);

/// The items of a list of unit numbers, empty ones left out, blanks kept.
QStringList UnitsOf(const QString& unitNumbers);

/// The list for a count: "1,2,3," for 3, empty for 0 and less.
QString UnitNumbersOf(qint16 count);

/// The count shown beside a list: each comma ends an item, an empty item counts too.
int UnitCountOf(const QString& unitNumbers);

/// A building with units can't be let itself. A property that has a tenant can get another.
bool CanBeLet(const Property& property);

/// Text as the user typed it, with the decimal mark of the locale, to 16 bits. Platform failure 13 if it
/// isn't a number (an empty text is none), 6 if it doesn't fit.
qint16 ToInteger(const QString& text);

}  // namespace records
