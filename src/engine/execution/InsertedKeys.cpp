#include "engine/execution/InsertedKeys.h"

#include <numeric>

namespace engine::execution {

void InsertedKeys::Watch(sqlite3* connection) {
    sqlite3_update_hook(connection, OnChange, this);
}

qint64 InsertedKeys::Count() const {
    return std::accumulate(runs_.begin(), runs_.end(), qint64{0},
                           [](qint64 count, const KeyRun& run) { return count + run.count; });
}

void InsertedKeys::OnChange(void* self, int kind, const char* /*database*/, const char* /*table*/,
                            sqlite3_int64 key) {
    if (kind == SQLITE_INSERT) {
        static_cast<InsertedKeys*>(self)->Note(key);
    }
}

void InsertedKeys::Note(qint64 key) {
    if (!runs_.empty() && runs_.back().PlaceOf(key) == static_cast<quint64>(runs_.back().count)) {
        ++runs_.back().count;
    } else {
        runs_.push_back({key, 1});
    }
}

}  // namespace engine::execution
