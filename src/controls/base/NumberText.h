#pragma once

#include <QString>
#include <QStringView>

#include <optional>

namespace controls {

/// What a locale writes numbers with. Either may have several characters; neither is empty.
struct NumberMarks {
    QString decimalSeparator;
    QString thousandSeparator;

    /// The marks of the user's locale, as it writes money.
    static NumberMarks OfTheUser();
};

/// The number that a text is, the whole of it: a sign if there is one, digits, and the marks. Blanks may
/// stand around the sign and at the end, since they come along when an amount is copied from elsewhere.
/// Thousands separators may stand anywhere before the decimal separator, also where no thousand is, so that a
/// number stays one while it is being typed: "1,", ",000". Either side of the decimal separator may be empty.
///
/// Empty if the text is anything else: nothing, a lone sign or mark, an exponent, or beyond what a double
/// holds.
std::optional<double> ReadNumber(QStringView text, const NumberMarks& marks);

bool IsNumericText(QStringView text, const NumberMarks& marks);

/// The shortest text that reads as just this number: no exponent, no padding, no thousands separators, and
/// "0" without a sign. Infinity and what is no number are "0" too.
QString GeneralText(double number, const NumberMarks& marks);

/// The sum as it comes out on paper: with no more decimals than the longer of the two has. What a double adds
/// beyond them would otherwise turn 0.7 and 0.1 into 0.7999999999999999, and cut to two decimals into 0.79.
double DecimalSum(double first, double second);

}  // namespace controls
