#pragma once

#include <QDate>

namespace gallery {

/// The day in all dates on show. Not today's, so that pictures stay the same.
inline const QDate ExampleDay(2026, 3, 14);

}  // namespace gallery
