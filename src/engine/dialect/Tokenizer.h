#pragma once

#include "engine/dialect/CharacterRoom.h"

#include <QString>

#include <string>
#include <string_view>
#include <vector>

namespace engine::dialect {

enum class LiteralKind { Text, Date, Integer, Real };

/// One literal of a statement. Texts, and dates as ISO text, lie as UTF-8 in the statement's `texts`.
struct Literal {
    LiteralKind kind = LiteralKind::Integer;
    qint64 integer = 0;
    double real = 0;
    size_t offset = 0;         ///< Where the text begins in `texts`, in bytes.
    size_t length = 0;         ///< In bytes.
    qsizetype characters = 0;  ///< In UTF-16 units, as the lengths of columns count.
    qsizetype begin = 0;       ///< Where it stands in the text of the statement, with its quotes.
    qsizetype end = 0;
};

/// A statement whose literals have been lifted out: statements that differ in nothing else share a shape, and
/// so one prepared statement.
struct ShapedStatement {
    CharacterRoom shape;  ///< Names and symbols with "?" in the places of literals, white space made even.
    std::vector<Literal> literals;
    CharacterRoom texts;

    std::string_view Shape() const { return shape.View(); }
    std::string_view Text(const Literal& literal) const {
        return texts.View().substr(literal.offset, literal.length);
    }
};

/// Splits the text of one statement into its shape and its literals. It alone decides where a text begins and
/// ends, so no content of a text ever acts as anything but text.
///
/// Literals: '…' and "…" with the quote doubled inside, #month/day/year# (also with "-" or "." between),
/// whole and decimal numbers with an optional minus sign. Names: letters, digits and "_", or anything in
/// brackets.
///
/// `statement` is written over, so that a caller may use one for all its statements.
/// Fails with engine error 3075 on a text, name or date that doesn't end or isn't one, and with 3142 if
/// anything follows the ";" that ends the statement.
void Tokenize(const QString& text, ShapedStatement& statement);

/// Does what Tokenize does for one statement after the other. One that differs from the one before in nothing
/// but its literals is not taken apart again: what stands between them is compared, and they alone are read.
/// Of those, the ones are not read again that stand in what both statements begin with or end with.
class RepeatTokenizer {
public:
    void Tokenize(const QString& text, ShapedStatement& statement);

private:
    bool TakeAsBefore(const QString& text, ShapedStatement& statement) const;
    void Copy(size_t firstLiteral, size_t endLiteral, qsizetype shift, ShapedStatement& statement) const;
    void Remember(const QString& text, const ShapedStatement& statement);

    // The statement before; at first the one without any text.
    std::u16string text_;
    std::vector<Literal> literals_;
    std::string texts_;
    std::string shape_;
};

}  // namespace engine::dialect
