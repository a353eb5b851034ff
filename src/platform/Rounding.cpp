#include "platform/Rounding.h"

#include "platform/Failure.h"

#include <cmath>
#include <limits>

namespace platform {

namespace {

template <class Whole>
Whole RoundTo(double value) {
    const double rounded = std::nearbyint(value);
    if (!(rounded >= std::numeric_limits<Whole>::min() && rounded <= std::numeric_limits<Whole>::max())) {
        RaiseOverflow();
    }
    return static_cast<Whole>(rounded);
}

}  // namespace

qint16 ToInteger(double value) {
    return RoundTo<qint16>(value);
}

qint32 ToLong(double value) {
    return RoundTo<qint32>(value);
}

}  // namespace platform
