#include "engine/jet/DateNumber.h"

#include <cmath>

namespace engine::jet {

namespace {

const QDate DayZero(1899, 12, 30);
constexpr qint64 MillisecondsOfDay = 24LL * 60 * 60 * 1000;
constexpr double FirstDay = -657434;  // 0100-01-01
constexpr double DayBehindLast = 2958466;

}  // namespace

double ToDateNumber(const QDateTime& moment) {
    const auto days = static_cast<double>(DayZero.daysTo(moment.date()));
    const double time = moment.time().msecsSinceStartOfDay() / static_cast<double>(MillisecondsOfDay);
    return days < 0 ? days - time : days + time;
}

std::optional<QDateTime> FromDateNumber(double number) {
    // Also false for what is no number.
    if (!(number > FirstDay - 1 && number < DayBehindLast)) {
        return std::nullopt;
    }
    const double days = std::trunc(number);
    const qint64 time = std::llround(std::abs(number - days) * static_cast<double>(MillisecondsOfDay));
    const QDateTime midnight(DayZero.addDays(static_cast<qint64>(days)), QTime(0, 0), Qt::UTC);
    return midnight.addMSecs(time);
}

}  // namespace engine::jet
