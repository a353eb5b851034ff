#include "engine/jet/sql/SqlTable.h"

#include "engine/dialect/Names.h"
#include "engine/jet/sql/JetConnection.h"
#include "engine/jet/sql/QuickValue.h"
#include "engine/jet/sql/SqlValue.h"

#include <algorithm>

namespace engine::jet {

namespace {

// SQLite asks for the number of steps that a way takes. A table of a house manager has some thousand rows.
constexpr double StepsThroughAll = 1e6;
constexpr double StepsByIndex = 20;
constexpr sqlite3_int64 RowsOfAll = 1'000'000;
constexpr sqlite3_int64 RowsOfAKey = 10;

constexpr int KeyColumnNumber = -1;

}  // namespace

SqlTable::SqlTable(JetConnection& connection, const QString& name)
    : sqlite3_vtab{}, connection_(connection), stored_(connection.File().TableNamed(name)) {
    for (const Column& column : stored_.Layout().columns) {
        columns_.push_back(ToSqlColumn(column));
    }
}

std::string SqlTable::Declaration() const {
    std::string columns;
    for (std::size_t place = 0; place < columns_.size(); ++place) {
        columns += columns.empty() ? "" : ", ";
        columns += columns_[place].sqlName + " " + SqlTypeOf(stored_.Layout().columns[place]).toStdString();
    }
    return "create table t(" + columns + ")";
}

// The value of one column picks out rows by an index on this column alone or first. Texts have keys of their
// own in it, which texts that differ in case share; the cursor looks at the row's own text after that.
bool SqlTable::CanLookUp(const RealIndex& index) const {
    const Column& first = stored_.Layout().columns[static_cast<std::size_t>(index.columns.front().column)];
    const bool isWhole =
        first.type == ColumnType::Byte || first.type == ColumnType::Short || first.type == ColumnType::Long;
    return isWhole ||
           (first.type == ColumnType::Text && first.sortOrder == GeneralSortOrder && first.sortVersion == 0);
}

// Of what is asked for, the row's own key is the best, and else the first that an index finds.
void SqlTable::Plan(sqlite3_index_info& plan) const {
    const auto constraints = std::span(plan.aConstraint, static_cast<std::size_t>(plan.nConstraint));
    plan.idxNum = AllRows;
    plan.estimatedCost = StepsThroughAll;
    plan.estimatedRows = RowsOfAll;
    std::size_t chosen = 0;
    for (std::size_t place = 0; place < constraints.size(); ++place) {
        const auto& constraint = constraints[place];
        if (constraint.usable == 0 || constraint.op != SQLITE_INDEX_CONSTRAINT_EQ) {
            continue;
        }
        const std::optional<int> way = WayFor(constraint.iColumn);
        if (way && (plan.idxNum == AllRows || *way == RowWithKey)) {
            plan.idxNum = *way;
            chosen = place;
        }
    }
    if (plan.idxNum == AllRows) {
        return;
    }
    plan.aConstraintUsage[chosen].argvIndex = 1;
    plan.estimatedCost = StepsByIndex;
    plan.estimatedRows = plan.idxNum == RowWithKey ? 1 : RowsOfAKey;
    const int column = constraints[chosen].iColumn;
    plan.aConstraintUsage[chosen].omit =
        column != KeyColumnNumber && IsTextType(stored_.Rows().ColumnAt(column).type) ? 1 : 0;
    plan.idxFlags = plan.idxNum == RowWithKey ? SQLITE_INDEX_SCAN_UNIQUE : 0;
}

// How rows with a value of a column, or with a key, are found other than by going through all.
std::optional<int> SqlTable::WayFor(int column) const {
    if (column == KeyColumnNumber) {
        return RowWithKey;
    }
    const std::vector<RealIndex>& indexes = stored_.Layout().indexes;
    const auto index = std::find_if(indexes.begin(), indexes.end(), [this, column](const RealIndex& known) {
        return known.columns.front().column == column && CanLookUp(known);
    });
    return index == indexes.end() ? std::nullopt
                                  : std::optional(FirstIndex + static_cast<int>(index - indexes.begin()));
}

void SqlTable::Put(int column, sqlite3_value* value) {
    const Column& known = stored_.Rows().ColumnAt(column);
    if (!PutQuickly(cells_, column, known, value)) {
        stored_.Rows().PutCell(cells_, column, FromSql(known, value));
    }
}

qint64 SqlTable::Insert(std::span<sqlite3_value*> values) {
    const RowPlace key = stored_.IsPlain() ? InsertQuickly(values) : InsertByRules(values);
    connection_.NoteInserted(key);
    return ToNumber(key);
}

RowPlace SqlTable::InsertQuickly(std::span<sqlite3_value*> values) {
    cells_.Clear(values.size());
    for (std::size_t column = 0; column < values.size(); ++column) {
        Put(static_cast<int>(column), values[column]);
    }
    return stored_.Rows().Insert(cells_);
}

RowPlace SqlTable::InsertByRules(std::span<sqlite3_value*> values) {
    std::vector<Value> row;
    for (std::size_t column = 0; column < values.size(); ++column) {
        row.push_back(FromSql(stored_.Layout().columns[column], values[column]));
    }
    std::vector<bool> isGiven(values.size());
    for (const std::size_t column : connection_.Written()) {
        isGiven[column] = true;
    }
    return stored_.Insert(std::move(row), isGiven);
}

void SqlTable::Update(qint64 key, std::span<sqlite3_value*> values) {
    const RowPlace place = ToRowPlace(static_cast<std::uint32_t>(key));
    if (stored_.IsPlain()) {
        UpdateQuickly(place, values);
    } else {
        UpdateByRules(place, values);
    }
}

void SqlTable::UpdateQuickly(RowPlace key, std::span<sqlite3_value*> values) {
    cells_.Clear(values.size());
    changed_.clear();
    for (std::size_t column = 0; column < values.size(); ++column) {
        if (sqlite3_value_nochange(values[column]) == 0) {
            Put(static_cast<int>(column), values[column]);
            changed_.push_back(static_cast<int>(column));
        }
    }
    stored_.Rows().Update(key, changed_, cells_);
}

void SqlTable::UpdateByRules(RowPlace key, std::span<sqlite3_value*> values) {
    std::vector<CellChange> changes;
    for (std::size_t column = 0; column < values.size(); ++column) {
        if (sqlite3_value_nochange(values[column]) == 0) {
            changes.push_back(
                {static_cast<int>(column), FromSql(stored_.Layout().columns[column], values[column])});
        }
    }
    stored_.Update(key, changes);
}

// The rows of a statement are found before the first one is deleted, and some may go with others.
void SqlTable::Delete(qint64 key) {
    const RowPlace place = ToRowPlace(static_cast<std::uint32_t>(key));
    if (stored_.AsParent().empty() || stored_.Rows().Find(place)) {
        stored_.Delete(place);
    }
}

}  // namespace engine::jet
