#pragma once

#include <QString>

namespace database {

/// The whole number that a text stands for: digits with the locale's decimal mark, a sign and blanks around
/// them allowed, decimals rounded with ties to even. Platform failure 13 if it is no number, 6 if it leaves
/// 16 bits.
short ToInteger(const QString& text);

}  // namespace database
