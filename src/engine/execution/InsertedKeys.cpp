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
    if (kind != SQLITE_INSERT) {
        return;
    }
    std::vector<KeyRun>& runs = static_cast<InsertedKeys*>(self)->runs_;
    if (!runs.empty() && runs.back().PlaceOf(key) == static_cast<quint64>(runs.back().count)) {
        ++runs.back().count;
    } else {
        runs.push_back({key, 1});
    }
}

}  // namespace engine::execution
