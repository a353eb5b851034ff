#include "controls/base/Regional.h"

#include <utility>

namespace controls {

namespace {

struct Settings {
    QString thousandSeparator;
    QString decimalSeparator;
    QString currencySymbol;
    QString currencyDigits;
};

Settings& TheSettings() {
    static Settings settings;
    return settings;
}

MoneySource& TheSource() {
    static MoneySource source;
    return source;
}

std::optional<QString> AskSource(platform::MoneyItem item) {
    return TheSource() ? TheSource()(item) : platform::LocaleMoney(item);
}

/// No setting is empty once they are loaded, so an empty one means that they aren't.
QString Loaded(const QString& setting) {
    if (setting.isEmpty()) {
        LoadRegionalSettings();
    }
    return setting;
}

}  // namespace

QString GetThousandSeparator() {
    return Loaded(TheSettings().thousandSeparator);
}

QString GetDecimalSeparator() {
    return Loaded(TheSettings().decimalSeparator);
}

QString GetCurrencyDigits() {
    return Loaded(TheSettings().currencyDigits);
}

void LoadRegionalSettings() {
    using platform::MoneyItem;
    Settings& settings = TheSettings();
    settings.thousandSeparator = GetLocaleValue(MoneyItem::ThousandSeparator, QStringLiteral(","));
    settings.decimalSeparator = GetLocaleValue(MoneyItem::DecimalSeparator, QStringLiteral("."));
    // Nothing shows the symbol, so it doesn't matter that its default isn't one.
    settings.currencySymbol = GetLocaleValue(MoneyItem::CurrencySymbol, QStringLiteral("."));
    settings.currencyDigits = GetLocaleValue(MoneyItem::CurrencyDigits, QStringLiteral("2"));
}

QString GetLocaleValue(platform::MoneyItem item, const QString& defaultValue) {
    const QString value = AskSource(item).value_or(QString());
    return value.isEmpty() ? defaultValue : value;
}

void ForgetRegionalSettings() {
    TheSettings() = {};
}

void AskForMoney(MoneySource source) {
    TheSource() = std::move(source);
    ForgetRegionalSettings();
}

}  // namespace controls
