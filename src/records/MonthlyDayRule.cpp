#include "records/MonthlyDayRule.h"

#include "platform/Failure.h"
#include "records/RentPeriods.h"

#include <algorithm>

namespace records {

QDate NextDueDay(QDate dStartDate, qint16 MonthDay) {
    const int Day = dStartDate.day();
    const QDate NextStart =
        Day < MonthDay ? dStartDate.addDays(MonthDay - Day) : dStartDate.addMonths(1).addDays(MonthDay - Day);
    // A month that is too short can bring the next start back to this one, or before it.
    return std::max(NextStart, dStartDate.addDays(1));
}

MonthlyPeriod MonthlyPeriodFrom(QDate dStartDate, qint16 MonthDay, engine::Currency nCurrentRent) {
    const QDate NextStart = NextDueDay(dStartDate, MonthDay);
    if (dStartDate.day() == MonthDay) {
        return {NextStart, nCurrentRent};
    }
    try {
        engine::Currency Split1;
        engine::Currency Split2;
        RentSplit(NextStart.addMonths(-1), NextStart.addDays(-1), dStartDate.addDays(-1), nCurrentRent,
                  Split1, Split2);
        return {NextStart, Split2};
    } catch (const platform::Failure&) {
        return {NextStart, nCurrentRent};
    }
}

}  // namespace records
