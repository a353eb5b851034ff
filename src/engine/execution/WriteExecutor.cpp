#include "engine/execution/WriteExecutor.h"

#include "engine/Error.h"
#include "engine/execution/ValueBinding.h"

#include <QStringList>

#include <algorithm>
#include <set>

namespace engine::execution {

namespace {

// The statement for a row with these columns.
std::string RowSql(const RowWrite& row) {
    const std::string keyed = " where " + row.table->rowKey + " = ?";
    std::string columns;
    std::string places;
    for (const auto& [place, value] : row.values) {
        const std::string separator = columns.empty() ? "" : ", ";
        const std::string& name = row.table->columns[place].sqlName;
        columns += separator + name + (row.kind == RowWrite::Kind::Update ? " = ?" : "");
        places += separator + "?";
    }
    switch (row.kind) {
        case RowWrite::Kind::Update:
            return "update or abort " + row.table->sqlName + " set " + columns + keyed;
        case RowWrite::Kind::Delete:
            return "delete from " + row.table->sqlName + keyed;
        case RowWrite::Kind::Insert:
            break;
    }
    const std::string insert = "insert or abort into " + row.table->sqlName;
    return insert + (columns.empty() ? " default values" : "(" + columns + ") values(" + places + ")");
}

// A copy, narrowed to the one row with a key.
std::string CopyOneSql(const PreparedStatement& copy) {
    const std::string& where = copy.parsed.whereSql;
    const std::string head = copy.parsed.sql.substr(0, copy.parsed.sql.size() - where.size());
    constexpr std::string_view Keyword = " where ";
    const std::string narrowed = where.empty() ? "" : "(" + where.substr(Keyword.size()) + ") and ";
    return head + std::string(Keyword) + narrowed + copy.source->rowKey + " = ?";
}

QString NameAndValue(const TableSchema& table, size_t place, const Value& value) {
    const auto* bytes = std::get_if<QByteArray>(&value);
    const QString text = IsNull(value)      ? QStringLiteral("null")
                         : bytes != nullptr ? QStringLiteral("%1 bytes").arg(bytes->size())
                                            : ToText(value);
    return table.columns[place].name + QStringLiteral(": ") + text;
}

}  // namespace

QString Describe(const Write& write) {
    if (const auto* text = std::get_if<QString>(&write)) {
        return *text;
    }
    const auto& row = std::get<RowWrite>(write);
    QString description = row.kind == RowWrite::Kind::Insert   ? QStringLiteral("new row in ")
                          : row.kind == RowWrite::Kind::Update ? QStringLiteral("change of a row in ")
                                                               : QStringLiteral("removal of a row from ");
    description += QString::fromStdString(row.table->name);
    for (const auto& [place, value] : row.values) {
        description += QStringLiteral("; ") + NameAndValue(*row.table, place, value);
    }
    QStringList held;
    for (const auto& [place, value] : row.held) {
        held += NameAndValue(*row.table, place, value);
    }
    if (!held.isEmpty()) {
        description += QStringLiteral(" (the row that held %1)").arg(held.join(QStringLiteral(", ")));
    }
    return description;
}

std::string SelectFrom(const PreparedStatement& prepared, const std::string& columns) {
    return "select " + columns + " from " + prepared.table->sqlName + prepared.parsed.whereSql;
}

void BindLiterals(sqlite3_stmt* compiled, const PreparedStatement& prepared,
                  const dialect::ShapedStatement& shaped) {
    BindLiterals(compiled, prepared, shaped, 0, shaped.literals.size());
}

void BindLiterals(sqlite3_stmt* compiled, const PreparedStatement& prepared,
                  const dialect::ShapedStatement& shaped, size_t from, size_t to) {
    for (size_t place = from; place < to; ++place) {
        const dialect::Literal& literal = shaped.literals[place];
        BindLiteral(compiled, static_cast<int>(place - from + 1), prepared.storedIn[place], literal,
                    shaped.Text(literal));
    }
}

void WriteExecutor::Prepare(const Write& write) {
    if (const auto* text = std::get_if<QString>(&write)) {
        PrepareStatement(*text);
    } else {
        PrepareRow(std::get<RowWrite>(write));
    }
}

void WriteExecutor::PrepareStatement(const QString& text) {
    statement_ = statements_.ForText(text, shaped_);
    if (statement_->parsed.kind == dialect::StatementKind::Select) {
        throw Error(ErrorNumber::InvalidOperation,
                    QStringLiteral("Cannot execute a select query: it is opened as a row set."));
    }
    table_ = statement_->table;
    ready_ = statement_->compiled.get();
    written_ = statement_->written;
    BindLiterals(ready_, *statement_, shaped_);
}

void WriteExecutor::PrepareRow(const RowWrite& row) {
    statement_.reset();
    table_ = row.table;
    ready_ = statements_.ForSql(RowSql(row));
    written_.clear();
    int place = 1;
    for (const auto& [column, value] : row.values) {
        written_.push_back(column);
        BindForColumn(ready_, place++, row.table->columns[column], value);
    }
    if (row.kind != RowWrite::Kind::Insert) {
        sqlite3_bind_int64(ready_, place, row.key);
    }
}

bool WriteExecutor::IsSweeping() const {
    return statement_ != nullptr && statement_->parsed.kind != dialect::StatementKind::Insert;
}

bool WriteExecutor::IsTableLargerThan(int rows) {
    const RunningStatement next(statements_.ForSql("select 1 from " + table_->sqlName + " limit 1 offset ?"));
    sqlite3_bind_int(next.get(), 1, rows);
    return sqlite3_step(next.get()) != SQLITE_DONE;
}

bool WriteExecutor::IsCopy() const {
    return statement_ != nullptr && statement_->source != nullptr;
}

void WriteExecutor::Run(const Write& write) {
    connection_.Inserted().Forget();
    const qint64 changed = Change();
    const auto* row = std::get_if<RowWrite>(&write);
    if (row != nullptr && row->kind != RowWrite::Kind::Insert && changed == 0) {
        throw Error(ErrorNumber::RecordDeleted, QStringLiteral("Record is deleted."));
    }
    added_ = IsRemoval(write) ? -changed : connection_.Inserted().Count();
}

qint64 WriteExecutor::Change() {
    if (IsWholeRemoval()) {
        if (const std::optional<qint64> removed = connection_.Empty(table_->name)) {
            return *removed;
        }
    }
    if (const std::optional<qint64> changed = ChangeEach()) {
        return *changed;
    }
    return connection_.Change(ready_, written_);
}

// An update whose values are all literals gives each of its rows the same ones.
std::optional<qint64> WriteExecutor::ChangeEach() {
    if (statement_ == nullptr || statement_->parsed.kind != dialect::StatementKind::Update) {
        return std::nullopt;
    }
    // Those that are stored come first.
    const std::vector<const Column*>& storedIn = statement_->storedIn;
    const auto stored =
        static_cast<size_t>(std::find(storedIn.begin(), storedIn.end(), nullptr) - storedIn.begin());
    if (stored != written_.size() || std::set<size_t>(written_.begin(), written_.end()).size() != stored) {
        return std::nullopt;
    }
    std::string places = "?";
    for (size_t place = 1; place < stored; ++place) {
        places += ", ?";
    }
    const RunningStatement keys(statements_.ForSql(SelectFrom(*statement_, table_->rowKey)));
    const RunningStatement values(statements_.ForSql("select " + places));
    BindLiterals(values.get(), *statement_, shaped_, 0, stored);
    BindLiterals(keys.get(), *statement_, shaped_, stored, shaped_.literals.size());
    return connection_.ChangeEach(table_->name, keys.get(), written_, values.get());
}

bool WriteExecutor::IsWholeRemoval() const {
    return statement_ != nullptr && statement_->parsed.kind == dialect::StatementKind::Delete &&
           statement_->parsed.whereSql.empty();
}

bool WriteExecutor::IsRemoval(const Write& write) const {
    const auto* row = std::get_if<RowWrite>(&write);
    return row != nullptr ? row->kind == RowWrite::Kind::Delete
                          : statement_->parsed.kind == dialect::StatementKind::Delete;
}

bool WriteExecutor::CopyOne(qint64 key) {
    sqlite3_stmt* copy = statements_.ForSql(CopyOneSql(*statement_));
    BindLiterals(copy, *statement_, shaped_);
    sqlite3_bind_int64(copy, static_cast<int>(shaped_.literals.size()) + 1, key);
    return connection_.Change(copy, written_) > 0;
}

}  // namespace engine::execution
