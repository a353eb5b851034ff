#pragma once

#include "engine/Value.h"
#include "engine/dialect/Tokenizer.h"
#include "engine/execution/StoredForm.h"
#include "engine/execution/TableSchema.h"

#include <sqlite3.h>

#include <string_view>
#include <variant>
#include <vector>

namespace engine::execution {

/// Binds a value as a column stores it (see StoredForm.h).
void BindForColumn(sqlite3_stmt* statement, int place, const Column& column, const Value& value);

/// What a literal of a statement is to the column that it will be stored in (see StoredForm.h), or by itself
/// where that is null: it's compared only. A text that the column keeps as it is comes as `text`, which is
/// where it lies.
using LiteralForm = std::variant<Null, qint64, double, Utf8, QByteArray, std::string_view>;
LiteralForm FormOf(const Column* column, const dialect::Literal& literal, std::string_view text);

/// Binds a literal of a statement. `column` is the one that it will be stored in, or null if it is compared
/// only. `text` must live until the statement is reset.
void BindLiteral(sqlite3_stmt* statement, int place, const Column* column, const dialect::Literal& literal,
                 std::string_view text);

/// Binds literals to the places of one compiled statement, and leaves those alone that hold the same already:
/// rows that are inserted one after the other differ in few values, and their texts lie in the same room each
/// time. Nobody else may bind to that statement.
class LiteralBinder {
public:
    /// As BindLiteral. The column of a place is always the same.
    void Bind(sqlite3_stmt* statement, int place, const Column* column, const dialect::Literal& literal,
              std::string_view text);

private:
    struct Bound {
        dialect::LiteralKind kind = dialect::LiteralKind::Integer;
        qint64 integer = 0;
        double real = 0;
        std::string_view text;
        qsizetype characters = -1;  ///< Those of no literal, as long as nothing is bound.

        bool IsSame(const Bound& other) const;
    };
    std::vector<Bound> bound_;
};

/// The value that the current row of a statement holds at a place (from 0), in the nature of its column's
/// type. A stored value of another nature comes as what it is.
Value ReadValue(sqlite3_stmt* statement, int place, DataType type);

}  // namespace engine::execution
