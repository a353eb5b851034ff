#include "records/MonthlyDayRule.h"
#include "support/RecordsTest.h"

namespace {

using engine::Currency;

/// The two parts as scaled integers.
std::pair<qint64, qint64> Split(QDate from, QDate to, QDate end, double rent) {
    Currency Split1;
    Currency Split2;
    records::Tenants::RentSplit(from, to, end, Currency::FromDouble(rent), Split1, Split2);
    return {Split1.Scaled(), Split2.Scaled()};
}

TEST(RentSplitTest, DividesByDays) {
    EXPECT_EQ(Split(QDate(2026, 3, 1), QDate(2026, 3, 31), QDate(2026, 3, 14), 1000),
              (std::pair<qint64, qint64>(451'6100, 548'3900)));
    EXPECT_EQ(Split(QDate(2026, 2, 20), QDate(2026, 3, 19), QDate(2026, 3, 9), 1000),
              (std::pair<qint64, qint64>(642'8600, 357'1400)));
}

TEST(RentSplitTest, AnExactTieGoesToTheEvenCent) {
    EXPECT_EQ(Split(QDate(2026, 4, 1), QDate(2026, 4, 30), QDate(2026, 4, 15), 10.25),
              (std::pair<qint64, qint64>(5'1200, 5'1300)));
    EXPECT_EQ(Split(QDate(2026, 4, 1), QDate(2026, 4, 30), QDate(2026, 4, 15), 10.75),
              (std::pair<qint64, qint64>(5'3800, 5'3700)));
}

TEST(RentSplitTest, TheSecondPartIsRoundedToCentsToo) {
    EXPECT_EQ(Split(QDate(2026, 4, 1), QDate(2026, 4, 30), QDate(2026, 4, 15), 10.0050),
              (std::pair<qint64, qint64>(5'0000, 5'0000)));
    EXPECT_EQ(Split(QDate(2026, 4, 1), QDate(2026, 4, 30), QDate(2026, 3, 31), 10.0150),
              (std::pair<qint64, qint64>(0, 10'0200)));
}

TEST(RentSplitTest, AllOrNothingAtTheEdges) {
    EXPECT_EQ(Split(QDate(2026, 4, 1), QDate(2026, 4, 30), QDate(2026, 4, 30), 300),
              (std::pair<qint64, qint64>(300'0000, 0)));
    EXPECT_EQ(Split(QDate(2026, 4, 1), QDate(2026, 4, 30), QDate(2026, 3, 31), 300),
              (std::pair<qint64, qint64>(0, 300'0000)));
    EXPECT_EQ(Split(QDate(2026, 4, 1), QDate(2026, 4, 30), QDate(2026, 3, 1), 300),
              (std::pair<qint64, qint64>(-300'0000, 600'0000)));
}

TEST(RentSplitTest, NoDaysCannotBeDivided) {
    EXPECT_EQ(FailureOf([] { Split(QDate(2026, 4, 1), QDate(2026, 3, 31), QDate(2026, 4, 1), 1); }), 11);
}

TEST(RentSplitTest, DaysAreCountedInSixteenBits) {
    const QDate from(1900, 1, 1);
    EXPECT_EQ(Split(from, from.addDays(32766), from.addDays(32766), 5).first, 5'0000);
    EXPECT_EQ(FailureOf([&] { Split(from, from.addDays(32767), from, 5); }), 6);
    EXPECT_EQ(FailureOf([&] { Split(from, from, from.addDays(32767), 5); }), 6);
    EXPECT_EQ(FailureOf([&] { Split(from, from, from.addDays(-32769), 5); }), 0);
    EXPECT_EQ(FailureOf([&] { Split(from, from, from.addDays(-32770), 5); }), 6);
}

TEST(MonthlyDayRuleTest, OnTheDueDayThePeriodIsAMonth) {
    const auto period = records::MonthlyPeriodFrom(QDate(2026, 1, 31), 31, Currency::FromDouble(1000));
    EXPECT_EQ(period.NextStart, QDate(2026, 2, 28));
    EXPECT_EQ(period.PeriodRent, Currency::FromDouble(1000));
}

TEST(MonthlyDayRuleTest, AheadOfTheDueDayDaysAreAddedEvenPastTheMonthsEnd) {
    const auto period = records::MonthlyPeriodFrom(QDate(2026, 2, 28), 31, Currency::FromDouble(1000));
    EXPECT_EQ(period.NextStart, QDate(2026, 3, 3));
    EXPECT_EQ(period.PeriodRent, Currency::FromDouble(107.14));
}

TEST(MonthlyDayRuleTest, ThePeriodHasADayAtLeast) {
    const auto period = records::MonthlyPeriodFrom(QDate(2026, 1, 31), 1, Currency::FromDouble(310));
    EXPECT_EQ(period.NextStart, QDate(2026, 2, 1));
    // One of the 31 days from January 1.
    EXPECT_EQ(period.PeriodRent, Currency::FromDouble(10));
}

TEST(MonthlyDayRuleTest, AnyDueDayOfSixteenBitsGivesALaterStart) {
    for (const int MonthDay : {-32768, -1, 0, 32, 32767}) {
        for (QDate day(2024, 1, 1); day < QDate(2024, 4, 1); day = day.addDays(1)) {
            const auto period =
                records::MonthlyPeriodFrom(day, static_cast<qint16>(MonthDay), Currency::FromDouble(1));
            EXPECT_GT(period.NextStart, day) << MonthDay;
        }
    }
}

TEST(MonthlyDayRuleTest, ARentThatCannotBeDividedIsChargedInFull) {
    // 600 times the rent doesn't fit the currency: the month that ends at the due day lies far behind the
    // start.
    const Currency largest = Currency::FromScaled(std::numeric_limits<qint64>::max());
    const auto period = records::MonthlyPeriodFrom(QDate(2026, 3, 1), 20'000, largest);
    EXPECT_EQ(period.NextStart, QDate(2026, 3, 1).addDays(19'999));
    EXPECT_EQ(period.PeriodRent, largest);
}

}  // namespace
