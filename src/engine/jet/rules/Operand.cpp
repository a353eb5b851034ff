#include "engine/jet/rules/Operand.h"

#include "engine/jet/ColumnValue.h"
#include "engine/jet/DateNumber.h"
#include "engine/jet/TextKey.h"

#include <cmath>

namespace engine::jet {

namespace {

bool IsNumber(const Value& value) {
    return std::holds_alternative<bool>(value) || std::holds_alternative<qint64>(value) ||
           std::holds_alternative<double>(value) || std::holds_alternative<Currency>(value);
}

Nature NatureOf(const Value& value) {
    if (IsNull(value)) {
        return Nature::Null;
    }
    if (std::holds_alternative<QString>(value)) {
        return Nature::Text;
    }
    if (std::holds_alternative<QDateTime>(value)) {
        return Nature::Date;
    }
    return IsNumber(value) ? Nature::Number : Nature::Other;
}

Nature NatureOf(const ColumnOperand& column) {
    if (column.isLength || IsNumberType(column.type) || column.type == ColumnType::Decimal) {
        return Nature::Number;
    }
    if (IsTextType(column.type)) {
        return Nature::Text;
    }
    return column.type == ColumnType::DateTime ? Nature::Date : Nature::Other;
}

Value AsMoney(const Value& value) {
    const double number = ToDouble(value);
    const double most = std::ldexp(1.0, 63) / static_cast<double>(Currency::Scale);
    if (std::holds_alternative<Currency>(value)) {
        return value;
    }
    return std::abs(number) < most ? Value(Currency::FromDouble(number)) : Value();
}

Value AsNumber(const ColumnOperand& column, const Value& value) {
    if (!IsNumber(value)) {
        return Null();
    }
    switch (column.type) {
        case ColumnType::Currency:
            return AsMoney(value);
        case ColumnType::Single:
            return double{static_cast<float>(ToDouble(value))};
        case ColumnType::Boolean:
            return ToBoolean(value);
        default:
            return value;
    }
}

Value DecimalNumber(const ColumnOperand& column, const Value& value) {
    constexpr qsizetype SizeOfDecimal = 17;
    const auto* bytes = std::get_if<QByteArray>(&value);
    if (bytes == nullptr || bytes->size() != SizeOfDecimal) {
        return Null();
    }
    return DecimalText(BytesOf(*bytes, 0), column.scale).toDouble();
}

Value StoredValue(const ColumnOperand& column, const Value& value) {
    // A yes or no that is left out is no.
    if (IsNull(value)) {
        return column.type == ColumnType::Boolean ? Value(false) : Value();
    }
    if (column.type == ColumnType::Decimal) {
        return DecimalNumber(column, value);
    }
    switch (NatureOf(column)) {
        case Nature::Number:
            return AsNumber(column, value);
        case Nature::Text:
            return std::holds_alternative<QString>(value) ? value : Value();
        case Nature::Date:
            return std::holds_alternative<QDateTime>(value) ? value : Value();
        default:
            return value;
    }
}

Value LengthOf(const Value& value) {
    const auto* text = std::get_if<QString>(&value);
    return text == nullptr ? Value() : Value(qint64{text->size()});
}

template <class Ordered>
int CompareOrdered(const Ordered& left, const Ordered& right) {
    return left < right ? -1 : right < left ? 1 : 0;
}

int CompareTexts(const QString& left, const QString& right) {
    const int byLetters = left.compare(right, Qt::CaseInsensitive);
    if (byLetters == 0) {
        return 0;
    }
    Key leftKey;
    Key rightKey;
    AppendTextKey(leftKey, left, Order::Ascending);
    AppendTextKey(rightKey, right, Order::Ascending);
    const int byOrder = Compare(KeyView(leftKey), KeyView(rightKey));
    return byOrder != 0 ? byOrder : byLetters;
}

std::optional<double> NumberOf(const Value& value) {
    if (const auto* moment = std::get_if<QDateTime>(&value)) {
        return ToDateNumber(*moment);
    }
    return IsNumber(value) ? std::optional(ToDouble(value)) : std::nullopt;
}

}  // namespace

Nature NatureOf(const Operand& operand) {
    if (const auto* column = std::get_if<ColumnOperand>(&operand)) {
        return NatureOf(*column);
    }
    const auto* value = std::get_if<Value>(&std::get<Term>(operand));
    return value == nullptr ? Nature::Date : NatureOf(*value);
}

bool AreComparable(Nature one, Nature other) {
    const auto isNumber = [](Nature nature) { return nature == Nature::Number || nature == Nature::Date; };
    return one == Nature::Null || other == Nature::Null || (isNumber(one) && isNumber(other)) ||
           (one == Nature::Text && other == Nature::Text);
}

Value Evaluate(const Operand& operand, const std::vector<Value>& row) {
    const auto* column = std::get_if<ColumnOperand>(&operand);
    if (column == nullptr) {
        return ValueNow(std::get<Term>(operand));
    }
    const Value& value = row[static_cast<std::size_t>(column->column)];
    return column->isLength ? LengthOf(value) : StoredValue(*column, value);
}

std::optional<int> Compare(const Value& left, const Value& right) {
    const auto* leftText = std::get_if<QString>(&left);
    const auto* rightText = std::get_if<QString>(&right);
    if (leftText != nullptr && rightText != nullptr) {
        return CompareTexts(*leftText, *rightText);
    }
    const auto* leftMoney = std::get_if<Currency>(&left);
    const auto* rightMoney = std::get_if<Currency>(&right);
    if (leftMoney != nullptr && rightMoney != nullptr) {
        return CompareOrdered(*leftMoney, *rightMoney);
    }
    const auto leftNumber = NumberOf(left);
    const auto rightNumber = NumberOf(right);
    if (!leftNumber || !rightNumber) {
        return std::nullopt;
    }
    return CompareOrdered(*leftNumber, *rightNumber);
}

}  // namespace engine::jet
