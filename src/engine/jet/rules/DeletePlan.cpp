#include "engine/jet/rules/DeletePlan.h"

#include "engine/jet/rules/UpdateCascade.h"

#include <algorithm>

namespace engine::jet {

void DeletePlan::Add(RuledTable& table, RowPlace key) {
    if (going_.emplace(table.Layout().page, key).second) {
        table.RequireWritable();
        rows_.push_back({&table, key});
    }
}

void DeletePlan::Run() {
    std::size_t next = 0;
    while (next < rows_.size()) {
        const Row row = rows_[next++];
        FindChildren(row);
    }
    RequireNobodyInTheWay();
    TakeKeysAway();
    std::for_each(rows_.rbegin(), rows_.rend(), [](const Row& row) { row.table->Rows().Delete(row.key); });
}

void DeletePlan::FindChildren(const Row& row) {
    if (row.table->AsParent().empty()) {
        return;
    }
    const StoredRow parent = row.table->Rows().Read(row.key);
    for (const Relation* relation : row.table->AsParent()) {
        const RelationKeys keys(tables_, *relation);
        for (const RowPlace child : keys.ChildrenOf(parent)) {
            switch (relation->onDelete) {
                case OnDelete::Cascade:
                    Add(keys.Child(), child);
                    break;
                case OnDelete::SetNull:
                    losingKeys_.push_back({relation, child});
                    break;
                case OnDelete::Refuse:
                    inTheWay_.push_back({relation, child});
                    break;
            }
        }
    }
}

void DeletePlan::RequireNobodyInTheWay() const {
    for (const Staying& child : inTheWay_) {
        if (!Goes(child)) {
            RelationKeys(tables_, *child.relation).RefuseForChildren();
        }
    }
}

void DeletePlan::TakeKeysAway() {
    for (const Staying& child : losingKeys_) {
        if (!Goes(child)) {
            const RelationKeys keys(tables_, *child.relation);
            UpdateCascade(tables_).Run(keys.Child(), child.key, keys.Nulls());
        }
    }
}

}  // namespace engine::jet
