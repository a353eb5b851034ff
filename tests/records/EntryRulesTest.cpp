#include "records/EntryRules.h"
#include "support/RecordsTest.h"

namespace {

using namespace records;

/// Field and message of each fault.
using Faults = std::vector<std::pair<std::string, std::string>>;

class EntryRulesTest : public RecordsTest {
protected:
    static Faults Told(const EntryFaults& faults) {
        Faults told;
        for (const EntryFault& fault : faults) {
            told.emplace_back(fault.Field, fault.Message.data());
        }
        return told;
    }

    static TenantEntry CompleteTenant() {
        TenantEntry entry;
        entry.Name = u"Ada Finch"_s;
        entry.PropertyName = u"12 Main Road"_s;
        entry.StartDate = QDate(2025, 3, 15);
        entry.CurrentRent = 420;
        entry.RentFrequency = u"Month"_s;
        entry.FrequencyNumber = 2;
        entry.BondHeld = -5;
        entry.BalanceAmount = 210.5;
        entry.Setbalance = false;
        entry.MonthDay = 17;
        return entry;
    }
};

TEST_F(EntryRulesTest, NamesAreRequired) {
    EXPECT_EQ(Told(FaultsOf(BankAccountEntry{})),
              Faults({{"BankAccountName", "An account name is required"}}));
    EXPECT_EQ(Told(FaultsOf(BankAccountEntry{u" "_s, {}, 0})), Faults());
    EXPECT_EQ(Told(FaultsOf(OwnerEntry{})), Faults({{"OwnersName", "A name is required"}}));
    EXPECT_EQ(Told(FaultsOf(OwnerEntry{u"x"_s})), Faults());
    EXPECT_EQ(Told(FaultsOf(PropertyEntry{})), Faults({{"Address1", "An address 1 is required"}}));
    EXPECT_EQ(Told(FaultsOf(PropertyEntry{u"x"_s, {}, {}, {}, {}, {}})), Faults());
}

TEST_F(EntryRulesTest, ATenantsFaultsComeAllAndInTheirOrder) {
    Faults faults{
        {"Name", "A name is required"},
        {"PropertyName", "A property selection is required"},
        {"StartDate", "A start date is required."},
        {"Setbalance",
         "You need to select one of the options to either enter the rent balance or leave it blank"}};
    TenantEntry entry;
    EXPECT_EQ(Told(FaultsOf(entry)), faults);
    entry.PropertyName = u"12 Main Road"_s;
    faults.erase(faults.begin() + 1);
    EXPECT_EQ(Told(FaultsOf(entry)), faults);
    entry.Name = u"Ada"_s;
    faults.erase(faults.begin());
    EXPECT_EQ(Told(FaultsOf(entry)), faults);
    entry.StartDate = QDate(2026, 1, 1);
    faults.erase(faults.begin());
    EXPECT_EQ(Told(FaultsOf(entry)), faults);
    entry.Setbalance = false;
    EXPECT_EQ(Told(FaultsOf(entry)), Faults());
}

TEST_F(EntryRulesTest, OnlyARentOfZeroIsAskedAbout) {
    TenantEntry entry;
    EXPECT_TRUE(NeedsZeroRentAnswer(entry));
    entry.CurrentRent = 0.01;
    EXPECT_FALSE(NeedsZeroRentAnswer(entry));
    EXPECT_EQ(QString(EntryQuestion::ZeroRent), u"The rent amount is set to zero.  Is this correct?"_s);
}

TEST_F(EntryRulesTest, EmptyPagesAreRefused) {
    auto& collections = TheCollections();
    EXPECT_EQ(FirstFault(collections.bankAccounts), u"You need to have at least one bank account"_s);
    EXPECT_EQ(FirstFault(collections.Properties), u"You have not entered any properties"_s);
    EXPECT_EQ(FirstFault(collections.Tenants), u"You have not entered any tenants"_s);
    EXPECT_TRUE(NeedsNoOwnersAnswer(collections.Owners));
    EXPECT_EQ(QString(EntryQuestion::NoOwners),
              u"You have not entered any owners.  Are you sure you want to continue with no owners?"_s);
    AddAccount(u"a"_s);
    AddProperty(u"p"_s);
    AddTenant(u"t"_s, u"p"_s);
    AddOwner(u"o"_s);
    EXPECT_EQ(FirstFault(collections.bankAccounts), QString());
    EXPECT_EQ(FirstFault(collections.Properties), QString());
    EXPECT_EQ(FirstFault(collections.Tenants), QString());
    EXPECT_FALSE(NeedsNoOwnersAnswer(collections.Owners));
}

TEST_F(EntryRulesTest, RecordsHoldWhatWasEntered) {
    const auto account = MakeRecord(BankAccountEntry{u"Trust"_s, QDate(2026, 1, 31), -12.5});
    EXPECT_EQ(account->BankAccountName, u"Trust"_s);
    EXPECT_EQ(account->BalanceDate, QDate(2026, 1, 31));
    EXPECT_EQ(account->BalanceAmount, -12.5);
    EXPECT_EQ(account->Code, QString());
    EXPECT_EQ(MakeRecord(OwnerEntry{u"Smith"_s})->OwnersName, u"Smith"_s);

    const auto tenant = MakeRecord(CompleteTenant());
    EXPECT_EQ(tenant->Name, u"Ada Finch"_s);
    EXPECT_EQ(tenant->PropertyName, u"12 Main Road"_s);
    EXPECT_EQ(tenant->StartDate, QDate(2025, 3, 15));
    EXPECT_TRUE(platform::IsNoDate(tenant->EndDate));
    EXPECT_EQ(tenant->CurrentRent, 420);
    EXPECT_EQ(tenant->RentFrequency, u"Month"_s);
    EXPECT_EQ(tenant->FrequencyNumber, 2);
    EXPECT_EQ(tenant->BondHeld, -5);
    // The amount is kept although the balance is not to be set.
    EXPECT_EQ(tenant->BalanceAmount, 210.5);
    EXPECT_FALSE(tenant->Setbalance);
    EXPECT_EQ(tenant->MonthDay, 17);
}

TEST_F(EntryRulesTest, AChangedNameIsPassedOnBeforeTheRecordChanges) {
    const auto account = AddAccount(u"Main"_s, u"BankAcct"_s);
    const auto owner = AddOwner(u"Smith"_s);
    const auto property = AddProperty(u"12 Main Road"_s, u"Main"_s, u"Smith"_s);
    const auto tenant = AddTenant(u"Ada"_s, u"12 Main Road"_s);

    ChangeRecord(TheCollections(), *account, BankAccountEntry{u"Trust"_s, QDate(2026, 2, 1), 7});
    EXPECT_EQ(account->BankAccountName, u"Trust"_s);
    EXPECT_EQ(account->Code, u"BankAcct"_s);
    EXPECT_EQ(property->BankAccount, u"Trust"_s);

    ChangeRecord(TheCollections(), *owner, OwnerEntry{u"Jones"_s});
    EXPECT_EQ(owner->OwnersName, u"Jones"_s);
    EXPECT_EQ(property->Owner, u"Jones"_s);

    property->iType = PropertyType::Building;
    property->ParentProperty = u"12 Main Road"_s;
    ChangeRecord(TheCollections(), *property,
                 PropertyEntry{u"14 Main Road"_s, u"Town"_s, u"Land"_s, u"o"_s, u"b"_s, u"1,2"_s});
    EXPECT_EQ(property->Address1, u"14 Main Road"_s);
    EXPECT_EQ(property->Address2, u"Town"_s);
    EXPECT_EQ(property->Address3, u"Land"_s);
    EXPECT_EQ(property->Owner, u"o"_s);
    EXPECT_EQ(property->BankAccount, u"b"_s);
    EXPECT_EQ(tenant->PropertyName, u"14 Main Road"_s);
    // What makes a building one can't be changed any more.
    EXPECT_EQ(property->iType, PropertyType::Building);
    EXPECT_EQ(property->ParentProperty, u"12 Main Road"_s);
    EXPECT_EQ(TheCollections().Properties.Count(), 1);
}

TEST_F(EntryRulesTest, ABuildingBringsItsUnits) {
    auto& properties = TheCollections().Properties;
    const auto last = AddPropertyWithUnits(properties, PropertyEntry{u"12 Main Road"_s, u"Town"_s, u"Land"_s,
                                                                     u"Smith"_s, u"Trust"_s, u"1,2,3,"_s});
    ASSERT_EQ(properties.Count(), 4);
    EXPECT_EQ(properties.Item(1)->Address1, u"12 Main Road"_s);
    EXPECT_EQ(properties.Item(1)->iType, PropertyType::Building);
    EXPECT_EQ(properties.Item(1)->ParentProperty, u"12 Main Road"_s);
    for (int place = 2; place <= 4; ++place) {
        const auto unit = properties.Item(place);
        EXPECT_EQ(unit->Address1, QString::number(place - 1) + u"/12 Main Road"_s);
        EXPECT_EQ(unit->iType, PropertyType::Unit);
        EXPECT_EQ(unit->ParentProperty, u"12 Main Road"_s);
        EXPECT_EQ(unit->Address2, u"Town"_s);
        EXPECT_EQ(unit->Address3, u"Land"_s);
        EXPECT_EQ(unit->Owner, u"Smith"_s);
        EXPECT_EQ(unit->BankAccount, u"Trust"_s);
    }
    EXPECT_EQ(last, properties.Item(4));
    EXPECT_FALSE(CanBeLet(*properties.Item(1)));
    EXPECT_TRUE(CanBeLet(*properties.Item(2)));
}

TEST_F(EntryRulesTest, ASinglePropertyHasNoParent) {
    auto& properties = TheCollections().Properties;
    const auto single = AddPropertyWithUnits(properties, PropertyEntry{u"1 A St"_s, {}, {}, {}, {}, {}});
    EXPECT_EQ(properties.Count(), 1);
    EXPECT_EQ(single, properties.Item(1));
    EXPECT_EQ(single->iType, PropertyType::Single);
    EXPECT_EQ(single->ParentProperty, QString());
    EXPECT_TRUE(CanBeLet(*single));
}

TEST_F(EntryRulesTest, ALoneCommaMakesABuildingWithoutUnits) {
    auto& properties = TheCollections().Properties;
    AddPropertyWithUnits(properties, PropertyEntry{u"1 A St"_s, {}, {}, {}, {}, u","_s});
    ASSERT_EQ(properties.Count(), 1);
    EXPECT_EQ(properties.Item(1)->iType, PropertyType::Building);
}

TEST_F(EntryRulesTest, UnitsKeepTheirBlanksAndRepeatAsTyped) {
    EXPECT_EQ(UnitsOf(u"1, 2,,A/B,1"_s), (QStringList{u"1"_s, u" 2"_s, u"A/B"_s, u"1"_s}));
    EXPECT_EQ(UnitsOf(QString()), QStringList());
    EXPECT_EQ(UnitAddress(u" 2"_s, u"12 Main Road"_s), u" 2/12 Main Road"_s);
}

TEST_F(EntryRulesTest, TheCountOfUnitsIsTheNumberOfItems) {
    EXPECT_EQ(UnitCountOf(QString()), 0);
    EXPECT_EQ(UnitCountOf(u"A"_s), 1);
    EXPECT_EQ(UnitCountOf(u"A,B"_s), 2);
    EXPECT_EQ(UnitCountOf(u"A,B,"_s), 2);
    EXPECT_EQ(UnitCountOf(u"1,,3"_s), 3);
    EXPECT_EQ(UnitCountOf(u","_s), 1);
    EXPECT_EQ(UnitCountOf(u"A/B"_s), 1);
}

TEST_F(EntryRulesTest, ACountOfUnitsGivesTheirNumbers) {
    EXPECT_EQ(UnitNumbersOf(3), u"1,2,3,"_s);
    EXPECT_EQ(UnitNumbersOf(0), QString());
    EXPECT_EQ(UnitNumbersOf(-1), QString());
    EXPECT_EQ(UnitCountOf(UnitNumbersOf(32767)), 32767);
}

TEST_F(EntryRulesTest, ALandlordIsTheOnlyOwner) {
    auto& owners = TheCollections().Owners;
    const auto before = AddOwner(u"Smith"_s);
    AddOwner(u"Jones"_s);
    const auto property = AddProperty(u"1 A St"_s, {}, u"Smith"_s);
    ReplaceOwners(owners, u"Me"_s);
    ReplaceOwners(owners, u"Smith"_s);
    ASSERT_EQ(owners.Count(), 1);
    EXPECT_EQ(owners.Item(1)->OwnersName, u"Smith"_s);
    EXPECT_NE(owners.Item(1), before);
    EXPECT_EQ(property->Owner, u"Smith"_s);
    ReplaceOwners(owners, QString());
    EXPECT_EQ(owners.Count(), 1);
}

TEST_F(EntryRulesTest, TextIsReadAsASixteenBitNumber) {
    EXPECT_EQ(ToInteger(u"2"_s), 2);
    EXPECT_EQ(ToInteger(u"1,000"_s), 1000);
    EXPECT_EQ(ToInteger(u"-3"_s), -3);
    EXPECT_EQ(ToInteger(u"2.5"_s), 2);
    EXPECT_EQ(FailureOf([] { ToInteger(QString()); }), 13);
    EXPECT_EQ(FailureOf([] { ToInteger(u"-"_s); }), 13);
    EXPECT_EQ(FailureOf([] { ToInteger(u"40000"_s); }), 6);
}

TEST_F(EntryRulesTest, LimitsAreThoseOfTheTextBoxes) {
    EXPECT_EQ(EntryLimit::BankAccountName, 30);
    EXPECT_EQ(EntryLimit::OwnersName, 40);
    EXPECT_EQ(EntryLimit::SingleOwnersName, 30);
    EXPECT_EQ(EntryLimit::Address, 30);
    EXPECT_EQ(EntryLimit::TenantsName, 30);
}

}  // namespace
