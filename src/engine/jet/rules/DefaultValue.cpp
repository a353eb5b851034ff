#include "engine/jet/rules/DefaultValue.h"

#include "engine/jet/ColumnValue.h"
#include "engine/jet/DateNumber.h"

namespace engine::jet {

namespace {

std::optional<Value> ToNumber(const Value& value) {
    if (const auto* text = std::get_if<QString>(&value)) {
        bool isNumber = false;
        const double number = text->trimmed().toDouble(&isNumber);
        return isNumber ? std::optional<Value>(number) : std::nullopt;
    }
    return std::holds_alternative<QDateTime>(value) ? std::nullopt : std::optional(value);
}

std::optional<Value> ToMoment(const Value& value) {
    if (std::holds_alternative<QDateTime>(value)) {
        return value;
    }
    if (std::holds_alternative<QString>(value)) {
        return std::nullopt;
    }
    const auto moment = FromDateNumber(ToDouble(value));
    return moment ? std::optional<Value>(*moment) : std::nullopt;
}

// How a date is written as a text is a matter of the country.
std::optional<Value> ToWords(const Value& value) {
    return std::holds_alternative<QDateTime>(value) ? std::nullopt : std::optional<Value>(ToText(value));
}

std::optional<Value> ConvertFor(const Column& column, const Value& value) {
    const std::uint8_t type = column.type;
    if (IsNull(value)) {
        return value;
    }
    if (IsNumberType(type)) {
        const auto number = ToNumber(value);
        return number ? NumberAsHeld(column, *number) : std::nullopt;
    }
    if (type == ColumnType::DateTime) {
        return ToMoment(value);
    }
    return IsTextType(type) ? ToWords(value) : std::nullopt;
}

std::optional<Term> ConvertFor(const Column& column, const Term& term) {
    const auto* value = std::get_if<Value>(&term);
    if (value == nullptr) {
        return column.type == ColumnType::DateTime ? std::optional(term) : std::nullopt;
    }
    const auto converted = ConvertFor(column, *value);
    return converted ? std::optional<Term>(*converted) : std::nullopt;
}

std::optional<Term> Read(const QString& expression, const Column& column) {
    QString text = expression.trimmed();
    if (text.startsWith(QLatin1Char('='))) {
        text = text.mid(1).trimmed();
    }
    if (text.isEmpty()) {
        return std::optional<Term>(std::in_place);
    }
    const auto words = WordsOf(text);
    if (!words) {
        return std::nullopt;
    }
    std::size_t place = 0;
    const auto term = TakeTerm(*words, place, Parentheses::MayBeLeftOut);
    if (term && place == words->size()) {
        return ConvertFor(column, *term);
    }
    const bool isBareWord = words->size() == 1 && words->front().kind == Word::Kind::Name;
    return isBareWord && column.type == ColumnType::Text ? std::optional<Term>(Value(words->front().text))
                                                         : std::nullopt;
}

}  // namespace

DefaultValue::DefaultValue(const QString& expression, const Column& column)
    : expression_(expression), term_(Read(expression, column)) {
}

}  // namespace engine::jet
