#include "engine/jet/IndexObserver.h"

#include "engine/Error.h"
#include "engine/jet/ColumnValue.h"
#include "engine/jet/LongValues.h"
#include "engine/jet/TableFigures.h"
#include "engine/jet/Text.h"

#include <algorithm>
#include <bit>

namespace engine::jet {

namespace {

bool HasKnownOrder(const Column& text) {
    return text.sortOrder == GeneralSortOrder && text.sortVersion == 0;
}

// The name that a person gave, where there is one: ends of relations have names made by the engine.
IndexRules RulesOf(const TableLayout& layout, int place) {
    const RealIndex& index = layout.indexes[static_cast<std::size_t>(place)];
    IndexRules rules;
    rules.isUnique = index.isUnique;
    rules.refusesNulls = index.refusesNulls;
    rules.ignoresNulls = index.ignoresNulls;
    for (const LogicalIndex& name : layout.names) {
        if (name.realIndex != place) {
            continue;
        }
        rules.isPrimaryKey = rules.isPrimaryKey || name.kind == LogicalKind::PrimaryKey;
        if (rules.name.isEmpty() || name.kind != LogicalKind::Relation) {
            rules.name = name.name;
        }
    }
    return rules;
}

std::vector<KeyColumn> KeyColumnsOf(const TableLayout& layout, int place) {
    std::vector<KeyColumn> columns;
    for (const IndexColumn& column : layout.indexes[static_cast<std::size_t>(place)].columns) {
        columns.push_back({layout.columns[static_cast<std::size_t>(column.column)].type,
                           column.ascending ? Order::Ascending : Order::Descending});
    }
    return columns;
}

bool IsSameCell(const StoredRow& old, const StoredRow& row, int column) {
    if (old.Has(column) != row.Has(column)) {
        return false;
    }
    if (!row.Has(column)) {
        return true;
    }
    const Bytes before = old.BytesOf(column);
    const Bytes after = row.BytesOf(column);
    return std::equal(before.Data(), before.Data() + before.Size(), after.Data(),
                      after.Data() + after.Size());
}

}  // namespace

IndexObserver::IndexObserver(PageStore& pages, const TableLayout& layout, int index)
    : pages_(pages),
      layout_(layout),
      index_(index),
      rules_(RulesOf(layout, index)),
      columns_(KeyColumnsOf(layout, index)),
      map_(pages, Definition().pages),
      entries_(rules_, columns_, pages, map_, layout.page, Definition().root) {
}

void IndexObserver::RequireKnownOrder(const Column& column) const {
    if (IsTextType(column.type) && !HasKnownOrder(column)) {
        throw Error(
            ErrorNumber::InvalidOperation,
            QStringLiteral("Invalid operation: the index %1 orders the texts of '%2' in a way that isn't "
                           "known (%3, version %4).")
                .arg(rules_.name, column.name)
                .arg(column.sortOrder)
                .arg(column.sortVersion));
    }
}

void IndexObserver::RequireKnownKeys() const {
    for (const IndexColumn& column : Definition().columns) {
        RequireKnownOrder(layout_.columns[static_cast<std::size_t>(column.column)]);
    }
}

// A date's key has more digits than the value of a date.
Value IndexObserver::ValueIn(const StoredRow& row, int column) const {
    const Column& known = layout_.columns[static_cast<std::size_t>(column)];
    RequireKnownOrder(known);
    if (known.type == ColumnType::Boolean || !row.Has(column)) {
        return ValueOf(known, row, column);
    }
    if (known.type == ColumnType::DateTime) {
        return std::bit_cast<double>(row.BytesOf(column).U64(0));
    }
    if (known.type == ColumnType::Memo) {
        const QByteArray bytes = LongValues(pages_, known).Read(row.BytesOf(column));
        return StoredText(jet::BytesOf(bytes, layout_.page));
    }
    return ValueOf(known, row, column);
}

std::vector<Value> IndexObserver::ValuesOf(const StoredRow& row) const {
    std::vector<Value> values;
    AppendValues(values, row);
    return values;
}

void IndexObserver::AppendValues(std::vector<Value>& values, const StoredRow& row) const {
    for (const IndexColumn& column : Definition().columns) {
        values.push_back(ValueIn(row, column.column));
    }
}

// Also saves taking the key apart twice when an update leaves it alone, as most do.
bool IndexObserver::HasSameKey(const StoredRow& old, const StoredRow& row) const {
    const auto& columns = Definition().columns;
    return std::all_of(columns.begin(), columns.end(),
                       [&](const IndexColumn& column) { return IsSameCell(old, row, column.column); });
}

// Rows often come with the key of the row before, which needn't be made again. Of a long value the row has
// no more than the place.
void IndexObserver::CheckNew(const StoredRow& row) {
    if (isLastKnown_ && HasSameKey(last_, row)) {
        entries_.CheckAnother();
        return;
    }
    isLastKnown_ = false;
    values_.clear();
    AppendValues(values_, row);
    entries_.CheckNew(values_);
    const auto& columns = Definition().columns;
    isLastKnown_ = std::none_of(columns.begin(), columns.end(), [this](const IndexColumn& column) {
        return IsLongType(layout_.columns[static_cast<std::size_t>(column.column)].type);
    });
    last_ = row;
}

void IndexObserver::MayCome(const StoredRow* old, const StoredRow& row) {
    if (old == nullptr) {
        CheckNew(row);
    } else if (!HasSameKey(*old, row)) {
        entries_.CheckChanged(ValuesOf(*old), ValuesOf(row));
    }
}

void IndexObserver::Came(RowPlace key, const StoredRow& /*row*/) {
    if (entries_.AddChecked(ToNumber(key))) {
        CountNewKey();
    }
}

void IndexObserver::Changed(RowPlace key, const StoredRow& old, const StoredRow& row) {
    if (!HasSameKey(old, row) && entries_.Change(ToNumber(key), ValuesOf(old), ValuesOf(row))) {
        CountNewKey();
    }
}

void IndexObserver::Goes(RowPlace key, const StoredRow& row) {
    entries_.Remove(ToNumber(key), ValuesOf(row));
    ForgetKeysIfEmpty();
}

void IndexObserver::AllWent() {
    entries_.RemoveAll();
    ForgetKeysIfEmpty();
}

void IndexObserver::CountNewKey() {
    TableFigures figures(pages_, layout_.page);
    figures.SetDistinctKeys(index_, figures.DistinctKeys(index_) + 1);
}

// Keys that go aren't counted, as other engines don't either; but with the last of them the count is known.
void IndexObserver::ForgetKeysIfEmpty() {
    if (!Tree().First().HasEntry()) {
        TableFigures(pages_, layout_.page).SetDistinctKeys(index_, 0);
    }
}

std::vector<std::unique_ptr<RowObserver>> KeepIndexes(PageStore& pages, const TableLayout& layout) {
    std::vector<std::unique_ptr<RowObserver>> observers;
    for (std::size_t index = 0; index < layout.indexes.size(); ++index) {
        observers.push_back(std::make_unique<IndexObserver>(pages, layout, static_cast<int>(index)));
    }
    return observers;
}

}  // namespace engine::jet
