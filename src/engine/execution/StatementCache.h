#pragma once

#include "engine/dialect/Grammar.h"
#include "engine/dialect/Tokenizer.h"
#include "engine/execution/Connection.h"
#include "engine/execution/TableSchema.h"
#include "engine/execution/ValueBinding.h"

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace engine::execution {

/// A statement of the dialect, parsed, checked against the file's tables and compiled once for all its
/// literals.
struct PreparedStatement {
    dialect::ParsedStatement parsed;
    std::shared_ptr<const TableSchema> table;
    std::shared_ptr<const TableSchema> source;  ///< Whose rows an insert copies, or null.
    /// The columns that it writes, by their places.
    std::vector<size_t> written;
    /// For the literal at each place the column that it will be stored in, or null.
    std::vector<const Column*> storedIn;
    StatementHandle compiled;

    /// An insert of values into a table that takes any row: it may wait for others of its kind (see
    /// InsertBatch.h).
    bool canWait = false;
    std::unique_ptr<LiteralRows> rows;  ///< Of such an insert, where the file takes them; else null.
    StatementHandle compiledForMany;
    LiteralBinder binderForMany;
};

/// Prepared statements by their shape, so that a million statements that differ only in their literals are
/// parsed once, and compiled statements of the engine's own by their text.
class StatementCache {
public:
    StatementCache(Connection& connection, SchemaCache& schemas)
        : connection_(connection), schemas_(schemas) {}

    /// Takes the text apart and finds what was prepared for its shape. Fails with 3075, 3142, 3346, 3078 or
    /// 3061 for a statement that can't run.
    const std::shared_ptr<PreparedStatement>& ForText(const QString& text, dialect::ShapedStatement& shaped);

    /// A compiled statement, reset and owned by the cache. The caller must be done with it before asking for
    /// the same text again.
    sqlite3_stmt* ForSql(const std::string& sql);

private:
    const std::shared_ptr<PreparedStatement>& ForShape(std::string_view shape);
    std::shared_ptr<PreparedStatement> Prepare(std::string_view shape);
    static void FindColumns(PreparedStatement& prepared);

    Connection& connection_;
    SchemaCache& schemas_;
    dialect::RepeatTokenizer tokenizer_;

    struct HashOfText {
        using is_transparent = void;
        size_t operator()(std::string_view text) const { return std::hash<std::string_view>()(text); }
    };
    template <class Statement>
    using ByText = std::unordered_map<std::string, Statement, HashOfText, std::equal_to<>>;

    ByText<std::shared_ptr<PreparedStatement>> byShape_;
    ByText<StatementHandle> bySql_;

    /// Statements of one shape mostly come one after the other.
    std::string lastShape_;
    std::shared_ptr<PreparedStatement> lastPrepared_;
};

}  // namespace engine::execution
