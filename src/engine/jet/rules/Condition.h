#pragma once

#include "engine/jet/rules/LikePattern.h"
#include "engine/jet/rules/Operand.h"

namespace engine::jet {

/// Whether a condition holds. A null leaves most of them open.
enum class Truth { No, Open, Yes };

/// A condition of a rule, with those that it is made of.
struct Condition {
    enum class Kind {
        And,  ///< All of `parts`.
        Or,   ///< Any of `parts`.
        Not,  ///< The one of `parts`.
        Equal,
        Below,   ///< The first of `operands` below the second.
        IsNull,  ///< The one of `operands`.
        Like,    ///< The one of `operands`, like `pattern`.
    };
    Kind kind = Kind::And;
    std::vector<Condition> parts;
    std::vector<Operand> operands;
    std::optional<LikePattern> pattern;
};

Truth Evaluate(const Condition& condition, const std::vector<Value>& row);

}  // namespace engine::jet
