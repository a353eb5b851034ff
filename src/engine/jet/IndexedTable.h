#pragma once

#include "engine/jet/Catalogue.h"
#include "engine/jet/IndexObserver.h"

#include <memory>
#include <vector>

namespace engine::jet {

/// A table whose indexes watch its rows.
class IndexedTable {
public:
    IndexedTable(PageStore& pages, TableLayout layout);
    IndexedTable(const IndexedTable&) = delete;
    IndexedTable& operator=(const IndexedTable&) = delete;
    ~IndexedTable() = default;

    Table& Rows() { return rows_; }
    const Table& Rows() const { return rows_; }
    const TableLayout& Layout() const { return rows_.Layout(); }

    /// By its place in the layout's list of real indexes.
    IndexObserver& IndexAt(int index) { return *indexes_[static_cast<std::size_t>(index)]; }

private:
    Table rows_;
    std::vector<std::unique_ptr<IndexObserver>> indexes_;
};

/// The table of a catalogue's entry. Fails with 3219 if it lies in another file, and with DatabaseDamaged if
/// its definition is none.
std::unique_ptr<IndexedTable> OpenTable(PageStore& pages, const CatalogueTable& table);

}  // namespace engine::jet
