#pragma once

#include "engine/jet/RowObserver.h"
#include "engine/jet/TableIndex.h"
#include "engine/jet/UsageMap.h"

#include <memory>
#include <vector>

namespace engine::jet {

/// Keeps the pages of an index in the map that the table's definition names.
class MappedIndexPages : public IndexPages {
public:
    MappedIndexPages(PageStore& pages, RowPlace map) : map_(pages, map) {}

    void Came(PageNumber page) override { map_.Add(page); }
    void Went(PageNumber page) override { map_.Remove(page); }

private:
    UsageMap map_;
};

/// Keeps one index of a table right for each row that comes, changes or goes.
///
/// An index over texts of another sort order than the General one can't be kept, as nobody here knows its
/// keys: asked for a key, or told of a row, it fails with InvalidOperation. Wiping it works.
class IndexObserver : public RowObserver {
public:
    /// `layout` must outlive this; `index` is a place in its list of real indexes.
    IndexObserver(PageStore& pages, const TableLayout& layout, int index);

    /// Fails as TableIndex does.
    void MayCome(const StoredRow* old, const StoredRow& row) override;
    void Came(RowPlace key, const StoredRow& row) override;
    void Changed(RowPlace key, const StoredRow& old, const StoredRow& row) override;
    void Goes(RowPlace key, const StoredRow& row) override;
    void AllWent() override;

    /// Fails as above if this is an index that can't be kept.
    void RequireKnownKeys() const;

    const RealIndex& Definition() const { return layout_.indexes[static_cast<std::size_t>(index_)]; }
    const std::vector<KeyColumn>& Columns() const { return columns_; }
    /// What a row has in the columns of the index, in their order, such that keys can be made of it.
    std::vector<Value> ValuesOf(const StoredRow& row) const;
    IndexTree& Tree() { return entries_.Tree(); }

private:
    void AppendValues(std::vector<Value>& values, const StoredRow& row) const;
    void CheckNew(const StoredRow& row);
    Value ValueIn(const StoredRow& row, int column) const;
    bool HasSameKey(const StoredRow& old, const StoredRow& row) const;
    void RequireKnownOrder(const Column& column) const;
    void CountNewKey();
    void ForgetKeysIfEmpty();

    PageStore& pages_;
    const TableLayout& layout_;
    int index_;
    IndexRules rules_;
    std::vector<KeyColumn> columns_;
    MappedIndexPages map_;
    TableIndex entries_;
    // Of the row that may come, in memory for the next one as well.
    std::vector<Value> values_;
    /// The last row whose key was made.
    StoredRow last_;
    bool isLastKnown_ = false;
};

/// One for each real index of a table, for whoever makes a database (see IndexKeepers).
std::vector<std::unique_ptr<RowObserver>> KeepIndexes(PageStore& pages, const TableLayout& layout);

}  // namespace engine::jet
