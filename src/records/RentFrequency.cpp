#include "records/RentFrequency.h"

#include <QHash>

namespace records {

namespace {

constexpr int DaysOfWeek = 7;

}  // namespace

Frequency FrequencyOf(const QString& every_freq) {
    static const QHash<QString, Frequency> frequencies = {
        {QStringLiteral("Day"), Frequency::Day},           {QStringLiteral("Week"), Frequency::Week},
        {QStringLiteral("Month"), Frequency::Month},       {QStringLiteral("Year"), Frequency::Year},
        {QStringLiteral("Duration"), Frequency::Duration},
    };
    return frequencies.value(every_freq, Frequency::Unknown);
}

QDate StepFrom(QDate day, Frequency frequency, qint16 every_amt) {
    switch (frequency) {
        case Frequency::Day:
            return day.addDays(every_amt);
        case Frequency::Week:
            return day.addDays(qint64{every_amt} * DaysOfWeek);
        case Frequency::Month:
            return day.addMonths(every_amt);
        case Frequency::Year:
            return day.addYears(every_amt);
        case Frequency::Duration:
        case Frequency::Unknown:
            break;
    }
    return day;
}

}  // namespace records
