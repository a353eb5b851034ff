#pragma once

#include "platform/Locale.h"

#include <QString>

#include <functional>
#include <optional>

/// Module Regional: how the user's locale writes money. Its money settings are meant and not those for plain
/// numbers, because what is entered as a number in this program is money.
///
/// The locale is asked once, when the first setting is needed, and the answers hold for the whole run: a box
/// must not read a text by other rules than those it was typed under.
namespace controls {

/// What stands between groups of digits: "," in "1,000.50", more than one character in a few locales.
/// Never empty.
QString GetThousandSeparator();

/// What stands between whole and fraction: "." in "1,000.50". Never empty.
QString GetDecimalSeparator();

/// How many decimals an amount of money has, in digits: "2". Never empty.
QString GetCurrencyDigits();

/// Asks the locale for all settings. What it doesn't answer becomes ",", "." and "2", as it also does in a
/// locale that says nothing about money.
void LoadRegionalSettings();

/// The locale's answer to one question, or the default if there is none.
QString GetLocaleValue(platform::MoneyItem item, const QString& defaultValue);

/// For tests that stand in several locales: the next question asks the locale again. Boxes that live by then
/// keep what they have.
void ForgetRegionalSettings();

/// For tests of what no locale of this system answers: this source is asked in its place from here on, and
/// what was loaded is forgotten. An empty function goes back to the system's locale.
using MoneySource = std::function<std::optional<QString>(platform::MoneyItem item)>;
void AskForMoney(MoneySource source);

}  // namespace controls
