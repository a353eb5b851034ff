#pragma once

#include <QDate>
#include <QString>
#include <QStringList>

namespace records {

enum class Frequency { Day, Week, Month, Year, Duration, Unknown };

/// By the name that a tenancy is stored with, letter for letter.
Frequency FrequencyOf(const QString& every_freq);

/// The names that a user can choose from, in the order in which they are offered.
const QStringList& OfferedFrequencies();

/// The one that is chosen until the user chooses: most rents are due by the week.
QString DefaultFrequency();

/// The offered names in a sentence, and what an entry is told that has none of them.
QString FrequencyChoice();
QString FrequencyRequired();

/// Whether the user is asked for the day of the month on which rent falls due.
bool HasMonthDay(const QString& frequency);

/// The day that many days, weeks, months or years later. In a shorter month or year it is the last day of the
/// month. Not for the other frequencies, which have no step.
QDate StepFrom(QDate day, Frequency frequency, qint16 every_amt);

}  // namespace records
