#include "engine/execution/RowTally.h"

#include <algorithm>

namespace engine::execution {

void RowTally::Add(const std::string& table, qint64 rows) {
    qint64& count = rows_[table];
    count = std::max<qint64>(0, count + rows);
}

}  // namespace engine::execution
