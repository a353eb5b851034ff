#pragma once

#include <QDate>
#include <QString>

/// The records that hold what the user enters, in memory, until Finish. They refer to one another by display
/// name, never by code; codes are made only at Finish.
namespace records {

/// One bank account of the user: in Hearthbook a row of the chart of accounts.
struct BankAccount {
    QString BankAccountName;
    QString Code;  ///< At most 10 characters. Empty until GenerateCodes, except on the preset account.
    QDate BalanceDate;
    double BalanceAmount = 0;  ///< The opening balance; negative is allowed.
};

/// An owner of properties.
struct Owner {
    QString OwnersName;
    QString Code;  ///< At most 10 characters. Empty until GenerateCodes.
};

namespace PropertyType {
inline constexpr qint16 Single = 0;
inline constexpr qint16 Unit = 1;
inline constexpr qint16 Building = 2;  ///< A parent that has units. It can't be let itself.
}  // namespace PropertyType

/// One rentable address, or one building with units, or one unit of such a building.
struct Property {
    QString Address1;  ///< Also the property's name throughout the system.
    QString Address2;
    QString Address3;
    QString Owner;        ///< OwnersName of the owner, or empty.
    QString BankAccount;  ///< BankAccountName of the default bank account, or empty.
    QString Code;         ///< At most 20 characters. Empty until GenerateCodes.
    qint16 iType = PropertyType::Single;
    QString
        ParentProperty;  ///< Address1 of the building. A building names itself; a single property nothing.
};

/// One tenancy: who rents which property, from when, at what rent, how often.
struct Tenant {
    QString Name;
    QString Code;          ///< At most 20 characters. Empty until GenerateCodes.
    QString PropertyName;  ///< Address1 of the tenant's property.
    QDate StartDate;
    QDate EndDate;           ///< NoDate if the tenancy goes on.
    double CurrentRent = 0;  ///< Rent for one rent period.
    QString RentFrequency;   ///< "Day", "Week", "Month" or "Year"; the rent routine also knows "Duration".
    qint16 FrequencyNumber = 1;  ///< How many units of RentFrequency one rent period lasts.
    QDate BalanceDate;           ///< Unused; the record has always had it.
    double BalanceAmount = 0;    ///< Positive when the tenant owes, negative when the tenant is in credit.
    double BondHeld = 0;         ///< May be negative.
    bool Setbalance = false;     ///< False: BalanceAmount is ignored, no rent transactions are written.
    qint16 MonthDay = 1;         ///< Day on which rent falls due, for a FrequencyNumber of 1 "Month".
};

}  // namespace records
