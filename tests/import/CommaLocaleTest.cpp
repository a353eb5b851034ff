#include "ImportJourney.h"
#include "support/CommaLocale.h"

#include <QRegularExpression>

namespace {

class CommaLocaleTest : public ImportJourney {
protected:
    void WritePortfolio(const QByteArray& tenants) const {
        QFile file(portfolio);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(
            "{\"UserType\":\"Manager\",\"ManagementFee\":8.5,"
            "\"MainBankAccount\":{\"BalanceAmount\":10.25},"
            "\"Properties\":[{\"Address1\":\"1 Road\"}],\"Tenants\":[" +
            tenants + "]}");
    }
};

// Statements carry the decimal mark of the user's locale, and a comma in a statement parts two values. So
// whole amounts go in, amounts with cents make their statement fail as a whole, and rows that are no
// statements don't care.
TEST_F(CommaLocaleTest, AmountsWithCentsInStatementsAreRefusedAndReported) {
    const CommaLocale commas;
    WritePortfolio(
        "{\"Name\":\"Whole\",\"PropertyName\":\"1 Road\",\"StartDate\":\"2026-11-08\",\"CurrentRent\":200,"
        "\"BondHeld\":400},"
        "{\"Name\":\"Cents\",\"PropertyName\":\"1 Road\",\"StartDate\":\"2026-11-08\",\"CurrentRent\":200.5,"
        "\"BondHeld\":400.5},"
        "{\"Name\":\"Taxed\",\"PropertyName\":\"1 Road\",\"StartDate\":\"2026-11-15\",\"CurrentRent\":200,"
        "\"Setbalance\":true}");
    const QString database = FreshDatabase("commas.mdb");
    testing::internal::CaptureStderr();
    const int status = Import(database);
    const QString told = QString::fromStdString(testing::internal::GetCapturedStderr());

    EXPECT_EQ(status, 1);
    EXPECT_EQ(ReadRows(database, "select name, [current rent], bond from tenancy order by rowid"),
              (QStringList{QStringLiteral("Whole|200.0|400.0"), QStringLiteral("Cents|200.5|400.5"),
                           QStringLiteral("Taxed|200.0|0.0")}));
    EXPECT_EQ(ReadRows(database, "select bankbalance from glcodes where gl_code = 'BankAcct'"),
              QStringList{QStringLiteral("10.25")});
    EXPECT_EQ(
        ReadRows(database, "select tenant_code, rent_due from rent_periods order by rowid"),
        (QStringList{QStringLiteral("Whole|200"), QStringLiteral("Whole|200"), QStringLiteral("Taxed|200")}));
    EXPECT_EQ(ReadRows(database, "select tenant_code, amount from tenant_bond"),
              QStringList{QStringLiteral("Whole|400.0")});
    EXPECT_EQ(ReadRows(database, "select count(*) from revenues"), QStringList{QStringLiteral("0")})
        << "the tax on a rent of 200 has cents";
    // Two periods and a bond of one tenant, the receipts of the other.
    EXPECT_EQ(told.count(QStringLiteral("Execute SQL")), 4) << told.toStdString();
    EXPECT_EQ(workplace.ErrorLog().count(QStringLiteral("3346")), 4);
    EXPECT_TRUE(workplace.ErrorLog().contains(QStringLiteral("200,5,0,0,0)")));
}

TEST_F(CommaLocaleTest, AmountsWithCentsGoInWithALocaleThatHasAPoint) {
    const CommaLocale commas;
    WritePortfolio(
        "{\"Name\":\"Cents\",\"PropertyName\":\"1 Road\",\"StartDate\":\"2026-11-08\",\"CurrentRent\":200.5,"
        "\"BondHeld\":400.5}");
    const QString database = FreshDatabase("point.mdb");
    EXPECT_EQ(Import(database, {QStringLiteral("--locale"), QStringLiteral("C")}), 0);
    EXPECT_EQ(ReadRows(database, "select tenant_code, rent_due from rent_periods order by rowid"),
              (QStringList{QStringLiteral("Cents|200.5"), QStringLiteral("Cents|200.5")}));
    EXPECT_EQ(ReadRows(database, "select tenant_code, amount from tenant_bond"),
              QStringList{QStringLiteral("Cents|400.5")});
}

}  // namespace
