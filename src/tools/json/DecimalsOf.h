#pragma once

#include <QString>

#include <cstdint>

namespace tools {

/// How many decimals a JSON number needs, told by its text: 2 for 1.250 and for 125e-2, 0 or less for a whole
/// number. The number itself doesn't tell, since it is rounded to what a double holds.
std::int64_t DecimalsOf(const QString& number);

}  // namespace tools
