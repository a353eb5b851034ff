#pragma once

#include "engine/jet/ColumnValue.h"
#include "engine/jet/LongValues.h"
#include "engine/jet/Table.h"
#include "engine/jet/TableIndex.h"
#include "engine/jet/Text.h"
#include "engine/jet/UsageMap.h"

#include <bit>
#include <memory>

namespace engine::jet {

/// Keeps an index of a table, for tests.
class KeptIndex : public RowObserver, private IndexPages {
public:
    KeptIndex(PageStore& pages, const TableLayout& layout, const RealIndex& index)
        : pages_(pages),
          layout_(layout),
          definition_(index),
          index_(RulesOf(index), KeyColumnsOf(layout, index), pages, *this, layout.page, index.root) {}

    void MayCome(const StoredRow* old, const StoredRow& row) override {
        old == nullptr ? index_.CheckNew(ValuesOf(row)) : index_.CheckChanged(ValuesOf(*old), ValuesOf(row));
    }
    void Came(RowPlace key, const StoredRow& row) override { index_.Add(ToNumber(key), ValuesOf(row)); }
    void Changed(RowPlace key, const StoredRow& old, const StoredRow& row) override {
        index_.Change(ToNumber(key), ValuesOf(old), ValuesOf(row));
    }
    void Goes(RowPlace key, const StoredRow& row) override { index_.Remove(ToNumber(key), ValuesOf(row)); }
    void AllWent() override { index_.RemoveAll(); }

    IndexTree& Tree() { return index_.Tree(); }

private:
    void Came(PageNumber page) override { UsageMap(pages_, definition_.pages).Add(page); }
    void Went(PageNumber page) override { UsageMap(pages_, definition_.pages).Remove(page); }

    static IndexRules RulesOf(const RealIndex& index) {
        return {.name = QStringLiteral("an index"),
                .isUnique = index.isUnique,
                .refusesNulls = index.refusesNulls,
                .ignoresNulls = index.ignoresNulls};
    }

    static std::vector<KeyColumn> KeyColumnsOf(const TableLayout& layout, const RealIndex& index) {
        std::vector<KeyColumn> columns;
        for (const IndexColumn& column : index.columns) {
            const std::uint8_t type = layout.columns[static_cast<std::size_t>(column.column)].type;
            columns.push_back({type, column.ascending ? Order::Ascending : Order::Descending});
        }
        return columns;
    }

    std::vector<Value> ValuesOf(const StoredRow& row) const {
        std::vector<Value> values;
        for (const IndexColumn& column : definition_.columns) {
            values.push_back(ValueIn(row, column.column));
        }
        return values;
    }

    // Dates to the last bit.
    Value ValueIn(const StoredRow& row, int place) const {
        const Column& column = layout_.columns[static_cast<std::size_t>(place)];
        if (row.Has(place) && column.type == ColumnType::DateTime) {
            return std::bit_cast<double>(row.BytesOf(place).U64(0));
        }
        if (row.Has(place) && column.type == ColumnType::Memo) {
            const QByteArray text = LongValues(pages_, column).Read(row.BytesOf(place));
            return StoredText(BytesOf(text, layout_.page));
        }
        return ValueOf(column, row, place);
    }

    PageStore& pages_;
    const TableLayout& layout_;
    const RealIndex& definition_;
    TableIndex index_;
};

/// One for each index of a table. The layout must outlive them.
inline std::vector<std::unique_ptr<RowObserver>> KeepAllIndexes(PageStore& pages, const TableLayout& layout) {
    std::vector<std::unique_ptr<RowObserver>> keepers;
    for (const RealIndex& index : layout.indexes) {
        keepers.push_back(std::make_unique<KeptIndex>(pages, layout, index));
    }
    return keepers;
}

/// A table with its indexes.
class TableWithIndexes {
public:
    TableWithIndexes(PageStore& pages, TableLayout layout)
        : table(pages, std::move(layout)), keepers_(KeepAllIndexes(pages, table.Layout())) {
        for (const auto& keeper : keepers_) {
            table.Watch(*keeper);
        }
    }

    Table table;

private:
    std::vector<std::unique_ptr<RowObserver>> keepers_;
};

}  // namespace engine::jet
