#include "engine/execution/KeysInOrder.h"

#include "engine/execution/WriteExecutor.h"

#include <algorithm>
#include <string>
#include <string_view>

namespace engine::execution {

namespace {

// As a blob, as it is: SQLite would copy it to put a zero behind it. Asked for its length first, a text is in
// UTF-8.
std::string_view TextAt(sqlite3_stmt* row, int place) {
    const auto size = static_cast<size_t>(sqlite3_column_bytes(row, place));
    return size == 0 ? std::string_view()
                     : std::string_view(static_cast<const char*>(sqlite3_column_blob(row, place)), size);
}

// Of which every encoding and every collation that SQLite has of its own makes the same order: no letters, no
// blanks.
bool IsDay(std::string_view text) {
    return std::all_of(text.begin(), text.end(), [](char character) {
        return (character >= '0' && character <= '9') || character == '-';
    });
}

// Days one after the other, of which each must be later than the one before, or each earlier.
class RunOfDays {
public:
    // False if it breaks the run.
    bool GoesOnWith(std::string_view day) {
        if (!IsDay(day)) {
            return false;
        }
        const int change = count_ == 0 ? 0 : day.compare(last_);
        const bool goesOn = count_ == 0 || (change != 0 && (count_ == 1 || (change > 0) == rises_));
        rises_ = change > 0;
        last_ = day;
        ++count_;
        return goesOn;
    }

    bool Rises() const { return rises_; }

private:
    std::string last_;
    bool rises_ = false;
    size_t count_ = 0;
};

}  // namespace

std::vector<qint64> KeysInOrder::Read(const PreparedStatement& prepared,
                                      const dialect::ShapedStatement& shaped) {
    if (std::optional<std::vector<qint64>> keys = ReadUnsorted(prepared, shaped)) {
        return *std::move(keys);
    }
    return ReadSorted(prepared, shaped);
}

// Entries are mostly made day by day and asked for from the newest. Rows whose days rise or fall all the way
// need no sorting, which would take a third of the time, and what they are to be sorted by beyond that
// decides nothing.
std::optional<std::vector<qint64>> KeysInOrder::ReadUnsorted(const PreparedStatement& prepared,
                                                             const dialect::ShapedStatement& shaped) {
    if (prepared.parsed.orderBy.empty()) {
        return std::nullopt;
    }
    const auto& [column, descending] = prepared.parsed.orderBy.front();
    const std::string& sortedBy = prepared.table->columns[prepared.table->PlaceOf(column)].sqlName;
    const RunningStatement rows(
        statements_.ForSql(SelectFrom(prepared, prepared.table->rowKey + ", " + sortedBy)));
    BindLiterals(rows.get(), prepared, shaped);
    std::vector<qint64> keys;
    RunOfDays days;
    int step = SQLITE_ROW;
    while ((step = sqlite3_step(rows.get())) == SQLITE_ROW) {
        if (sqlite3_column_type(rows.get(), 1) != SQLITE_TEXT) {
            return std::nullopt;
        }
        if (!days.GoesOnWith(TextAt(rows.get(), 1))) {
            return std::nullopt;
        }
        keys.push_back(sqlite3_column_int64(rows.get(), 0));
    }
    if (step != SQLITE_DONE) {
        connection_.Raise(step);
    }
    if (days.Rises() == descending) {
        std::reverse(keys.begin(), keys.end());
    }
    return keys;
}

std::vector<qint64> KeysInOrder::ReadSorted(const PreparedStatement& prepared,
                                            const dialect::ShapedStatement& shaped) {
    const std::string order =
        prepared.parsed.orderBySql.empty() ? " order by " : prepared.parsed.orderBySql + ", ";
    const std::string& key = prepared.table->rowKey;
    const RunningStatement rows(statements_.ForSql(SelectFrom(prepared, key) + order + key));
    BindLiterals(rows.get(), prepared, shaped);
    std::vector<qint64> keys;
    int step = SQLITE_ROW;
    while ((step = sqlite3_step(rows.get())) == SQLITE_ROW) {
        keys.push_back(sqlite3_column_int64(rows.get(), 0));
    }
    if (step != SQLITE_DONE) {
        connection_.Raise(step);
    }
    return keys;
}

}  // namespace engine::execution
