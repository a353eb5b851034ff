#include "platform/Process.h"
#include "support/CommaLocale.h"
#include "support/FakeDatabaseInPlace.h"
#include "support/RecordsTest.h"

#include <csignal>
#include <cstdio>

namespace {

/// A rent_periods row: from, to and rent as they stand in the statement.
QString Row(const QString& from, const QString& to, const QString& rent) {
    return u"insert into rent_periods (tenant_code, period_from,period_to,rent_due,extra_charges,paid,"
           u"extra_charges_paid) values('Ada',#"_s +
           from + u"#,#"_s + to + u"#,"_s + rent + u",0,0,0)"_s;
}

class RentPeriodsTest : public RecordsTest {
protected:
    void Generate(QDate start, double rent, const QString& every_freq, int every_amt = 1, int MonthDay = 1,
                  QDate EndDate = QDate(1234, 1, 1)) {
        start_ = start;
        records::Tenants::GeneratePeriods(start_, u"Ada"_s, engine::Currency::FromDouble(rent), force_,
                                          static_cast<qint16>(MonthDay), EndDate,
                                          static_cast<qint16>(every_amt), every_freq);
    }

    void ExpectRows(const QStringList& rows) { EXPECT_EQ(database_->statements, rows); }

    /// What the tenancy's row says about its end.
    void StoreEnd(const engine::Value& end) {
        database_->rows.rows = 1;
        database_->rows.AddField("result", engine::dbDate, end);
    }

    /// Periods that bring the end no nearer, until the process is asked to end: three, as "from-to;".
    void ExpectToGoOn(const QString& every_freq, int every_amt, const char* periods) {
        EXPECT_EXIT(GenerateThreePeriods(every_freq, every_amt), ::testing::ExitedWithCode(128 + SIGTERM),
                    periods);
    }

    FakeDatabaseInPlace database_;
    QDate start_;
    bool force_ = true;

private:
    /// A database that is asks to end with the third row.
    class EndsWithTheThirdRow : public FakeDatabase {
    public:
        void Execute(const QString& statement) override {
            FakeDatabase::Execute(statement);
            if (statements.size() == 3) {
                std::raise(SIGTERM);
            }
        }
    };

    void GenerateThreePeriods(const QString& every_freq, int every_amt) {
        platform::HandleEndSignals();
        const auto rows = std::make_shared<EndsWithTheThirdRow>();
        database::SetCurrentDatabase(rows);
        platform::AtProcessEnd([rows] {
            for (const QString& row : rows->statements) {
                const QString period = row.section(u'#', 1, 1) + u'-' + row.section(u'#', 3, 3) + u';';
                std::fputs(period.toLatin1().constData(), stderr);
            }
        });
        Generate(QDate(2026, 6, 1), 100, every_freq, every_amt);
    }
};

TEST_F(RentPeriodsTest, AFirstPartOfAMonthIsChargedByDays) {
    Generate(QDate(2026, 3, 15), 1000, u"Month"_s);
    ExpectRows(
        {Row(u"03/15/2026"_s, u"03/31/2026"_s, u"548.39"_s), Row(u"04/01/2026"_s, u"04/30/2026"_s, u"1000"_s),
         Row(u"05/01/2026"_s, u"05/31/2026"_s, u"1000"_s), Row(u"06/01/2026"_s, u"06/30/2026"_s, u"1000"_s)});
    EXPECT_EQ(start_, QDate(2026, 7, 1));
    EXPECT_FALSE(force_);
}

TEST_F(RentPeriodsTest, TheDueDayMayLieLaterInTheMonth) {
    Generate(QDate(2026, 3, 10), 1000, u"Month"_s, 1, 20, QDate(2026, 4, 1));
    ExpectRows({Row(u"03/10/2026"_s, u"03/19/2026"_s, u"357.14"_s),
                Row(u"03/20/2026"_s, u"04/19/2026"_s, u"1000"_s)});
}

TEST_F(RentPeriodsTest, ADueDayOnThe31stGoesOnSplitting) {
    platform::PinToday(QDate(2026, 5, 2));
    Generate(QDate(2026, 1, 31), 1000, u"Month"_s, 1, 31);
    ExpectRows(
        {Row(u"01/31/2026"_s, u"02/27/2026"_s, u"1000"_s), Row(u"02/28/2026"_s, u"03/02/2026"_s, u"107.14"_s),
         Row(u"03/03/2026"_s, u"03/30/2026"_s, u"903.23"_s), Row(u"03/31/2026"_s, u"04/29/2026"_s, u"1000"_s),
         Row(u"04/30/2026"_s, u"04/30/2026"_s, u"33.33"_s),
         Row(u"05/01/2026"_s, u"05/30/2026"_s, u"967.74"_s)});
}

TEST_F(RentPeriodsTest, ClampingCanLeaveAPeriodOfOneDay) {
    Generate(QDate(2026, 1, 31), 310, u"Month"_s, 1, 1, QDate(2026, 1, 31));
    ExpectRows({Row(u"01/31/2026"_s, u"01/31/2026"_s, u"10"_s)});
}

TEST_F(RentPeriodsTest, WeeksCountTheirNumber) {
    platform::PinToday(QDate(2026, 11, 15));
    Generate(QDate(2026, 11, 1), 250, u"Week"_s, 2);
    ExpectRows(
        {Row(u"11/01/2026"_s, u"11/14/2026"_s, u"250"_s), Row(u"11/15/2026"_s, u"11/28/2026"_s, u"250"_s)});
}

TEST_F(RentPeriodsTest, APeriodThatStartsOnTheStopDateIsWritten) {
    platform::PinToday(QDate(2026, 11, 15));
    Generate(QDate(2026, 11, 1), 250, u"Week"_s);
    ExpectRows({Row(u"11/01/2026"_s, u"11/07/2026"_s, u"250"_s),
                Row(u"11/08/2026"_s, u"11/14/2026"_s, u"250"_s),
                Row(u"11/15/2026"_s, u"11/21/2026"_s, u"250"_s)});
}

TEST_F(RentPeriodsTest, TheLastPeriodRunsPastTheEndAtTheFullRent) {
    Generate(QDate(2026, 1, 5), 500, u"Month"_s, 1, 5, QDate(2026, 3, 10));
    ExpectRows({Row(u"01/05/2026"_s, u"02/04/2026"_s, u"500"_s),
                Row(u"02/05/2026"_s, u"03/04/2026"_s, u"500"_s),
                Row(u"03/05/2026"_s, u"04/04/2026"_s, u"500"_s)});
}

TEST_F(RentPeriodsTest, DaysAndYears) {
    Generate(QDate(2024, 2, 28), 127.5, u"Day"_s, 1, 1, QDate(2024, 2, 29));
    Generate(QDate(2024, 2, 29), 127.5, u"Year"_s, 1, 1, QDate(2025, 3, 1));
    ExpectRows({Row(u"02/28/2024"_s, u"02/28/2024"_s, u"127.5"_s),
                Row(u"02/29/2024"_s, u"02/29/2024"_s, u"127.5"_s),
                Row(u"02/29/2024"_s, u"02/27/2025"_s, u"127.5"_s),
                Row(u"02/28/2025"_s, u"02/27/2026"_s, u"127.5"_s)});
}

TEST_F(RentPeriodsTest, SeveralMonthsIgnoreTheDueDay) {
    Generate(QDate(2026, 1, 15), 900, u"Month"_s, 2, 1, QDate(2026, 4, 1));
    ExpectRows(
        {Row(u"01/15/2026"_s, u"03/14/2026"_s, u"900"_s), Row(u"03/15/2026"_s, u"05/14/2026"_s, u"900"_s)});
}

TEST_F(RentPeriodsTest, AFutureStartGivesOnePeriod) {
    Generate(QDate(2026, 8, 15), 1000, u"Month"_s);
    ExpectRows({Row(u"08/15/2026"_s, u"08/31/2026"_s, u"548.39"_s)});
}

TEST_F(RentPeriodsTest, AnEndBeforeTheStartGivesOnePeriod) {
    Generate(QDate(2026, 3, 1), 100, u"Week"_s, 1, 1, QDate(2026, 2, 1));
    ExpectRows({Row(u"03/01/2026"_s, u"03/07/2026"_s, u"100"_s)});
}

TEST_F(RentPeriodsTest, WithoutForceAFutureStartGivesNone) {
    force_ = false;
    Generate(QDate(2026, 6, 11), 100, u"Week"_s);
    ExpectRows({});
    Generate(QDate(2026, 6, 10), 100, u"Week"_s);
    ExpectRows({Row(u"06/10/2026"_s, u"06/16/2026"_s, u"100"_s)});
}

TEST_F(RentPeriodsTest, ARentOfZeroIsWritten) {
    Generate(QDate(2026, 6, 8), 0, u"Week"_s);
    ExpectRows({Row(u"06/08/2026"_s, u"06/14/2026"_s, u"0"_s)});
}

TEST_F(RentPeriodsTest, AnUnknownFrequencyIsToldAndWritesNothing) {
    for (const auto& every_freq : {u"Fortnight"_s, u"week"_s, u"Week "_s, QString()}) {
        force_ = true;
        boxes_.requests.clear();
        Generate(QDate(2026, 6, 1), 100, every_freq);
        ASSERT_EQ(boxes_.requests.size(), 1U);
        EXPECT_EQ(boxes_.requests[0].text, u"Invalid rent frequency of "_s + every_freq);
        EXPECT_EQ(boxes_.requests[0].title, platform::ApplicationTitle());
        EXPECT_TRUE(force_);
    }
    ExpectRows({});
}

const QString lookUp = u"select [when ended] as result from tenancy  where reference = 'Ada'"_s;

TEST_F(RentPeriodsTest, ADurationRunsToTheStoredEnd) {
    StoreEnd(engine::FromDate(QDate(2026, 9, 30)));
    Generate(QDate(2026, 3, 15), 4000, u"Duration"_s, 1, 1, QDate(2027, 1, 1));
    ExpectRows({lookUp, Row(u"03/15/2026"_s, u"09/30/2026"_s, u"4000"_s)});
    EXPECT_EQ(database_->lastType, engine::dbOpenForwardOnly);
    EXPECT_EQ(database_->lastLock, engine::dbReadOnly);
    EXPECT_EQ(start_, QDate(2026, 10, 1));
}

TEST_F(RentPeriodsTest, ADurationWithoutAStoredEndRunsToToday) {
    StoreEnd(engine::Null());
    Generate(QDate(2026, 3, 15), 4000, u"Duration"_s);
    ExpectRows({lookUp, Row(u"03/15/2026"_s, u"06/10/2026"_s, u"4000"_s)});
}

TEST_F(RentPeriodsTest, ADurationWithoutATenancyRunsToToday) {
    Generate(QDate(2026, 3, 15), 4000, u"Duration"_s);
    ExpectRows({lookUp, Row(u"03/15/2026"_s, u"06/10/2026"_s, u"4000"_s)});
    EXPECT_TRUE(boxes_.requests.empty());
}

TEST_F(RentPeriodsTest, AnUnforcedDurationWritesNothing) {
    force_ = false;
    Generate(QDate(2026, 3, 15), 4000, u"Duration"_s);
    ExpectRows({});
}

TEST_F(RentPeriodsTest, ARowThatFailsIsReportedAndTheNextOnesAreTried) {
    database_->failures.emplace("Execute", FakeFailure(3022, "duplicate"));
    Generate(QDate(2026, 3, 15), 1000, u"Month"_s);
    EXPECT_EQ(database_->statements.size(), 4);
    ASSERT_EQ(boxes_.requests.size(), 4U);
    EXPECT_EQ(boxes_.requests[3].title, u"Execute SQL"_s);
}

TEST_F(RentPeriodsTest, MoneyHasTheMarkOfTheLocaleAndDatesHaveNot) {
    const CommaLocale commas;
    Generate(QDate(2026, 6, 8), 1127.5, u"Week"_s);
    ExpectRows({Row(u"06/08/2026"_s, u"06/14/2026"_s, u"1127,5"_s)});
}

TEST_F(RentPeriodsTest, PeriodsOfNoLengthGoOnUntilTheProcessIsAskedToEnd) {
    for (const auto& every_freq : {u"Day"_s, u"Week"_s, u"Month"_s, u"Year"_s}) {
        ExpectToGoOn(every_freq, 0, "06/01/2026-05/31/2026;06/01/2026-05/31/2026;06/01/2026-05/31/2026;");
    }
}

TEST_F(RentPeriodsTest, PeriodsOfLessThanNoLengthRunBackwardsForAsLong) {
    ExpectToGoOn(u"Day"_s, -1, "06/01/2026-05/30/2026;05/31/2026-05/29/2026;05/30/2026-05/28/2026;");
    ExpectToGoOn(u"Week"_s, -1, "06/01/2026-05/24/2026;05/25/2026-05/17/2026;05/18/2026-05/10/2026;");
    ExpectToGoOn(u"Month"_s, -1, "06/01/2026-04/30/2026;05/01/2026-03/31/2026;04/01/2026-02/28/2026;");
    ExpectToGoOn(u"Year"_s, -2, "06/01/2026-05/31/2024;06/01/2024-05/31/2022;06/01/2022-05/31/2020;");
}

}  // namespace
