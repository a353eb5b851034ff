#pragma once

#include <QDate>
#include <QDateTime>

namespace platform {

/// Today's date and the present time in local time. Everything that asks for the day asks here, so that tests
/// and the batch tool's --today can pin it.
QDate Today();
QDateTime Now();

/// From here on it is this day (the time of day goes on running). An invalid date lets the real day back in.
void PinToday(QDate day);

}  // namespace platform
