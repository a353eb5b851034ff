#pragma once

#include "controls/base/NumberText.h"

#include <QChar>
#include <QString>

namespace controls {

/// What a text box in numeric mode is bound to.
struct NumericRules {
    NumberMarks marks;
    qint16 DecimalPlaces = 0;
    bool AllowNegative = false;
};

/// Whether a typed character, BackspaceKey included, reaches a box without numeric mode. An apostrophe
/// doesn't, as names end up between apostrophes in the statements for the database.
bool PassesTextKeys(QChar key);

/// Whether a typed character reaches a box in numeric mode that holds `text`. Of a mark with several
/// characters, the key is its first. A second decimal separator or sign doesn't pass, whether or not the
/// first is about to be replaced.
bool PassesNumericKeys(QChar key, const QString& text, const NumericRules& rules);

/// What a changed text in numeric mode is put right to: the sign in front, or gone; surplus decimals cut off,
/// never rounded; and if it still is no number, then the number that it begins with. Nothing and a lone "-"
/// stay, as they are on the way to a number.
QString CorrectedNumber(QString text, const NumericRules& rules);

/// What the text becomes when the user leaves the box: itself if it is a number, else the number that it
/// begins with. It is not padded to its decimals.
QString NumberOnLeaving(const QString& text, const NumericRules& rules);

}  // namespace controls
