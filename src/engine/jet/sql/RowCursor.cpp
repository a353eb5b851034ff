#include "engine/jet/sql/RowCursor.h"

#include "engine/jet/sql/JetConnection.h"
#include "engine/jet/sql/QuickValue.h"
#include "engine/jet/sql/SqlTable.h"
#include "engine/jet/sql/SqlValue.h"

namespace engine::jet {

RowCursor::RowCursor(SqlTable& table) : sqlite3_vtab_cursor{}, table_(table) {
}

void RowCursor::Begin(int way, std::span<sqlite3_value*> values) {
    table_.Connection().File().LetGoOfPages();
    found_.clear();
    place_ = 0;
    isThroughAll_ = false;
    if (way == SqlTable::AllRows) {
        GoThroughAll();
    } else if (way == SqlTable::RowWithKey) {
        FindKey(values.front());
    } else {
        LookUp(way - SqlTable::FirstIndex, values.front());
    }
}

void RowCursor::GoThroughAll() {
    isThroughAll_ = true;
    key_ = table_.Rows().FirstRow();
    hasRow_ = false;
}

void RowCursor::FindKey(sqlite3_value* value) {
    const qint64 key = sqlite3_value_int64(value);
    if (sqlite3_value_type(value) == SQLITE_INTEGER && key >= 0 && key <= 0xFFFFFFFFLL) {
        found_.push_back(ToRowPlace(static_cast<std::uint32_t>(key)));
    }
    Settle();
}

// A value of another nature than the column's may be equal to it after a conversion: SQLite knows.
void RowCursor::LookUp(int index, sqlite3_value* value) {
    IndexObserver& entries = table_.Stored().IndexAt(index);
    const int column = entries.Definition().columns.front().column;
    const Column& known = table_.Rows().ColumnAt(column);
    const int wanted = IsTextType(known.type) ? SQLITE_TEXT : SQLITE_INTEGER;
    if (sqlite3_value_type(value) != wanted) {
        GoThroughAll();
        return;
    }
    jet::Key key;
    AppendColumnKey(key, entries.Columns().front(), FromSql(known, value));
    const auto begins = [&key](KeyView entry) {
        return entry.size() >= key.size() && std::equal(key.begin(), key.end(), entry.begin());
    };
    for (IndexCursor cursor = entries.Tree().AtLeast(key); cursor.HasEntry() && begins(cursor.EntryKey());
         cursor.Next()) {
        found_.push_back(ToRowPlace(cursor.Row()));
    }
    // As a walk through all rows would meet them.
    std::sort(found_.begin(), found_.end());
    Settle();
}

void RowCursor::Next() {
    if (!isThroughAll_) {
        ++place_;
        Settle();
        return;
    }
    table_.Connection().File().LetGoOfPages();
    key_ = table_.Rows().RowBehind(*key_);
    hasRow_ = false;
}

// Rows may have gone since they were found.
void RowCursor::Settle() {
    for (; place_ < found_.size(); ++place_) {
        hasRow_ = table_.Rows().Find(found_[place_], row_);
        if (hasRow_) {
            key_ = found_[place_];
            return;
        }
    }
    key_.reset();
}

void RowCursor::Give(sqlite3_context* context, int column) {
    if (!hasRow_) {
        table_.Rows().Read(*key_, row_);
        hasRow_ = true;
    }
    if (GiveQuickly(context, table_.Rows().ColumnAt(column), row_, column)) {
        return;
    }
    GiveToSql(context, table_.ColumnAt(column), table_.Rows().ValueOf(row_, column));
}

}  // namespace engine::jet
