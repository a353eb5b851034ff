#pragma once

#include "engine/dialect/Grammar.h"
#include "engine/sqlite/Connection.h"
#include "engine/sqlite/TableSchema.h"

#include <functional>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

namespace engine::sqlite {

/// A statement of the dialect, parsed, checked against the file's tables and compiled once for all its
/// literals.
struct PreparedStatement {
    dialect::ParsedStatement parsed;
    std::shared_ptr<const TableSchema> table;
    /// For the literal at each place the column that it will be stored in, or null.
    std::vector<const Column*> storedIn;
    /// The statement itself, for statements that change data.
    StatementHandle compiled;
};

/// Prepared statements by their shape, so that a million statements that differ only in their literals are
/// parsed once, and compiled statements of the engine's own by their text.
class StatementCache {
public:
    StatementCache(Connection& connection, SchemaCache& schemas)
        : connection_(connection), schemas_(schemas) {}

    /// Fails with 3075, 3346, 3078 or 3061 for a statement that can't run.
    PreparedStatement& ForShape(const std::string& shape);

    /// A compiled statement, reset and owned by the cache. The caller must be done with it before asking for
    /// the same text again.
    sqlite3_stmt* ForSql(const std::string& sql);

private:
    std::unique_ptr<PreparedStatement> Prepare(const std::string& shape);
    void CheckColumns(const PreparedStatement& prepared) const;

    Connection& connection_;
    SchemaCache& schemas_;
    std::unordered_map<std::string, std::unique_ptr<PreparedStatement>> byShape_;
    std::unordered_map<std::string, StatementHandle> bySql_;
};

}  // namespace engine::sqlite
