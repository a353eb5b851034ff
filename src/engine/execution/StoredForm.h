#pragma once

#include "engine/Value.h"
#include "engine/execution/TableSchema.h"

#include <QByteArray>

#include <variant>

namespace engine::execution {

/// A text or the bytes of something else, as SQLite has them.
struct Utf8 {
    QByteArray bytes;
};

/// What SQLite has of a value.
using StoredForm = std::variant<Null, qint64, double, Utf8, QByteArray>;

/// A value as a column stores it: dates as ISO text, booleans as 0 and -1, currency to 4 decimal places, all
/// else by its nature. Fails with 3163 for a text longer than the column and 3421 for a value that the column
/// can't hold.
StoredForm ToStoredForm(const Column& column, const Value& value);

/// The day or the moment that ISO text stands for; not valid if it is none.
QDateTime DateIn(const QString& text);

/// Fails with 3163: the text has so many characters, and the column takes fewer.
[[noreturn]] void RaiseTooLong(const Column& column, qsizetype characters);

}  // namespace engine::execution
