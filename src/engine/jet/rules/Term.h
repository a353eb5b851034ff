#pragma once

#include "engine/Value.h"

#include <QString>

#include <optional>
#include <variant>
#include <vector>

namespace engine::jet {

/// A word of an expression of the file: of a default value or of a rule.
struct Word {
    enum class Kind { Name, BracketedName, Symbol, Literal };
    Kind kind = Kind::Symbol;
    QString text;  ///< A name without its brackets, or a symbol.
    Value literal;

    bool IsSymbol(const char* symbol) const { return kind == Kind::Symbol && text == QLatin1String(symbol); }
    /// Without regard to case. A name in brackets is never a keyword.
    bool IsKeyword(const char* keyword) const {
        return kind == Kind::Name && text.compare(QLatin1String(keyword), Qt::CaseInsensitive) == 0;
    }
};

/// The words of an expression, none if it has anything that is no word: names, bare or in brackets; numbers
/// without a sign; texts in either quotes, with the quote doubled inside; #month/day/year#; symbols. Neither
/// is there anything in one that is longer than what a rule can have.
std::optional<std::vector<Word>> WordsOf(const QString& expression);

/// What the clock says whenever it is asked.
enum class Moment { Today, Now, TimeOfDay };
Value ValueNow(Moment moment);

/// A value that stands in an expression, or what has to be asked for at each row.
using Term = std::variant<Value, Moment>;
Value ValueNow(const Term& term);

/// Whether Date, Now and Time need their parentheses.
enum class Parentheses { Needed, MayBeLeftOut };

/// Takes the term that begins at a place, and leads the place behind it: a literal, a number with a minus
/// sign, Yes and No with the other words for them, Null, Date(), Now(), Time(). None if something else
/// begins there.
std::optional<Term> TakeTerm(const std::vector<Word>& words, std::size_t& place, Parentheses parentheses);

}  // namespace engine::jet
