#pragma once

#include <QChar>
#include <QString>

#include <optional>

namespace platform {

/// Reads the user's locale from the environment. Called once at the start of a program; without it the
/// locale is "C". Tests call it again after changing the environment.
void LoadSystemLocale();

/// Puts the locale in force that the system knows by this name. "C" is known everywhere: a point before the
/// decimals, the month first in dates, English months. False if there is none of this name; nothing changes
/// then.
bool LoadLocale(const QString& name);

/// How the locale writes money.
enum class MoneyItem { ThousandSeparator, DecimalSeparator, CurrencySymbol, CurrencyDigits };

/// Empty when the locale gives no answer or an empty one; the caller has a default for that.
std::optional<QString> LocaleMoney(MoneyItem item);

/// The mark between whole and fraction in numbers (not money), "." when the locale is silent.
const QString& DecimalMark();

/// What stands between day, month and year in the locale's short date: "/" in most, "." or "-" in others.
const QString& DateSeparator();

enum class DateOrder { DayMonthYear, MonthDayYear, YearMonthDay };
DateOrder ShortDateOrder();

/// The short name of a month (1 to 12) in the locale's language: "Jan".
QString ShortMonthName(int month);

}  // namespace platform
