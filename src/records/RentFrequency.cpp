#include "records/RentFrequency.h"

#include <algorithm>
#include <array>

namespace records {

namespace {

constexpr int DaysOfWeek = 7;

struct NamedFrequency {
    Frequency frequency;
    QLatin1String name;
    bool isOffered = true;
};

constexpr std::array<NamedFrequency, 5> Frequencies = {{
    {Frequency::Day, QLatin1String("Day")},
    {Frequency::Week, QLatin1String("Week")},
    {Frequency::Month, QLatin1String("Month")},
    {Frequency::Year, QLatin1String("Year")},
    // Hearthbook knows it, for one period that is as long as the tenancy.
    {Frequency::Duration, QLatin1String("Duration"), false},
}};

}  // namespace

Frequency FrequencyOf(const QString& every_freq) {
    const auto* const found =
        std::find_if(Frequencies.begin(), Frequencies.end(),
                     [&](const NamedFrequency& each) { return each.name == every_freq; });
    return found == Frequencies.end() ? Frequency::Unknown : found->frequency;
}

const QStringList& OfferedFrequencies() {
    static const QStringList offered = [] {
        QStringList names;
        for (const NamedFrequency& each : Frequencies) {
            if (each.isOffered) {
                names.append(each.name);
            }
        }
        return names;
    }();
    return offered;
}

QString DefaultFrequency() {
    return QStringLiteral("Week");
}

QString FrequencyChoice() {
    QStringList names;
    for (const QString& name : OfferedFrequencies()) {
        names.append(u'"' + name + u'"');
    }
    const QString last = names.takeLast();
    return names.join(QStringLiteral(", ")) + QStringLiteral(" or ") + last;
}

QString FrequencyRequired() {
    return QStringLiteral("Must be ") + FrequencyChoice();
}

bool HasMonthDay(const QString& frequency) {
    return FrequencyOf(frequency) == Frequency::Month;
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
