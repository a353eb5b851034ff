#include "support/PlainRent.h"

#include <cmath>

namespace plain {
namespace {

std::string TwoDigits(int number) {
    return {static_cast<char>('0' + number / 10), static_cast<char>('0' + number % 10)};
}

std::string Literal(Day day) {
    std::string year = std::to_string(day.year);
    year.insert(0, year.size() < 4 ? 4 - year.size() : 0, '0');
    return "#" + TwoDigits(day.month) + "/" + TwoDigits(day.day) + "/" + year + "#";
}

std::string Money(std::int64_t amount) {
    const std::string sign = amount < 0 ? "-" : "";
    amount = std::abs(amount);
    std::string text = std::to_string(amount / 10000);
    std::string fraction = std::to_string(10000 + amount % 10000).substr(1);
    while (!fraction.empty() && fraction.back() == '0') {
        fraction.pop_back();
    }
    return sign + text + (fraction.empty() ? "" : "." + fraction);
}

/// The nearest whole number, on a tie the even one.
std::int64_t Nearest(double value) {
    const double below = std::floor(value);
    auto whole = static_cast<std::int64_t>(below);
    const double rest = value - below;
    if (rest > 0.5 || (rest == 0.5 && whole % 2 != 0)) {
        ++whole;
    }
    return whole;
}

std::int64_t WholeCents(std::int64_t amount) {
    std::int64_t cents = amount / 100;
    std::int64_t rest = amount % 100;
    if (rest < 0) {
        rest += 100;
        --cents;
    }
    if (rest > 50 || (rest == 50 && cents % 2 != 0)) {
        ++cents;
    }
    return cents * 100;
}

/// What is left of a month's rent for the days after the last day of its first part.
std::int64_t RentAfter(Day from, Day to, Day lastOfFirst, std::int64_t rent) {
    const auto total = static_cast<double>(Number(to) - Number(from) + 1);
    const auto first = static_cast<double>(Number(lastOfFirst) - Number(from) + 1);
    const double share = static_cast<double>(rent) / 10000.0 * (first / total);
    return WholeCents(rent - Nearest(share * 100.0) * 100);
}

struct Period {
    Day next;
    std::int64_t rent = 0;
};

Period MonthlyPeriod(const Tenancy& tenancy, Day start) {
    if (start.day == tenancy.monthDay) {
        return {AddMonths(start, 1), tenancy.rent};
    }
    Day next = start.day < tenancy.monthDay
                   ? AddDays(start, tenancy.monthDay - start.day)
                   : AddDays(AddMonths(start, 1), -(std::int64_t{start.day} - tenancy.monthDay));
    if (!(start < next)) {
        next = AddDays(start, 1);
    }
    return {next, RentAfter(AddMonths(next, -1), AddDays(next, -1), AddDays(start, -1), tenancy.rent)};
}

Period PeriodFrom(const Tenancy& tenancy, Day start) {
    if (tenancy.frequency == "Day") {
        return {AddDays(start, tenancy.number), tenancy.rent};
    }
    if (tenancy.frequency == "Week") {
        return {AddDays(start, std::int64_t{7} * tenancy.number), tenancy.rent};
    }
    if (tenancy.frequency == "Year") {
        return {AddMonths(start, std::int64_t{12} * tenancy.number), tenancy.rent};
    }
    return tenancy.number == 1 ? MonthlyPeriod(tenancy, start)
                               : Period{AddMonths(start, tenancy.number), tenancy.rent};
}

}  // namespace

std::vector<std::string> RentStatements(const Tenancy& tenancy) {
    std::vector<std::string> statements;
    Day start = tenancy.start;
    for (bool force = tenancy.force; force || !(tenancy.stop < start); force = false) {
        const Period period = PeriodFrom(tenancy, start);
        statements.push_back(
            "insert into rent_periods (tenant_code, period_from,period_to,rent_due,extra_charges,paid,"
            "extra_charges_paid) values('T'," +
            Literal(start) + "," + Literal(AddDays(period.next, -1)) + "," + Money(period.rent) + ",0,0,0)");
        start = period.next;
    }
    return statements;
}

}  // namespace plain
