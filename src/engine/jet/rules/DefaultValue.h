#pragma once

#include "engine/jet/TableLayout.h"
#include "engine/jet/rules/Term.h"

namespace engine::jet {

/// What a column holds in a new row that leaves it out.
///
/// Understands numbers, texts in quotes, Yes and No with the other words for them, #month/day/year#, Null,
/// Date, Now and Time (with or without parentheses), and a bare word for a text; one "=" may stand in front.
/// Anything else, and what the column's type has no place for, isn't understood. Nobody may guess then: a
/// row that got another value than Hearthbook gives it would be wrong without a word.
class DefaultValue {
public:
    DefaultValue(const QString& expression, const Column& column);

    bool IsUnderstood() const { return term_.has_value(); }
    const QString& Expression() const { return expression_; }
    /// At this moment, in the nature of the column (see ValueOf). Only of one that is understood.
    Value Evaluate() const { return ValueNow(*term_); }

private:
    QString expression_;
    std::optional<Term> term_;
};

}  // namespace engine::jet
