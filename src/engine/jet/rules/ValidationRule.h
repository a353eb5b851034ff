#pragma once

#include "engine/jet/rules/ReadCondition.h"

namespace engine::jet {

/// A rule of a column or a table, with the words for its refusal (empty: there are none). A row passes that
/// doesn't break it: also one of which a null leaves open whether it does.
class ValidationRule {
public:
    /// `ownColumn` as for ReadCondition.
    ValidationRule(QString rule, QString words, const TableLayout& layout, std::optional<int> ownColumn)
        : rule_(std::move(rule)),
          words_(std::move(words)),
          condition_(ReadCondition(rule_, layout, ownColumn)) {}

    const QString& Rule() const { return rule_; }
    const QString& Words() const { return words_; }
    bool IsUnderstood() const { return condition_.has_value(); }
    /// Whether a row, one value for each column, breaks it. Only of a rule that is understood.
    bool IsBroken(const std::vector<Value>& row) const { return Evaluate(*condition_, row) == Truth::No; }
    /// Whether the rule may look at a column of this name. Says yes too often rather than too rarely.
    bool MayName(const QString& column) const { return rule_.contains(column, Qt::CaseInsensitive); }

private:
    QString rule_;
    QString words_;
    std::optional<Condition> condition_;
};

}  // namespace engine::jet
