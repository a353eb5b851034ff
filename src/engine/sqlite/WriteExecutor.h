#pragma once

#include "engine/dialect/Tokenizer.h"
#include "engine/sqlite/StatementCache.h"
#include "engine/sqlite/Write.h"

namespace engine::sqlite {

/// Turns writes into compiled statements and runs them.
class WriteExecutor {
public:
    WriteExecutor(Connection& connection, StatementCache& statements)
        : connection_(connection), statements_(statements) {}

    /// Parses, checks and binds a write without touching the file's data. What is wrong with the write itself
    /// fails here. The write must live until Run.
    void Prepare(const Write& write);

    /// Runs what was prepared last, and notes the key of a new row in the write. A row that isn't there any
    /// more fails with 3167.
    void Run(Write& write);

private:
    void PrepareStatement(const QString& text);
    void PrepareRow(const RowWrite& row);

    Connection& connection_;
    StatementCache& statements_;
    dialect::ShapedStatement shaped_;
    sqlite3_stmt* ready_ = nullptr;
};

/// Binds the literals of a statement to a compiled form of it, as those of the row at this place where the
/// form is one for many rows. The literals must live until the statement has run.
void BindLiterals(sqlite3_stmt* compiled, const PreparedStatement& prepared,
                  const dialect::ShapedStatement& shaped, size_t row = 0);

}  // namespace engine::sqlite
