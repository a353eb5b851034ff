#include "support/AddressSanitizer.h"
#include "support/CheckMany.h"
#include "support/FakeDatabaseInPlace.h"
#include "support/PlainRent.h"
#include "support/RecordsTest.h"

#include <algorithm>
#include <iterator>

namespace {

class RentPeriodsPropertyTest : public RecordsTest {};

QDate ToQDate(plain::Day day) {
    return QDate(static_cast<int>(day.year), day.month, day.day);
}

/// Few enough periods to write a hundred thousand tenancies' worth of them.
int LongestStay(const std::string& frequency) {
    return frequency == "Day" ? 60 : frequency == "Week" ? 400 : frequency == "Month" ? 1500 : 9000;
}

plain::Tenancy DrawTenancy() {
    static const std::array<std::string, 6> frequencies = {"Day", "Week", "Month", "Month", "Month", "Year"};
    plain::Tenancy tenancy;
    tenancy.frequency = frequencies.at(static_cast<std::size_t>(Draw(0, 5)));
    tenancy.start = {Draw(1890, 2110), Draw(1, 12), 1};
    const int lastDay = plain::LengthOf(tenancy.start.year, tenancy.start.month);
    tenancy.start.day = Chance(30) ? lastDay : Draw(1, lastDay);
    tenancy.stop = plain::AddDays(tenancy.start, Draw(-40, LongestStay(tenancy.frequency)));
    tenancy.number = Chance(60) ? 1 : Chance(90) ? Draw(2, 6) : Draw(1, 3000);
    tenancy.monthDay = Chance(90) ? Draw(1, 31) : Chance(80) ? Draw(-40, 75) : Draw(-32768, 32767);
    tenancy.rent = Chance(70) ? std::int64_t{Draw(0, 500'000)} * 100 : Draw(0, 2'000'000'000);
    tenancy.force = Chance(90);
    return tenancy;
}

TEST_F(RentPeriodsPropertyTest, PeriodsAreThoseOfThePlainRules) {
    FakeDatabaseInPlace recorder;
    std::size_t rows = 0;
    const int cases = CasesToTry(100'000, 10);
    CheckMany(cases, [&] {
        const plain::Tenancy tenancy = DrawTenancy();
        QDate EndDate = ToQDate(tenancy.stop);
        platform::PinToday(QDate(2026, 6, 10));
        if (Chance(30)) {
            platform::PinToday(EndDate);
            EndDate = platform::NoDate();
        }
        recorder->statements.clear();
        QDate dStartDate = ToQDate(tenancy.start);
        bool bForceAtLeastOne = tenancy.force;
        records::Tenants::GeneratePeriods(dStartDate, u"T"_s, engine::Currency::FromScaled(tenancy.rent),
                                          bForceAtLeastOne, static_cast<qint16>(tenancy.monthDay), EndDate,
                                          static_cast<qint16>(tenancy.number),
                                          QString::fromStdString(tenancy.frequency));
        std::vector<std::string> written;
        std::transform(recorder->statements.begin(), recorder->statements.end(), std::back_inserter(written),
                       [](const QString& statement) { return statement.toStdString(); });
        RC_ASSERT(written == plain::RentStatements(tenancy));
        rows += written.size();
    });
    EXPECT_TRUE(boxes_.requests.empty());
    EXPECT_GT(rows, 5U * static_cast<std::size_t>(cases));
}

}  // namespace
