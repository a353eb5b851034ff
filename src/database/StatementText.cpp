#include "database/StatementText.h"

#include "platform/Failure.h"
#include "platform/Locale.h"

#include <array>
#include <charconv>
#include <cmath>
#include <string>

namespace database {

namespace {

constexpr int SignificantDigits = 15;

void AppendPadded(QString& text, int number, int width) {
    const QString digits = QString::number(number);
    for (qsizetype missing = width - digits.size(); missing > 0; --missing) {
        text += QLatin1Char('0');
    }
    text += digits;
}

QChar* PutDigits(QChar* place, int number, int digits) {
    for (QChar* digit = place + digits; digit != place; number /= 10) {
        *--digit = QLatin1Char(static_cast<char>('0' + number % 10));
    }
    return place + digits;
}

// The engine doesn't read dates with dots, which is what the locale's separator often is.
QChar* PutDateSeparator(QChar* place) {
    for (const QChar character : platform::DateSeparator()) {
        *place++ = character == QLatin1Char('.') ? QLatin1Char('/') : character;
    }
    return place;
}

// A year that Hearthbook's dates don't reach keeps all its digits: the engine refuses it then, where the last
// four would be another date.
int DigitsOfYear(int year) {
    int digits = 4;
    for (int rest = year / 10000; rest > 0; rest /= 10) {
        ++digits;
    }
    return digits;
}

/// A number as its decimal digits, of which the first stands in front of the decimal mark, and a power of
/// ten.
struct Decimal {
    bool negative = false;
    std::string digits;
    int exponent = 0;
};

Decimal ToDecimal(double value) {
    std::array<char, 32> buffer{};
    const auto written = std::to_chars(buffer.data(), buffer.data() + buffer.size(), std::abs(value),
                                       std::chars_format::scientific, SignificantDigits - 1);
    const std::string text(buffer.data(), written.ptr);
    const size_t mark = text.find('e');
    Decimal decimal;
    decimal.negative = value < 0;
    decimal.digits = text.substr(0, 1) + text.substr(2, mark - 2);
    decimal.digits.erase(std::max<size_t>(decimal.digits.find_last_not_of('0') + 1, 1));
    decimal.exponent = std::stoi(text.substr(mark + 1));
    return decimal;
}

QString WithMark(const std::string& whole, const std::string& fraction) {
    QString text = QString::fromStdString(whole);
    if (!fraction.empty()) {
        text += platform::DecimalMark() + QString::fromStdString(fraction);
    }
    return text;
}

QString WithExponent(const Decimal& decimal) {
    QString text = WithMark(decimal.digits.substr(0, 1), decimal.digits.substr(1));
    text += decimal.exponent < 0 ? QLatin1String("E-") : QLatin1String("E+");
    AppendPadded(text, std::abs(decimal.exponent), 2);
    return text;
}

QString Plain(const Decimal& decimal) {
    if (decimal.exponent < 0) {
        return WithMark("0", std::string(static_cast<size_t>(-decimal.exponent - 1), '0') + decimal.digits);
    }
    const size_t wholeLength = static_cast<size_t>(decimal.exponent) + 1;
    std::string digits = decimal.digits;
    if (digits.size() < wholeLength) {
        digits.resize(wholeLength, '0');
    }
    return WithMark(digits.substr(0, wholeLength), digits.substr(wholeLength));
}

}  // namespace

void AppendSqlDate(QString& statement, QDate date) {
    int year = 0;
    int month = 0;
    int day = 0;
    date.getDate(&year, &month, &day);
    const int digitsOfYear = DigitsOfYear(year);
    const qsizetype begin = statement.size();
    statement.resize(begin + 2 + 2 + 2 + digitsOfYear + 2 * platform::DateSeparator().size());
    QChar* place = statement.data() + begin;
    *place++ = QLatin1Char('#');
    place = PutDigits(place, month, 2);
    place = PutDateSeparator(place);
    place = PutDigits(place, day, 2);
    place = PutDateSeparator(place);
    place = PutDigits(place, year, digitsOfYear);
    *place = QLatin1Char('#');
}

QString SqlDate(QDate date) {
    QString text;
    AppendSqlDate(text, date);
    return text;
}

QString DecimalText(engine::Currency value) {
    return value.ToText(platform::DecimalMark());
}

QString DecimalText(double value) {
    if (!std::isfinite(value)) {
        platform::RaiseOverflow();
    }
    const Decimal decimal = ToDecimal(value);
    constexpr int SmallestPlain = -4;
    const bool plain = decimal.exponent >= SmallestPlain && decimal.exponent < SignificantDigits;
    const QString text = plain ? Plain(decimal) : WithExponent(decimal);
    return decimal.negative ? QLatin1Char('-') + text : text;
}

}  // namespace database
