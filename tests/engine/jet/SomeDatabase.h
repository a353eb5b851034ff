#pragma once

#include "engine/Value.h"
#include "engine/jet/NewTable.h"

#include <QByteArray>

#include <vector>

namespace engine::jet {

/// The table of SomeDatabase: a column of each type, and indexes over most of them.
NewTable Things();

/// A row of Things with values of all lengths, some of them null. Numbers give different ones.
std::vector<Value> SomeThing(int number);

/// A database in which Things has rows that were inserted, some of which have moved or were deleted since,
/// and a second table, "few", has none.
QByteArray SomeDatabase(int rows);

}  // namespace engine::jet
