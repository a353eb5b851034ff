#include "engine/jet/TableIndex.h"

#include "engine/Error.h"

namespace engine::jet {

void TableIndex::Check(const RowKey& key) {
    IndexTree::CheckLength(key.bytes);
    RefuseNulls(rules_, key);
    if (MustBeUnique(rules_, key) && tree_.RowWith(key.bytes)) {
        RefuseDuplicate(rules_);
    }
}

void TableIndex::CheckNew(std::span<const Value> values) {
    MakeRowKey(newKey_, columns_, values);
    Check(newKey_);
}

void TableIndex::CheckChanged(std::span<const Value> old, std::span<const Value> values) {
    MakeRowKey(oldKey_, columns_, old);
    MakeRowKey(key_, columns_, values);
    if (key_.bytes != oldKey_.bytes) {
        Check(key_);
    }
}

bool TableIndex::Add(std::uint32_t row, const RowKey& key) {
    return HasEntry(rules_, key) && tree_.Insert(key.bytes, row);
}

void TableIndex::Remove(std::uint32_t row, const RowKey& key) {
    if (HasEntry(rules_, key) && !tree_.Remove(key.bytes, row)) {
        throw Error(ErrorNumber::DatabaseDamaged,
                    QStringLiteral("The database is damaged: index %1 doesn't know row %2 of page %3.")
                        .arg(rules_.name)
                        .arg(row & 0xFF)
                        .arg(row >> 8));
    }
}

bool TableIndex::Add(std::uint32_t row, std::span<const Value> values) {
    MakeRowKey(key_, columns_, values);
    return Add(row, key_);
}

bool TableIndex::Change(std::uint32_t row, std::span<const Value> old, std::span<const Value> values) {
    MakeRowKey(oldKey_, columns_, old);
    MakeRowKey(key_, columns_, values);
    if (key_.bytes == oldKey_.bytes) {
        return false;
    }
    // The new one first: whatever happens in between, the row is in the index.
    const bool isNew = Add(row, key_);
    Remove(row, oldKey_);
    return isNew;
}

void TableIndex::Remove(std::uint32_t row, std::span<const Value> values) {
    MakeRowKey(key_, columns_, values);
    Remove(row, key_);
}

}  // namespace engine::jet
