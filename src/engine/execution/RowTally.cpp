#include "engine/execution/RowTally.h"

#include <algorithm>

namespace engine::execution {

void RowTally::Add(const std::string& table, qint64 rows) {
    qint64& count = rows_[table];
    count = std::max<qint64>(0, count + rows);
}

void RowTally::LimitTo(const std::function<qint64(const std::string& table)>& rowsIn) {
    for (auto& [table, count] : rows_) {
        if (count > 0) {
            count = std::min(count, rowsIn(table));
        }
    }
}

}  // namespace engine::execution
