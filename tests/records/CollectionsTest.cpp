#include "records/EntryMessages.h"
#include "support/RecordsTest.h"

namespace {

using records::TheCollections;

class CollectionsTest : public RecordsTest {
protected:
    /// So many records in a collection without making so many objects.
    template <typename Collection>
    static void Fill(Collection& collection, int count) {
        const auto record = std::make_shared<typename Collection::Record>();
        for (int place = 1; place <= count; ++place) {
            collection.Add(record);
        }
    }
};

TEST_F(CollectionsTest, PlacesCountFromOneAndMoveDownOnRemoval) {
    auto& owners = TheCollections().Owners;
    const auto first = AddOwner(u"A"_s);
    const auto second = AddOwner(u"B"_s);
    const auto third = AddOwner(u"C"_s);
    EXPECT_EQ(owners.Count(), 3);
    EXPECT_EQ(owners.Item(1), first);
    EXPECT_EQ(owners.Item(3), third);
    owners.Remove(1);
    EXPECT_EQ(owners.Count(), 2);
    EXPECT_EQ(owners.Item(1), second);
    EXPECT_EQ(owners.Item(2), third);
}

TEST_F(CollectionsTest, ABadPlaceFails) {
    auto& owners = TheCollections().Owners;
    AddOwner(u"A"_s);
    for (const int place : {0, 2, -1}) {
        EXPECT_EQ(FailureOf([&] { owners.Item(place); }), 9) << place;
        EXPECT_EQ(FailureOf([&] { owners.Remove(place); }), 9) << place;
    }
    EXPECT_EQ(owners.Count(), 1);
    try {
        owners.Item(2);
        FAIL();
    } catch (const platform::Failure& failure) {
        EXPECT_EQ(failure.Description(), u"Subscript out of range"_s);
    }
}

TEST_F(CollectionsTest, AKeptRecordShowsLaterChanges) {
    const auto owner = AddOwner(u"A"_s);
    TheCollections().Owners.Item(1)->OwnersName = u"Changed"_s;
    EXPECT_EQ(owner->OwnersName, u"Changed"_s);
}

TEST_F(CollectionsTest, EnumeratesInTheOrderOfPlaces) {
    AddOwner(u"B"_s);
    AddOwner(u"A"_s);
    QString names;
    for (const auto& owner : TheCollections().Owners) {
        names += owner->OwnersName;
    }
    EXPECT_EQ(names, u"BA"_s);
}

TEST_F(CollectionsTest, TheWizardStartsWithOneBankAccount) {
    AddOwner(u"left over"_s);
    AddTenant(u"left over"_s, {});
    AddProperty(u"left over"_s);
    records::CreateCollections(records::TheCollections());
    ASSERT_EQ(TheCollections().bankAccounts.Count(), 1);
    const auto account = TheCollections().bankAccounts.Item(1);
    EXPECT_EQ(account->BankAccountName, u"Main Bank Account"_s);
    EXPECT_EQ(account->Code, u"BankAcct"_s);
    EXPECT_EQ(account->BalanceAmount, 0);
    EXPECT_EQ(account->BalanceDate, QDate(2026, 6, 10));
    EXPECT_EQ(TheCollections().Owners.Count(), 0);
    EXPECT_EQ(TheCollections().Properties.Count(), 0);
    EXPECT_EQ(TheCollections().Tenants.Count(), 0);
}

TEST_F(CollectionsTest, NamesDifferingInCaseExistAndSaySoOnce) {
    AddOwner(u"SMITH"_s);
    AddOwner(u"Smith"_s);
    EXPECT_TRUE(TheCollections().Owners.NameExists(u"smith"_s, nullptr));
    ASSERT_EQ(boxes_.requests.size(), 1U);
    EXPECT_EQ(boxes_.requests[0].text, u"Another record already exists with the same name"_s);
    EXPECT_EQ(boxes_.requests[0].title, platform::ApplicationTitle());
    EXPECT_EQ(boxes_.requests[0].buttons, platform::Buttons::Ok);
}

TEST_F(CollectionsTest, NamesAreNotTrimmedBeforeTheyAreCompared) {
    AddOwner(u"Smith "_s);
    EXPECT_FALSE(TheCollections().Owners.NameExists(u"Smith"_s, nullptr));
    EXPECT_TRUE(boxes_.requests.empty());
}

TEST_F(CollectionsTest, TheRecordBeingEditedIsNoDuplicateOfItself) {
    const auto owner = AddOwner(u"Smith"_s);
    EXPECT_FALSE(TheCollections().Owners.NameExists(u"SMITH"_s, owner));
    EXPECT_TRUE(boxes_.requests.empty());
    AddOwner(u"smith"_s);
    EXPECT_TRUE(TheCollections().Owners.NameExists(u"SMITH"_s, owner));
}

TEST_F(CollectionsTest, EachCollectionComparesItsOwnName) {
    AddAccount(u"account"_s);
    AddOwner(u"owner"_s);
    AddProperty(u"property"_s);
    AddTenant(u"tenant"_s, u"property"_s);
    EXPECT_TRUE(TheCollections().bankAccounts.NameExists(u"Account"_s, nullptr));
    EXPECT_TRUE(TheCollections().Owners.NameExists(u"Owner"_s, nullptr));
    EXPECT_TRUE(TheCollections().Properties.NameExists(u"Property"_s, nullptr));
    EXPECT_TRUE(TheCollections().Tenants.NameExists(u"Tenant"_s, nullptr));
    EXPECT_FALSE(TheCollections().Tenants.NameExists(u"property"_s, nullptr));
}

TEST_F(CollectionsTest, ARenamedAccountTakesItsPropertiesAlong) {
    const auto property = AddProperty(u"1 A St"_s, u"Trust"_s, u"Trust"_s);
    const auto otherCase = AddProperty(u"2 A St"_s, u"trust"_s);
    TheCollections().bankAccounts.PropogateChanges(TheCollections(), u"Trust"_s, u"Trust Account"_s);
    EXPECT_EQ(property->BankAccount, u"Trust Account"_s);
    EXPECT_EQ(property->Owner, u"Trust"_s);
    EXPECT_EQ(otherCase->BankAccount, u"trust"_s);
}

TEST_F(CollectionsTest, ARenamedOwnerTakesItsPropertiesAlong) {
    const auto property = AddProperty(u"1 A St"_s, u"Smith"_s, u"Smith"_s);
    TheCollections().Owners.PropogateChanges(TheCollections(), u"Smith"_s, u"Jones"_s);
    EXPECT_EQ(property->Owner, u"Jones"_s);
    EXPECT_EQ(property->BankAccount, u"Smith"_s);
}

TEST_F(CollectionsTest, ARenamedPropertyTakesItsTenantsAlongButNotItsUnits) {
    const auto unit = AddProperty(u"1/Old"_s);
    unit->ParentProperty = u"Old"_s;
    const auto tenant = AddTenant(u"T"_s, u"Old"_s);
    const auto otherCase = AddTenant(u"U"_s, u"OLD"_s);
    TheCollections().Properties.PropogateChanges(TheCollections(), u"Old"_s, u"New"_s);
    EXPECT_EQ(tenant->PropertyName, u"New"_s);
    EXPECT_EQ(otherCase->PropertyName, u"OLD"_s);
    EXPECT_EQ(unit->ParentProperty, u"Old"_s);
    EXPECT_EQ(unit->Address1, u"1/Old"_s);
}

TEST_F(CollectionsTest, CodesAreFoundByTheExactName) {
    AddOwner(u"Smith"_s, u"S1"_s);
    AddOwner(u"smith"_s, u"S2"_s);
    EXPECT_EQ(TheCollections().Owners.GetCode(u"Smith"_s), u"S1"_s);
    EXPECT_EQ(TheCollections().Owners.GetCode(u"smith"_s), u"S2"_s);
    EXPECT_EQ(TheCollections().Owners.GetCode(u"SMITH"_s), QString());
}

TEST_F(CollectionsTest, OfTwoRecordsOfOneNameTheLastGivesTheCode) {
    AddProperty(u"12 Main Road"_s)->Code = u"first"_s;
    AddProperty(u"12 Main Road"_s)->Code = u"last"_s;
    EXPECT_EQ(TheCollections().Properties.GetCode(u"12 Main Road"_s), u"last"_s);
}

TEST_F(CollectionsTest, NoOwnersNoCodes) {
    TheCollections().Owners.GenerateCodes();
    EXPECT_EQ(TheCollections().Owners.GetCode(u"anyone"_s), QString());
    EXPECT_EQ(TheCollections().Owners.GetCode(QString()), QString());
}

TEST_F(CollectionsTest, AnyTenantOccupiesAProperty) {
    const auto tenant = AddTenant(u"T"_s, u"12 Main Road"_s);
    tenant->EndDate = QDate(2001, 1, 1);
    EXPECT_TRUE(TheCollections().Tenants.PropertyOccupied(u"12 Main Road"_s));
    EXPECT_FALSE(TheCollections().Tenants.PropertyOccupied(u"12 MAIN ROAD"_s));
    EXPECT_FALSE(TheCollections().Tenants.PropertyOccupied(u"14 Main Road"_s));
}

TEST_F(CollectionsTest, WalksTakeAllThatSixteenBitsCanCount) {
    auto& collections = TheCollections();
    Fill(collections.Tenants, 32767);
    EXPECT_FALSE(collections.Tenants.NameExists(u"x"_s, nullptr));
    EXPECT_FALSE(collections.Tenants.PropertyOccupied(u"x"_s));
    Fill(collections.Tenants, 1);
    EXPECT_EQ(collections.Tenants.Count(), 32768);
    EXPECT_EQ(FailureOf([&] { collections.Tenants.NameExists(u"x"_s, nullptr); }), 6);
    EXPECT_EQ(FailureOf([&] { collections.Tenants.GenerateCodes(); }), 6);
    EXPECT_EQ(FailureOf([&] { collections.Tenants.PropertyOccupied(u"x"_s); }), 6);
    EXPECT_EQ(FailureOf([&] { collections.Properties.PropogateChanges(TheCollections(), u"a"_s, u"b"_s); }),
              6);
    EXPECT_EQ(collections.Tenants.Item(32768)->Name, QString());
}

TEST_F(CollectionsTest, TooManyPropertiesFailEveryWalkOverThem) {
    auto& collections = TheCollections();
    Fill(collections.Properties, 32767);
    EXPECT_EQ(FailureOf([&] { collections.Owners.PropogateChanges(TheCollections(), u"a"_s, u"b"_s); }), 0);
    Fill(collections.Properties, 1);
    EXPECT_EQ(FailureOf([&] { collections.Owners.PropogateChanges(TheCollections(), u"a"_s, u"b"_s); }), 6);
    EXPECT_EQ(FailureOf([&] { collections.bankAccounts.PropogateChanges(TheCollections(), u"a"_s, u"b"_s); }),
              6);
    EXPECT_EQ(FailureOf([&] { collections.Properties.GetCode(u"a"_s); }), 6);
    EXPECT_EQ(
        FailureOf([&] { collections.Properties.GetBankAccount(TheCollections().bankAccounts, u"a"_s); }), 6);
}

}  // namespace
