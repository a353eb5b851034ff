#include "engine/Currency.h"

#include "platform/Failure.h"

#include <QByteArray>
#include <QLocale>

#include <cmath>

namespace engine {

namespace {

// Beyond these a double no longer fits the scaled integer: 2 to the power of 63, exactly representable.
constexpr double ScaledLimit = 9223372036854775808.0;

}  // namespace

Currency Currency::FromDouble(double value) {
    const double scaled = std::nearbyint(value * static_cast<double>(Scale));
    if (!(scaled >= -ScaledLimit && scaled < ScaledLimit)) {
        platform::RaiseOverflow();
    }
    return Currency(static_cast<qint64>(scaled));
}

// The shortest digits that make a number are those that were entered. Scaling the number itself would change
// large amounts in their last digits.
Currency Currency::FromKept(double value) {
    constexpr qsizetype Decimals = 4;
    if (!(std::abs(value) > LastExact)) {
        return FromDouble(value);
    }
    QByteArray digits = QByteArray::number(value, 'f', QLocale::FloatingPointShortest);
    const qsizetype point = digits.indexOf('.');
    const qsizetype decimals = point < 0 ? 0 : digits.size() - point - 1;
    digits = digits.replace(".", "") + QByteArray(qMax(Decimals - decimals, qsizetype{0}), '0');
    bool fits = false;
    const qint64 scaled = digits.toLongLong(&fits);
    return fits && decimals <= Decimals ? Currency(scaled) : FromDouble(value);
}

// A large amount has more digits than a double, and so is divided before it becomes one: rounded once.
double Currency::ToDouble() const {
    constexpr auto AsDouble = static_cast<double>(Scale);
    constexpr auto LastScaled = static_cast<qint64>(LastExact) * Scale;
    if (scaled_ >= -LastScaled && scaled_ <= LastScaled) {
        return static_cast<double>(scaled_) / AsDouble;
    }
    const qint64 whole = scaled_ / Scale;
    const qint64 rest = scaled_ % Scale;
    return static_cast<double>(whole) + static_cast<double>(rest) / AsDouble;
}

Currency Currency::RoundedToCents() const {
    constexpr qint64 Cent = Scale / 100;
    qint64 cents = scaled_ / Cent;
    const qint64 rest = std::abs(scaled_ % Cent);
    const bool awayFromZero = rest > Cent / 2 || (rest == Cent / 2 && cents % 2 != 0);
    if (awayFromZero) {
        cents += scaled_ < 0 ? -1 : 1;
    }
    // Always fits: the outermost amounts lie nearer to the whole cent below them.
    return Currency(cents * Cent);
}

QString Currency::ToText(const QString& decimalMark) const {
    const bool negative = scaled_ < 0;
    const quint64 magnitude =
        negative ? quint64(0) - static_cast<quint64>(scaled_) : static_cast<quint64>(scaled_);
    quint64 fraction = magnitude % quint64(Scale);
    QString text;
    if (negative) {
        text += QLatin1Char('-');
    }
    text += QString::number(magnitude / quint64(Scale));
    if (fraction != 0) {
        text += decimalMark;
        for (quint64 digit = quint64(Scale) / 10; fraction != 0; digit /= 10) {
            text += QLatin1Char(static_cast<char>('0' + fraction / digit));
            fraction %= digit;
        }
    }
    return text;
}

Currency Currency::operator-(Currency other) const {
    qint64 difference = 0;
    if (__builtin_sub_overflow(scaled_, other.scaled_, &difference)) {
        platform::RaiseOverflow();
    }
    return Currency(difference);
}

}  // namespace engine
