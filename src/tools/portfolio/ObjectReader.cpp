#include "tools/portfolio/ObjectReader.h"

#include "tools/json/DecimalsOf.h"
#include "tools/portfolio/Day.h"

#include <cmath>

namespace tools {

namespace {

constexpr qint16 HighestInteger = std::numeric_limits<qint16>::max();

/// Those of engine::Currency.
constexpr int MostDecimals = 4;

}  // namespace

const JsonValue* ObjectReader::Value(const char* name) {
    const QString member = QLatin1String(name);
    known_.insert(member);
    return object_.Member(member);
}

void ObjectReader::Refuse(const char* name, const QString& rule) {
    const JsonValue* value = Value(name);
    refused_.insert(QLatin1String(name));
    faults_.push_back({PointerTo(name), rule, value ? value->Shown() : QStringLiteral("nothing")});
}

std::nullopt_t ObjectReader::WrongType(const char* name, const QString& rule) {
    Refuse(name, rule);
    return std::nullopt;
}

std::optional<QString> ObjectReader::Text(const char* name, int limit) {
    const JsonValue* value = Value(name);
    if (!value) {
        return QString();
    }
    if (value->kind != JsonKind::Text) {
        return WrongType(name, QStringLiteral("Must be a text"));
    }
    if (value->text.size() > limit) {
        Refuse(name, QStringLiteral("At most %1 characters are allowed").arg(limit));
    }
    return value->text;
}

std::optional<double> ObjectReader::Amount(const char* name) {
    const JsonValue* value = Value(name);
    if (!value) {
        return 0.0;
    }
    if (value->kind != JsonKind::Number) {
        return WrongType(name, QStringLiteral("Must be a number"));
    }
    if (DecimalsOf(value->text) > MostDecimals) {
        Refuse(name, QStringLiteral("At most %1 decimals are allowed").arg(MostDecimals));
    }
    return value->number;
}

std::optional<double> ObjectReader::AmountFromZero(const char* name) {
    const std::optional<double> number = Amount(name);
    if (number && *number < 0) {
        return WrongType(name, QStringLiteral("Must not be negative"));
    }
    return number;
}

std::optional<qint16> ObjectReader::Integer(const char* name, qint16 lowest, qint16 absent) {
    const JsonValue* value = Value(name);
    if (!value) {
        return absent;
    }
    const bool isInteger = value->kind == JsonKind::Number && value->number >= lowest &&
                           value->number <= HighestInteger && std::trunc(value->number) == value->number;
    if (!isInteger) {
        return WrongType(
            name, QStringLiteral("Must be a whole number from %1 to %2").arg(lowest).arg(HighestInteger));
    }
    return static_cast<qint16>(value->number);
}

std::optional<bool> ObjectReader::Boolean(const char* name) {
    const JsonValue* value = Value(name);
    if (!value) {
        return false;
    }
    if (value->kind != JsonKind::Boolean) {
        return WrongType(name, QStringLiteral("Must be true or false"));
    }
    return value->boolean;
}

std::optional<QDate> ObjectReader::Date(const char* name, QDate absent, NullMeans nullMeans) {
    const JsonValue* value = Value(name);
    if (!value || (value->kind == JsonKind::Null && nullMeans == NullMeans::Absent)) {
        return absent;
    }
    const std::optional<QDate> day = value->kind == JsonKind::Text ? ParseDay(value->text) : std::nullopt;
    if (!day) {
        return WrongType(name, QStringLiteral("Must be a real day in the form YYYY-MM-DD"));
    }
    return day;
}

const std::vector<JsonValue>* ObjectReader::Array(const char* name) {
    static const std::vector<JsonValue> none;
    const JsonValue* value = Value(name);
    if (!value) {
        return &none;
    }
    if (value->kind != JsonKind::Array) {
        Refuse(name, QStringLiteral("Must be an array"));
        return nullptr;
    }
    return &value->parts->items;
}

void ObjectReader::RefuseUnknownMembers() {
    const QStringList& names = object_.parts->names;
    for (qsizetype i = 0; i < names.size(); ++i) {
        if (!known_.contains(names[i])) {
            faults_.push_back({MemberPointer(pointer_, names[i]), QStringLiteral("Unknown member"),
                               object_.parts->items[static_cast<std::size_t>(i)].Shown()});
        }
    }
}

bool MustBeObject(const JsonValue& value, const QString& pointer, Faults& faults) {
    if (value.kind == JsonKind::Object) {
        return true;
    }
    faults.push_back({pointer, QStringLiteral("Must be an object"), value.Shown()});
    return false;
}

}  // namespace tools
