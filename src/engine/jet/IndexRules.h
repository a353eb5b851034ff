#pragma once

#include "engine/jet/ColumnKey.h"

#include <QString>

#include <span>

namespace engine::jet {

/// What an index asks of the rows of its table.
struct IndexRules {
    QString name;
    bool isUnique = false;
    bool isPrimaryKey = false;
    /// No column may be null; so in a primary key, whatever is said here.
    bool refusesNulls = false;
    /// Rows of which all columns are null have no entry.
    bool ignoresNulls = false;
};

/// The key of a row in one index.
struct RowKey {
    Key bytes;
    bool hasNull = false;
    bool isAllNull = false;
};

/// Makes the key of a row from the values of the index's columns, in their order. Takes over the memory of
/// the key that was there. Fails as AppendColumnKey does.
void MakeRowKey(RowKey& key, std::span<const KeyColumn> columns, std::span<const Value> values);

/// Fails with NullInPrimaryKey or NullNotAllowed if a null stands where the index has none.
void RefuseNulls(const IndexRules& rules, const RowKey& key);

/// Whether the row gets an entry at all.
bool HasEntry(const IndexRules& rules, const RowKey& key);

/// Whether no other entry may have the same bytes. Rows whose columns are all null never stand in each
/// other's way; where only some are, the bytes decide as if null were a value.
bool MustBeUnique(const IndexRules& rules, const RowKey& key);

/// Fails with DuplicateKey.
[[noreturn]] void RefuseDuplicate(const IndexRules& rules);

}  // namespace engine::jet
