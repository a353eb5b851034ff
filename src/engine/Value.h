#pragma once

#include "engine/Currency.h"

#include <QDateTime>
#include <QString>

#include <variant>

namespace engine {

/// Null.
using Null = std::monostate;

/// What a column can hold. Dates carry no time where none was stored.
using Value = std::variant<Null, bool, qint64, double, Currency, QDateTime, QString, QByteArray>;

/// Type codes of columns.
enum DataType : short {
    dbBoolean = 1,
    dbByte = 2,
    dbInteger = 3,
    dbLong = 4,
    dbCurrency = 5,
    dbSingle = 6,
    dbDouble = 7,
    dbDate = 8,
    dbText = 10,
    dbLongBinary = 11,
    dbMemo = 12,
};

inline bool IsNull(const Value& value) {
    return std::holds_alternative<Null>(value);
}

Value FromDate(QDate date);

/// The value as a number, a date or a text. A null gives platform failure 94, a value of another nature
/// (the text "abc" as a number) failure 13.
double ToDouble(const Value& value);
bool ToBoolean(const Value& value);
QDate ToDate(const Value& value);
QString ToText(const Value& value);

}  // namespace engine
