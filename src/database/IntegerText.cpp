#include "database/IntegerText.h"

#include "platform/Digits.h"
#include "platform/Failure.h"
#include "platform/Locale.h"

#include <limits>

namespace database {

namespace {

/// Above every 16-bit number, so that counting may stop here however long the text is.
constexpr int TooLarge = 100'000;

[[noreturn]] void RaiseTypeMismatch() {
    throw platform::Failure(platform::FailureNumber::TypeMismatch, QStringLiteral("Type mismatch"));
}

QStringView TakeDigits(QStringView& text) {
    qsizetype length = 0;
    while (length < text.size() && platform::IsDigit(text[length])) {
        ++length;
    }
    const QStringView digits = text.first(length);
    text = text.sliced(length);
    return digits;
}

int WholePart(QStringView digits) {
    int whole = 0;
    for (const QChar digit : digits) {
        whole = qMin(whole * 10 + digit.digitValue(), TooLarge);
    }
    return whole;
}

bool RoundsUp(int whole, QStringView decimals) {
    if (decimals.isEmpty() || decimals[0] < QLatin1Char('5')) {
        return false;
    }
    for (qsizetype place = 0; place < decimals.size(); ++place) {
        if (decimals[place] > (place == 0 ? QLatin1Char('5') : QLatin1Char('0'))) {
            return true;
        }
    }
    return whole % 2 != 0;
}

}  // namespace

short ToInteger(const QString& text) {
    QStringView rest = QStringView(text).trimmed();
    const bool negative = rest.startsWith(QLatin1Char('-'));
    if (negative || rest.startsWith(QLatin1Char('+'))) {
        rest = rest.sliced(1);
    }
    const QStringView digits = TakeDigits(rest);
    QStringView decimals;
    const QString& mark = platform::DecimalMark();
    if (rest.startsWith(mark)) {
        rest = rest.sliced(mark.size());
        decimals = TakeDigits(rest);
    }
    if (!rest.isEmpty() || (digits.isEmpty() && decimals.isEmpty())) {
        RaiseTypeMismatch();
    }
    const int whole = WholePart(digits);
    const int rounded = whole + (RoundsUp(whole, decimals) ? 1 : 0);
    const int value = negative ? -rounded : rounded;
    if (value < std::numeric_limits<short>::min() || value > std::numeric_limits<short>::max()) {
        platform::RaiseOverflow();
    }
    return static_cast<short>(value);
}

}  // namespace database
