#pragma once

#include "platform/Locale.h"

#include <QString>

namespace platform {

/// What a locale's pattern of short dates says.
struct DateFormat {
    DateOrder order = DateOrder::MonthDayYear;
    QString separator = QStringLiteral("/");
};

/// Reads a pattern as strftime takes it: "%d.%m.%Y", "%F". The order is told by what comes first, the
/// separator by what stands between the first two of day, month and year. Blanks around the separator don't
/// count, and letters (as in Japanese dates) are units and no separator: "/" then, as in a pattern that can't
/// be read.
DateFormat ReadDateFormat(const QString& pattern);

/// The same for a pattern with the letters that Windows uses: "dd.MM.yyyy", "d 'de' MMMM 'de' yyyy".
DateFormat ReadDatePicture(const QString& picture);

}  // namespace platform
