#include "engine/jet/rules/WipePlan.h"

#include <algorithm>

namespace engine::jet {

namespace {

// Which kinds of rows a child has: those that belong to a parent, and those that don't.
struct Kinds {
    bool withKey = false;
    bool withoutKey = false;
};

Kinds KindsOf(const RelationKeys& keys) {
    Kinds kinds;
    const Table& rows = keys.Child().Rows();
    for (auto key = rows.FirstRow(); key && !(kinds.withKey && kinds.withoutKey);
         key = rows.RowBehind(*key)) {
        (keys.HasKey(rows.Read(*key)) ? kinds.withKey : kinds.withoutKey) = true;
    }
    return kinds;
}

}  // namespace

bool WipePlan::IsWiped(const RuledTable& table) const {
    return std::find(wiped_.begin(), wiped_.end(), &table) != wiped_.end();
}

void WipePlan::Look() {
    std::size_t next = 0;
    while (next < wiped_.size()) {
        const RuledTable& table = *wiped_[next++];
        for (const Relation* relation : table.AsParent()) {
            LookAlong(*relation);
        }
    }
}

void WipePlan::LookAlong(const Relation& relation) {
    const RelationKeys keys(tables_, relation);
    if (IsWiped(keys.Child())) {
        return;
    }
    const Kinds kinds = KindsOf(keys);
    if (!kinds.withKey) {
        return;
    }
    if (relation.onDelete == OnDelete::Refuse) {
        inTheWay_.push_back(&relation);
    } else if (relation.onDelete == OnDelete::Cascade && !kinds.withoutKey) {
        wiped_.push_back(&keys.Child());
    } else {
        isByPages_ = false;
    }
}

void WipePlan::Run() {
    for (const Relation* relation : inTheWay_) {
        const RelationKeys keys(tables_, *relation);
        if (!IsWiped(keys.Child())) {
            keys.RefuseForChildren();
        }
    }
    for (RuledTable* table : wiped_) {
        table->RequireWritable();
    }
    std::for_each(wiped_.rbegin(), wiped_.rend(), [](RuledTable* table) { table->Rows().Wipe(); });
}

}  // namespace engine::jet
