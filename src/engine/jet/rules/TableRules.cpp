#include "engine/jet/rules/TableRules.h"

#include "engine/Error.h"
#include "engine/jet/rules/Describe.h"

#include <algorithm>

namespace engine::jet {

namespace {

const QString Required = QStringLiteral("Required");
const QString AllowZeroLength = QStringLiteral("AllowZeroLength");
const QString Default = QStringLiteral("DefaultValue");
const QString Rule = QStringLiteral("ValidationRule");
const QString RuleWords = QStringLiteral("ValidationText");

// What the engine fills by itself, and what is never null.
bool IsAutomatic(const Column& column) {
    return column.countsUp || column.makesGuids || column.type == ColumnType::Boolean;
}

[[noreturn]] void Refuse(const QString& what) {
    throw Error(ErrorNumber::InvalidOperation, QStringLiteral("Invalid operation: ") + what);
}

[[noreturn]] void RefuseDefault(const QString& column, const DefaultValue& value) {
    Refuse(QStringLiteral("the default value of '%1' isn't understood, so it needs a value: %2.")
               .arg(column, value.Expression()));
}

std::optional<ValidationRule> ReadRule(const std::optional<QString>& rule,
                                       const std::optional<QString>& words, const TableLayout& layout,
                                       std::optional<int> ownColumn) {
    if (!rule || rule->trimmed().isEmpty()) {
        return std::nullopt;
    }
    return ValidationRule(*rule, words.value_or(QString()), layout, ownColumn);
}

}  // namespace

// A failure is kept for those who want to write: the table can be read without its properties.
TableRules::TableRules(const Catalogue& catalogue, const CatalogueTable& table, const TableLayout& layout)
    : table_(table.name), layout_(layout), columns_(layout.columns.size()) {
    try {
        Read(catalogue.Properties(table));
    } catch (const Error& error) {
        unreadable_ = error.Description();
        hasChecks_ = hasDefaults_ = true;
    }
}

void TableRules::Read(const std::optional<QByteArray>& block) {
    if (!block || block->isEmpty()) {
        return;
    }
    const PropertyBlock properties(*block);
    for (std::size_t column = 0; column < columns_.size(); ++column) {
        columns_[column] = ReadColumn(properties, static_cast<int>(column));
    }
    rule_ = ReadRule(properties.TextOfTable(Rule), properties.TextOfTable(RuleWords), layout_, std::nullopt);
    hasDefaults_ = std::any_of(columns_.begin(), columns_.end(),
                               [](const ColumnRules& rules) { return rules.defaultValue.has_value(); });
    hasChecks_ = rule_ || std::any_of(columns_.begin(), columns_.end(), [](const ColumnRules& rules) {
                     return rules.isRequired || rules.refusesEmptyText || rules.rule;
                 });
}

TableRules::ColumnRules TableRules::ReadColumn(const PropertyBlock& properties, int column) const {
    const Column& known = ColumnAt(static_cast<std::size_t>(column));
    ColumnRules rules;
    rules.rule = ReadRule(properties.TextOfColumn(known.name, Rule),
                          properties.TextOfColumn(known.name, RuleWords), layout_, column);
    if (IsAutomatic(known)) {
        return rules;
    }
    rules.isRequired = properties.YesNoOfColumn(known.name, Required).value_or(false);
    rules.refusesEmptyText =
        IsTextType(known.type) && !properties.YesNoOfColumn(known.name, AllowZeroLength).value_or(true);
    const auto expression = properties.TextOfColumn(known.name, Default);
    if (expression && !expression->trimmed().isEmpty()) {
        rules.defaultValue.emplace(*expression, known);
    }
    return rules;
}

void TableRules::RequireReadable() const {
    if (!IsReadable()) {
        Refuse(QStringLiteral("the table '%1' can't be written. %2").arg(table_, unreadable_));
    }
}

void TableRules::FillDefaults(std::vector<Value>& values, const std::vector<bool>& isGiven) const {
    if (!hasDefaults_) {
        return;
    }
    RequireReadable();
    for (std::size_t column = 0; column < columns_.size(); ++column) {
        const auto& value = columns_[column].defaultValue;
        if (isGiven[column] || !value) {
            continue;
        }
        if (!value->IsUnderstood()) {
            RefuseDefault(NameOf(column), *value);
        }
        values[column] = value->Evaluate();
    }
}

std::vector<std::optional<Value>> TableRules::KnownDefaults() const {
    if (!hasDefaults_) {
        return {};
    }
    std::vector<std::optional<Value>> defaults(columns_.size());
    for (std::size_t column = 0; column < columns_.size(); ++column) {
        const auto& value = columns_[column].defaultValue;
        if (value && value->IsUnderstood()) {
            defaults[column] = value->Evaluate();
        }
    }
    return defaults;
}

void TableRules::CheckNew(const std::vector<Value>& values) const {
    if (!hasChecks_) {
        return;
    }
    RequireReadable();
    for (std::size_t column = 0; column < columns_.size(); ++column) {
        CheckColumn(column, values);
    }
    if (rule_) {
        RequireUnderstood(*rule_, table_);
        CheckRule(*rule_, table_, values, QString());
    }
}

void TableRules::CheckChanged(const std::vector<Value>& values, const std::vector<bool>& isAssigned) const {
    if (!hasChecks_) {
        return;
    }
    RequireReadable();
    for (std::size_t column = 0; column < columns_.size(); ++column) {
        if (!isAssigned[column]) {
            continue;
        }
        CheckColumn(column, values);
        if (rule_ && rule_->MayName(ColumnAt(column).name)) {
            RequireUnderstood(*rule_, table_);
        }
    }
    if (rule_ && rule_->IsUnderstood()) {
        CheckRule(*rule_, table_, values, QString());
    }
}

void TableRules::CheckColumn(std::size_t column, const std::vector<Value>& values) const {
    const ColumnRules& rules = columns_[column];
    const Value& value = values[column];
    if (rules.isRequired && IsNull(value)) {
        throw Error(ErrorNumber::NullNotAllowed,
                    QStringLiteral("The field '%1' needs a value, and has Null.").arg(NameOf(column)));
    }
    const auto* text = std::get_if<QString>(&value);
    if (rules.refusesEmptyText && text != nullptr && text->isEmpty()) {
        throw Error(ErrorNumber::EmptyTextNotAllowed,
                    QStringLiteral("The field '%1' can't hold an empty text.").arg(NameOf(column)));
    }
    if (rules.rule) {
        RequireUnderstood(*rules.rule, NameOf(column));
        CheckRule(*rules.rule, NameOf(column), values, Describe(value));
    }
}

void TableRules::CheckRule(const ValidationRule& rule, const QString& of, const std::vector<Value>& values,
                           const QString& found) const {
    if (!rule.IsBroken(values)) {
        return;
    }
    if (!rule.Words().isEmpty()) {
        throw Error(ErrorNumber::RuleBrokenInWords, rule.Words());
    }
    const QString what = found.isEmpty() ? QStringLiteral("The record is") : found + QStringLiteral(" is");
    throw Error(
        ErrorNumber::RuleBroken,
        QStringLiteral("%1 prohibited by the validation rule of '%2': %3.").arg(what, of, rule.Rule()));
}

void TableRules::RequireUnderstood(const ValidationRule& rule, const QString& of) const {
    if (!rule.IsUnderstood()) {
        Refuse(QStringLiteral(
                   "the table '%1' can't be written, the validation rule of '%2' isn't understood: %3.")
                   .arg(table_, of, rule.Rule()));
    }
}

void TableRules::RequireUnderstood() const {
    RequireReadable();
    for (std::size_t column = 0; column < columns_.size(); ++column) {
        if (columns_[column].rule) {
            RequireUnderstood(*columns_[column].rule, NameOf(column));
        }
    }
    if (rule_) {
        RequireUnderstood(*rule_, table_);
    }
}

}  // namespace engine::jet
