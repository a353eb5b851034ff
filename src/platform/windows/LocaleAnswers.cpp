#include "platform/LocaleAnswers.h"

#include "platform/windows/Handle.h"

#include <array>

namespace platform {

namespace {

// In the code page of the process, and not in that of the locale, which may be another one.
QString Answer(LCID locale, LCTYPE item) {
    const LCTYPE asked = item | LOCALE_USE_CP_ACP;
    const int size = GetLocaleInfoA(locale, asked, nullptr, 0);
    QByteArray answer(qMax(size, 0), ' ');
    const int written = size > 0 ? GetLocaleInfoA(locale, asked, answer.data(), size) : 0;
    return written > 0 ? FromSystemBytes(answer.constData(), written - 1) : QString();
}

LocaleAnswers Ask(LCID locale) {
    LocaleAnswers answers;
    answers.thousandSeparator = Answer(locale, LOCALE_SMONTHOUSANDSEP);
    answers.decimalSeparator = Answer(locale, LOCALE_SMONDECIMALSEP);
    answers.currencySymbol = Answer(locale, LOCALE_SCURRENCY);
    answers.currencyDigits = Answer(locale, LOCALE_ICURRDIGITS);
    if (const QString mark = Answer(locale, LOCALE_SDECIMAL); !mark.isEmpty()) {
        answers.decimalMark = mark;
    }
    answers.dateFormat = ReadDatePicture(Answer(locale, LOCALE_SSHORTDATE));
    for (size_t place = 0; place < answers.months.size(); ++place) {
        const QString name = Answer(locale, LOCALE_SABBREVMONTHNAME1 + static_cast<LCTYPE>(place)).trimmed();
        if (!name.isEmpty()) {
            answers.months[place] = name;
        }
    }
    return answers;
}

}  // namespace

LocaleAnswers AskUsersLocale() {
    return Ask(LOCALE_USER_DEFAULT);
}

// The system has no locale of this name, and scripts for other systems use it.
std::optional<LocaleAnswers> AskLocale(const QString& name) {
    if (name == QLatin1String("C")) {
        return LocaleAnswers();
    }
    const std::wstring wide = name.toStdWString();
    // Well-formed names of no country are valid to the system, and have no answers of their own.
    const LCID locale = LocaleNameToLCID(wide.c_str(), 0);
    if (IsValidLocaleName(wide.c_str()) == 0 || locale == 0 || locale == LOCALE_CUSTOM_UNSPECIFIED) {
        return std::nullopt;
    }
    return Ask(locale);
}

}  // namespace platform
