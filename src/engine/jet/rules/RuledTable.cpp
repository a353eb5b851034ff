#include "engine/jet/rules/RuledTable.h"

#include "engine/Error.h"
#include "engine/jet/rules/DeletePlan.h"
#include "engine/jet/rules/UpdateCascade.h"
#include "engine/jet/rules/WipePlan.h"

#include <algorithm>

namespace engine::jet {

namespace {

// Columns by which a replicated file is put together again with its copies.
const Column* ReplicationColumnOf(const TableLayout& layout) {
    const auto found = std::find_if(layout.columns.begin(), layout.columns.end(),
                                    [](const Column& column) { return column.isOfSystem; });
    return found == layout.columns.end() || layout.isSystem ? nullptr : &*found;
}

}  // namespace

RuledTable::RuledTable(RuledTables& all, PageStore& pages, const Catalogue& catalogue,
                       const CatalogueTable& table, const Relations& relations)
    : all_(all),
      relations_(relations),
      name_(table.name),
      indexed_(pages, ReadTableLayout(pages, table.page)),
      rules_(catalogue, table, indexed_.Layout()),
      asParent_(relations.WithParent(table.page)),
      asChild_(relations.WithChild(table.page)),
      isWritable_(rules_.IsReadable() && relations.IsSound(table.page) &&
                  ReplicationColumnOf(Layout()) == nullptr),
      isPlain_(isWritable_ && !rules_.HasChecks() && !rules_.HasDefaults() && asParent_.empty() &&
               asChild_.empty()) {
}

void RuledTable::RaiseNotWritable() const {
    rules_.RequireReadable();
    relations_.RequireSound(Layout().page);
    if (const Column* column = ReplicationColumnOf(Layout())) {
        throw Error(
            ErrorNumber::InvalidOperation,
            QStringLiteral("Invalid operation: the table '%1' can't be written, it is replicated by the "
                           "column '%2'.")
                .arg(name_, column->name));
    }
}

RowPlace RuledTable::Insert(std::vector<Value> values, const std::vector<bool>& isGiven) {
    RequireWritable();
    rules_.FillDefaults(values, isGiven);
    rules_.CheckNew(values);
    if (!asChild_.empty()) {
        const StoredRow row = RowToBe(Rows(), values);
        for (const Relation* relation : asChild_) {
            RelationKeys(all_, *relation).RequireParent(row, std::nullopt);
        }
    }
    return Rows().Insert(values);
}

void RuledTable::Update(RowPlace key, const std::vector<CellChange>& changes) {
    if (rules_.HasChecks() || !asParent_.empty() || !asChild_.empty()) {
        UpdateCascade(all_).Run(*this, key, changes);
        return;
    }
    RequireWritable();
    Rows().Update(key, changes);
}

void RuledTable::Delete(RowPlace key) {
    if (asParent_.empty()) {
        RequireWritable();
        Rows().Delete(key);
        return;
    }
    DeletePlan plan(all_);
    plan.Add(*this, key);
    plan.Run();
}

void RuledTable::Wipe() {
    RequireWritable();
    WipePlan byPages(all_, *this);
    if (byPages.IsByPages()) {
        byPages.Run();
        return;
    }
    DeletePlan byRows(all_);
    for (auto key = Rows().FirstRow(); key; key = Rows().RowBehind(*key)) {
        byRows.Add(*this, *key);
    }
    byRows.Run();
}

}  // namespace engine::jet
