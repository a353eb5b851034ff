#include "engine/jet/sql/RepeatedChange.h"

#include "engine/jet/ColumnValue.h"
#include "engine/jet/sql/SqlValue.h"

#include <memory>

namespace engine::jet {

namespace {

struct FreeSqlValue {
    void operator()(sqlite3_value* value) const { sqlite3_value_free(value); }
};

// Nothing else may be asked of a value that a statement still has.
Value ValueAt(sqlite3_stmt* values, int place, const Column& column) {
    const std::unique_ptr<sqlite3_value, FreeSqlValue> copy(
        sqlite3_value_dup(sqlite3_column_value(values, place)));
    return FromSql(column, copy.get());
}

}  // namespace

RepeatedChange::RepeatedChange(RuledTable& table, const std::vector<std::size_t>& columns,
                               sqlite3_stmt* values)
    : table_(table), isQuick_(table.IsPlain()) {
    for (const std::size_t place : columns) {
        const auto column = static_cast<int>(place);
        const Column& known = table.Rows().ColumnAt(column);
        changes_.push_back({column, ValueAt(values, static_cast<int>(columns_.size()), known)});
        columns_.push_back(column);
        // Each row has a long value of its own.
        isQuick_ = isQuick_ && !IsLongType(known.type);
    }
}

void RepeatedChange::Make(RowPlace row) {
    if (!isQuick_) {
        table_.Update(row, changes_);
        return;
    }
    if (cells_.Count() == 0) {
        cells_.Clear(table_.Layout().columns.size());
        for (const CellChange& change : changes_) {
            table_.Rows().PutCell(cells_, change.column, change.value);
        }
    }
    table_.Rows().Update(row, columns_, cells_);
}

}  // namespace engine::jet
