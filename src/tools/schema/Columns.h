#pragma once

#include "engine/DBEngine.h"
#include "records/KeyLength.h"

#include <QLatin1String>

#include <utility>
#include <vector>

namespace tools {

/// Widths of text columns that several tables share.
using records::LedgerCodeLength;
using records::PropertyCodeLength;
inline constexpr int NameLength = 50;
/// A ledger code's column that may get an account's name instead, when a property names an account that is
/// gone.
inline constexpr int AccountNameLength = 30;

inline engine::ColumnDefinition Text(const char* name, int size) {
    return {QLatin1String(name), engine::dbText, size};
}

inline engine::ColumnDefinition Column(const char* name, engine::DataType type) {
    return {QLatin1String(name), type, 0};
}

inline engine::ColumnDefinition Boolean(const char* name) {
    return Column(name, engine::dbBoolean);
}
inline engine::ColumnDefinition Integer(const char* name) {
    return Column(name, engine::dbInteger);
}
inline engine::ColumnDefinition Long(const char* name) {
    return Column(name, engine::dbLong);
}
inline engine::ColumnDefinition Money(const char* name) {
    return Column(name, engine::dbCurrency);
}
inline engine::ColumnDefinition Single(const char* name) {
    return Column(name, engine::dbSingle);
}
inline engine::ColumnDefinition Double(const char* name) {
    return Column(name, engine::dbDouble);
}
inline engine::ColumnDefinition Date(const char* name) {
    return Column(name, engine::dbDate);
}
inline engine::ColumnDefinition Memo(const char* name) {
    return Column(name, engine::dbMemo);
}

inline engine::TableDefinition Table(const char* name, std::vector<engine::ColumnDefinition> columns) {
    return {QLatin1String(name), std::move(columns), {}};
}

/// A table whose rows of one tenant the import looks up again to write his balance. No other key has an
/// index, since each makes every insert dearer. It is not unique: codes made from long names may coincide.
inline engine::TableDefinition TableByTenant(const char* name,
                                             std::vector<engine::ColumnDefinition> columns) {
    const QString key = QStringLiteral("tenant_code");
    const QString indexName = QLatin1String(name) + QLatin1Char('_') + key;
    return {QLatin1String(name), std::move(columns), {{indexName, {key}, false}}};
}

std::vector<engine::TableDefinition> RecordTables();      ///< Accounts, owners, properties, tenancies.
std::vector<engine::TableDefinition> RentTables();        ///< Rent, money in and out, options.
std::vector<engine::TableDefinition> ManagementTables();  ///< Work orders, budgets, inspections, the rest.

}  // namespace tools
