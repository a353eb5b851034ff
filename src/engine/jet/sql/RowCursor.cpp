#include "engine/jet/sql/RowCursor.h"

#include "engine/jet/Text.h"
#include "engine/jet/sql/JetConnection.h"
#include "engine/jet/sql/QuickValue.h"
#include "engine/jet/sql/SqlTable.h"
#include "engine/jet/sql/SqlValue.h"

#include <algorithm>
#include <cstring>

namespace engine::jet {

RowCursor::RowCursor(SqlTable& table) : sqlite3_vtab_cursor{}, table_(table) {
}

void RowCursor::Begin(int way, std::span<sqlite3_value*> values) {
    table_.Connection().File().LetGoOfPages();
    found_.clear();
    textColumn_.reset();
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

// A value of another nature may be equal to a whole number after a conversion: SQLite knows.
void RowCursor::LookUp(int index, sqlite3_value* value) {
    IndexObserver& entries = table_.Stored().IndexAt(index);
    const Column& known = table_.Rows().ColumnAt(entries.Definition().columns.front().column);
    if (IsTextType(known.type)) {
        LookUpText(entries, value);
    } else if (sqlite3_value_type(value) == SQLITE_INTEGER) {
        FindEntries(entries, FromSql(known, value));
    } else {
        GoThroughAll();
    }
}

// SQLite leaves the comparison to the plan, which costs it half of a row. It would take a number for its text
// as well.
void RowCursor::LookUpText(IndexObserver& entries, sqlite3_value* value) {
    const int kind = sqlite3_value_type(value);
    if (kind == SQLITE_NULL || kind == SQLITE_BLOB) {
        key_.reset();
        return;
    }
    textColumn_ = entries.Definition().columns.front().column;
    const Column& known = table_.Rows().ColumnAt(*textColumn_);
    const Value text = FromSql(known, value);
    wantedText_ = std::get<QString>(text);
    wantedBytes_ = ToStoredText(wantedText_, known.isCompressed);
    FindEntries(entries, text);
}

void RowCursor::FindEntries(IndexObserver& entries, const Value& value) {
    jet::Key key;
    AppendColumnKey(key, entries.Columns().front(), value);
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

bool RowCursor::HasWantedText() const {
    const std::optional<Bytes> bytes = row_.FindBytes(*textColumn_);
    if (!bytes) {
        return false;
    }
    const auto size = static_cast<std::size_t>(wantedBytes_.size());
    return (bytes->Size() == size && std::memcmp(bytes->Data(), wantedBytes_.constData(), size) == 0) ||
           table_.Rows().ValueOf(row_, *textColumn_) == Value(wantedText_);
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
        hasRow_ = table_.Rows().Find(found_[place_], row_) && (!textColumn_.has_value() || HasWantedText());
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
