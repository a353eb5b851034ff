#include "engine/jet/IndexedTable.h"

#include "engine/Error.h"

namespace engine::jet {

IndexedTable::IndexedTable(PageStore& pages, TableLayout layout) : rows_(pages, std::move(layout)) {
    for (std::size_t index = 0; index < Layout().indexes.size(); ++index) {
        indexes_.push_back(std::make_unique<IndexObserver>(pages, Layout(), static_cast<int>(index)));
        rows_.Watch(*indexes_.back());
    }
}

std::unique_ptr<IndexedTable> OpenTable(PageStore& pages, const CatalogueTable& table) {
    if (table.isLinked) {
        throw Error(
            ErrorNumber::InvalidOperation,
            QStringLiteral("Invalid operation: the table '%1' lies in another file.").arg(table.name));
    }
    return std::make_unique<IndexedTable>(pages, ReadTableLayout(pages, table.page));
}

}  // namespace engine::jet
