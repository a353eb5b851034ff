#include "support/MoneyLocale.h"

#include "controls/base/Regional.h"

CountryLocale::CountryLocale(const QByteArray& name) : locale_(name) {
    controls::ForgetRegionalSettings();
}

CountryLocale::~CountryLocale() {
    controls::ForgetRegionalSettings();
}

MoneyLocale::MoneyLocale(const MoneyMarks& marks) {
    controls::AskForMoney([marks](platform::MoneyItem item) -> std::optional<QString> {
        switch (item) {
            case platform::MoneyItem::DecimalSeparator:
                return marks.decimalSeparator;
            case platform::MoneyItem::ThousandSeparator:
                return marks.thousandSeparator;
            case platform::MoneyItem::CurrencyDigits:
                return marks.digits;
            case platform::MoneyItem::CurrencySymbol:
                break;
        }
        return std::nullopt;
    });
}

MoneyLocale::~MoneyLocale() {
    controls::AskForMoney({});
}
