#include "engine/jet/rules/RelationKeys.h"

#include "engine/Error.h"
#include "engine/jet/ColumnValue.h"
#include "engine/jet/rules/Describe.h"

#include <algorithm>

namespace engine::jet {

namespace {

// An identifier that a row gets is one that nobody has yet.
const QByteArray NobodysGuid(16, '\0');

Value AutomaticValue(const Table& table, const Column& column, const Value& given) {
    if (!IsNull(given)) {
        return given;
    }
    if (column.countsUp && column.type == ColumnType::Long) {
        return qint64{table.Figures().LastNumber()} + 1;
    }
    return column.makesGuids ? Value(NobodysGuid) : given;
}

RowKey KeyOf(const IndexObserver& index, const std::vector<Value>& values) {
    RowKey key;
    MakeRowKey(key, index.Columns(), values);
    return key;
}

bool IsSameKey(const IndexObserver& index, const StoredRow& one, const StoredRow& other) {
    return KeyOf(index, index.ValuesOf(one)).bytes == KeyOf(index, index.ValuesOf(other)).bytes;
}

QString NamesOf(const TableLayout& layout, const RealIndex& index) {
    QStringList names;
    for (const IndexColumn& column : index.columns) {
        names += layout.columns[static_cast<std::size_t>(column.column)].name;
    }
    return names.join(QStringLiteral(", "));
}

QString DescribeColumns(const Table& table, const RealIndex& index, const StoredRow& row) {
    QStringList values;
    for (const IndexColumn& column : index.columns) {
        values += Describe(table.ValueOf(row, column.column));
    }
    return values.join(QStringLiteral(", "));
}

}  // namespace

StoredRow RowToBe(const Table& table, const StoredRow& old, const std::vector<CellChange>& changes) {
    const TableLayout& layout = table.Layout();
    RowCells cells;
    cells.Clear(layout.columns.size());
    for (int column = 0; column < static_cast<int>(old.ColumnCount()); ++column) {
        if (old.Has(column) && !IsLongType(table.ColumnAt(column).type)) {
            cells.Set(column, old.BytesOf(column));
        }
    }
    for (const CellChange& change : changes) {
        const Column& column = table.ColumnAt(change.column);
        if (IsLongType(column.type)) {
            continue;
        }
        if (const Cell cell = ToCell(column, change.value)) {
            cells.Set(change.column, *cell);
        } else {
            cells.SetNull(change.column);
        }
    }
    StoredRow row;
    RowMaker(layout).Make(layout, cells, row);
    return row;
}

StoredRow RowToBe(const Table& table, const std::vector<Value>& values) {
    std::vector<CellChange> changes;
    for (std::size_t column = 0; column < values.size(); ++column) {
        const int place = static_cast<int>(column);
        changes.push_back({place, AutomaticValue(table, table.ColumnAt(place), values[column])});
    }
    return RowToBe(table, StoredRow(), changes);
}

RowKey RelationKeys::ParentKey(const std::vector<Value>& values) const {
    return KeyOf(ParentIndex(), values);
}

RowKey RelationKeys::ChildKey(const std::vector<Value>& values) const {
    return KeyOf(ChildIndex(), values);
}

bool RelationKeys::IsSameParent(const StoredRow& one, const StoredRow& other) const {
    return IsSameKey(ParentIndex(), one, other);
}

bool RelationKeys::IsSameChild(const StoredRow& one, const StoredRow& other) const {
    return IsSameKey(ChildIndex(), one, other);
}

bool RelationKeys::BelongsTo(const StoredRow& child, const StoredRow& parent) const {
    return ChildKey(ChildIndex().ValuesOf(child)).bytes == ChildKey(ParentIndex().ValuesOf(parent)).bytes;
}

bool RelationKeys::HasKey(const StoredRow& child) const {
    return !ChildKey(ChildIndex().ValuesOf(child)).hasNull;
}

// In a key of several columns, null stands in all of them or in none.
void RelationKeys::RequireParent(const StoredRow& child, std::optional<RowPlace> place) const {
    const RowKey key = ParentKey(ChildIndex().ValuesOf(child));
    if (key.isAllNull) {
        return;
    }
    const bool isWithItself = relation_.IsWithItself();
    const auto leftOut = isWithItself && place ? std::optional(ToNumber(*place)) : std::nullopt;
    const bool hasParent = !key.hasNull && (ParentIndex().Tree().RowWith(key.bytes, leftOut) ||
                                            (isWithItself && BelongsTo(child, child)));
    if (!hasParent) {
        throw Error(
            ErrorNumber::NoParent,
            QStringLiteral("The record of '%1' can't be saved: there is none of '%2' that it belongs "
                           "to by %3, with %4.")
                .arg(child_.Name(), parent_.Name(), NamesOf(child_.Layout(), ChildIndex().Definition()),
                     DescribeColumns(child_.Rows(), ChildIndex().Definition(), child)));
    }
}

std::vector<RowPlace> RelationKeys::ChildrenOf(const StoredRow& parent) const {
    std::vector<RowPlace> children;
    const RowKey key = ChildKey(ParentIndex().ValuesOf(parent));
    if (key.hasNull) {
        return children;
    }
    for (IndexCursor at = ChildIndex().Tree().AtLeast(key.bytes);
         at.HasEntry() && Compare(at.EntryKey(), key.bytes) == 0; at.Next()) {
        children.push_back(ToRowPlace(at.Row()));
    }
    return children;
}

std::vector<CellChange> RelationKeys::ChangesFor(const StoredRow& oldParent, const StoredRow& parent) const {
    const std::vector<Value> old = ParentIndex().ValuesOf(oldParent);
    const std::vector<Value> now = ParentIndex().ValuesOf(parent);
    std::vector<CellChange> changes;
    for (std::size_t place = 0; place < now.size(); ++place) {
        Key oldKey;
        Key key;
        AppendColumnKey(oldKey, ParentIndex().Columns()[place], old[place]);
        AppendColumnKey(key, ParentIndex().Columns()[place], now[place]);
        if (key != oldKey) {
            const int column = ParentIndex().Definition().columns[place].column;
            changes.push_back(
                {ChildIndex().Definition().columns[place].column, parent_.Rows().ValueOf(parent, column)});
        }
    }
    return changes;
}

std::vector<CellChange> RelationKeys::Nulls() const {
    std::vector<CellChange> changes;
    for (const IndexColumn& column : ChildIndex().Definition().columns) {
        changes.push_back({column.column, Null()});
    }
    return changes;
}

void RelationKeys::RefuseForChildren() const {
    throw Error(
        ErrorNumber::HasChildren,
        QStringLiteral("The record of '%1' can't be deleted or changed: records of '%2' belong to it.")
            .arg(parent_.Name(), child_.Name()));
}

}  // namespace engine::jet
