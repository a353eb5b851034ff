#include "tools/json/DecimalsOf.h"

#include <algorithm>
#include <cstddef>
#include <limits>

namespace tools {

namespace {

// One that is too large for any type is cut to this, and still leaves room for the decimals of a long text.
constexpr std::int64_t LargestExponent = std::numeric_limits<std::int32_t>::max();

std::int64_t ExponentOf(QStringView text) {
    bool isRead = false;
    const std::int64_t exponent = text.toLongLong(&isRead);
    if (!isRead) {
        return text.startsWith(u'-') ? -LargestExponent : LargestExponent;
    }
    return std::clamp(exponent, -LargestExponent, LargestExponent);
}

}  // namespace

std::int64_t DecimalsOf(const QString& number) {
    const qsizetype mark = number.indexOf(u'e', 0, Qt::CaseInsensitive);
    const QStringView mantissa = QStringView(number).left(mark < 0 ? number.size() : mark);
    const std::int64_t exponent = mark < 0 ? 0 : ExponentOf(QStringView(number).mid(mark + 1));

    const qsizetype point = mantissa.indexOf(u'.');
    const std::int64_t behindPoint = point < 0 ? 0 : mantissa.size() - point - 1;
    std::int64_t zeros = 0;
    for (auto digit = mantissa.rbegin(); digit != mantissa.rend() && (*digit == u'0' || *digit == u'.');
         ++digit) {
        zeros += *digit == u'0' ? 1 : 0;
    }
    const bool isZero = std::none_of(mantissa.begin(), mantissa.end(),
                                     [](QChar digit) { return digit >= u'1' && digit <= u'9'; });
    return isZero ? 0 : behindPoint - zeros - exponent;
}

}  // namespace tools
