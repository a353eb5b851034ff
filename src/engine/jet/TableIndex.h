#pragma once

#include "engine/jet/IndexRules.h"
#include "engine/jet/IndexTree.h"

#include <span>
#include <vector>

namespace engine::jet {

/// An index of a table that follows its rows. Values are those of the index's columns, in the index's order,
/// as AppendColumnKey expects them; rows are told as their page times 256, and their number in it.
///
/// The table asks first, whether a row may come, and then tells that it came: nothing of a row that any index
/// refuses may be in another one.
class TableIndex {
public:
    TableIndex(IndexRules rules, std::vector<KeyColumn> columns, PageStore& store, IndexPages& pages,
               PageNumber table, PageNumber root)
        : rules_(std::move(rules)), columns_(std::move(columns)), tree_(store, pages, table, root) {}

    /// Fails if the index refuses the row: with NullInPrimaryKey or NullNotAllowed, with DuplicateKey if
    /// another row has its key, or with Other if its key is too long.
    void CheckNew(std::span<const Value> values);
    /// For another row with the values that CheckNew was given last.
    void CheckAnother() { Check(newKey_); }
    /// The same for new values of a row. A key that stays the same is in nobody's way.
    void CheckChanged(std::span<const Value> old, std::span<const Value> values);

    /// True if the key is new to the index.
    bool Add(std::uint32_t row, std::span<const Value> values);
    /// The same for the values that CheckNew was given last, whose key is still known.
    bool AddChecked(std::uint32_t row) { return Add(row, newKey_); }
    bool Change(std::uint32_t row, std::span<const Value> old, std::span<const Value> values);
    /// Fails with DatabaseDamaged if the row has no entry, and so does Change.
    void Remove(std::uint32_t row, std::span<const Value> values);
    void RemoveAll() { tree_.Clear(); }

    IndexTree& Tree() { return tree_; }

private:
    void Check(const RowKey& key);
    bool Add(std::uint32_t row, const RowKey& key);
    void Remove(std::uint32_t row, const RowKey& key);

    IndexRules rules_;
    std::vector<KeyColumn> columns_;
    IndexTree tree_;
    RowKey newKey_;  ///< That of CheckNew.
    RowKey key_;
    RowKey oldKey_;
};

}  // namespace engine::jet
