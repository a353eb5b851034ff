#include "engine/jet/sql/CellRows.h"

#include "engine/execution/StoredForm.h"
#include "engine/execution/ValueBinding.h"
#include "engine/jet/sql/JetConnection.h"
#include "engine/jet/sql/QuickValue.h"
#include "engine/jet/sql/SqlValue.h"
#include "platform/Utf8.h"

#include <algorithm>
#include <set>

namespace engine::jet {

namespace {

bool HoldsShortValues(const Column& column) {
    const DataType type = ToSqlColumn(column).type;
    return type != dbMemo && type != dbLongBinary;
}

// Puts what a column stores into a cell.
struct Putter {
    RowCells& cells;
    int place;
    Table& table;

    const Column& Known() const { return table.ColumnAt(place); }

    void operator()(Null /*null*/) const { cells.SetNull(place); }
    void operator()(std::string_view text) const {
        if (!PutQuickly(cells, place, Known(), text)) {
            table.PutCell(cells, place, ValueOf(text));
        }
    }
    void operator()(const execution::Utf8& text) const {
        (*this)(std::string_view(text.bytes.constData(), static_cast<std::size_t>(text.bytes.size())));
    }
    void operator()(const QByteArray& bytes) const { table.PutCell(cells, place, bytes); }
    template <class Number>
    void operator()(Number number) const {
        if (!PutQuickly(cells, place, Known(), number)) {
            table.PutCell(cells, place, number);
        }
    }

    Value ValueOf(std::string_view bytes) const {
        const QString text = platform::TextFromUtf8({bytes.data(), static_cast<qsizetype>(bytes.size())});
        const QDateTime moment = Known().type == ColumnType::DateTime ? execution::DateIn(text) : QDateTime();
        return moment.isValid() ? Value(moment) : Value(text);
    }
};

}  // namespace

bool CellRows::CanKeep(const RuledTable& table, const std::vector<std::size_t>& columns) {
    const std::vector<Column>& known = table.Layout().columns;
    return table.IsPlain() && std::set(columns.begin(), columns.end()).size() == columns.size() &&
           std::all_of(columns.begin(), columns.end(),
                       [&known](std::size_t column) { return HoldsShortValues(known[column]); });
}

void CellRows::Keep(std::size_t place, std::span<const execution::Column* const> columns,
                    const dialect::ShapedStatement& row) {
    rows_.resize(std::max(rows_.size(), place + 1));
    RowCells& cells = rows_[place];
    cells.Clear(table_.Layout().columns.size());
    for (std::size_t literal = 0; literal < columns_.size(); ++literal) {
        const dialect::Literal& value = row.literals[literal];
        std::visit(Putter{cells, static_cast<int>(columns_[literal]), table_.Rows()},
                   execution::FormOf(columns[literal], value, row.Text(value)));
    }
}

void CellRows::Put(std::size_t count) {
    connection_.Put(table_.Rows(), std::span(rows_).first(count));
}

}  // namespace engine::jet
