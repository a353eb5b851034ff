#include "controls/text/TextBoxRules.h"

#include "controls/base/LeadingNumber.h"
#include "controls/base/TypedText.h"

#include <algorithm>

namespace controls {

namespace {

constexpr QChar MinusKey = QLatin1Char('-');

bool IsFirstOf(QChar key, const QString& mark) {
    return !mark.isEmpty() && mark.front() == key;
}

QString LeadingNumberText(const QString& text, const NumericRules& rules) {
    return GeneralText(LeadingNumber(text), rules.marks);
}

/// A sign may be typed anywhere and moves to the front.
void PutSignRight(QString& text, const NumericRules& rules) {
    if (!text.contains(MinusKey)) {
        return;
    }
    if (!text.startsWith(MinusKey)) {
        text.remove(MinusKey).prepend(MinusKey);
    }
    if (!rules.AllowNegative) {
        text.remove(0, 1);
    }
}

void CutDecimals(QString& text, const NumericRules& rules) {
    const qsizetype separator = text.indexOf(rules.marks.decimalSeparator);
    if (separator < 0) {
        return;
    }
    text.truncate(std::max<qsizetype>(0, separator + 1 + rules.DecimalPlaces));
    if (rules.DecimalPlaces == 0) {
        text.chop(1);
    }
}

}  // namespace

bool PassesTextKeys(QChar key) {
    return key != QLatin1Char('\'');
}

bool PassesNumericKeys(QChar key, const QString& text, const NumericRules& rules) {
    if (IsFirstOf(key, rules.marks.thousandSeparator)) {
        return true;
    }
    if ((key >= QLatin1Char('0') && key <= QLatin1Char('9')) || key == BackspaceKey) {
        return true;
    }
    if (IsFirstOf(key, rules.marks.decimalSeparator)) {
        return rules.DecimalPlaces != 0 && !text.contains(rules.marks.decimalSeparator);
    }
    return key == MinusKey && rules.AllowNegative && !text.contains(MinusKey);
}

QString CorrectedNumber(QString text, const NumericRules& rules) {
    PutSignRight(text, rules);
    CutDecimals(text, rules);
    if (text.isEmpty() || text == MinusKey || IsNumericText(text, rules.marks)) {
        return text;
    }
    return LeadingNumberText(text, rules);
}

QString NumberOnLeaving(const QString& text, const NumericRules& rules) {
    return IsNumericText(text, rules.marks) ? text : LeadingNumberText(text, rules);
}

}  // namespace controls
