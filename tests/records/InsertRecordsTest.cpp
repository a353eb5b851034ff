#include "support/HearthbookTest.h"

namespace {

using records::TheCollections;

class InsertRecordsTest : public HearthbookTest {
protected:
    /// Codes made and all rows written, with nothing wiped.
    void Insert() {
        records::PrepareCodes(TheCollections());
        records::InsertAllRecords(TheCollections());
    }
};

TEST_F(InsertRecordsTest, ThePresetAccountAloneGivesOneRow) {
    records::CreateCollections(records::TheCollections());
    Insert();
    EXPECT_EQ(Rows(u"select gl_code, description, type, taxable_yn, bankbalance, balancedate from glcodes "
                   u"where type = 3"_s),
              QStringList{u"BankAcct|Main Bank Account|3|-1|0|2026-11-15"_s});
    EXPECT_EQ(Rows(u"select code from owner"_s), QStringList());
    ExpectNoMessages();
}

TEST_F(InsertRecordsTest, AccountsKeepTheirSignAndTheirDay) {
    AddAccount(u"Trust"_s)->BalanceAmount = -12.5;
    Insert();
    EXPECT_EQ(Rows(u"select gl_code, bankbalance, balancedate from glcodes where type = 3"_s),
              QStringList{u"Trust|-12.5|2026-01-31"_s});
}

TEST_F(InsertRecordsTest, ColumnsThatNobodyNamesHoldDefaults) {
    AddAccount(u"Trust"_s);
    AddOwner(u"Smith"_s);
    Insert();
    EXPECT_EQ(Rows(u"select inactive, sort_order, opening_balance, bank_number, comments from glcodes "
                   u"where type = 3"_s),
              QStringList{u"0|0|0||"_s});
    EXPECT_EQ(Rows(u"select phone, minimum_balance, date_added, withholding_rate from owner"_s),
              QStringList{u"|0|2026-11-15|0"_s});
}

TEST_F(InsertRecordsTest, AllOwnersGetTheOneFee) {
    records::CurrentSettings().ManagementFee = 8.5;
    AddOwner(u"Smith Family Trust"_s);
    AddOwner(u"Jones"_s);
    Insert();
    EXPECT_EQ(Rows(u"select code, name, fee_percent from owner order by code"_s),
              (QStringList{u"Jones|Jones|8.5"_s, u"Smith Fami|Smith Family Trust|8.5"_s}));
}

TEST_F(InsertRecordsTest, AnOwnerWithoutANameLeavesNoRow) {
    AddOwner(QString());
    AddProperty(u"1 A St"_s);
    Insert();
    EXPECT_EQ(Rows(u"select code from owner"_s), QStringList());
    EXPECT_EQ(Rows(u"select ownercode from property"_s), QStringList{QString()});
    ExpectNoMessages();
}

TEST_F(InsertRecordsTest, PropertiesReferByCodes) {
    AddAccount(u"Trust Account"_s);
    AddOwner(u"Smith Family Trust"_s);
    const auto property = AddProperty(u"12 Main Road"_s, u"Trust Account"_s, u"Smith Family Trust"_s);
    property->Address2 = u"Town"_s;
    property->Address3 = u"Land"_s;
    AddProperty(u"14 Main Road"_s, u"gone"_s, u"gone"_s);
    AddTenant(u"Ada"_s, u"12 Main Road"_s)->EndDate = QDate(2001, 1, 1);
    Insert();
    EXPECT_EQ(Rows(u"select code, address1, address2, address3, default_gl, ownercode, type, "
                   u"parent_property, depn_rate, depn_method, property_type, vacancy_status from property "
                   u"order by code"_s),
              (QStringList{u"12 Main Road|12 Main Road|Town|Land|Trust Acco|Smith Fami|0||4|DV|House|0"_s,
                           u"14 Main Road|14 Main Road|||||0||4|DV|House|1"_s}));
}

TEST_F(InsertRecordsTest, UnitsNameTheirBuildingAndOnlyTheColumnIsCut) {
    const QString building = u"1234567890 Long Main Road 9999"_s;
    for (const auto& address : {building, u"3/"_s + building}) {
        const auto property = AddProperty(address);
        property->iType = address == building ? 2 : 1;
        property->ParentProperty = building;
    }
    AddTenant(u"Ada"_s, u"3/"_s + building);
    Insert();
    EXPECT_EQ(
        Rows(u"select code, address1, type, parent_property, vacancy_status from property "
             u"order by type desc"_s),
        (QStringList{u"1234567890 Long Main|1234567890 Long Main Road 9999|2|1234567890 Long Main|1"_s,
                     u"3/1234567890 Long Ma|3/1234567890 Long Main Road 99|1|1234567890 Long Main|0"_s}));
}

TEST_F(InsertRecordsTest, UnitsOfARenamedBuildingLoseTheirParent) {
    const auto unit = AddProperty(u"1/Old"_s);
    unit->ParentProperty = u"Old"_s;
    AddProperty(u"New"_s);
    Insert();
    EXPECT_EQ(Rows(u"select parent_property from property where code = '1/Old'"_s), QStringList{QString()});
}

TEST_F(InsertRecordsTest, ATenancyHoldsWhatWasEntered) {
    AddProperty(u"12 Main Road"_s);
    const auto tenant = AddTenant(u"Ada Finch"_s, u"12 Main Road"_s);
    tenant->CurrentRent = 420.25;
    tenant->BondHeld = 1680;
    tenant->FrequencyNumber = 2;
    tenant->MonthDay = 17;
    Insert();
    EXPECT_EQ(
        Rows(u"select [current rent], bond, [when started], [when ended], [property code], reference, "
             u"name, insp_number, insp_every, every_amt, every_freq, rentreviewdate, water_meter, "
             u"monthly_day from tenancy"_s),
        QStringList{u"420.25|1680|2026-11-01|1234-11-15|12 Main Road|Ada Finch|Ada Finch|1|Never|2|Week|"
                    u"2027-11-01|0|17"_s});
    EXPECT_EQ(Rows(u"select tenant_code, [date], amount, reason from tenant_bond"_s),
              QStringList{u"Ada Finch|2026-11-15|1680|Opening Balance"_s});
    ExpectNoMessages();
}

TEST_F(InsertRecordsTest, ABondOfZeroOrLessHasNoRowOfItsOwn) {
    AddTenant(u"Ada"_s, u"gone"_s);
    AddTenant(u"Bob"_s, u"gone"_s)->BondHeld = -50;
    Insert();
    EXPECT_EQ(Rows(u"select amount from tenant_bond"_s), QStringList());
    EXPECT_EQ(Rows(u"select bond, [property code] from tenancy order by reference"_s),
              (QStringList{u"0|"_s, u"-50|"_s}));
}

TEST_F(InsertRecordsTest, TheRentReviewIsTheNextAnniversary) {
    const auto reviewOf = [this](QDate start) {
        TheCollections().Tenants = records::Tenants();
        Execute(u"delete from tenancy"_s);
        const auto tenant = AddTenant(u"Ada"_s, {});
        tenant->StartDate = start;
        tenant->EndDate = start;
        Insert();
        return Rows(u"select rentreviewdate from tenancy"_s).value(0);
    };
    EXPECT_EQ(reviewOf(QDate(2022, 9, 15)), u"2027-09-15"_s);
    EXPECT_EQ(reviewOf(QDate(2026, 12, 15)), u"2027-12-15"_s);
    EXPECT_EQ(reviewOf(QDate(2025, 11, 15)), u"2026-11-15"_s);
    EXPECT_EQ(reviewOf(QDate(2025, 11, 14)), u"2027-11-14"_s);
    EXPECT_EQ(reviewOf(QDate(2020, 2, 29)), u"2027-02-28"_s);
    platform::PinToday(QDate(2023, 6, 1));
    EXPECT_EQ(reviewOf(QDate(2020, 2, 29)), u"2024-02-28"_s);
}

TEST_F(InsertRecordsTest, RentPeriodsAreWrittenWithNothingPaid) {
    const auto tenant = AddTenant(u"Ada"_s, {});
    Insert();
    EXPECT_EQ(Rows(u"select tenant_code, period_from, period_to, rent_due, extra_charges, paid, "
                   u"extra_charges_paid from rent_periods order by period_from"_s),
              (QStringList{u"Ada|2026-11-01|2026-11-07|250|0|0|0"_s, u"Ada|2026-11-08|2026-11-14|250|0|0|0"_s,
                           u"Ada|2026-11-15|2026-11-21|250|0|0|0"_s}));
    EXPECT_EQ(tenant->StartDate, QDate(2026, 11, 1));
    EXPECT_EQ(Rows(u"select amount from revenues"_s), QStringList());
}

TEST_F(InsertRecordsTest, ADurationEndsWithItsTenancy) {
    const auto tenant = AddTenant(u"Ada"_s, {});
    tenant->RentFrequency = u"Duration"_s;
    tenant->EndDate = QDate(2027, 1, 31);
    Insert();
    EXPECT_EQ(Rows(u"select period_from, period_to, rent_due from rent_periods"_s),
              QStringList{u"2026-11-01|2027-01-31|250"_s});
}

TEST_F(InsertRecordsTest, ARowThatCannotBeSavedIsReportedAndTheNextIsWritten) {
    const QString tooLong(60, u'x');
    AddOwner(tooLong);
    AddOwner(u"Jones"_s);
    Insert();
    ASSERT_EQ(boxes_.requests.size(), 1U);
    EXPECT_EQ(boxes_.requests[0].title, u"Update Record"_s);
    EXPECT_TRUE(boxes_.requests[0].text.contains(
        u"3163 - The field 'name' is too small to accept the amount of data: 60 characters, of which it takes 50."_s))
        << boxes_.requests[0].text.toStdString();
    EXPECT_EQ(Rows(u"select name from owner"_s), QStringList{u"Jones"_s});
}

TEST_F(InsertRecordsTest, ATenantsOtherRowsFollowEvenWithoutATenancy) {
    const auto tenant = AddTenant(QString(60, u'x'), {});
    tenant->BondHeld = 10;
    Insert();
    EXPECT_EQ(boxes_.requests.size(), 1U);
    EXPECT_EQ(Rows(u"select tenant_code from tenant_bond"_s), QStringList{QString(20, u'x')});
    EXPECT_EQ(Rows(u"select tenant_code from rent_periods"_s).size(), 3);
}

TEST_F(InsertRecordsTest, AnApostropheInACodeBreaksTheStatementsButNotTheRows) {
    AddTenant(u"O'Brien"_s, {})->BondHeld = 10;
    Insert();
    EXPECT_EQ(Rows(u"select reference from tenancy"_s), QStringList{u"O'Brien"_s});
    EXPECT_EQ(Rows(u"select tenant_code from rent_periods"_s), QStringList());
    ASSERT_EQ(boxes_.requests.size(), 4U);
    EXPECT_EQ(boxes_.requests[0].title, u"Execute SQL"_s);
}

TEST_F(InsertRecordsTest, ATableThatIsNotThereEndsTheRun) {
    DropTable("owner");
    AddOwner(u"Smith"_s);
    EXPECT_EQ(FailureOf([this] { Insert(); }), platform::FailureNumber::ObjectNotSet);
    ASSERT_EQ(boxes_.requests.size(), 2U);
    EXPECT_EQ(boxes_.requests[0].title, u"Data Create Set"_s);
    EXPECT_EQ(boxes_.requests[1].title, u"Add Record"_s);
}

}  // namespace
