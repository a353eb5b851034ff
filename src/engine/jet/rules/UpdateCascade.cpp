#include "engine/jet/rules/UpdateCascade.h"

#include <algorithm>

namespace engine::jet {

namespace {

bool HasColumnOf(const std::vector<CellChange>& changes, const RealIndex& index) {
    return std::any_of(changes.begin(), changes.end(), [&index](const CellChange& change) {
        return std::any_of(index.columns.begin(), index.columns.end(),
                           [&change](const IndexColumn& column) { return column.column == change.column; });
    });
}

}  // namespace

// One step after the other instead of one within the other: chains may be as long as tables.
void UpdateCascade::Run(RuledTable& table, RowPlace key, const std::vector<CellChange>& changes) {
    steps_.push_back({&table, key, changes});
    std::size_t next = 0;
    while (next < steps_.size()) {
        const Step step = steps_[next++];
        Take(step);
    }
}

void UpdateCascade::Take(const Step& step) {
    step.table->RequireWritable();
    const StoredRow old = step.table->Rows().Read(step.key);
    CheckRules(step, old);
    FollowRelations(step, old);
    step.table->Rows().Update(step.key, step.changes);
}

void UpdateCascade::CheckRules(const Step& step, const StoredRow& old) const {
    if (!step.table->Rules().HasChecks()) {
        return;
    }
    const Table& rows = step.table->Rows();
    std::vector<Value> values;
    for (std::size_t column = 0; column < rows.Layout().columns.size(); ++column) {
        values.push_back(rows.ValueOf(old, static_cast<int>(column)));
    }
    std::vector<bool> isAssigned(values.size());
    for (const CellChange& change : step.changes) {
        values[static_cast<std::size_t>(change.column)] = change.value;
        isAssigned[static_cast<std::size_t>(change.column)] = true;
    }
    step.table->Rules().CheckChanged(values, isAssigned);
}

void UpdateCascade::FollowRelations(const Step& step, const StoredRow& old) {
    const RuledTable& table = *step.table;
    const auto isTouched = [&](const RelationEnd& end) {
        return HasColumnOf(step.changes, table.Layout().indexes[static_cast<std::size_t>(end.index)]);
    };
    const bool asChild = std::any_of(table.AsChild().begin(), table.AsChild().end(),
                                     [&](const Relation* relation) { return isTouched(relation->child); });
    const bool asParent = std::any_of(table.AsParent().begin(), table.AsParent().end(),
                                      [&](const Relation* relation) { return isTouched(relation->parent); });
    if (!asChild && !asParent) {
        return;
    }
    const StoredRow row = RowToBe(step.table->Rows(), old, step.changes);
    for (const Relation* relation : table.AsChild()) {
        const RelationKeys keys(tables_, *relation);
        if (isTouched(relation->child) && !keys.IsSameChild(old, row)) {
            keys.RequireParent(row, step.key);
        }
    }
    for (const Relation* relation : table.AsParent()) {
        if (isTouched(relation->parent)) {
            FollowToChildren(*relation, step, old, row);
        }
    }
}

// A row that is its own child, and turns to another parent in the same step, is none of its children.
void UpdateCascade::FollowToChildren(const Relation& relation, const Step& step, const StoredRow& old,
                                     const StoredRow& row) {
    const RelationKeys keys(tables_, relation);
    if (keys.IsSameParent(old, row)) {
        return;
    }
    for (const RowPlace child : keys.ChildrenOf(old)) {
        const bool isItself = relation.IsWithItself() && child == step.key;
        if (isItself && !keys.BelongsTo(row, old)) {
            continue;
        }
        if (!relation.cascadesUpdates) {
            keys.RefuseForChildren();
        }
        if (met_.emplace(&relation, child).second) {
            steps_.push_back({&keys.Child(), child, keys.ChangesFor(old, row)});
        }
    }
}

}  // namespace engine::jet
