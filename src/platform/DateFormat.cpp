#include "platform/DateFormat.h"

#include <algorithm>
#include <optional>

namespace platform {

namespace {

QString WithoutComposites(QString pattern) {
    pattern.replace(QLatin1String("%F"), QLatin1String("%Y-%m-%d"));
    pattern.replace(QLatin1String("%D"), QLatin1String("%m/%d/%y"));
    return pattern;
}

bool IsModifier(QChar character) {
    return QStringLiteral("EO-_0^#").contains(character) || character.isDigit();
}

/// The order that a date has in which this conversion stands first; nothing for what isn't day, month or
/// year.
std::optional<DateOrder> OrderBeginningWith(QChar conversion) {
    switch (conversion.unicode()) {
        case 'd':
        case 'e':
            return DateOrder::DayMonthYear;
        case 'm':
        case 'b':
        case 'B':
        case 'h':
            return DateOrder::MonthDayYear;
        case 'y':
        case 'Y':
        case 'G':
            return DateOrder::YearMonthDay;
        default:
            return std::nullopt;
    }
}

QString AsSeparator(const QString& between) {
    const QString separator = between.trimmed();
    const bool hasLetters =
        std::any_of(separator.begin(), separator.end(), [](QChar c) { return c.isLetterOrNumber(); });
    return separator.isEmpty() || hasLetters ? QStringLiteral("/") : separator;
}

}  // namespace

DateFormat ReadDateFormat(const QString& pattern) {
    const QString text = WithoutComposites(pattern);
    DateFormat format;
    bool firstSeen = false;
    QString between;
    for (qsizetype place = 0; place < text.size(); ++place) {
        if (text[place] != QLatin1Char('%')) {
            between += text[place];
            continue;
        }
        do {
            ++place;
        } while (place < text.size() && IsModifier(text[place]));
        const std::optional<DateOrder> order =
            place < text.size() ? OrderBeginningWith(text[place]) : std::nullopt;
        if (!order) {
            continue;
        }
        if (firstSeen) {
            format.separator = AsSeparator(between);
            break;
        }
        format.order = *order;
        firstSeen = true;
        between.clear();
    }
    return format;
}

}  // namespace platform
