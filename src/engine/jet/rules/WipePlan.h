#pragma once

#include "engine/jet/rules/RelationKeys.h"

namespace engine::jet {

/// Finds out whether a table and all tables whose rows go with its own can be wiped by their pages.
class WipePlan {
public:
    WipePlan(RuledTables& tables, RuledTable& table) : tables_(tables), wiped_{&table} { Look(); }

    /// If not, some children stay or only lose their keys: rows have to go one by one.
    bool IsByPages() const { return isByPages_; }
    /// Fails with HasChildren if rows of other tables are in the way, before anything is touched.
    void Run();

private:
    void Look();
    void LookAlong(const Relation& relation);
    bool IsWiped(const RuledTable& table) const;

    RuledTables& tables_;
    std::vector<RuledTable*> wiped_;  ///< Parents before the children that they led to.
    std::vector<const Relation*> inTheWay_;
    bool isByPages_ = true;
};

}  // namespace engine::jet
