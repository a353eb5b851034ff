#include "engine/sqlite/RowTally.h"

#include <algorithm>

namespace engine::sqlite {

void RowTally::Add(const std::string& table, qint64 rows) {
    qint64& count = rows_[table];
    count = std::max<qint64>(0, count + rows);
}

}  // namespace engine::sqlite
