#include "tools/portfolio/Day.h"

#include "platform/Digits.h"

#include <algorithm>
#include <array>

namespace tools {

std::optional<QDate> ParseDay(const QString& text) {
    constexpr qsizetype Length = 10;
    const QStringView view(text);
    if (view.size() != Length || view[4] != QLatin1Char('-') || view[7] != QLatin1Char('-')) {
        return std::nullopt;
    }
    const std::array<QStringView, 3> parts = {view.first(4), view.sliced(5, 2), view.sliced(8, 2)};
    for (const QStringView part : parts) {
        if (!std::all_of(part.begin(), part.end(), platform::IsDigit)) {
            return std::nullopt;
        }
    }
    const QDate day(parts[0].toInt(), parts[1].toInt(), parts[2].toInt());
    return day.isValid() ? std::optional(day) : std::nullopt;
}

}  // namespace tools
