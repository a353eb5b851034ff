#pragma once

#include "engine/dialect/Tokenizer.h"
#include "engine/execution/StatementCache.h"
#include "engine/execution/Write.h"

namespace engine::execution {

/// Turns writes into compiled statements and runs them.
class WriteExecutor {
public:
    WriteExecutor(Connection& connection, StatementCache& statements)
        : connection_(connection), statements_(statements) {}

    /// Parses, checks and binds a write without touching the file's data. What is wrong with the write itself
    /// fails here. The write must live until Run.
    void Prepare(const Write& write);

    /// Of what was prepared last: the table that it writes.
    const TableSchema& Table() const { return *table_; }
    /// It removes rows. The write is that one.
    bool IsRemoval(const Write& write) const;
    /// It changes or removes rows by a condition, as many as there may be.
    bool IsSweeping() const;
    /// The table that it writes has more rows than that.
    bool IsTableLargerThan(int rows);
    /// It makes its rows of those of another table.
    bool IsCopy() const;
    const TableSchema& Source() const { return *statement_->source; }
    /// Of a copy: whether the row with this key is among those that it copies. Copies that row.
    bool CopyOne(qint64 key);

    /// Runs what was prepared last. The keys of new rows are those that the connection notes. A row that
    /// isn't there any more fails with 3167.
    void Run(const Write& write);

    /// How many rows that has added to the table, or removed from it if the number is negative.
    qint64 Added() const { return added_; }

private:
    void PrepareStatement(const QString& text);
    void PrepareRow(const RowWrite& row);
    bool IsWholeRemoval() const;
    /// How many rows the statement has changed.
    qint64 Change();
    std::optional<qint64> ChangeEach();

    Connection& connection_;
    StatementCache& statements_;
    dialect::ShapedStatement shaped_;
    std::shared_ptr<PreparedStatement> statement_;  ///< Null where a change of a row was prepared.
    std::shared_ptr<const TableSchema> table_;
    sqlite3_stmt* ready_ = nullptr;
    std::vector<size_t> written_;  ///< The columns that it names, by their places.
    qint64 added_ = 0;
};

/// A select of these columns from the rows that a statement is about. It has the literals of the condition.
std::string SelectFrom(const PreparedStatement& prepared, const std::string& columns);

/// Binds the literals of a statement to a compiled form of it. They must live until it has run.
void BindLiterals(sqlite3_stmt* compiled, const PreparedStatement& prepared,
                  const dialect::ShapedStatement& shaped);
/// The same for a form that has only some of them: from one up to another, that one not included.
void BindLiterals(sqlite3_stmt* compiled, const PreparedStatement& prepared,
                  const dialect::ShapedStatement& shaped, size_t from, size_t to);

}  // namespace engine::execution
