#pragma once

#include "engine/jet/Catalogue.h"

#include <map>
#include <vector>

namespace engine::jet {

/// One table of a relation, and its index over the columns that relate it, a place in the list of real
/// indexes. The columns of both ends match in the order of their indexes.
struct RelationEnd {
    PageNumber table = 0;
    int index = 0;
};

/// What becomes of children when their parent goes.
enum class OnDelete { Refuse = 0, Cascade = 1, SetNull = 2 };

/// A relation that the file wants to be enforced: each row of the child has a parent.
struct Relation {
    QString name;
    RelationEnd parent;
    RelationEnd child;
    bool cascadesUpdates = false;
    OnDelete onDelete = OnDelete::Refuse;

    bool IsWithItself() const { return parent.table == child.table; }
};

/// The enforced relations between the tables of users, as their definitions tell of them. Those of system
/// tables are left alone: nobody writes these.
class Relations {
public:
    /// Reads the definitions of all tables. What is wrong with one is no failure of this: it is told to
    /// those who want to write to a table that it concerns.
    Relations(PageStore& pages, const Catalogue& catalogue);

    /// Those of which a table is the parent, or the child; one with itself is both. `table` is the first
    /// page of a definition, as everywhere here.
    std::vector<const Relation*> WithParent(PageNumber table) const;
    std::vector<const Relation*> WithChild(PageNumber table) const;
    bool AreNone() const { return relations_.empty(); }
    /// For messages.
    QString NameOf(PageNumber table) const;

    bool IsSound(PageNumber table) const;
    /// Fails with InvalidOperation if the ends of a relation of the table don't fit together. Then nobody
    /// knows what it asks, and neither of its tables may be written.
    void RequireSound(PageNumber table) const;

private:
    struct KnownTable {
        QString name;
        TableLayout layout;
        QString fault;  ///< Why it can't be written, empty if it can.
    };

    void ReadEnds(const KnownTable& table);
    void ReadParentEnd(const KnownTable& parent, const LogicalIndex& end);
    void ReadChildEnd(const KnownTable& child, const LogicalIndex& end);
    void Blame(PageNumber table, const QString& fault);
    void BlameBoth(PageNumber one, PageNumber other, const LogicalIndex& end);

    std::map<PageNumber, KnownTable> tables_;
    std::vector<Relation> relations_;
};

}  // namespace engine::jet
