#include "engine/execution/ValueBinding.h"

#include "engine/Error.h"
#include "platform/Utf8.h"

#include <bit>
#include <limits>

namespace engine::execution {

namespace {

// Binds what SQLite has of a value. A text that is only pointed at stays where it is until the statement is
// reset.
struct Binder {
    sqlite3_stmt* statement;
    int place;

    void operator()(Null /*null*/) const { sqlite3_bind_null(statement, place); }
    void operator()(qint64 number) const { sqlite3_bind_int64(statement, place, number); }
    void operator()(double number) const { sqlite3_bind_double(statement, place, number); }
    void operator()(const Utf8& text) const {
        sqlite3_bind_text64(statement, place, text.bytes.constData(),
                            static_cast<sqlite3_uint64>(text.bytes.size()), SQLITE_TRANSIENT, SQLITE_UTF8);
    }
    void operator()(std::string_view text) const {
        sqlite3_bind_text64(statement, place, text.data(), text.size(), SQLITE_STATIC, SQLITE_UTF8);
    }
    void operator()(const QByteArray& bytes) const {
        sqlite3_bind_blob64(statement, place, bytes.isNull() ? "" : bytes.constData(),
                            static_cast<sqlite3_uint64>(bytes.size()), SQLITE_TRANSIENT);
    }
};

Value LiteralValue(const dialect::Literal& literal, std::string_view text) {
    const auto asText = [text] {
        return platform::TextFromUtf8({text.data(), static_cast<qsizetype>(text.size())});
    };
    switch (literal.kind) {
        case dialect::LiteralKind::Text:
            return asText();
        case dialect::LiteralKind::Date:
            return FromDate(QDate::fromString(asText(), Qt::ISODate));
        case dialect::LiteralKind::Integer:
            return literal.integer;
        case dialect::LiteralKind::Real:
            break;
    }
    return literal.real;
}

bool IsNumeric(const dialect::Literal& literal) {
    return literal.kind == dialect::LiteralKind::Integer || literal.kind == dialect::LiteralKind::Real;
}

// A million statements pass here: the usual matches of literal and column go without an intermediate value.
bool SuitsAsItIs(const Column& column, const dialect::Literal& literal) {
    switch (column.type) {
        case dbText:
            return literal.kind == dialect::LiteralKind::Text;
        case dbDate:
            return literal.kind == dialect::LiteralKind::Date;
        case dbDouble:
            return IsNumeric(literal);
        case dbCurrency:
            return literal.kind == dialect::LiteralKind::Integer &&
                   std::abs(literal.integer) <= std::numeric_limits<qint64>::max() / Currency::Scale;
        default:
            return false;
    }
}

Value ReadNumber(sqlite3_stmt* statement, int place, DataType type) {
    switch (type) {
        case dbBoolean:
            return sqlite3_column_double(statement, place) != 0;
        case dbCurrency:
            return Currency::FromKept(sqlite3_column_double(statement, place));
        case dbSingle:
        case dbDouble:
            return sqlite3_column_double(statement, place);
        default:
            break;
    }
    if (sqlite3_column_type(statement, place) == SQLITE_INTEGER) {
        return static_cast<qint64>(sqlite3_column_int64(statement, place));
    }
    return sqlite3_column_double(statement, place);
}

Value ReadText(sqlite3_stmt* statement, int place, DataType type) {
    const QString text =
        platform::TextFromUtf8({reinterpret_cast<const char*>(sqlite3_column_text(statement, place)),
                                sqlite3_column_bytes(statement, place)});
    if (type == dbDate) {
        const QDateTime moment = DateIn(text);
        if (moment.isValid()) {
            return moment;
        }
    }
    return text;
}

}  // namespace

void BindForColumn(sqlite3_stmt* statement, int place, const Column& column, const Value& value) {
    std::visit(Binder{statement, place}, ToStoredForm(column, value));
}

LiteralForm FormOf(const Column* column, const dialect::Literal& literal, std::string_view text) {
    if (column != nullptr && !SuitsAsItIs(*column, literal)) {
        return std::visit([](auto&& form) -> LiteralForm { return std::forward<decltype(form)>(form); },
                          ToStoredForm(*column, LiteralValue(literal, text)));
    }
    switch (literal.kind) {
        case dialect::LiteralKind::Text:
            if (column != nullptr && column->size > 0 && literal.characters > column->size) {
                RaiseTooLong(*column, literal.characters);
            }
            return text;
        case dialect::LiteralKind::Date:
            return text;
        case dialect::LiteralKind::Integer:
            return literal.integer;
        case dialect::LiteralKind::Real:
            break;
    }
    return literal.real;
}

void BindLiteral(sqlite3_stmt* statement, int place, const Column* column, const dialect::Literal& literal,
                 std::string_view text) {
    std::visit(Binder{statement, place}, FormOf(column, literal, text));
}

// Texts by where they lie: SQLite reads them there when the statement runs.
bool LiteralBinder::Bound::IsSame(const Bound& other) const {
    return kind == other.kind && integer == other.integer &&
           std::bit_cast<quint64>(real) == std::bit_cast<quint64>(other.real) &&
           text.data() == other.text.data() && text.size() == other.text.size() &&
           characters == other.characters;
}

void LiteralBinder::Bind(sqlite3_stmt* statement, int place, const Column* column,
                         const dialect::Literal& literal, std::string_view text) {
    const auto index = static_cast<size_t>(place);
    if (index >= bound_.size()) {
        bound_.resize(index + 1);
    }
    Bound& bound = bound_[index];
    const Bound wanted = IsNumeric(literal) ? Bound{literal.kind, literal.integer, literal.real, {}, 0}
                                            : Bound{literal.kind, 0, 0, text, literal.characters};
    // A text that the column turns into something else is read when it is bound.
    if (bound.IsSame(wanted) && (column == nullptr || SuitsAsItIs(*column, literal))) {
        return;
    }
    BindLiteral(statement, place, column, literal, text);
    bound = wanted;
}

Value ReadValue(sqlite3_stmt* statement, int place, DataType type) {
    switch (sqlite3_column_type(statement, place)) {
        case SQLITE_NULL:
            return Null();
        case SQLITE_TEXT:
            return ReadText(statement, place, type);
        case SQLITE_BLOB:
            if (type == dbMemo || type == dbText) {
                return ReadText(statement, place, type);
            }
            return QByteArray(static_cast<const char*>(sqlite3_column_blob(statement, place)),
                              sqlite3_column_bytes(statement, place));
        default:
            return ReadNumber(statement, place, type);
    }
}

}  // namespace engine::execution
