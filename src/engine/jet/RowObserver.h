#pragma once

#include "engine/jet/RowPlace.h"
#include "engine/jet/StoredRow.h"

namespace engine::jet {

/// Is told of each row that comes to a table, changes or leaves it: an index, say, which keeps an entry for
/// each. `key` is where the table keeps the row, as Table gives it.
///
/// May refuse by failing; what had been done for the row before then stays in the pages, until whoever began
/// the statement undoes it.
class RowObserver {
public:
    RowObserver() = default;
    RowObserver(const RowObserver&) = delete;
    RowObserver& operator=(const RowObserver&) = delete;
    virtual ~RowObserver() = default;

    /// Before the row is written, for what can be refused. Long values of it are in their pages already, so
    /// that it can be read like any other. `old` is null for a new row.
    virtual void MayCome(const StoredRow* old, const StoredRow& row) = 0;

    /// The row that MayCome was asked of last has come.
    virtual void Came(RowPlace key, const StoredRow& row) = 0;
    virtual void Changed(RowPlace key, const StoredRow& old, const StoredRow& row) = 0;
    /// The row is still there, with its long values.
    virtual void Goes(RowPlace key, const StoredRow& row) = 0;
    /// The table has no rows any more.
    virtual void AllWent() = 0;
};

}  // namespace engine::jet
