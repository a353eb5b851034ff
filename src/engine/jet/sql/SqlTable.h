#pragma once

#include "engine/execution/TableSchema.h"
#include "engine/jet/rules/RuledTable.h"

#include <sqlite3.h>

#include <optional>
#include <span>
#include <string>
#include <vector>

namespace engine::jet {

class JetConnection;

/// A table of a Jet file, as statements see it.
class SqlTable : public sqlite3_vtab {
public:
    /// By its name in the file. Fails as RuledTables::Open does.
    SqlTable(JetConnection& connection, const QString& name);

    JetConnection& Connection() { return connection_; }
    RuledTable& Stored() { return stored_; }
    const Table& Rows() const { return stored_.Rows(); }
    const execution::Column& ColumnAt(int column) const { return columns_[static_cast<std::size_t>(column)]; }

    /// The table in the words of SQL.
    std::string Declaration() const;

    /// How rows are found: by one of these numbers, in a plan.
    static constexpr int AllRows = 0;
    static constexpr int RowWithKey = 1;
    /// The first index of the table; those behind it follow.
    static constexpr int FirstIndex = 2;

    /// Says how the rows that a statement asks for are found best.
    void Plan(sqlite3_index_info& plan) const;

    /// Values for all columns. Returns the row's key.
    qint64 Insert(std::span<sqlite3_value*> values);
    /// Those that a statement leaves as they are are marked by SQLite.
    void Update(qint64 key, std::span<sqlite3_value*> values);
    void Delete(qint64 key);

private:
    RowPlace InsertQuickly(std::span<sqlite3_value*> values);
    RowPlace InsertByRules(std::span<sqlite3_value*> values);
    void UpdateQuickly(RowPlace key, std::span<sqlite3_value*> values);
    void UpdateByRules(RowPlace key, std::span<sqlite3_value*> values);
    void Put(int column, sqlite3_value* value);
    std::optional<int> WayFor(int column) const;
    bool CanLookUp(const RealIndex& index) const;

    JetConnection& connection_;
    RuledTable& stored_;
    std::vector<execution::Column> columns_;
    // Of the row that is being written.
    RowCells cells_;
    std::vector<int> changed_;
};

}  // namespace engine::jet
