#pragma once

#include "engine/jet/rules/RuledTables.h"

namespace engine::jet {

/// What a row that doesn't exist yet looks like to relations: cells of another one (none for a new row) with
/// some values in place of them. Long values, which no relation has, are left out. Fails as ToCell does.
StoredRow RowToBe(const Table& table, const StoredRow& old, const std::vector<CellChange>& changes);
/// The same for a new row; automatic numbers are those that it will get.
StoredRow RowToBe(const Table& table, const std::vector<Value>& values);

/// Looks along a relation, from the rows of one end to those of the other. Rows belong together whose keys
/// are the same, as their indexes see it: texts without regard to case.
class RelationKeys {
public:
    RelationKeys(RuledTables& tables, const Relation& relation)
        : relation_(relation),
          parent_(tables.At(relation.parent.table)),
          child_(tables.At(relation.child.table)) {}

    RuledTable& Parent() const { return parent_; }
    RuledTable& Child() const { return child_; }

    /// Whether two rows of the parent, or of the child, have the same key.
    bool IsSameParent(const StoredRow& one, const StoredRow& other) const;
    bool IsSameChild(const StoredRow& one, const StoredRow& other) const;
    /// Whether a row of the child would be one of this parent.
    bool BelongsTo(const StoredRow& child, const StoredRow& parent) const;

    /// Fails with NoParent if a row of the child has no parent and needs one. `place` is where the row is,
    /// none for a new one: in a table related with itself it is its own parent only as what it is to be.
    void RequireParent(const StoredRow& child, std::optional<RowPlace> place) const;

    /// The rows of the child that belong to a row of the parent.
    std::vector<RowPlace> ChildrenOf(const StoredRow& parent) const;
    /// Whether a row of the child has a key at all.
    bool HasKey(const StoredRow& child) const;

    /// What children's keys have to become after such a change of their parent: their columns whose keys
    /// differ, with the parent's new values.
    std::vector<CellChange> ChangesFor(const StoredRow& oldParent, const StoredRow& parent) const;
    /// The same where the parent goes and they stay.
    std::vector<CellChange> Nulls() const;

    [[noreturn]] void RefuseForChildren() const;

private:
    IndexObserver& ParentIndex() const { return parent_.IndexAt(relation_.parent.index); }
    IndexObserver& ChildIndex() const { return child_.IndexAt(relation_.child.index); }
    /// Keys as the index of one end has them, of a row of either.
    RowKey ParentKey(const std::vector<Value>& values) const;
    RowKey ChildKey(const std::vector<Value>& values) const;

    const Relation& relation_;
    RuledTable& parent_;
    RuledTable& child_;
};

}  // namespace engine::jet
