#include "engine/execution/InsertBatch.h"

#include "engine/execution/WriteExecutor.h"

namespace engine::execution {

namespace {

// The statement with its list of values as often as rows can wait.
std::string ForMostRows(const dialect::ParsedStatement& insert) {
    std::string sql = insert.sql;
    const std::string values = sql.substr(insert.valuesBegin);
    for (size_t row = 1; row < InsertBatch::MostRows; ++row) {
        sql += ", " + values;
    }
    return sql;
}

void BindAsRow(size_t row, PreparedStatement& prepared, const dialect::ShapedStatement& shaped) {
    const size_t count = shaped.literals.size();
    const size_t first = row * count + 1;
    for (size_t place = 0; place < count; ++place) {
        const dialect::Literal& literal = shaped.literals[place];
        prepared.binderForMany.Bind(prepared.compiledForMany.get(), static_cast<int>(first + place),
                                    prepared.storedIn[place], literal, shaped.Text(literal));
    }
}

}  // namespace

InsertBatch::Answer InsertBatch::Offer(const QString& statement) {
    dialect::ShapedStatement& shaped = shaped_.at(rows_);
    const std::shared_ptr<PreparedStatement>& prepared = statements_.ForText(statement, shaped);
    if (!prepared->canWait) {
        return Answer::CannotWait;
    }
    if (rows_ > 0 && prepared != waiting_) {
        return Answer::OthersFirst;
    }
    if (prepared != waiting_) {
        waiting_ = prepared;
    }
    Keep(shaped);
    ++rows_;
    return Answer::Taken;
}

void InsertBatch::Keep(const dialect::ShapedStatement& shaped) {
    if (waiting_->rows) {
        waiting_->rows->Keep(rows_, waiting_->storedIn, shaped);
        return;
    }
    if (!waiting_->compiledForMany) {
        waiting_->compiledForMany = connection_.Prepare(ForMostRows(waiting_->parsed));
    }
    BindAsRow(rows_, *waiting_, shaped);
}

void InsertBatch::Run() {
    const size_t rows = rows_;
    rows_ = 0;
    connection_.Inserted().Forget();
    if (waiting_->rows) {
        waiting_->rows->Put(rows);
        return;
    }
    if (rows == MostRows) {
        connection_.Change(waiting_->compiledForMany.get(), waiting_->written);
        return;
    }
    for (size_t row = 0; row < rows; ++row) {
        BindLiterals(waiting_->compiled.get(), *waiting_, shaped_.at(row));
        connection_.Change(waiting_->compiled.get(), waiting_->written);
    }
}

}  // namespace engine::execution
