#include "engine/execution/ValueBinding.h"

#include "engine/Error.h"
#include "platform/Utf8.h"

#include <cmath>
#include <cstring>
#include <limits>

namespace engine::execution {

namespace {

// Beyond this a double tells no four decimal places apart, so that it is already as near as it can be.
constexpr double LastWithFourDecimals = 9e11;

[[noreturn]] void RaiseWrongType(const Column& column) {
    throw Error(
        ErrorNumber::WrongType,
        QStringLiteral("Data type conversion error: the field '%1' can't hold this value.").arg(column.name));
}

[[noreturn]] void RaiseTooLong(const Column& column, qsizetype characters) {
    throw Error(
        ErrorNumber::FieldTooSmall,
        QStringLiteral("The field '%1' is too small to accept the amount of data: %2 characters, of which "
                       "it takes %3.")
            .arg(column.name)
            .arg(characters)
            .arg(column.size));
}

void BindText(sqlite3_stmt* statement, int place, const QString& text) {
    const QByteArray utf8 = platform::Utf8FromText(text);
    sqlite3_bind_text64(statement, place, utf8.constData(), static_cast<sqlite3_uint64>(utf8.size()),
                        SQLITE_TRANSIENT, SQLITE_UTF8);
}

void BindBytes(sqlite3_stmt* statement, int place, const QByteArray& bytes) {
    sqlite3_bind_blob64(statement, place, bytes.isNull() ? "" : bytes.constData(),
                        static_cast<sqlite3_uint64>(bytes.size()), SQLITE_TRANSIENT);
}

// A memo has no length and no type of SQLite's behind it, so SQLite would take a text that looks like a
// number for one: "007" would come back as 7. As bytes it stays what it is.
void BindMemo(sqlite3_stmt* statement, int place, const QString& text) {
    bool looksLikeNumber = false;
    static_cast<void>(text.trimmed().toDouble(&looksLikeNumber));
    if (looksLikeNumber) {
        BindBytes(statement, place, platform::Utf8FromText(text));
    } else {
        BindText(statement, place, text);
    }
}

double NumberFor(const Column& column, const Value& value) {
    try {
        const double number = ToDouble(value);
        if (std::isfinite(number)) {
            return number;
        }
    } catch (const platform::Failure&) {
        RaiseWrongType(column);
    }
    RaiseWrongType(column);
}

void BindWhole(sqlite3_stmt* statement, int place, const Column& column, const Value& value, double lowest,
               double highest) {
    const double number = std::nearbyint(NumberFor(column, value));
    if (number < lowest || number > highest) {
        RaiseWrongType(column);
    }
    sqlite3_bind_int64(statement, place, static_cast<qint64>(number));
}

void BindAmount(sqlite3_stmt* statement, int place, Currency amount) {
    if (amount.Scaled() % Currency::Scale == 0) {
        sqlite3_bind_int64(statement, place, amount.Scaled() / Currency::Scale);
    } else {
        sqlite3_bind_double(statement, place, amount.ToDouble());
    }
}

void BindCurrency(sqlite3_stmt* statement, int place, const Column& column, const Value& value) {
    if (const auto* exact = std::get_if<Currency>(&value)) {
        BindAmount(statement, place, *exact);
        return;
    }
    const double number = NumberFor(column, value);
    try {
        const Currency amount = Currency::FromDouble(number);
        if (std::abs(number) < LastWithFourDecimals) {
            BindAmount(statement, place, amount);
        } else {
            sqlite3_bind_double(statement, place, number);
        }
    } catch (const platform::Failure&) {
        RaiseWrongType(column);
    }
}

// A day is the same in every place. Taken for local time it would begin at one o'clock where the clock is put
// forward at midnight.
QDateTime DateIn(const QString& text) {
    constexpr qsizetype LengthOfDay = 10;
    const QLatin1String rest(text.size() > LengthOfDay ? "Z" : "T00:00Z");
    return QDateTime::fromString(text + rest, Qt::ISODate);
}

void BindDate(sqlite3_stmt* statement, int place, const Column& column, const Value& value) {
    Value date = value;
    if (const auto* text = std::get_if<QString>(&value)) {
        date = DateIn(*text);
    }
    const auto* moment = std::get_if<QDateTime>(&date);
    // A date is stored with a year of four digits.
    if (moment == nullptr || !moment->isValid() || moment->date().year() < 1 ||
        moment->date().year() > 9999) {
        RaiseWrongType(column);
    }
    BindText(statement, place, ToText(*moment));
}

QString TextFor(const Column& column, const Value& value) {
    try {
        return ToText(value);
    } catch (const platform::Failure&) {
        RaiseWrongType(column);
    }
}

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
            return Currency::FromDouble(sqlite3_column_double(statement, place));
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
    if (IsNull(value)) {
        sqlite3_bind_null(statement, place);
        return;
    }
    switch (column.type) {
        case dbBoolean:
            sqlite3_bind_int(statement, place, NumberFor(column, value) != 0 ? -1 : 0);
            return;
        case dbByte:
            BindWhole(statement, place, column, value, 0, 255);
            return;
        case dbInteger:
            BindWhole(statement, place, column, value, -32768, 32767);
            return;
        case dbLong:
            BindWhole(statement, place, column, value, -2147483648.0, 2147483647.0);
            return;
        case dbCurrency:
            BindCurrency(statement, place, column, value);
            return;
        case dbSingle:
            sqlite3_bind_double(statement, place,
                                static_cast<double>(static_cast<float>(NumberFor(column, value))));
            return;
        case dbDouble:
            sqlite3_bind_double(statement, place, NumberFor(column, value));
            return;
        case dbDate:
            BindDate(statement, place, column, value);
            return;
        case dbText: {
            const QString text = TextFor(column, value);
            if (column.size > 0 && text.size() > column.size) {
                RaiseTooLong(column, text.size());
            }
            BindText(statement, place, text);
            return;
        }
        case dbMemo:
            BindMemo(statement, place, TextFor(column, value));
            return;
        case dbLongBinary:
            if (const auto* bytes = std::get_if<QByteArray>(&value)) {
                BindBytes(statement, place, *bytes);
                return;
            }
            break;
    }
    RaiseWrongType(column);
}

void BindLiteral(sqlite3_stmt* statement, int place, const Column* column, const dialect::Literal& literal,
                 std::string_view text) {
    if (column != nullptr && !SuitsAsItIs(*column, literal)) {
        BindForColumn(statement, place, *column, LiteralValue(literal, text));
        return;
    }
    switch (literal.kind) {
        case dialect::LiteralKind::Text:
            if (column != nullptr && column->size > 0 && literal.characters > column->size) {
                RaiseTooLong(*column, literal.characters);
            }
            [[fallthrough]];
        case dialect::LiteralKind::Date:
            sqlite3_bind_text64(statement, place, text.data(), text.size(), SQLITE_STATIC, SQLITE_UTF8);
            return;
        case dialect::LiteralKind::Integer:
            sqlite3_bind_int64(statement, place, literal.integer);
            return;
        case dialect::LiteralKind::Real:
            sqlite3_bind_double(statement, place, literal.real);
            return;
    }
}

// Texts by where they lie: SQLite reads them there when the statement runs.
bool LiteralBinder::Bound::IsSame(const Bound& other) const {
    return kind == other.kind && integer == other.integer &&
           std::memcmp(&real, &other.real, sizeof real) == 0 && text.data() == other.text.data() &&
           text.size() == other.text.size() && characters == other.characters;
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
