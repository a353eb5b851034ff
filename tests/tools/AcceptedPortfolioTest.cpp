#include "PortfolioText.h"
#include "platform/Clock.h"
#include "records/Collections.h"
#include "records/ImportSettings.h"
#include "support/PrintQt.h"

#include <gtest/gtest.h>

using records::CurrentSettings;
using records::TheCollections;
using tools::Faults;

namespace {

class AcceptedPortfolio : public testing::Test {
protected:
    void SetUp() override { platform::PinToday(QDate(2026, 11, 21)); }
    void TearDown() override { platform::PinToday(QDate()); }

    PortfolioText portfolio_;
};

}  // namespace

TEST_F(AcceptedPortfolio, AbsentMembersHaveDefaults) {
    ASSERT_EQ(portfolio_.Read(), Faults());
    EXPECT_FALSE(CurrentSettings().IsLandlord);
    EXPECT_EQ(CurrentSettings().ManagementFee, 0.0);
    EXPECT_TRUE(platform::IsNoDate(CurrentSettings().LastDisbursement));
    const auto account = TheCollections().bankAccounts.Item(2);
    EXPECT_EQ(account->BalanceDate, QDate(2026, 11, 21));
    EXPECT_EQ(account->BalanceAmount, 0.0);
    EXPECT_EQ(account->Code, QString());
    const auto tenant = TheCollections().Tenants.Item(1);
    EXPECT_TRUE(platform::IsNoDate(tenant->EndDate));
    EXPECT_EQ(tenant->CurrentRent, 0.0);
    EXPECT_EQ(tenant->RentFrequency, QStringLiteral("Week"));
    EXPECT_EQ(tenant->FrequencyNumber, 1);
    EXPECT_EQ(tenant->MonthDay, 1);
    EXPECT_FALSE(tenant->Setbalance);
}

TEST_F(AcceptedPortfolio, EveryMemberIsTaken) {
    portfolio_.userType =
        "'UserType': 'Manager', 'ManagementFee': 8.5, 'LastDisbursement': '2026-10-31', 'MainBankAccount': "
        "{'BankAccountName': 'Office', 'BalanceDate': '2026-01-31', 'BalanceAmount': -12.505}";
    portfolio_.tenants =
        "'Tenants': [{'Name': 'Ada', 'PropertyName': '2/9 Mill Court', 'StartDate': '2024-02-29', 'EndDate': "
        "'2026-03-01', 'CurrentRent': 420.25, 'RentFrequency': 'Month', 'FrequencyNumber': 32767, "
        "'MonthDay': "
        "31, 'BondHeld': -5, 'Setbalance': true, 'BalanceAmount': -210.5}]";
    ASSERT_EQ(portfolio_.Read(), Faults());
    EXPECT_EQ(CurrentSettings().ManagementFee, 8.5);
    EXPECT_EQ(CurrentSettings().LastDisbursement, QDate(2026, 10, 31));
    const auto preset = TheCollections().bankAccounts.Item(1);
    EXPECT_EQ(preset->BankAccountName, QStringLiteral("Office"));
    EXPECT_EQ(preset->Code, QStringLiteral("BankAcct"));
    EXPECT_EQ(preset->BalanceDate, QDate(2026, 1, 31));
    EXPECT_EQ(preset->BalanceAmount, -12.505);
    const auto tenant = TheCollections().Tenants.Item(1);
    EXPECT_EQ(tenant->PropertyName, QStringLiteral("2/9 Mill Court"));
    EXPECT_EQ(tenant->StartDate, QDate(2024, 2, 29));
    EXPECT_EQ(tenant->EndDate, QDate(2026, 3, 1));
    EXPECT_EQ(tenant->CurrentRent, 420.25);
    EXPECT_EQ(tenant->RentFrequency, QStringLiteral("Month"));
    EXPECT_EQ(tenant->FrequencyNumber, 32767);
    EXPECT_EQ(tenant->MonthDay, 31);
    EXPECT_EQ(tenant->BondHeld, -5.0);
    EXPECT_TRUE(tenant->Setbalance);
    EXPECT_EQ(tenant->BalanceAmount, -210.5);
}

TEST_F(AcceptedPortfolio, AFirstPeriodMayEndInTheYear9998) {
    portfolio_ = WithTenant("'RentFrequency': 'Year', 'FrequencyNumber': 7973");
    EXPECT_EQ(portfolio_.Read(), Faults());
    portfolio_ = WithTenant("'RentFrequency': 'Week', 'FrequencyNumber': 32767");
    portfolio_.tenants.replace("2025-03-15", "9371-01-01");
    EXPECT_EQ(portfolio_.Read(), Faults());
    // On the last day of the year.
    portfolio_ = WithTenant("'RentFrequency': 'Year'");
    portfolio_.tenants.replace("2025-03-15", "9998-01-01");
    EXPECT_EQ(portfolio_.Read(), Faults());
    portfolio_ = WithTenant("'RentFrequency': 'Month', 'MonthDay': 1");
    portfolio_.tenants.replace("2025-03-15", "9998-12-15");
    EXPECT_EQ(portfolio_.Read(), Faults());
}

TEST_F(AcceptedPortfolio, ALastPeriodMayEndInTheYear9998) {
    for (const char* members : {"'EndDate': '9998-12-31', 'RentFrequency': 'Day'",
                                "'EndDate': '9998-12-24', 'RentFrequency': 'Week'",
                                "'EndDate': '9998-12-31', 'RentFrequency': 'Month'",
                                "'EndDate': '9998-12-14', 'RentFrequency': 'Month', 'MonthDay': 15",
                                "'EndDate': '9998-03-14', 'RentFrequency': 'Year'"}) {
        EXPECT_EQ(WithTenant(members).Read(), Faults()) << members;
    }
}

TEST_F(AcceptedPortfolio, UnitsFollowTheirBuilding) {
    ASSERT_EQ(portfolio_.Read(), Faults());
    const records::Properties& properties = TheCollections().Properties;
    ASSERT_EQ(properties.Count(), 4);
    EXPECT_EQ(properties.Item(2)->iType, records::PropertyType::Building);
    EXPECT_EQ(properties.Item(4)->Address1, QStringLiteral("2/9 Mill Court"));
    EXPECT_EQ(properties.Item(4)->ParentProperty, QStringLiteral("9 Mill Court"));
}

TEST_F(AcceptedPortfolio, UnitAddressesMayRepeatOthers) {
    portfolio_.properties =
        "'Properties': [{'Address1': '12 Main Road'}, {'Address1': '1/9 Mill Court'}, {'Address1': '9 Mill "
        "Court', "
        "'UnitNumbers': '1,1,,2,'}]";
    ASSERT_EQ(portfolio_.Read(), Faults());
    EXPECT_EQ(TheCollections().Properties.Count(), 6);
}

TEST_F(AcceptedPortfolio, TwoTenantsMayShareAProperty) {
    portfolio_.tenants.replace("'Tenants': [",
                               "'Tenants': [{'Name': 'Ada ', 'PropertyName': '12 Main Road', 'StartDate': "
                               "'2020-01-01', 'EndDate': '2019-01-01'}, ");
    EXPECT_EQ(portfolio_.Read(), Faults());
    EXPECT_EQ(TheCollections().Tenants.Count(), 2);
}

TEST_F(AcceptedPortfolio, TheYear1234MeansNoDate) {
    portfolio_ = WithTenant("'EndDate': '1234-12-31'");
    portfolio_.userType = "'UserType': 'Manager', 'LastDisbursement': '1234-01-01'";
    ASSERT_EQ(portfolio_.Read(), Faults());
    EXPECT_TRUE(platform::IsNoDate(TheCollections().Tenants.Item(1)->EndDate));
    EXPECT_TRUE(platform::IsNoDate(CurrentSettings().LastDisbursement));
}

TEST_F(AcceptedPortfolio, NullMeansNoneWhereThereMayBeNone) {
    portfolio_ = WithTenant("'EndDate': null");
    portfolio_.userType = "'UserType': 'Manager', 'LastDisbursement': null, 'MainBankAccount': null";
    ASSERT_EQ(portfolio_.Read(), Faults());
    ASSERT_EQ(TheCollections().bankAccounts.Count(), 1);
    EXPECT_EQ(TheCollections().bankAccounts.Item(1)->BankAccountName, QStringLiteral("Trust Account"));
}

TEST_F(AcceptedPortfolio, TheRemovedPresetsNameIsFree) {
    portfolio_.userType = "'UserType': 'Manager', 'MainBankAccount': null";
    portfolio_.accounts = "'BankAccounts': [{'BankAccountName': 'Main Bank Account'}]";
    ASSERT_EQ(portfolio_.Read(), Faults());
    EXPECT_EQ(TheCollections().bankAccounts.Item(1)->Code, QString());
}

TEST_F(AcceptedPortfolio, AManagerMayHaveNoOwners) {
    portfolio_.owners = "'Owners': []";
    EXPECT_EQ(portfolio_.Read(), Faults());
}

TEST_F(AcceptedPortfolio, ALandlordsOwnerMayBeNameless) {
    portfolio_.userType = "'UserType': 'Landlord'";
    portfolio_.owners = "'Owners': [{}]";
    ASSERT_EQ(portfolio_.Read(), Faults());
    EXPECT_TRUE(CurrentSettings().IsLandlord);
    EXPECT_EQ(TheCollections().Owners.Item(1)->OwnersName, QString());
}

TEST_F(AcceptedPortfolio, NamesMayBeAsLongAsTheirBoxes) {
    const QByteArray thirty(30, 'x');
    const QByteArray forty(40, 'y');
    portfolio_.accounts = "'BankAccounts': [{'BankAccountName': '" + thirty + "'}]";
    portfolio_.owners = "'Owners': [{'OwnersName': '" + forty + "'}]";
    portfolio_.properties = "'Properties': [{'Address1': '" + thirty + "', 'Address2': '" + thirty +
                            "', 'Address3': '" + thirty + "', 'Owner': '" + forty + "', 'BankAccount': '" +
                            thirty + "', 'UnitNumbers': 'A'}]";
    portfolio_.tenants = "'Tenants': [{'Name': '" + thirty + "', 'PropertyName': 'A/" + thirty +
                         "', 'StartDate': '2026-01-01'}]";
    EXPECT_EQ(portfolio_.Read(), Faults());
}

TEST_F(AcceptedPortfolio, ReferencesToTheRenamedPreset) {
    portfolio_.userType =
        "'UserType': 'Manager', 'MainBankAccount': {'BankAccountName': 'MAIN bank account'}";
    portfolio_.properties =
        "'Properties': [{'Address1': '12 Main Road', 'BankAccount': 'MAIN bank account'}]";
    EXPECT_EQ(portfolio_.Read(), Faults());
}

TEST_F(AcceptedPortfolio, AFaultLeavesTheCollectionsAsTheyBegin) {
    portfolio_.tenants = "'Tenants': []";
    ASSERT_EQ(portfolio_.Read().size(), 1U);
    EXPECT_EQ(TheCollections().bankAccounts.Count(), 1);
    EXPECT_EQ(TheCollections().Owners.Count(), 0);
    EXPECT_EQ(TheCollections().Properties.Count(), 0);
}
