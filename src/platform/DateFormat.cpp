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

/// What strftime calls a run of a letter in a picture; nothing for what isn't day, month or year.
std::optional<QString> ConversionOf(QChar letter, qsizetype length) {
    constexpr qsizetype WeekdaysName = 3;
    switch (letter.unicode()) {
        case 'd':
            return length < WeekdaysName ? QStringLiteral("%d") : QStringLiteral("%a");
        case 'M':
            return QStringLiteral("%m");
        case 'y':
            return QStringLiteral("%Y");
        case 'g':
            return QStringLiteral("%C");
        default:
            return std::nullopt;
    }
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

DateFormat ReadDatePicture(const QString& picture) {
    QString pattern;
    for (qsizetype place = 0; place < picture.size();) {
        const QChar letter = picture[place];
        const qsizetype begin = place;
        if (letter == QLatin1Char('\'')) {
            const qsizetype end = picture.indexOf(letter, begin + 1);
            place = end < 0 ? picture.size() : end + 1;
            pattern += QString(picture.sliced(begin, place - begin)).remove(letter);
            continue;
        }
        while (place < picture.size() && picture[place] == letter) {
            ++place;
        }
        pattern += ConversionOf(letter, place - begin).value_or(picture.sliced(begin, place - begin));
    }
    return ReadDateFormat(pattern);
}

}  // namespace platform
