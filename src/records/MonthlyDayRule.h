#pragma once

#include "engine/Currency.h"

#include <QDate>

namespace records {

/// A rent period of a tenancy whose rent falls due on one day of each month.
struct MonthlyPeriod {
    QDate NextStart;  ///< The first day after the period.
    engine::Currency PeriodRent;
};

/// The period that begins on dStartDate. Rent that starts between two due days runs up to the next due day
/// and is charged for those days alone: of the month that ends there, the days from dStartDate.
///
/// Days are counted plainly, so in short months, and with a MonthDay above 28 or outside of 1 to 31, a period
/// can miss the due day and the next one is a part again. Every period has at least one day. Where the rent
/// can't be divided, it is charged in full.
MonthlyPeriod MonthlyPeriodFrom(QDate dStartDate, qint16 MonthDay, engine::Currency nCurrentRent);

/// The NextStart of that period.
QDate NextDueDay(QDate dStartDate, qint16 MonthDay);

}  // namespace records
