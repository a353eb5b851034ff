#include "PortfolioText.h"
#include "support/PrintQt.h"

#include <gtest/gtest.h>

using tools::Fault;
using tools::Faults;

namespace {

struct RefusedMember {
    const char* member;
    Fault fault;
};

void PrintTo(const RefusedMember& refused, std::ostream* out) {
    *out << refused.member;
}

class RefusedTenantMember : public testing::TestWithParam<RefusedMember> {};

const char* const wholeFromOne = "Must be a whole number from 1 to 32767";
const char* const wholeFromZero = "Must be a whole number from 0 to 32767";
const char* const fourDecimals = "At most 4 decimals are allowed";
const char* const firstPeriodBefore9999 = "The first rent period must end before the year 9999";
const char* const lastPeriodBefore9999 = "The last rent period must end before the year 9999";
const char* const realDay = "Must be a real day in the form YYYY-MM-DD";

}  // namespace

TEST_P(RefusedTenantMember, IsTheOneFault) {
    EXPECT_EQ(WithTenant(GetParam().member).Read(), Faults{GetParam().fault});
}

INSTANTIATE_TEST_SUITE_P(
    Members, RefusedTenantMember,
    testing::Values(
        RefusedMember{"'FrequencyNumber': 0", MakeFault("/Tenants/0/FrequencyNumber", wholeFromOne, "0")},
        RefusedMember{"'FrequencyNumber': -3", MakeFault("/Tenants/0/FrequencyNumber", wholeFromOne, "-3")},
        RefusedMember{"'FrequencyNumber': 32768",
                      MakeFault("/Tenants/0/FrequencyNumber", wholeFromOne, "32768")},
        RefusedMember{"'FrequencyNumber': '2'",
                      MakeFault("/Tenants/0/FrequencyNumber", wholeFromOne, "\"2\"")},
        RefusedMember{"'MonthDay': 1.25", MakeFault("/Tenants/0/MonthDay", wholeFromZero, "1.25")},
        RefusedMember{"'MonthDay': null", MakeFault("/Tenants/0/MonthDay", wholeFromZero, "null")},
        RefusedMember{"'MonthDay': -1", MakeFault("/Tenants/0/MonthDay", wholeFromZero, "-1")},
        RefusedMember{"'CurrentRent': 123.45678",
                      MakeFault("/Tenants/0/CurrentRent", fourDecimals, "123.45678")},
        RefusedMember{"'CurrentRent': 12345678901234.00001",
                      MakeFault("/Tenants/0/CurrentRent", fourDecimals, "12345678901234.00001")},
        RefusedMember{"'BondHeld': -1e-5", MakeFault("/Tenants/0/BondHeld", fourDecimals, "-1e-5")},
        RefusedMember{"'BondHeld': 1e-400", MakeFault("/Tenants/0/BondHeld", fourDecimals, "1e-400")},
        RefusedMember{"'BondHeld': 1e-99999999999",
                      MakeFault("/Tenants/0/BondHeld", fourDecimals, "1e-99999999999")},
        RefusedMember{"'BalanceAmount': 1.234567E+1",
                      MakeFault("/Tenants/0/BalanceAmount", fourDecimals, "1.234567E+1")},
        RefusedMember{"'BalanceAmount': 120e-6",
                      MakeFault("/Tenants/0/BalanceAmount", fourDecimals, "120e-6")},
        RefusedMember{"'CurrentRent': -1", MakeFault("/Tenants/0/CurrentRent", "Must not be negative", "-1")},
        RefusedMember{"'CurrentRent': 922337203685478",
                      MakeFault("/Tenants/0/CurrentRent", "The amount is too large", "922337203685478")},
        RefusedMember{"'EndDate': ''", MakeFault("/Tenants/0/EndDate", realDay, "\"\"")},
        RefusedMember{"'EndDate': '2026-1-01'", MakeFault("/Tenants/0/EndDate", realDay, "\"2026-1-01\"")},
        RefusedMember{"'EndDate': '2025-02-29'", MakeFault("/Tenants/0/EndDate", realDay, "\"2025-02-29\"")},
        RefusedMember{"'EndDate': '0000-01-01'", MakeFault("/Tenants/0/EndDate", realDay, "\"0000-01-01\"")},
        RefusedMember{"'EndDate': false", MakeFault("/Tenants/0/EndDate", realDay, "false")},
        RefusedMember{"'Setbalance': 1", MakeFault("/Tenants/0/Setbalance", "Must be true or false", "1")},
        RefusedMember{"'BalanceDate': '2026-01-01'",
                      MakeFault("/Tenants/0/BalanceDate", "Unknown member", "\"2026-01-01\"")},
        RefusedMember{"'RentFrequency': ''",
                      MakeFault("/Tenants/0/RentFrequency",
                                "Must be \"Day\", \"Week\", \"Month\" or \"Year\"", "\"\"")},
        RefusedMember{"'BondHeld': []", MakeFault("/Tenants/0/BondHeld", "Must be a number", "an array")}));

TEST(AcceptedTenantMember, AtTheEdges) {
    for (const char* member :
         {"'FrequencyNumber': 1", "'FrequencyNumber': 32767", "'FrequencyNumber': 2.0", "'MonthDay': 0",
          "'MonthDay': 32767", "'CurrentRent': 0", "'CurrentRent': -0.0", "'CurrentRent': 922337203685477",
          "'CurrentRent': 0.0001", "'CurrentRent': 0.00010", "'CurrentRent': 1200000e-9",
          "'CurrentRent': 1.23456e1", "'CurrentRent': 0e-99999999999", "'CurrentRent': 922337203685476.0000",
          "'EndDate': '0001-01-01'", "'BondHeld': -1e300", "'BalanceAmount': 1e300",
          "'RentFrequency': 'Year'"}) {
        EXPECT_EQ(WithTenant(member).Read(), Faults()) << member;
    }
}

TEST(RefusedPortfolio, AmountsOfAccountsAndTheFeeHaveFourDecimalsToo) {
    PortfolioText portfolio;
    portfolio.userType += ", 'ManagementFee': 8.12345, 'MainBankAccount': {'BalanceAmount': -0.00001}";
    portfolio.accounts = "'BankAccounts': [{'BankAccountName': 'Trust', 'BalanceAmount': 99.99999}]";
    EXPECT_EQ(portfolio.Read(),
              (Faults{MakeFault("/ManagementFee", fourDecimals, "8.12345"),
                      MakeFault("/MainBankAccount/BalanceAmount", fourDecimals, "-0.00001"),
                      MakeFault("/BankAccounts/0/BalanceAmount", fourDecimals, "99.99999")}));
}

TEST(RefusedPortfolio, ARentThatIsNegativeAndTooFineIsToldOfBoth) {
    EXPECT_EQ(WithTenant("'CurrentRent': -1.23456").Read(),
              (Faults{MakeFault("/Tenants/0/CurrentRent", fourDecimals, "-1.23456"),
                      MakeFault("/Tenants/0/CurrentRent", "Must not be negative", "-1.23456")}));
}

// Members of a tenant whose rent periods would leave the years that dates have, and the one to blame.
TEST(RefusedPortfolio, AFirstPeriodBeyondTheYear9998BlamesAMemberThatIsThere) {
    const auto fault = [](const char* member, const char* found) {
        return Faults{MakeFault(member, firstPeriodBefore9999, found)};
    };
    PortfolioText late = WithTenant("'RentFrequency': 'Week'");
    late.tenants.replace("2025-03-15", "9998-12-26");
    EXPECT_EQ(late.Read(), fault("/Tenants/0/StartDate", "\"9998-12-26\""));
    late.tenants.replace("'Week'", "'Week', 'FrequencyNumber': 1");
    EXPECT_EQ(late.Read(), fault("/Tenants/0/StartDate", "\"9998-12-26\""));
    late.tenants.replace("'FrequencyNumber': 1", "'FrequencyNumber': 2");
    late.tenants.replace("9998-12-26", "9998-12-20");
    EXPECT_EQ(late.Read(), fault("/Tenants/0/FrequencyNumber", "2"));

    PortfolioText monthly = WithTenant("'RentFrequency': 'Month', 'MonthDay': 40");
    monthly.tenants.replace("2025-03-15", "9998-12-15");
    EXPECT_EQ(monthly.Read(), fault("/Tenants/0/MonthDay", "40"));
    monthly.tenants.replace("9998-12-15", "9999-01-01");
    EXPECT_EQ(monthly.Read(), fault("/Tenants/0/StartDate", "\"9999-01-01\""));
    monthly.tenants.replace(", 'MonthDay': 40", "");
    EXPECT_EQ(monthly.Read(), fault("/Tenants/0/StartDate", "\"9999-01-01\""));
}

TEST(RefusedPortfolio, ALastPeriodBeyondTheYear9998BlamesTheEnd) {
    for (const char* members : {"'EndDate': '9999-12-31'", "'EndDate': '9998-12-31', 'RentFrequency': 'Week'",
                                "'EndDate': '9998-12-31', 'RentFrequency': 'Day', 'FrequencyNumber': 4",
                                "'EndDate': '9998-12-20', 'RentFrequency': 'Month', 'MonthDay': 15",
                                "'EndDate': '9998-12-20', 'RentFrequency': 'Month', 'MonthDay': 40",
                                "'EndDate': '9998-06-01', 'RentFrequency': 'Month', 'FrequencyNumber': 11",
                                "'EndDate': '9998-12-31', 'RentFrequency': 'Year'"}) {
        const Faults faults = WithTenant(members).Read();
        ASSERT_EQ(faults.size(), 1U) << members;
        EXPECT_EQ(faults[0].pointer, QStringLiteral("/Tenants/0/EndDate")) << members;
        EXPECT_EQ(faults[0].rule, QLatin1String(lastPeriodBefore9999)) << members;
    }
}

TEST(RefusedPortfolio, ANameThatCannotBeReadRaisesNoFaultsElsewhere) {
    PortfolioText portfolio;
    portfolio.owners = "'Owners': [{'OwnersName': 5}]";
    portfolio.properties = "'Properties': [{'Address1': '12 Main Road', 'Owner': 'Smith'}, {'Address1': []}]";
    portfolio.tenants =
        "'Tenants': [{'Name': 'Ada', 'PropertyName': '9 Mill Court', 'StartDate': '2025-03-15'}]";
    EXPECT_EQ(portfolio.Read(), (Faults{MakeFault("/Owners/0/OwnersName", "Must be a text", "5"),
                                        MakeFault("/Properties/1/Address1", "Must be a text", "an array")}));
}

TEST(RefusedPortfolio, FaultsOfOneRecordComeTogether) {
    PortfolioText portfolio;
    portfolio.tenants = "'Tenants': [{}]";
    EXPECT_EQ(portfolio.Read(),
              (Faults{MakeFault("/Tenants/0/Name", "A name is required", "nothing"),
                      MakeFault("/Tenants/0/PropertyName", "A property selection is required", "nothing"),
                      MakeFault("/Tenants/0/StartDate", "A start date is required.", "nothing")}));
}

TEST(RefusedPortfolio, LettersBeyondAsciiClashWithoutRegardToCase) {
    PortfolioText portfolio;
    portfolio.owners = "'Owners': [{'OwnersName': 'M\u00fcller'}, {'OwnersName': 'M\u00dcLLER'}]";
    EXPECT_EQ(portfolio.Read(),
              (Faults{MakeFault("/Owners/1/OwnersName", "Another record already exists with the same name",
                                "\"M\u00dcLLER\"")}));
}

TEST(RefusedPortfolio, LengthsCountUtf16Units) {
    PortfolioText portfolio;
    const QByteArray house = "\xF0\x9F\x8F\xA0";
    portfolio.owners = "'Owners': [{'OwnersName': '" + house.repeated(20) + "'}]";
    EXPECT_EQ(portfolio.Read(), Faults());
    portfolio.owners = "'Owners': [{'OwnersName': '" + house.repeated(20) + "x'}]";
    EXPECT_EQ(portfolio.Read().size(), 1U);
}
