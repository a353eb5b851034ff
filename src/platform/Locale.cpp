#include "platform/Locale.h"

#include "platform/Failure.h"
#include "platform/LocaleAnswers.h"

#include <QLocale>

namespace platform {

namespace {

/// Kept because an import asks for some of them with every statement. At first they are those of the "C"
/// locale, whatever libraries have done to the process's own locale by then.
LocaleAnswers& CurrentAnswers() {
    static LocaleAnswers answers;
    return answers;
}

const QString& MoneyText(MoneyItem item) {
    const LocaleAnswers& answers = CurrentAnswers();
    switch (item) {
        case MoneyItem::ThousandSeparator:
            return answers.thousandSeparator;
        case MoneyItem::DecimalSeparator:
            return answers.decimalSeparator;
        case MoneyItem::CurrencySymbol:
            return answers.currencySymbol;
        case MoneyItem::CurrencyDigits:
            break;
    }
    return answers.currencyDigits;
}

}  // namespace

LocaleAnswers::LocaleAnswers() : decimalMark(QStringLiteral(".")) {
    for (size_t place = 0; place < months.size(); ++place) {
        months[place] = QLocale::c().monthName(static_cast<int>(place) + 1, QLocale::ShortFormat);
    }
}

void LoadSystemLocale() {
    CurrentAnswers() = AskUsersLocale();
}

bool LoadLocale(const QString& name) {
    const std::optional<LocaleAnswers> answers = name.isEmpty() ? std::nullopt : AskLocale(name);
    if (answers) {
        CurrentAnswers() = *answers;
    }
    return answers.has_value();
}

std::optional<QString> LocaleMoney(MoneyItem item) {
    const QString& text = MoneyText(item);
    return text.isEmpty() ? std::nullopt : std::optional<QString>(text);
}

const QString& DecimalMark() {
    return CurrentAnswers().decimalMark;
}

const QString& DateSeparator() {
    return CurrentAnswers().dateFormat.separator;
}

DateOrder ShortDateOrder() {
    return CurrentAnswers().dateFormat.order;
}

QString ShortMonthName(int month) {
    if (month < 1 || month > 12) {
        throw Failure(FailureNumber::InvalidProcedureCall,
                      QStringLiteral("Invalid procedure call or argument"));
    }
    return CurrentAnswers().months[static_cast<size_t>(month) - 1];
}

}  // namespace platform
