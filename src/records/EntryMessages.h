#pragma once

#include <QLatin1String>

namespace records {

/// How many characters the user can enter, in UTF-16 units.
namespace EntryLimit {
inline constexpr int BankAccountName = 30;
inline constexpr int OwnersName = 40;
inline constexpr int SingleOwnersName = 30;  ///< A landlord's one owner, entered on a page of its own.
inline constexpr int Address = 30;           ///< Each of the three lines.
inline constexpr int TenantsName = 30;
}  // namespace EntryLimit

/// What the user is told when an entry can't be taken as it is.
namespace EntryMessage {
inline constexpr QLatin1String AccountNameRequired{"An account name is required"};
inline constexpr QLatin1String NameRequired{"A name is required"};
inline constexpr QLatin1String Address1Required{"An address 1 is required"};
inline constexpr QLatin1String PropertyRequired{"A property selection is required"};
inline constexpr QLatin1String StartDateRequired{"A start date is required."};
inline constexpr QLatin1String BalanceOptionRequired{
    "You need to select one of the options to either enter the rent balance or leave it blank"};
inline constexpr QLatin1String NameExists{"Another record already exists with the same name"};

inline constexpr QLatin1String TypeRequired{"You must select a type"};
inline constexpr QLatin1String NoBankAccounts{"You need to have at least one bank account"};
inline constexpr QLatin1String NoProperties{"You have not entered any properties"};
inline constexpr QLatin1String NoTenants{"You have not entered any tenants"};
}  // namespace EntryMessage

/// What the user is asked before an unusual entry is taken. No is the default answer.
namespace EntryQuestion {
inline constexpr QLatin1String ZeroRent{"The rent amount is set to zero.  Is this correct?"};
inline constexpr QLatin1String NoOwners{
    "You have not entered any owners.  Are you sure you want to continue with no owners?"};
}  // namespace EntryQuestion

}  // namespace records
