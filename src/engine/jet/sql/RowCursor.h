#pragma once

#include "engine/jet/Table.h"

#include <sqlite3.h>

#include <optional>
#include <span>
#include <vector>

namespace engine::jet {

class IndexObserver;
class SqlTable;

/// Goes through the rows that a statement asks for. Keeps keys only, so that the table may be written to
/// meanwhile.
class RowCursor : public sqlite3_vtab_cursor {
public:
    explicit RowCursor(SqlTable& table);

    /// `way` is what SqlTable::Plan has said, `values` what it has asked for.
    void Begin(int way, std::span<sqlite3_value*> values);
    void Next();
    bool IsAtEnd() const { return !key_.has_value(); }

    qint64 Key() const { return ToNumber(*key_); }
    void Give(sqlite3_context* context, int column);

private:
    void FindKey(sqlite3_value* value);
    void LookUp(int index, sqlite3_value* value);
    void LookUpText(IndexObserver& entries, sqlite3_value* value);
    void FindEntries(IndexObserver& entries, const Value& value);
    bool HasWantedText() const;
    void GoThroughAll();
    void Settle();

    SqlTable& table_;
    std::optional<RowPlace> key_;
    StoredRow row_;
    bool hasRow_ = false;  ///< Whether it is the one with the key.
    bool isThroughAll_ = false;
    std::vector<RowPlace> found_;  ///< By an index.
    /// Of which a row must have the text that is wanted: texts that differ in case share a key.
    std::optional<int> textColumn_;
    QString wantedText_;
    QByteArray wantedBytes_;  ///< As it is stored, as a rule.
    std::size_t place_ = 0;
};

}  // namespace engine::jet
