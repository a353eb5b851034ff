#pragma once

#include <QChar>

namespace platform {

/// One of the ten that numbers and dates are typed with, and none of other scripts.
constexpr bool IsDigit(QChar character) {
    return character >= QLatin1Char('0') && character <= QLatin1Char('9');
}

}  // namespace platform
