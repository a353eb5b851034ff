#include "engine/execution/StoredForm.h"

#include "engine/Error.h"
#include "platform/Utf8.h"

#include <cmath>
#include <limits>

namespace engine::execution {

namespace {

double NumberFor(const Column& column, const Value& value) {
    try {
        const double number = ToDouble(value);
        if (std::isfinite(number)) {
            return number;
        }
    } catch (const platform::Failure&) {
        RaiseWrongType(column.name);
    }
    RaiseWrongType(column.name);
}

StoredForm Text(const QString& text) {
    return Utf8{platform::Utf8FromText(text)};
}

// A memo has no length and no type of SQLite's behind it, so SQLite would take a text that looks like a
// number for one: "007" would come back as 7. As bytes it stays what it is.
StoredForm Memo(const QString& text) {
    bool looksLikeNumber = false;
    static_cast<void>(text.trimmed().toDouble(&looksLikeNumber));
    return looksLikeNumber ? StoredForm(platform::Utf8FromText(text)) : Text(text);
}

StoredForm Whole(const Column& column, const Value& value, double lowest, double highest) {
    const double number = std::nearbyint(NumberFor(column, value));
    if (number < lowest || number > highest) {
        RaiseWrongType(column.name);
    }
    return static_cast<qint64>(number);
}

// A number that is too large would be kept as one that nobody can read.
StoredForm Single(const Column& column, double number) {
    if (std::abs(number) > std::numeric_limits<float>::max()) {
        RaiseWrongType(column.name);
    }
    return static_cast<double>(static_cast<float>(number));
}

StoredForm Amount(Currency amount) {
    if (amount.Scaled() % Currency::Scale == 0) {
        return amount.Scaled() / Currency::Scale;
    }
    return amount.ToDouble();
}

StoredForm Money(const Column& column, const Value& value) {
    if (const auto* exact = std::get_if<Currency>(&value)) {
        return Amount(*exact);
    }
    const double number = NumberFor(column, value);
    try {
        return Amount(Currency::FromKept(number));
    } catch (const platform::Failure&) {
        RaiseWrongType(column.name);
    }
}

StoredForm Date(const Column& column, const Value& value) {
    Value date = value;
    if (const auto* text = std::get_if<QString>(&value)) {
        date = DateIn(*text);
    }
    const auto* moment = std::get_if<QDateTime>(&date);
    // A date is stored with a year of four digits.
    if (moment == nullptr || !moment->isValid() || moment->date().year() < 1 ||
        moment->date().year() > 9999) {
        RaiseWrongType(column.name);
    }
    return Text(ToText(*moment));
}

QString TextFor(const Column& column, const Value& value) {
    try {
        return ToText(value);
    } catch (const platform::Failure&) {
        RaiseWrongType(column.name);
    }
}

}  // namespace

// A day is the same in every place. Taken for local time it would begin at one o'clock where the clock is put
// forward at midnight.
QDateTime DateIn(const QString& text) {
    constexpr qsizetype LengthOfDay = 10;
    const QLatin1String rest(text.size() > LengthOfDay ? "Z" : "T00:00Z");
    return QDateTime::fromString(text + rest, Qt::ISODate);
}

void RaiseTooLong(const Column& column, qsizetype characters) {
    throw Error(
        ErrorNumber::FieldTooSmall,
        QStringLiteral("The field '%1' is too small to accept the amount of data: %2 characters, of which "
                       "it takes %3.")
            .arg(column.name)
            .arg(characters)
            .arg(column.size));
}

StoredForm ToStoredForm(const Column& column, const Value& value) {
    if (IsNull(value)) {
        return Null();
    }
    switch (column.type) {
        case dbBoolean:
            return qint64{NumberFor(column, value) != 0 ? -1 : 0};
        case dbByte:
            return Whole(column, value, 0, 255);
        case dbInteger:
            return Whole(column, value, -32768, 32767);
        case dbLong:
            return Whole(column, value, -2147483648.0, 2147483647.0);
        case dbCurrency:
            return Money(column, value);
        case dbSingle:
            return Single(column, NumberFor(column, value));
        case dbDouble:
            return NumberFor(column, value);
        case dbDate:
            return Date(column, value);
        case dbText: {
            const QString text = TextFor(column, value);
            if (column.size > 0 && text.size() > column.size) {
                RaiseTooLong(column, text.size());
            }
            return Text(text);
        }
        case dbMemo:
            return Memo(TextFor(column, value));
        case dbLongBinary:
            if (const auto* bytes = std::get_if<QByteArray>(&value)) {
                return *bytes;
            }
            break;
    }
    RaiseWrongType(column.name);
}

}  // namespace engine::execution
