#pragma once

#include <QtGlobal>

namespace platform {

/// To the nearest whole number, ties to even, as money and lengths are rounded all over the system.
/// Failure 6 (overflow) if it doesn't fit, and for what is no number.
qint16 ToInteger(double value);
qint32 ToLong(double value);

}  // namespace platform
