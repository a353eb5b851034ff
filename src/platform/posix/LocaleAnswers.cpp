#include "platform/LocaleAnswers.h"

#include <langinfo.h>

#include <array>
#include <climits>
#include <clocale>
#include <cwchar>

namespace platform {

namespace {

/// The locale answers in its own encoding. Text that isn't in it is no answer.
QString FromLocaleBytes(const char* bytes) {
    std::mbstate_t state{};
    const char* rest = bytes;
    const size_t length = std::mbsrtowcs(nullptr, &rest, 0, &state);
    if (length == static_cast<size_t>(-1)) {
        return {};
    }
    std::wstring wide(length, L'\0');
    rest = bytes;
    state = std::mbstate_t{};
    std::mbsrtowcs(wide.data(), &rest, length, &state);
    return QString::fromStdWString(wide);
}

QString FractionDigits(char digits) {
    return digits == CHAR_MAX || digits < 0 ? QString() : QString::number(digits);
}

LocaleAnswers AskLocaleInForce() {
    LocaleAnswers answers;
    const std::lconv* conventions = std::localeconv();
    answers.thousandSeparator = FromLocaleBytes(conventions->mon_thousands_sep);
    answers.decimalSeparator = FromLocaleBytes(conventions->mon_decimal_point);
    answers.currencySymbol = FromLocaleBytes(conventions->currency_symbol);
    answers.currencyDigits = FractionDigits(conventions->frac_digits);
    const QString decimalMark = FromLocaleBytes(conventions->decimal_point);
    if (!decimalMark.isEmpty()) {
        answers.decimalMark = decimalMark;
    }
    answers.dateFormat = ReadDateFormat(FromLocaleBytes(nl_langinfo(D_FMT)));
    static constexpr std::array<nl_item, 12> MonthItems{ABMON_1, ABMON_2,  ABMON_3,  ABMON_4,
                                                        ABMON_5, ABMON_6,  ABMON_7,  ABMON_8,
                                                        ABMON_9, ABMON_10, ABMON_11, ABMON_12};
    for (size_t place = 0; place < MonthItems.size(); ++place) {
        // Some locales pad the names to one width.
        const QString name = FromLocaleBytes(nl_langinfo(MonthItems[place])).trimmed();
        if (!name.isEmpty()) {
            answers.months[place] = name;
        }
    }
    return answers;
}

}  // namespace

LocaleAnswers AskUsersLocale() {
    if (std::setlocale(LC_ALL, "") == nullptr) {
        // The environment names a locale that isn't installed: what was in force before must not linger.
        std::setlocale(LC_ALL, "C");
    }
    return AskLocaleInForce();
}

std::optional<LocaleAnswers> AskLocale(const QString& name) {
    if (std::setlocale(LC_ALL, name.toUtf8().constData()) == nullptr) {
        return std::nullopt;
    }
    return AskLocaleInForce();
}

}  // namespace platform
