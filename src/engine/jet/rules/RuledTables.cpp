#include "engine/jet/rules/RuledTables.h"

#include "engine/jet/Damage.h"

#include <algorithm>

namespace engine::jet {

RuledTable& RuledTables::Open(const CatalogueTable& table) {
    auto& opened = opened_[table.page];
    if (!opened) {
        opened = std::make_unique<RuledTable>(*this, pages_, catalogue_, table, relations_);
    }
    return *opened;
}

RuledTable& RuledTables::At(PageNumber page) {
    const auto& tables = catalogue_.Tables();
    const auto found = std::find_if(tables.begin(), tables.end(), [page](const CatalogueTable& table) {
        return table.page == page && !table.isLinked;
    });
    if (found == tables.end()) {
        RaiseDamaged(page, QStringLiteral("begins no table that the catalogue knows"));
    }
    return Open(*found);
}

void RuledTables::RequireUnderstood(const QStringList& tables) {
    std::vector<RuledTable*> written;
    const auto add = [&written](RuledTable& table) {
        if (std::find(written.begin(), written.end(), &table) == written.end()) {
            written.push_back(&table);
        }
    };
    for (const QString& table : tables) {
        add(Open(table));
    }
    std::size_t next = 0;
    while (next < written.size()) {
        RuledTable& table = *written[next++];
        table.RequireWritable();
        table.Rules().RequireUnderstood();
        for (std::size_t index = 0; index < table.Layout().indexes.size(); ++index) {
            table.IndexAt(static_cast<int>(index)).RequireKnownKeys();
        }
        for (const Relation* relation : table.AsParent()) {
            if (relation->cascadesUpdates || relation->onDelete != OnDelete::Refuse) {
                add(At(relation->child.table));
            }
        }
    }
}

}  // namespace engine::jet
