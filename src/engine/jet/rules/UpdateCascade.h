#pragma once

#include "engine/jet/rules/RelationKeys.h"

#include <set>
#include <tuple>

namespace engine::jet {

/// Changes a row, and in its course the keys of its children, of theirs, and so on.
class UpdateCascade {
public:
    explicit UpdateCascade(RuledTables& tables) : tables_(tables) {}

    void Run(RuledTable& table, RowPlace key, const std::vector<CellChange>& changes);

private:
    struct Step {
        RuledTable* table = nullptr;
        RowPlace key;
        std::vector<CellChange> changes;
    };

    void Take(const Step& step);
    void CheckRules(const Step& step, const StoredRow& old) const;
    void FollowRelations(const Step& step, const StoredRow& old);
    void FollowToChildren(const Relation& relation, const Step& step, const StoredRow& old,
                          const StoredRow& row);

    RuledTables& tables_;
    std::vector<Step> steps_;
    /// Rows that a relation has led to. In a circle each is met once.
    std::set<std::tuple<const Relation*, RowPlace>> met_;
};

}  // namespace engine::jet
