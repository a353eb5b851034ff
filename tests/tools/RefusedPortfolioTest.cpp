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
const char* const wholeInSixteenBits = "Must be a whole number from -32768 to 32767";
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
        RefusedMember{"'MonthDay': 1.25", MakeFault("/Tenants/0/MonthDay", wholeInSixteenBits, "1.25")},
        RefusedMember{"'MonthDay': null", MakeFault("/Tenants/0/MonthDay", wholeInSixteenBits, "null")},
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
    for (const char* member : {"'FrequencyNumber': 1", "'FrequencyNumber': 32767", "'FrequencyNumber': 2.0",
                               "'MonthDay': -32768", "'MonthDay': 0", "'MonthDay': 32767", "'CurrentRent': 0",
                               "'CurrentRent': -0.0", "'CurrentRent': 922337203685477",
                               "'CurrentRent': 0.001", "'EndDate': '0001-01-01'", "'EndDate': '9999-12-31'",
                               "'BondHeld': -1e300", "'BalanceAmount': 1e300", "'RentFrequency': 'Year'"}) {
        EXPECT_EQ(WithTenant(member).Read(), Faults()) << member;
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
