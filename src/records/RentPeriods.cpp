#include "records/RentPeriods.h"

#include "database/RecordAccess.h"
#include "database/StatementText.h"
#include "platform/Clock.h"
#include "platform/Failure.h"
#include "platform/MessageBox.h"
#include "platform/NoDate.h"
#include "platform/Process.h"
#include "records/MonthlyDayRule.h"
#include "records/RentFrequency.h"

#include <cmath>
#include <limits>
#include <optional>

namespace records {
namespace {

/// Writes the rows of one tenant. A long history is a great many rows, so the text is put together in place
/// and the full rent is turned into text once.
class PeriodWriter {
public:
    PeriodWriter(const QString& sTenant, engine::Currency fullRent)
        : head_(QStringLiteral("insert into rent_periods (tenant_code, period_from,period_to,rent_due,"
                               "extra_charges,paid,extra_charges_paid) values('") +
                sTenant + QStringLiteral("',")),
          fullRent_(fullRent),
          fullRentText_(database::DecimalText(fullRent)) {}

    void Write(QDate from, QDate to, engine::Currency rent) {
        // Written over and over, so that its room is found once.
        statement_.resize(0);
        statement_ += head_;
        database::AppendSqlDate(statement_, from);
        statement_ += u',';
        database::AppendSqlDate(statement_, to);
        statement_ += u',';
        statement_ += rent == fullRent_ ? fullRentText_ : database::DecimalText(rent);
        statement_ += QLatin1String(",0,0,0)");
        database::ExecuteSql(statement_);
    }

private:
    QString head_;
    engine::Currency fullRent_;
    QString fullRentText_;
    QString statement_;
};

/// The day after the end that is stored with the tenancy.
QDate DayAfterStoredEnd(const QString& sTenant) {
    return database::LookupDate(QStringLiteral("[when ended]"), QStringLiteral("tenancy"),
                                QStringLiteral(" where reference = '") + sTenant + QStringLiteral("'"),
                                platform::Today())
        .addDays(1);
}

/// How many days there are from one day to another, both counted.
qint16 DaysBetween(QDate first, QDate last) {
    const qint64 days = first.daysTo(last) + 1;
    if (days < std::numeric_limits<qint16>::min() || days > std::numeric_limits<qint16>::max()) {
        platform::RaiseOverflow();
    }
    return static_cast<qint16>(days);
}

}  // namespace

void GeneratePeriods(QDate& dStartDate, const QString& sTenant, engine::Currency nCurrentRent,
                     bool& bForceAtLeastOne, qint16 MonthDay, QDate EndDate, qint16 every_amt,
                     const QString& every_freq) {
    PeriodWriter writer(sTenant, nCurrentRent);
    const QDate StopDate = platform::IsNoDate(EndDate) ? platform::Today() : EndDate;
    const Frequency frequency = FrequencyOf(every_freq);

    while (dStartDate <= StopDate || bForceAtLeastOne) {
        engine::Currency PeriodRent = nCurrentRent;
        QDate NextStart;
        switch (frequency) {
            case Frequency::Duration:
                if (!bForceAtLeastOne) {
                    return;
                }
                NextStart = DayAfterStoredEnd(sTenant);
                break;
            case Frequency::Unknown:
                platform::ShowMessageBox(QStringLiteral("Invalid rent frequency of ") + every_freq);
                return;
            default:
                if (FollowsMonthDay(frequency, every_amt)) {
                    const MonthlyPeriod period = MonthlyPeriodFrom(dStartDate, MonthDay, nCurrentRent);
                    NextStart = period.NextStart;
                    PeriodRent = period.PeriodRent;
                } else {
                    NextStart = StepFrom(dStartDate, frequency, every_amt);
                }
        }

        bForceAtLeastOne = false;
        writer.Write(dStartDate, NextStart.addDays(-1), PeriodRent);
        dStartDate = NextStart;
        if (frequency == Frequency::Duration) {
            return;
        }
        // Between two rows is a safe place to end, and with an every_amt of 0 the only one there will be.
        platform::EndIfRequested();
    }
}

bool FollowsMonthDay(Frequency frequency, qint16 every_amt) {
    return frequency == Frequency::Month && every_amt == 1;
}

QDate NextPeriodStart(QDate start, Frequency frequency, qint16 every_amt, qint16 MonthDay) {
    return FollowsMonthDay(frequency, every_amt) ? NextDueDay(start, MonthDay)
                                                 : StepFrom(start, frequency, every_amt);
}

QDate DayAfterPeriods(QDate start, QDate end, Frequency frequency, qint16 every_amt, qint16 MonthDay) {
    QDate next = NextPeriodStart(start, frequency, every_amt, MonthDay);
    while (next <= end) {
        next = NextPeriodStart(next, frequency, every_amt, MonthDay);
    }
    return next;
}

void RentSplit(QDate PeriodFrom, QDate PeriodTo, QDate EndDate, engine::Currency RentAmount,
               engine::Currency& Split1, engine::Currency& Split2) {
    const qint16 TotalDays = DaysBetween(PeriodFrom, PeriodTo);
    const qint16 FirstDays = DaysBetween(PeriodFrom, EndDate);
    if (TotalDays == 0) {
        platform::RaiseDivisionByZero();
    }
    const double share = static_cast<double>(FirstDays) / static_cast<double>(TotalDays);
    Split1 = engine::Currency::FromDouble(std::nearbyint(RentAmount.ToDouble() * share * 100.0) / 100.0);
    Split2 = (RentAmount - Split1).RoundedToCents();
}

}  // namespace records
