#pragma once

#include "engine/Currency.h"
#include "records/RentFrequency.h"

#include <QDate>
#include <QString>

/// The rent history of a tenancy, period by period.
namespace records {

/// Writes one row of rent_periods for each rent period from the start up to the end date, or up to today
/// where that is NoDate. The last period is a whole one, even where it runs past the end.
///
/// dStartDate is the first day of the first period and comes back as the day after the last. With
/// bForceAtLeastOne one period is written even if the start lies after the end; it comes back false once
/// a period has been worked out. every_freq is "Day", "Week", "Month", "Year" or "Duration" (up to the
/// end date stored with the tenancy); any other is told to the user and ends the walk. An every_amt below
/// 1 never ends. Rows that can't be written are reported by the layer below and do not stop the walk.
void GeneratePeriods(QDate& dStartDate, const QString& sTenant, engine::Currency nCurrentRent,
                     bool& bForceAtLeastOne, qint16 MonthDay, QDate EndDate, qint16 every_amt,
                     const QString& every_freq);

/// The first day after the rent period that begins on a day, and after the last one of a tenancy with an end:
/// what GeneratePeriods reckons with. For the offered frequencies and an every_amt from 1 on.
QDate NextPeriodStart(QDate start, Frequency frequency, qint16 every_amt, qint16 MonthDay);
QDate DayAfterPeriods(QDate start, QDate end, Frequency frequency, qint16 every_amt, qint16 MonthDay);

/// Whether the day of the month plays a part in these periods.
bool FollowsMonthDay(Frequency frequency, qint16 every_amt);

/// Divides the rent of the whole period PeriodFrom to PeriodTo at a day: Split1 is the rent of the days
/// up to and with EndDate, Split2 the rest, both in whole cents. Days are counted in 16 bits (platform
/// failure 6 beyond); failure 11 for a period of no days.
void RentSplit(QDate PeriodFrom, QDate PeriodTo, QDate EndDate, engine::Currency RentAmount,
               engine::Currency& Split1, engine::Currency& Split2);

}  // namespace records
