#pragma once

#include <QDateTime>

#include <optional>

namespace engine::jet {

/// A moment as the file counts it: days since 1899-12-30, the time of day as a fraction. Before that day the
/// fraction still counts forwards, so that -1.25 is six o'clock of the day before. The zone of the moment is
/// of no importance.
double ToDateNumber(const QDateTime& moment);

/// The moment to the nearest millisecond, none for a number that stands for no day of the years 100 to 9999.
std::optional<QDateTime> FromDateNumber(double number);

}  // namespace engine::jet
