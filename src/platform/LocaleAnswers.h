#pragma once

#include "platform/DateFormat.h"

#include <QString>

#include <array>
#include <optional>

namespace platform {

/// What a locale says of money, numbers and dates. At first it is what the "C" locale says. Empty texts are
/// no answers.
struct LocaleAnswers {
    LocaleAnswers();

    QString thousandSeparator;
    QString decimalSeparator;
    QString currencySymbol;
    QString currencyDigits;
    QString decimalMark;
    DateFormat dateFormat;
    std::array<QString, 12> months;
};

/// Those of the user's locale.
LocaleAnswers AskUsersLocale();

/// Those of the locale with this name, which is not empty; nothing if the system knows none.
std::optional<LocaleAnswers> AskLocale(const QString& name);

}  // namespace platform
