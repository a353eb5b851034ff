#pragma once

#include <QtGlobal>

#include <sqlite3.h>

#include <vector>

namespace engine::execution {

/// Keys of rows that follow one another.
struct KeyRun {
    qint64 first = 0;
    qint64 count = 0;

    /// Counted from the first; not below `count` for a key that isn't among them. Unsigned, since a file may
    /// hold keys at both ends of their range.
    quint64 PlaceOf(qint64 key) const { return static_cast<quint64>(key) - static_cast<quint64>(first); }

    bool operator==(const KeyRun&) const = default;
};

/// Notes the keys that SQLite gives to new rows, for as long as the connection lives.
class InsertedKeys {
public:
    InsertedKeys() = default;
    InsertedKeys(const InsertedKeys&) = delete;
    InsertedKeys& operator=(const InsertedKeys&) = delete;

    void Watch(sqlite3* connection);

    /// The keys of the rows inserted since Forget, in the order of the inserts.
    const std::vector<KeyRun>& Runs() const { return runs_; }
    qint64 Count() const;
    void Forget() { runs_.clear(); }

    /// A row that SQLite does not tell of itself, as it lies in a table of another engine.
    void Note(qint64 key);

private:
    static void OnChange(void* self, int kind, const char* database, const char* table, sqlite3_int64 key);

    std::vector<KeyRun> runs_;
};

}  // namespace engine::execution
