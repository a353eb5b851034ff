#include "PortfolioText.h"
#include "records/Collections.h"
#include "support/PrintQt.h"

#include <gtest/gtest.h>

using tools::Faults;

namespace {

QByteArray Section(const QByteArray& name, const QByteArray& before, const QByteArray& after, int count) {
    QByteArray section = '\'' + name + "': [";
    for (int i = 1; i <= count; ++i) {
        section += (i > 1 ? ",{" : "{") + before + QByteArray::number(i) + after + '}';
    }
    return section + ']';
}

QByteArray Accounts(int count) {
    return Section("BankAccounts", "'BankAccountName': 'Account ", "'", count);
}

QByteArray Units(int count) {
    QByteArray units;
    for (int i = 1; i <= count; ++i) {
        units += QByteArray::number(i) + ',';
    }
    return "'Properties': [{'Address1': '12 Main Road'}, {'Address1': '9 Mill Court', 'UnitNumbers': '" +
           units + "'}]";
}

const char* const rule = "At most 32767 records are allowed";

}  // namespace

TEST(CollectionLimit, ThePresetAccountCounts) {
    PortfolioText portfolio;
    portfolio.accounts = Accounts(32766);
    EXPECT_EQ(portfolio.Read(), Faults());
    EXPECT_EQ(records::TheCollections().bankAccounts.Count(), 32767);
    portfolio.accounts = Accounts(32767);
    EXPECT_EQ(portfolio.Read(), (Faults{MakeFault("/BankAccounts", rule, "32768")}));
}

TEST(CollectionLimit, Owners) {
    PortfolioText portfolio;
    portfolio.owners = Section("Owners", "'OwnersName': 'Owner ", "'", 32767);
    EXPECT_EQ(portfolio.Read(), Faults());
    portfolio.owners = Section("Owners", "'OwnersName': 'Owner ", "'", 32768);
    EXPECT_EQ(portfolio.Read(), (Faults{MakeFault("/Owners", rule, "32768")}));
}

TEST(CollectionLimit, UnitsCountAsProperties) {
    PortfolioText portfolio;
    portfolio.properties = Units(32765);
    EXPECT_EQ(portfolio.Read(), Faults());
    EXPECT_EQ(records::TheCollections().Properties.Count(), 32767);
    portfolio.properties = Units(32766);
    EXPECT_EQ(portfolio.Read(), (Faults{MakeFault("/Properties", rule, "32768")}));
}

TEST(CollectionLimit, AMillionUnitsAreCountedAndNotBuilt) {
    PortfolioText portfolio;
    portfolio.properties = Units(1000000);
    EXPECT_EQ(portfolio.Read(), (Faults{MakeFault("/Properties", rule, "1000002")}));
}

TEST(CollectionLimit, Tenants) {
    PortfolioText portfolio;
    const QByteArray rest = "', 'PropertyName': '12 Main Road', 'StartDate': '2026-01-01'";
    portfolio.tenants = Section("Tenants", "'Name': 'Tenant ", rest, 32767);
    EXPECT_EQ(portfolio.Read(), Faults());
    portfolio.tenants = Section("Tenants", "'Name': 'Tenant ", rest, 32768);
    EXPECT_EQ(portfolio.Read(), (Faults{MakeFault("/Tenants", rule, "32768")}));
}
