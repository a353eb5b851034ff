#pragma once

#include "engine/jet/Disk.h"
#include "engine/jet/NewTable.h"
#include "engine/jet/RowObserver.h"

#include <QDateTime>

#include <functional>
#include <memory>
#include <vector>

namespace engine::jet {

/// Gives what keeps the indexes of a table while rows are added to it; nothing for a table whose indexes
/// nobody keeps. `layout` lives as long as it does.
using IndexKeepers =
    std::function<std::vector<std::unique_ptr<RowObserver>>(PageStore& pages, const TableLayout& layout)>;

/// Makes a new database: these tables without rows, and the system tables that every genuine file has, with
/// the rows that tell of the tables and of everybody's rights on them. Names of tables and columns must be
/// such as the original engine takes; that isn't looked at. Fails as MakeTable does, with 3043 if the name is
/// taken or the disk fails, and with 3183 if it is full; what is there of the file then means nothing.
void MakeDatabase(Disk& disk, const QString& path, const std::vector<NewTable>& tables,
                  const QDateTime& created, const IndexKeepers& indexKeepers);

}  // namespace engine::jet
