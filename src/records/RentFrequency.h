#pragma once

#include <QDate>
#include <QString>

namespace records {

enum class Frequency { Day, Week, Month, Year, Duration, Unknown };

/// By the name that a tenancy is stored with, letter for letter.
Frequency FrequencyOf(const QString& every_freq);

/// The day that many days, weeks, months or years later. In a shorter month or year it is the last day of the
/// month. Not for the other frequencies, which have no step.
QDate StepFrom(QDate day, Frequency frequency, qint16 every_amt);

}  // namespace records
