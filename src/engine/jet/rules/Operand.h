#pragma once

#include "engine/jet/TableLayout.h"
#include "engine/jet/rules/Term.h"

#include <optional>
#include <vector>

namespace engine::jet {

/// A column that a rule looks at, or the number of characters of the text in it.
struct ColumnOperand {
    int column = 0;
    std::uint8_t type = 0;
    std::uint8_t scale = 0;  ///< Of a decimal.
    bool isLength = false;
};

/// What stands on either side of a comparison.
using Operand = std::variant<Term, ColumnOperand>;

/// What an operand is by nature. A yes or no is a number, -1 or 0.
enum class Nature { Null, Number, Date, Text, Other };
Nature NatureOf(const Operand& operand);

/// Whether two natures have an order among them. A date is a number of days as well; a null has the same
/// answer to everything.
bool AreComparable(Nature one, Nature other);

/// What the operand is for a row, one value for each column of the table. A value that isn't of the column's
/// type yet is taken as the column will store it; one that it can't store counts as null.
Value Evaluate(const Operand& operand, const std::vector<Value>& row);

/// Below, at or above 0; none if either is null or they have no order. Texts go without regard to case and
/// in the General order.
std::optional<int> Compare(const Value& left, const Value& right);

}  // namespace engine::jet
