#pragma once

namespace records {

/// How many characters Hearthbook's key columns take.
inline constexpr int LedgerCodeLength = 10;    ///< Codes of accounts and owners.
inline constexpr int PropertyCodeLength = 20;  ///< Codes of properties and tenancies.

}  // namespace records
