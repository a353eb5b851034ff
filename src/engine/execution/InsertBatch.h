#pragma once

#include "engine/dialect/Tokenizer.h"
#include "engine/execution/StatementCache.h"

#include <array>

namespace engine::execution {

/// Inserts of one shape that wait for one another and then run as one statement, or without any
/// (LiteralRows.h), which halves what a row costs.
///
/// Only inserts that can't be refused for what they hold may wait: what is wrong with their text or their
/// values is found when they are offered, and their table has nothing that could turn a row away. A failure
/// when they run is one of the disk, and concerns the whole group of writes that they belong to.
class InsertBatch {
public:
    static constexpr size_t MostRows = 16;

    InsertBatch(Connection& connection, StatementCache& statements)
        : connection_(connection), statements_(statements) {}

    enum class Answer {
        Taken,        ///< It waits now.
        OthersFirst,  ///< It can wait, but not with those that are waiting.
        CannotWait,   ///< It has to be run on its own.
    };

    /// Fails as the statement itself would.
    Answer Offer(const QString& statement);

    bool IsEmpty() const { return rows_ == 0; }
    bool IsFull() const { return rows_ == MostRows; }

    /// Takes back what was taken last.
    void DropLast() { --rows_; }
    void DropAll() { rows_ = 0; }

    /// How many wait, and the table that they are for.
    size_t Rows() const { return rows_; }
    const TableSchema& Table() const { return *waiting_->table; }

    /// Runs all that wait; nothing waits afterwards, even if it fails. The keys of the new rows are those
    /// that the connection notes.
    void Run();

private:
    void Keep(const dialect::ShapedStatement& shaped);

    Connection& connection_;
    StatementCache& statements_;
    std::shared_ptr<PreparedStatement> waiting_;
    /// One for each row: what is bound to the statement points into them.
    std::array<dialect::ShapedStatement, MostRows> shaped_;
    size_t rows_ = 0;
};

}  // namespace engine::execution
