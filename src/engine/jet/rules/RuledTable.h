#pragma once

#include "engine/jet/IndexedTable.h"
#include "engine/jet/rules/Relations.h"
#include "engine/jet/rules/TableRules.h"

namespace engine::jet {

class RuledTables;

/// A table whose rows keep to all that the file asks of them: its indexes, the properties of its columns and
/// its own, and its relations with other tables.
///
/// Like those of Table, routines that fail may have changed some pages, of other tables as well: whoever
/// calls them sets a mark before and undoes to it.
class RuledTable {
public:
    RuledTable(RuledTables& all, PageStore& pages, const Catalogue& catalogue, const CatalogueTable& table,
               const Relations& relations);

    /// For reading, unless the table is plain: changes made there go past the rules.
    Table& Rows() { return indexed_.Rows(); }
    const TableLayout& Layout() const { return indexed_.Layout(); }
    IndexObserver& IndexAt(int index) { return indexed_.IndexAt(index); }
    const TableRules& Rules() const { return rules_; }
    const QString& Name() const { return name_; }
    const std::vector<const Relation*>& AsParent() const { return asParent_; }
    const std::vector<const Relation*>& AsChild() const { return asChild_; }

    /// Whether nothing but its indexes has a say in its rows. Then they may also be changed by way of Rows().
    bool IsPlain() const { return isPlain_; }

    /// Adds a row with a value for each column, those that nobody gave replaced by their defaults. Fails as
    /// TableRules does, with NoParent, and as Table::Insert does, in this order.
    RowPlace Insert(std::vector<Value> values, const std::vector<bool>& isGiven);

    /// Fails likewise, and with HasChildren if children of the row are in the way. Where the relation says
    /// so, their keys change with the row's instead, and so on to their own children.
    void Update(RowPlace key, const std::vector<CellChange>& changes);

    /// Fails with HasChildren if any row is in the way, or deletes children or takes their keys away as the
    /// relations say. Nothing is deleted before all rows are known, however far that leads.
    void Delete(RowPlace key);

    /// Deletes all rows, and their children as Delete does; by whole pages wherever that is the same.
    void Wipe();

    /// Fails if nobody knows what the table asks of its rows: as TableRules::RequireReadable and
    /// Relations::RequireSound do, and with InvalidOperation for a table that is replicated.
    void RequireWritable() const {
        if (!isWritable_) {
            RaiseNotWritable();
        }
    }

private:
    void RaiseNotWritable() const;

    RuledTables& all_;
    const Relations& relations_;
    QString name_;
    IndexedTable indexed_;
    TableRules rules_;
    std::vector<const Relation*> asParent_;
    std::vector<const Relation*> asChild_;
    bool isWritable_;
    bool isPlain_;
};

}  // namespace engine::jet
