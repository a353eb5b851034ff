#include "platform/Failure.h"
#include "records/Codes.h"
#include "support/AddressSanitizer.h"
#include "support/RecordsTest.h"
#include "support/WorkTime.h"

#include <algorithm>
#include <cstdint>
#include <limits>

namespace {

using records::TheCollections;

class CodesTest : public RecordsTest {
protected:
    static QString AccountCode(int place) { return TheCollections().bankAccounts.Item(place)->Code; }
    static QString TenantCode(int place) { return TheCollections().Tenants.Item(place)->Code; }
};

TEST_F(CodesTest, ClashingNamesGetNumbersAtTheirEnd) {
    records::CreateCollections(records::TheCollections());
    for (const auto& name :
         {u"Kestrel Bank Cheque"_s, u"Kestrel Bank Savings"_s, u"Kestrel Bank Term"_s, u"Bob"_s, u"bob"_s}) {
        AddAccount(name);
    }
    TheCollections().bankAccounts.GenerateCodes();
    EXPECT_EQ(AccountCode(1), u"BankAcct"_s);
    EXPECT_EQ(AccountCode(2), u"Kestrel Ba"_s);
    EXPECT_EQ(AccountCode(3), u"Kestrel B1"_s);
    EXPECT_EQ(AccountCode(4), u"Kestrel B2"_s);
    EXPECT_EQ(AccountCode(5), u"Bob"_s);
    EXPECT_EQ(AccountCode(6), u"bob"_s);
}

TEST_F(CodesTest, TheTenthClashTakesOneCharacterMore) {
    for (int place = 1; place <= 13; ++place) {
        AddAccount(u"Kestrel Bank"_s);
    }
    TheCollections().bankAccounts.GenerateCodes();
    EXPECT_EQ(AccountCode(10), u"Kestrel B9"_s);
    EXPECT_EQ(AccountCode(11), u"Kestrel 10"_s);
    EXPECT_EQ(AccountCode(12), u"Kestrel 11"_s);
    EXPECT_EQ(AccountCode(13), u"Kestrel 12"_s);
}

TEST_F(CodesTest, ShortNamesKeepAllTheirCharacters) {
    for (int place = 1; place <= 3; ++place) {
        AddAccount(u"Bob"_s);
    }
    TheCollections().bankAccounts.GenerateCodes();
    EXPECT_EQ(AccountCode(2), u"Bob1"_s);
    EXPECT_EQ(AccountCode(3), u"Bob2"_s);
}

TEST_F(CodesTest, AFullLengthNameLosesItsLastCharacterToTheNumber) {
    AddAccount(u"ABCDEFGHIJ"_s);
    AddAccount(u"ABCDEFGHIJ"_s);
    TheCollections().bankAccounts.GenerateCodes();
    EXPECT_EQ(AccountCode(1), u"ABCDEFGHIJ"_s);
    EXPECT_EQ(AccountCode(2), u"ABCDEFGHI1"_s);
}

TEST_F(CodesTest, ANameCutBehindABlankIsNoClashWithItsTrimmedForm) {
    AddAccount(u"ABCDEFGHI"_s);
    AddAccount(u"ABCDEFGHI Z"_s);
    TheCollections().bankAccounts.GenerateCodes();
    EXPECT_EQ(AccountCode(1), u"ABCDEFGHI"_s);
    EXPECT_EQ(AccountCode(2), u"ABCDEFGHI"_s);
}

TEST_F(CodesTest, BlanksAreTrimmedOnceTheCodeIsFound) {
    AddAccount(u"  Bob "_s);
    AddAccount(u"  Bob "_s);
    AddAccount(u"Bob"_s);
    AddAccount(u"\tTab"_s);
    TheCollections().bankAccounts.GenerateCodes();
    EXPECT_EQ(AccountCode(1), u"Bob"_s);
    EXPECT_EQ(AccountCode(2), u"Bob"_s);
    EXPECT_EQ(AccountCode(3), u"Bob1"_s);
    EXPECT_EQ(AccountCode(4), u"\tTab"_s);
}

TEST_F(CodesTest, EveryCharacterStaysAsItIs) {
    AddAccount(u"O'Brien \"& "_s);
    TheCollections().bankAccounts.GenerateCodes();
    EXPECT_EQ(AccountCode(1), u"O'Brien \"&"_s);
}

TEST_F(CodesTest, AnEmptyNameGetsAnEmptyCodeOnceAndANumberAfterThat) {
    AddOwner(QString());
    AddOwner(QString());
    TheCollections().Owners.GenerateCodes();
    EXPECT_EQ(TheCollections().Owners.Item(1)->Code, QString());
    EXPECT_EQ(TheCollections().Owners.Item(2)->Code, u"1"_s);
}

TEST_F(CodesTest, ThePresetCodeSurvivesARename) {
    records::CreateCollections(records::TheCollections());
    TheCollections().bankAccounts.Item(1)->BankAccountName = u"Trust"_s;
    TheCollections().bankAccounts.GenerateCodes();
    EXPECT_EQ(AccountCode(1), u"BankAcct"_s);
}

TEST_F(CodesTest, OnlyEarlierPlacesCount) {
    AddAccount(u"BankAcct"_s);
    AddAccount(u"Main"_s, u"BankAcct"_s);
    AddAccount(u"BankAcct"_s);
    TheCollections().bankAccounts.GenerateCodes();
    EXPECT_EQ(AccountCode(1), u"BankAcct"_s);
    EXPECT_EQ(AccountCode(2), u"BankAcct"_s);
    EXPECT_EQ(AccountCode(3), u"BankAcct1"_s);
}

TEST_F(CodesTest, OwnersAndPropertiesKeepCodesTheyHave) {
    AddOwner(u"Smith"_s, u"KEEP"_s);
    AddProperty(u"12 Main Road"_s)->Code = u"KEEP"_s;
    TheCollections().Owners.GenerateCodes();
    TheCollections().Properties.GenerateCodes();
    EXPECT_EQ(TheCollections().Owners.Item(1)->Code, u"KEEP"_s);
    EXPECT_EQ(TheCollections().Properties.Item(1)->Code, u"KEEP"_s);
}

TEST_F(CodesTest, TenantsAreCodedAnewEachTime) {
    AddTenant(u"Ada"_s, {})->Code = u"OLD"_s;
    AddTenant(u"Ada"_s, {});
    TheCollections().Tenants.GenerateCodes();
    EXPECT_EQ(TenantCode(1), u"Ada"_s);
    EXPECT_EQ(TenantCode(2), u"Ada1"_s);
    TheCollections().Tenants.GenerateCodes();
    EXPECT_EQ(TenantCode(1), u"Ada"_s);
    EXPECT_EQ(TenantCode(2), u"Ada1"_s);
}

TEST_F(CodesTest, EachCollectionHasItsOwnLength) {
    const QString longName(40, u'x');
    AddAccount(longName);
    AddOwner(longName);
    AddProperty(longName);
    AddTenant(longName, {});
    TheCollections().bankAccounts.GenerateCodes();
    TheCollections().Owners.GenerateCodes();
    TheCollections().Properties.GenerateCodes();
    TheCollections().Tenants.GenerateCodes();
    EXPECT_EQ(AccountCode(1), QString(10, u'x'));
    EXPECT_EQ(TheCollections().Owners.Item(1)->Code, QString(10, u'x'));
    EXPECT_EQ(TheCollections().Properties.Item(1)->Code, QString(20, u'x'));
    EXPECT_EQ(TenantCode(1), QString(20, u'x'));
}

TEST_F(CodesTest, NumbersEndWhereSixteenBitsEnd) {
    records::CodeMaker codes(10, 32768);
    codes.Take(u"Bob"_s);
    for (int suffix = 1; suffix < 32767; ++suffix) {
        codes.Take(u"Bob"_s + QString::number(suffix));
    }
    EXPECT_EQ(codes.MakeUniqueCode(u"Bob"_s), u"Bob32767"_s);
    codes.Take(u"Bob32767"_s);
    EXPECT_EQ(FailureOf([&] { codes.MakeUniqueCode(u"Bob"_s); }), platform::FailureNumber::Overflow);
}

/// What it costs to make the codes of all these lists, once.
std::int64_t CostOfCodes(std::vector<records::Tenants>& lists) {
    return LeastWork(1, [&lists] {
        for (records::Tenants& list : lists) {
            list.GenerateCodes();
        }
    });
}

std::vector<records::Tenants> ListsOfOneName(std::size_t lists, int count) {
    std::vector<records::Tenants> result(lists);
    for (records::Tenants& list : result) {
        for (int place = 1; place <= count; ++place) {
            auto tenant = std::make_shared<records::Tenant>();
            tenant->Name = u"Residents of the Main Road Estate"_s;
            list.Add(tenant);
        }
    }
    return result;
}

TEST_F(CodesTest, ALongListOfOneNameCostsWhatItsLengthCosts) {
    // As many records on both sides, so that the memory they take up slows down both alike.
    auto shortLists = ListsOfOneName(32, 1024);
    auto longList = ListsOfOneName(1, 32767);
    // By turns, so that other programs can't slow down all runs of the one and none of the other.
    constexpr int Runs = 25;
    auto ofShortLists = std::numeric_limits<std::int64_t>::max();
    auto ofLongList = ofShortLists;
    for (int run = 0; run < Runs; ++run) {
        ofShortLists = std::min(ofShortLists, CostOfCodes(shortLists));
        ofLongList = std::min(ofLongList, CostOfCodes(longList));
    }
    const double oneShortList = static_cast<double>(ofShortLists) / 32;
    const auto oneLongList = static_cast<double>(ofLongList);
#ifndef WITH_ADDRESS_SANITIZER
    // Under the sanitizer it would be its own bookkeeping that is timed.
    EXPECT_LE(oneLongList, 50 * oneShortList);
#endif
    RecordProperty("times_as_long", std::to_string(oneLongList / oneShortList));
    EXPECT_EQ(longList[0].Item(32767)->Code, u"Residents of th32766"_s);
}

}  // namespace
