#include "engine/sqlite/WriteExecutor.h"

#include "engine/Error.h"
#include "engine/sqlite/ValueBinding.h"

namespace engine::sqlite {

namespace {

// The statement for a row with these columns. An insert that has a key runs for the second time.
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
    if (row.key != 0) {
        const std::string separator = columns.empty() ? "" : ", ";
        columns += separator + row.table->rowKey;
        places += separator + "?";
    }
    const std::string insert = "insert or abort into " + row.table->sqlName;
    return insert + (columns.empty() ? " default values" : "(" + columns + ") values(" + places + ")");
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
        description +=
            QStringLiteral("; %1: %2")
                .arg(row.table->columns[place].name, IsNull(value) ? QStringLiteral("null") : ToText(value));
    }
    return description;
}

const std::shared_ptr<PreparedStatement>& PrepareText(const QString& text, dialect::ShapedStatement& shaped,
                                                      StatementCache& statements) {
    dialect::Tokenize(text, shaped);
    return statements.ForShape(shaped.Shape());
}

void BindLiterals(sqlite3_stmt* compiled, const PreparedStatement& prepared,
                  const dialect::ShapedStatement& shaped, size_t row) {
    const size_t count = shaped.literals.size();
    const size_t first = row * count + 1;
    for (size_t place = 0; place < count; ++place) {
        const dialect::Literal& literal = shaped.literals[place];
        BindLiteral(compiled, static_cast<int>(first + place), prepared.storedIn[place], literal,
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
    const PreparedStatement& prepared = *PrepareText(text, shaped_, statements_);
    if (prepared.parsed.kind == dialect::StatementKind::Select) {
        throw Error(ErrorNumber::InvalidOperation,
                    QStringLiteral("Cannot execute a select query: it is opened as a row set."));
    }
    ready_ = prepared.compiled.get();
    BindLiterals(ready_, prepared, shaped_);
}

void WriteExecutor::PrepareRow(const RowWrite& row) {
    ready_ = statements_.ForSql(RowSql(row));
    int place = 1;
    for (const auto& [column, value] : row.values) {
        BindForColumn(ready_, place++, row.table->columns[column], value);
    }
    if (row.key != 0) {
        sqlite3_bind_int64(ready_, place, row.key);
    }
}

void WriteExecutor::Run(Write& write) {
    const RunningStatement running(ready_);
    const int step = sqlite3_step(ready_);
    if (step != SQLITE_DONE) {
        connection_.Raise(step);
    }
    auto* row = std::get_if<RowWrite>(&write);
    if (row == nullptr) {
        return;
    }
    if (row->kind == RowWrite::Kind::Insert) {
        row->key = sqlite3_last_insert_rowid(connection_.Handle());
    } else if (sqlite3_changes(connection_.Handle()) == 0) {
        throw Error(ErrorNumber::RecordDeleted, QStringLiteral("Record is deleted."));
    }
}

}  // namespace engine::sqlite
