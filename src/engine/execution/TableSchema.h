#pragma once

#include "engine/Value.h"
#include "engine/execution/Connection.h"

#include <QString>

#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

namespace engine::execution {

struct Column {
    QString name;
    std::string sqlName;  ///< Quoted.
    DataType type = dbText;
    int size = 0;  ///< The most characters that a text may have; 0 for no limit.
};

/// A table as the file declares it.
struct TableSchema {
    std::string name;
    std::string sqlName;  ///< Quoted.
    std::string rowKey;   ///< The name by which SQLite gives the key of a row, not hidden by a column.
    std::vector<Column> columns;
    /// Nothing that the file declares can turn a row away: no keys and no rules.
    bool takesAnyRow = false;

    /// The place of a column, names compared without regard to case. Fails with 3061.
    size_t PlaceOf(const std::string& columnName) const;
};

/// The type and size that a declared type stands for: "TEXT(30)" is dbText of 30 characters. Types that
/// Hearthbook doesn't declare itself are taken by what SQLite would store in them.
Column ToColumn(const std::string& name, const QString& declaredType);

/// How a type is declared: the opposite of ToColumn.
QString DeclaredType(DataType type, int size);

/// Tables looked up so far. They are read once: nobody changes tables under a running program.
class SchemaCache {
public:
    explicit SchemaCache(Connection& connection) : connection_(connection) {}

    /// Names are compared without regard to case. Fails with 3078 if there is no such table.
    std::shared_ptr<const TableSchema> Table(const std::string& name);

private:
    std::shared_ptr<const TableSchema> Read(const std::string& name);

    Connection& connection_;
    std::unordered_map<std::string, std::shared_ptr<const TableSchema>> tables_;
};

}  // namespace engine::execution
