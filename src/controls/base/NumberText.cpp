#include "controls/base/NumberText.h"

#include "controls/base/Regional.h"
#include "platform/Digits.h"

#include <QLocale>
#include <QVarLengthArray>

#include <algorithm>
#include <charconv>
#include <cmath>

namespace controls {

namespace {

/// Most numbers that people type are shorter, and need no memory of their own to be read.
constexpr qsizetype UsualLength = 64;
using PlainDigits = QVarLengthArray<char, UsualLength>;

bool TakeMark(QStringView& rest, const QString& mark) {
    if (mark.isEmpty() || !rest.startsWith(mark)) {
        return false;
    }
    rest = rest.mid(mark.size());
    return true;
}

/// Digits with at most one "." between them and nothing else.
std::optional<double> ValueOf(const PlainDigits& digits) {
    double value = 0;
    const auto result = std::from_chars(digits.begin(), digits.end(), value);
    if (result.ec == std::errc()) {
        return value;
    }
    // Too large for a double, or too close to zero, which is no different from zero.
    const auto* const point = std::find(digits.begin(), digits.end(), '.');
    const bool small = std::all_of(digits.begin(), point, [](char digit) { return digit == '0'; });
    return small ? std::optional<double>(0.0) : std::nullopt;
}

QString ShortestText(double number) {
    return QString::number(number, 'f', QLocale::FloatingPointShortest);
}

int DecimalsOf(double number) {
    const QString text = ShortestText(number);
    const qsizetype point = text.indexOf(QLatin1Char('.'));
    return point < 0 ? 0 : static_cast<int>(text.size() - point - 1);
}

}  // namespace

NumberMarks NumberMarks::OfTheUser() {
    return {GetDecimalSeparator(), GetThousandSeparator()};
}

std::optional<double> ReadNumber(QStringView text, const NumberMarks& marks) {
    QStringView rest = text.trimmed();
    const bool negative = rest.startsWith(QLatin1Char('-'));
    if (negative || rest.startsWith(QLatin1Char('+'))) {
        rest = rest.mid(1).trimmed();
    }
    PlainDigits digits;
    bool inFraction = false;
    bool anyDigit = false;
    while (!rest.isEmpty()) {
        if (platform::IsDigit(rest.front())) {
            digits.append(rest.front().toLatin1());
            anyDigit = true;
            rest = rest.mid(1);
        } else if (!inFraction && TakeMark(rest, marks.decimalSeparator)) {
            digits.append('.');
            inFraction = true;
        } else if (inFraction || !TakeMark(rest, marks.thousandSeparator)) {
            return std::nullopt;
        }
    }
    if (!anyDigit) {
        return std::nullopt;
    }
    const std::optional<double> value = ValueOf(digits);
    return value && negative ? -*value : value;
}

bool IsNumericText(QStringView text, const NumberMarks& marks) {
    return ReadNumber(text, marks).has_value();
}

QString GeneralText(double number, const NumberMarks& marks) {
    if (number == 0 || !std::isfinite(number)) {
        return QStringLiteral("0");
    }
    return ShortestText(number).replace(QLatin1Char('.'), marks.decimalSeparator);
}

double DecimalSum(double first, double second) {
    const double sum = first + second;
    if (!std::isfinite(sum)) {
        return sum;
    }
    return QString::number(sum, 'f', std::max(DecimalsOf(first), DecimalsOf(second))).toDouble();
}

}  // namespace controls
