#pragma once

#include "engine/jet/rules/Condition.h"

namespace engine::jet {

/// Reads a rule: comparisons, Between, In, Like, Is Null, each with Not, joined by And, Or, Not and
/// parentheses, over columns, Len of them, and the terms of Term.h. In the rule of a column (`ownColumn`),
/// which sees no other, a comparison without a left side means this column.
///
/// None for anything else: a function, arithmetic, a name that is no column, a text compared with a number,
/// and more levels of parentheses than anybody writes.
std::optional<Condition> ReadCondition(const QString& rule, const TableLayout& layout,
                                       std::optional<int> ownColumn);

}  // namespace engine::jet
