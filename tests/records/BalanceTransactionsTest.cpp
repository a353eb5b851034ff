#include "records/BalanceTransactions.h"
#include "support/CheckMany.h"
#include "support/HearthbookTest.h"

namespace {

using records::TheCollections;

class BalanceTransactionsTest : public HearthbookTest {
protected:
    BalanceTransactionsTest() {
        AddAccount(u"Main"_s);
        AddAccount(u"Trust"_s);
        AddProperty(u"12 Main Road"_s, u"Trust"_s);
        Execute(u"update options set taxincome = true"_s);
    }

    static std::shared_ptr<records::Tenant> AddBalanced(const QString& name, double balance) {
        const auto tenant = AddTenant(name, u"12 Main Road"_s);
        tenant->Setbalance = true;
        tenant->BalanceAmount = balance;
        return tenant;
    }

    static void Insert() {
        records::PrepareCodes(TheCollections());
        TheCollections().Tenants.InsertRecords(TheCollections());
    }

    static QStringList Receipts() {
        return Rows(u"select [date], amount from revenues order by [date] desc"_s);
    }
    static QStringList Paid() { return Rows(u"select paid from rent_periods order by period_from desc"_s); }
};

TEST_F(BalanceTransactionsTest, EveryPeriodHasAReceipt) {
    AddBalanced(u"Ada"_s, 0);
    Insert();
    EXPECT_EQ(Rows(u"select [date], [property code], amount, [revenue group], description, [your reference], "
                   u"rent_weeks, paid_to, counter_gl, tenant_code, recon_id, tax, disburse_id from revenues "
                   u"order by [date] desc"_s),
              (QStringList{
                  u"2026-11-15|12 Main Road|250|Rent|||0|1900-01-01|Trust|Ada|0|32.6087|0"_s,
                  u"2026-11-08|12 Main Road|250|Rent|||0|1900-01-01|Trust|Ada|0|32.6087|0"_s,
                  u"2026-11-01|12 Main Road|250|Rent|||0|1900-01-01|Trust|Ada|0|32.6087|0"_s,
              }));
    EXPECT_EQ(Paid(), (QStringList{u"0"_s, u"0"_s, u"0"_s}));
    ExpectNoMessages();
}

TEST_F(BalanceTransactionsTest, ArrearsGoBackOverReceipts) {
    AddBalanced(u"Ada"_s, 300);
    Insert();
    EXPECT_EQ(Receipts(), (QStringList{u"2026-11-08|200"_s, u"2026-11-01|250"_s}));
    EXPECT_EQ(Paid(), (QStringList{u"0"_s, u"-50"_s, u"0"_s}));
    EXPECT_EQ(Rows(u"select tax from revenues"_s), (QStringList{u"32.6087"_s, u"32.6087"_s}));
    ExpectNoMessages();
}

TEST_F(BalanceTransactionsTest, AReceiptTakenBackToTheLastCentStays) {
    AddBalanced(u"Ada"_s, 250);
    Insert();
    EXPECT_EQ(Receipts(), (QStringList{u"2026-11-15|0"_s, u"2026-11-08|250"_s, u"2026-11-01|250"_s}));
    EXPECT_EQ(Paid(), (QStringList{u"-250"_s, u"0"_s, u"0"_s}));
}

TEST_F(BalanceTransactionsTest, CreditEnlargesTheNewestReceipt) {
    AddBalanced(u"Ada"_s, -100);
    Insert();
    EXPECT_EQ(Receipts(), (QStringList{u"2026-11-15|350"_s, u"2026-11-08|250"_s, u"2026-11-01|250"_s}));
    EXPECT_EQ(Paid(), (QStringList{u"100"_s, u"0"_s, u"0"_s}));
}

TEST_F(BalanceTransactionsTest, MoreArrearsThanRentLeaveNoReceipts) {
    AddBalanced(u"Ada"_s, 1000);
    Insert();
    EXPECT_EQ(Receipts(), QStringList());
    EXPECT_EQ(Paid(), (QStringList{u"0"_s, u"0"_s, u"0"_s}));
    ExpectNoMessages();
}

TEST_F(BalanceTransactionsTest, WithoutABalanceToSetNothingIsWritten) {
    AddBalanced(u"Ada"_s, 300)->Setbalance = false;
    Insert();
    EXPECT_EQ(Receipts(), QStringList());
    EXPECT_EQ(Paid().size(), 3);
}

TEST_F(BalanceTransactionsTest, UntaxedRentHasNoTaxWhateverTheRate) {
    for (const auto& taxincome : {u"false"_s, u"null"_s}) {
        Execute(u"update options set taxincome = "_s + taxincome);
        Execute(u"delete from revenues"_s);
        Execute(u"delete from rent_periods"_s);
        TheCollections().Tenants = records::Tenants();
        AddBalanced(u"Ada"_s, 0);
        Insert();
        EXPECT_EQ(Rows(u"select tax from revenues"_s), (QStringList{u"0"_s, u"0"_s, u"0"_s}));
    }
}

TEST_F(BalanceTransactionsTest, AFirstPartOfAMonthCarriesTheTaxOfTheWholeRent) {
    const auto tenant = AddBalanced(u"Ada"_s, 0);
    tenant->RentFrequency = u"Month"_s;
    tenant->StartDate = QDate(2026, 10, 15);
    tenant->CurrentRent = 1000;
    Insert();
    EXPECT_EQ(Rows(u"select [date], amount, tax from revenues order by [date]"_s),
              (QStringList{u"2026-10-15|548.39|130.4348"_s, u"2026-11-01|1000|130.4348"_s}));
}

TEST_F(BalanceTransactionsTest, WithoutAnAccountTheFirstOneCounts) {
    AddProperty(u"14 Main Road"_s);
    AddBalanced(u"Ada"_s, 0)->PropertyName = u"14 Main Road"_s;
    Insert();
    EXPECT_EQ(Rows(u"select counter_gl from revenues"_s).value(0), u"Main"_s);
}

TEST_F(BalanceTransactionsTest, AnAccountThatIsGoneStaysByItsName) {
    AddProperty(u"14 Main Road"_s, u"Old Account"_s);
    AddBalanced(u"Ada"_s, 0)->PropertyName = u"14 Main Road"_s;
    Insert();
    EXPECT_EQ(Rows(u"select counter_gl from revenues"_s).value(0), u"Old Account"_s);
}

TEST_F(BalanceTransactionsTest, WithoutAnyAccountThereIsNoFirstOne) {
    TheCollections().bankAccounts = records::bankAccounts();
    AddProperty(u"14 Main Road"_s);
    AddBalanced(u"Ada"_s, 0)->PropertyName = u"14 Main Road"_s;
    EXPECT_EQ(FailureOf([] { Insert(); }), 9);
}

TEST_F(BalanceTransactionsTest, TenantsOfOnePropertyKeepApart) {
    AddBalanced(u"Ada"_s, 1000);
    AddBalanced(u"Bob"_s, 300);
    AddBalanced(u"Cyd"_s, 0);
    Insert();
    EXPECT_EQ(Rows(u"select tenant_code, amount from revenues order by tenant_code, [date] desc"_s),
              (QStringList{u"Bob|200"_s, u"Bob|250"_s, u"Cyd|250"_s, u"Cyd|250"_s, u"Cyd|250"_s}));
}

TEST_F(BalanceTransactionsTest, NoRowOfOptionsEndsTheRun) {
    Execute(u"delete from options"_s);
    AddBalanced(u"Ada"_s, 0);
    EXPECT_EQ(FailureOf([] { Insert(); }), engine::ErrorNumber::NoCurrentRecord);
}

TEST_F(BalanceTransactionsTest, TaxedRentWithoutARateEndsTheRun) {
    Execute(u"update options set taxincrate = null"_s);
    AddBalanced(u"Ada"_s, 0);
    EXPECT_EQ(FailureOf([] { Insert(); }), platform::FailureNumber::InvalidUseOfNull);
    Execute(u"update options set taxincome = false"_s);
    Execute(u"delete from rent_periods"_s);
    EXPECT_EQ(FailureOf([] { Insert(); }), 0);
}

TEST_F(BalanceTransactionsTest, NoTableOfOptionsEndsTheRun) {
    DropTable("options");
    AddBalanced(u"Ada"_s, 0);
    EXPECT_EQ(FailureOf([] { Insert(); }), platform::FailureNumber::ObjectNotSet);
}

TEST_F(BalanceTransactionsTest, ReceiptsThatWereNeverWrittenCannotBeTakenBack) {
    AddBalanced(u"Ada"_s, 10)->RentFrequency = u"never"_s;
    EXPECT_EQ(FailureOf([] { Insert(); }), engine::ErrorNumber::NoCurrentRecord);
}

// Blanks at the cut let two tenants have one code. The second one's receipts are then more than the periods,
// and the walk comes to a period that isn't there: reported when it is to be edited, and the end of the run
// when it is read.
TEST_F(BalanceTransactionsTest, TenantsOfOneCodeRunOutOfPeriods) {
    AddBalanced(u"Priya Raman"_s, 0);
    AddBalanced(u"Priya Raman          2"_s, 250 * 6 + 100);
    EXPECT_EQ(FailureOf([] { Insert(); }), engine::ErrorNumber::NoCurrentRecord);
    ASSERT_EQ(boxes_.requests.size(), 1U);
    EXPECT_EQ(boxes_.requests[0].title, u"Edit Record"_s);
    EXPECT_EQ(Rows(u"select amount from revenues"_s), (QStringList{u"150"_s, u"250"_s, u"250"_s}));
}

TEST_F(BalanceTransactionsTest, AnyBalanceIsReachedAsThePlainRuleSays) {
    CheckMany(500, [this] {
        for (const auto& table : {u"tenancy"_s, u"rent_periods"_s, u"revenues"_s}) {
            Execute(u"delete from "_s + table);
        }
        TheCollections().Tenants = records::Tenants();
        const int periods = Draw(1, 12);
        const double rent = Chance(10) ? 0 : Draw(1, 100'000) / 100.0;
        double balance = Chance(20) ? rent * Draw(-1, periods + 1) : Draw(-200'000, 1'000'000) / 100.0;
        const auto tenant = AddBalanced(u"Ada"_s, balance);
        tenant->CurrentRent = rent;
        tenant->StartDate = QDate(2026, 11, 15).addDays(-7 * (periods - 1));
        Insert();

        // Newest first, with nothing for a receipt that is taken back whole.
        std::vector<std::optional<double>> receipts(static_cast<std::size_t>(periods), rent);
        std::vector<double> paid(receipts.size(), 0);
        for (std::size_t place = 0; place < receipts.size() && balance != 0; ++place) {
            if (rent < balance) {
                balance -= rent;
                receipts[place].reset();
            } else {
                receipts[place] = rent - balance;
                paid[place] = 0 - balance;
                balance = 0;
            }
        }
        QStringList expectedReceipts;
        QStringList expectedPaid;
        for (std::size_t place = 0; place < receipts.size(); ++place) {
            const QDate day = QDate(2026, 11, 15).addDays(-7 * static_cast<qint64>(place));
            if (receipts[place].has_value()) {
                expectedReceipts += day.toString(Qt::ISODate) + u'|' + engine::ToText(*receipts[place]);
            }
            expectedPaid += engine::ToText(paid[place]);
        }
        RC_ASSERT(Receipts().join(u'\n').toStdString() == expectedReceipts.join(u'\n').toStdString());
        RC_ASSERT(Paid().join(u'\n').toStdString() == expectedPaid.join(u'\n').toStdString());
        RC_ASSERT(boxes_.requests.empty());
    });
}

}  // namespace
