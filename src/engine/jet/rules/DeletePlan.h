#pragma once

#include "engine/jet/rules/RelationKeys.h"

#include <set>
#include <utility>

namespace engine::jet {

/// Deletes rows with all that goes with them. First all of these are found, however far relations lead, then
/// it's looked whether a row that stays is in the way; only then the first is touched.
class DeletePlan {
public:
    explicit DeletePlan(RuledTables& tables) : tables_(tables) {}

    void Add(RuledTable& table, RowPlace key);
    void Run();

private:
    struct Row {
        RuledTable* table = nullptr;
        RowPlace key;
    };
    /// A child that stays, as far as its relation goes.
    struct Staying {
        const Relation* relation = nullptr;
        RowPlace key;
    };

    void FindChildren(const Row& row);
    bool Goes(const Staying& staying) const {
        return going_.contains({staying.relation->child.table, staying.key});
    }
    void RequireNobodyInTheWay() const;
    void TakeKeysAway();

    RuledTables& tables_;
    std::vector<Row> rows_;  ///< Parents before the children that they led to.
    std::set<std::pair<PageNumber, RowPlace>> going_;
    std::vector<Staying> inTheWay_;
    std::vector<Staying> losingKeys_;
};

}  // namespace engine::jet
