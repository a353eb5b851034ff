#pragma once

#include "engine/jet/Catalogue.h"
#include "engine/jet/rules/DefaultValue.h"
#include "engine/jet/rules/PropertyBlock.h"
#include "engine/jet/rules/ValidationRule.h"

namespace engine::jet {

/// What the properties of a table ask of its rows, as Hearthbook's own engine does: that columns have a value
/// or no empty text, and rules of columns and of the table; and what new rows hold where nobody says.
///
/// What isn't understood never lets a row pass unseen: it is refused in words that name table and column.
/// Automatic numbers and identifiers, and columns of yes or no, are neither required nor have a default.
class TableRules {
public:
    /// No failure of the properties is one of this: a table whose properties can't be read is read like any
    /// other, and refuses to be written. `layout` must outlive this.
    TableRules(const Catalogue& catalogue, const CatalogueTable& table, const TableLayout& layout);

    /// Gives columns of a new row that nobody gave a value their default. Fails with InvalidOperation where a
    /// default isn't understood.
    void FillDefaults(std::vector<Value>& values, const std::vector<bool>& isGiven) const;
    /// The defaults of this moment by the columns' places, empty if there are none, for a row that values are
    /// given to later. What isn't understood is left out: where the row is then saved without a value for it,
    /// FillDefaults refuses it.
    std::vector<std::optional<Value>> KnownDefaults() const;

    /// Column by column in their order, then the table: fails with NullNotAllowed, EmptyTextNotAllowed, and
    /// with RuleBroken, or RuleBrokenInWords where the file has words for it, which the message then is.
    void CheckNew(const std::vector<Value>& values) const;
    /// The same for a row as it is to be, of which some columns are assigned: these alone are looked at, and
    /// the rule of the table.
    void CheckChanged(const std::vector<Value>& values, const std::vector<bool>& isAssigned) const;
    /// Whether there is anything to check at all: a test of a flag, for rows whose values cost to be read.
    bool HasChecks() const { return hasChecks_; }
    bool HasDefaults() const { return hasDefaults_; }
    bool IsReadable() const { return unreadable_.isEmpty(); }
    /// For what has no values to check: fails if the properties can't be read.
    void RequireReadable() const;

    /// Fails with InvalidOperation if there is anything among the properties and rules that isn't understood.
    /// A default that isn't is no matter here: only an insert that needs it is refused.
    void RequireUnderstood() const;

private:
    struct ColumnRules {
        bool isRequired = false;
        bool refusesEmptyText = false;
        std::optional<DefaultValue> defaultValue;
        std::optional<ValidationRule> rule;
    };

    void Read(const std::optional<QByteArray>& block);
    ColumnRules ReadColumn(const PropertyBlock& properties, int column) const;
    const Column& ColumnAt(std::size_t column) const { return layout_.columns[column]; }
    QString NameOf(std::size_t column) const { return table_ + QLatin1Char('.') + ColumnAt(column).name; }

    void CheckColumn(std::size_t column, const std::vector<Value>& values) const;
    void CheckRule(const ValidationRule& rule, const QString& of, const std::vector<Value>& values,
                   const QString& found) const;
    void RequireUnderstood(const ValidationRule& rule, const QString& of) const;

    QString table_;
    const TableLayout& layout_;
    QString unreadable_;  ///< Why the properties can't be read, empty if they can.
    std::vector<ColumnRules> columns_;
    std::optional<ValidationRule> rule_;
    bool hasDefaults_ = false;
    bool hasChecks_ = false;
};

}  // namespace engine::jet
