#include "engine/jet/sql/SqlValue.h"

#include "engine/execution/StoredForm.h"
#include "platform/Utf8.h"

#include <cmath>

namespace engine::jet {

namespace {

DataType DataTypeOf(std::uint8_t type) {
    switch (type) {
        case ColumnType::Boolean:
        case ColumnType::Byte:
        case ColumnType::Short:
        case ColumnType::Long:
        case ColumnType::Currency:
        case ColumnType::Single:
        case ColumnType::Double:
        case ColumnType::DateTime:
        case ColumnType::Text:
        case ColumnType::Memo:
            return static_cast<DataType>(type);
        default:
            return dbLongBinary;
    }
}

QString TextIn(sqlite3_value* value) {
    const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(value));
    return platform::TextFromUtf8({text, sqlite3_value_bytes(value)});
}

Value BytesIn(sqlite3_value* value) {
    return QByteArray(static_cast<const char*>(sqlite3_value_blob(value)), sqlite3_value_bytes(value));
}

Value ByItsNature(sqlite3_value* value) {
    switch (sqlite3_value_type(value)) {
        case SQLITE_INTEGER:
            return static_cast<qint64>(sqlite3_value_int64(value));
        case SQLITE_FLOAT:
            return sqlite3_value_double(value);
        case SQLITE_TEXT:
            return TextIn(value);
        default:
            return BytesIn(value);
    }
}

Value NumberFrom(sqlite3_value* value) {
    sqlite3_value_numeric_type(value);
    return ByItsNature(value);
}

Value WholeNumberFrom(sqlite3_value* value) {
    const Value number = NumberFrom(value);
    const auto* real = std::get_if<double>(&number);
    return real == nullptr ? number : Value(std::nearbyint(*real));
}

Value DateFrom(sqlite3_value* value) {
    if (sqlite3_value_type(value) != SQLITE_TEXT) {
        return ByItsNature(value);
    }
    const QString text = TextIn(value);
    const QDateTime moment = execution::DateIn(text);
    return moment.isValid() ? Value(moment) : Value(text);
}

// Gives a context what SQLite has of a value.
struct Giver {
    sqlite3_context* context;

    void operator()(Null /*null*/) const { sqlite3_result_null(context); }
    void operator()(qint64 number) const { sqlite3_result_int64(context, number); }
    void operator()(double number) const { sqlite3_result_double(context, number); }
    void operator()(const execution::Utf8& text) const {
        sqlite3_result_text64(context, text.bytes.constData(), static_cast<sqlite3_uint64>(text.bytes.size()),
                              SQLITE_TRANSIENT, SQLITE_UTF8);
    }
    void operator()(const QByteArray& bytes) const {
        sqlite3_result_blob64(context, bytes.isNull() ? "" : bytes.constData(),
                              static_cast<sqlite3_uint64>(bytes.size()), SQLITE_TRANSIENT);
    }
};

}  // namespace

QString SqlTypeOf(const Column& column) {
    return execution::DeclaredType(DataTypeOf(column.type), column.size / 2);
}

execution::Column ToSqlColumn(const Column& column) {
    return execution::ToColumn(column.name.toStdString(), SqlTypeOf(column));
}

Value FromSql(const Column& column, sqlite3_value* value) {
    if (sqlite3_value_type(value) == SQLITE_NULL) {
        return Null();
    }
    switch (column.type) {
        case ColumnType::Boolean:
        case ColumnType::Currency:
        case ColumnType::Single:
        case ColumnType::Double:
            return NumberFrom(value);
        case ColumnType::Byte:
        case ColumnType::Short:
        case ColumnType::Long:
            return WholeNumberFrom(value);
        case ColumnType::DateTime:
            return DateFrom(value);
        case ColumnType::Text:
        case ColumnType::Memo:
            return TextIn(value);
        default:
            return BytesIn(value);
    }
}

void GiveToSql(sqlite3_context* context, const execution::Column& column, const Value& value) {
    std::visit(Giver{context}, execution::ToStoredForm(column, value));
}

}  // namespace engine::jet
