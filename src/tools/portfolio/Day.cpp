#include "tools_core/portfolio/Day.h"

#include <algorithm>
#include <array>

namespace tools {

std::optional<QDate> ParseDay(const QString& text) {
    constexpr qsizetype length = 10;
    const QStringView view(text);
    if (view.size() != length || view[4] != QLatin1Char('-') || view[7] != QLatin1Char('-')) {
        return std::nullopt;
    }
    const auto isDigit = [](QChar character) { return character >= u'0' && character <= u'9'; };
    const std::array<QStringView, 3> parts = {view.first(4), view.sliced(5, 2), view.sliced(8, 2)};
    for (const QStringView part : parts) {
        if (!std::all_of(part.begin(), part.end(), isDigit)) {
            return std::nullopt;
        }
    }
    const QDate day(parts[0].toInt(), parts[1].toInt(), parts[2].toInt());
    return day.isValid() ? std::optional(day) : std::nullopt;
}

}  // namespace tools
