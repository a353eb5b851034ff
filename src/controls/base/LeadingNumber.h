#pragma once

#include <QStringView>

namespace controls {

/// The number that a text begins with: blanks, a sign, digits and "." as the decimal point whatever the
/// locale; what stands behind it doesn't count. 0 where the text begins with no number.
double LeadingNumber(QStringView text);

}  // namespace controls
