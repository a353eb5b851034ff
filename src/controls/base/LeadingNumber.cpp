#include "controls/base/LeadingNumber.h"

#include "platform/Digits.h"

#include <QLocale>

#include <algorithm>

namespace controls {

double LeadingNumber(QStringView text) {
    const auto* place = std::find_if_not(text.begin(), text.end(), [](QChar c) { return c.isSpace(); });
    const auto* const start = place;
    if (place != text.end() && (*place == QLatin1Char('-') || *place == QLatin1Char('+'))) {
        ++place;
    }
    place = std::find_if_not(place, text.end(), platform::IsDigit);
    if (place != text.end() && *place == QLatin1Char('.')) {
        place = std::find_if_not(place + 1, text.end(), platform::IsDigit);
    }
    bool understood = false;
    const double number =
        QLocale::c().toDouble(QStringView(start, static_cast<qsizetype>(place - start)), &understood);
    return understood ? number : 0.0;
}

}  // namespace controls
