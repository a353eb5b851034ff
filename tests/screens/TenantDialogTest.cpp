#include "DialogTest.h"
#include "platform/NoDate.h"
#include "screens/frmTenant.h"

#include <QRadioButton>
#include <QWheelEvent>

namespace {

using screens::frmTenant;

class TenantDialogTest : public DialogTest<frmTenant> {
protected:
    TenantDialogTest() { AddProperty(u"12 Main Road"_s); }

    QRadioButton& Option(const char* name) const { return Find<QRadioButton>(name); }

    /// Everything that the checks ask for but the rent.
    void FillIn() const {
        Type("txtName", u"T. Enant"_s);
        Choose("cboProperty", u"12 Main Road"_s);
        Date("datStart").SetValue(QDate(2026, 1, 1));
        Option("optDont").click();
    }

    bool MonthDayIsOnShow() const {
        const bool shown = Box("txtMonthDay").isVisible();
        EXPECT_EQ(Find<QLabel>("lblMonthDay1").isVisible(), shown);
        EXPECT_EQ(Find<QLabel>("lblMonthDay2").isVisible(), shown);
        return shown;
    }

    /// What the dialog has made, or nothing.
    const records::Tenant* Made() const { return dialog->AddTenant.get(); }
};

TEST_F(TenantDialogTest, TheWheelDoesNothingToAListWithoutTheFocus) {
    Open();
    Box("txtName").setFocus();
    const QWidget* focused = QApplication::focusWidget();
    QComboBox& list = List("cboFrequency");
    EXPECT_EQ(list.focusPolicy(), Qt::StrongFocus) << "nor does the wheel bring the focus";
    const auto turn = [&list] {
        const QPointF middle = list.rect().center();
        QWheelEvent event(middle, list.mapToGlobal(middle), {}, {0, -120}, Qt::NoButton, Qt::NoModifier,
                          Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&list, &event);
    };
    turn();
    EXPECT_EQ(list.currentText(), u"Week"_s);
    EXPECT_EQ(QApplication::focusWidget(), focused);
    list.setFocus();
    turn();
    EXPECT_EQ(list.currentText(), u"Month"_s) << "where the user is, it does";
}

TEST_F(TenantDialogTest, StartsWithTheDefaults) {
    Open();
    EXPECT_EQ(Box("txtName").MaxLength(), 30);
    EXPECT_EQ(Date("datStart").Value(), platform::NoDate());
    EXPECT_EQ(Date("datEnd").Value(), platform::NoDate());
    EXPECT_TRUE(Date("datStart").NoneShown());
    EXPECT_TRUE(Date("datEnd").NoneShown());
    EXPECT_EQ(List("cboProperty").currentIndex(), -1);
    EXPECT_EQ(Box("txtRent").Text(), u"0.00"_s);
    EXPECT_EQ(Box("txtFreqNumber").Text(), u"1"_s);
    EXPECT_EQ(Entries("cboFrequency"), (QStringList{u"Day"_s, u"Week"_s, u"Month"_s, u"Year"_s}));
    EXPECT_EQ(List("cboFrequency").currentText(), u"Week"_s);
    EXPECT_EQ(Box("txtBond").Text(), u"0.00"_s);
    EXPECT_EQ(Box("txtBalance").Text(), u"0.00"_s);
    EXPECT_TRUE(Box("txtBalance").Enabled());
    EXPECT_FALSE(Option("optDont").isChecked());
    EXPECT_FALSE(Option("optSet").isChecked());
    EXPECT_EQ(Box("txtMonthDay").Text(), u"1"_s);
    EXPECT_FALSE(MonthDayIsOnShow());
}

TEST_F(TenantDialogTest, NumbersHaveTheirDecimalsAndSigns) {
    Open();
    ExpectNumberBox("txtRent", 2, false);
    ExpectNumberBox("txtFreqNumber", 0, false);
    ExpectNumberBox("txtBond", 2, true);
    ExpectNumberBox("txtBalance", 2, true);
    ExpectNumberBox("txtMonthDay", 0, false);
    EXPECT_FALSE(Box("txtName").IsNumeric());
}

TEST_F(TenantDialogTest, TheChecksComeInTheirOrder) {
    Open();
    Save();
    ExpectRefused(u"A name is required"_s, "txtName");
    Type("txtName", u"T. Enant"_s);
    Save();
    ExpectRefused(u"A property selection is required"_s, "cboProperty");
    Choose("cboProperty", u"12 Main Road"_s);
    Save();
    ExpectRefused(u"A start date is required."_s, "datStart");
    Date("datStart").SetValue(QDate(2026, 1, 1));
    Save();
    ExpectRefused(
        u"You need to select one of the options to either enter the rent balance or leave it blank"_s,
        "optDont");
    Option("optDont").click();
    Type("txtRent", u"250"_s);
    Save();
    ExpectSaved();
    ASSERT_NE(Made(), nullptr);
}

TEST_F(TenantDialogTest, ARentOfZeroHasToBeMeant) {
    AddTenant(u"T. ENANT"_s, u"12 Main Road"_s);
    Open();
    FillIn();
    Save();
    ASSERT_EQ(boxes_.requests.size(), 1U) << "the question comes before the name is looked at";
    EXPECT_EQ(boxes_.requests[0].text, u"The rent amount is set to zero.  Is this correct?"_s);
    EXPECT_EQ(boxes_.requests[0].buttons, platform::Buttons::YesNo);
    EXPECT_TRUE(IsOpen());
    ExpectFocusIn("txtRent");
    EXPECT_EQ(Made(), nullptr);
    boxes_.requests.clear();
    boxes_.answers = {platform::Answer::Yes};
    Save();
    ASSERT_EQ(boxes_.requests.size(), 2U);
    EXPECT_EQ(boxes_.requests[1].text, NameTaken);
    EXPECT_TRUE(IsOpen());
    ExpectFocusIn("txtName");
    boxes_.requests.clear();
    boxes_.answers = {platform::Answer::Yes};
    Type("txtName", u"N. Ewcomer"_s);
    Save();
    EXPECT_FALSE(IsOpen());
    ASSERT_NE(Made(), nullptr);
    EXPECT_EQ(Made()->CurrentRent, 0);
}

TEST_F(TenantDialogTest, EveryEntryIsStored) {
    Open();
    Type("txtName", u" T. Enant "_s);
    Choose("cboProperty", u"12 Main Road"_s);
    Date("datStart").SetValue(QDate(2025, 7, 14));
    Date("datEnd").SetValue(QDate(2025, 7, 13));
    Type("txtRent", u"1234.56"_s);
    Type("txtFreqNumber", u"2"_s);
    Choose("cboFrequency", u"Month"_s);
    EXPECT_TRUE(MonthDayIsOnShow());
    Type("txtMonthDay", u"31"_s);
    Choose("cboFrequency", u"Year"_s);
    EXPECT_FALSE(MonthDayIsOnShow());
    Type("txtBond", u"-1"_s);
    Type("txtBalance", u"-20.05"_s);
    Option("optDont").click();
    Save();
    ExpectSaved();
    ASSERT_NE(Made(), nullptr);
    EXPECT_EQ(Made()->Name, u" T. Enant "_s);
    EXPECT_EQ(Made()->PropertyName, u"12 Main Road"_s);
    EXPECT_EQ(Made()->StartDate, QDate(2025, 7, 14));
    EXPECT_EQ(Made()->EndDate, QDate(2025, 7, 13)) << "an end before the start is not asked about";
    EXPECT_EQ(Made()->CurrentRent, 1234.56);
    EXPECT_EQ(Made()->FrequencyNumber, 2);
    EXPECT_EQ(Made()->RentFrequency, u"Year"_s);
    EXPECT_EQ(Made()->MonthDay, 31) << "a day that is hidden again counts";
    EXPECT_EQ(Made()->BondHeld, -1);
    EXPECT_EQ(Made()->BalanceAmount, -20.05) << "stored whatever is chosen";
    EXPECT_FALSE(Made()->Setbalance);
    EXPECT_EQ(records::TheCollections().Tenants.Count(), 0) << "adding it is left to the page";
}

TEST_F(TenantDialogTest, ABalanceOfZeroIsALegalAnswer) {
    Open();
    FillIn();
    Type("txtRent", u"250"_s);
    Option("optSet").click();
    EXPECT_FALSE(Option("optDont").isChecked());
    Save();
    ASSERT_NE(Made(), nullptr);
    EXPECT_TRUE(Made()->Setbalance);
    EXPECT_EQ(Made()->BalanceAmount, 0);
    EXPECT_EQ(Made()->MonthDay, 1);
    EXPECT_EQ(Made()->EndDate, platform::NoDate());
}

TEST_F(TenantDialogTest, OffersWhatCanBeLetInTheOrderOfTheProperties) {
    AddProperty(u"7 High Street"_s)->iType = 2;
    AddProperty(u"2/7 High Street"_s)->iType = 1;
    AddProperty(u"1 Abbey Road"_s);
    AddTenant(u"T. Enant"_s, u"12 Main Road"_s);
    Open();
    EXPECT_EQ(Entries("cboProperty"),
              (QStringList{u"12 Main Road"_s, u"2/7 High Street"_s, u"1 Abbey Road"_s}));
    EXPECT_FALSE(List("cboProperty").isEditable());
}

TEST_F(TenantDialogTest, EditingShowsTheRecordAndChangesItInPlace) {
    const auto tenant = AddTenant(u"T. Enant"_s, u"12 Main Road"_s);
    tenant->BalanceAmount = -12.5;
    tenant->BondHeld = 1000;
    tenant->FrequencyNumber = 2;
    tenant->RentFrequency = u"Month"_s;
    tenant->MonthDay = 15;
    tenant->Setbalance = true;
    Open(&frmTenant::EditTenant, tenant);
    EXPECT_EQ(Box("txtName").Text(), u"T. Enant"_s);
    EXPECT_EQ(Box("txtBalance").Text(), u"-12.5"_s);
    EXPECT_EQ(Box("txtBond").Text(), u"1000"_s);
    EXPECT_EQ(Box("txtRent").Text(), u"250"_s);
    EXPECT_TRUE(Date("datEnd").NoneShown());
    EXPECT_EQ(List("cboProperty").currentText(), u"12 Main Road"_s);
    EXPECT_EQ(List("cboFrequency").currentText(), u"Month"_s);
    EXPECT_TRUE(MonthDayIsOnShow());
    EXPECT_EQ(Date("datStart").Value(), QDate(2026, 11, 1));
    EXPECT_EQ(Box("txtFreqNumber").Text(), u"2"_s);
    EXPECT_EQ(Box("txtMonthDay").Text(), u"15"_s);
    EXPECT_TRUE(Option("optSet").isChecked());
    EXPECT_TRUE(Date("datStart").Enabled());
    Type("txtRent", u"275.5"_s);
    Option("optDont").click();
    Save();
    ExpectSaved();
    EXPECT_EQ(Made(), nullptr);
    EXPECT_EQ(tenant->CurrentRent, 275.5);
    EXPECT_FALSE(tenant->Setbalance);
    EXPECT_EQ(tenant->BalanceAmount, -12.5);
    EXPECT_EQ(tenant->EndDate.year(), 1234);
    EXPECT_EQ(records::TheCollections().Tenants.Count(), 1);
}

TEST_F(TenantDialogTest, ANameIsFreeForItsOwnRecordAndForNoOther) {
    const auto tenant = AddTenant(u"T. Enant"_s, u"12 Main Road"_s);
    AddTenant(u"O. Ther"_s, u"12 Main Road"_s);
    Open(&frmTenant::EditTenant, tenant);
    Type("txtName", u"o. ther"_s);
    Save();
    ExpectRefused(NameTaken, "txtName");
    EXPECT_EQ(tenant->Name, u"T. Enant"_s);
    Type("txtName", u"T. ENANT"_s);
    Save();
    ExpectSaved();
    EXPECT_EQ(tenant->Name, u"T. ENANT"_s);
}

TEST_F(TenantDialogTest, OpeningAndCancellingAnEditChangesNothing) {
    const auto tenant = AddTenant(u"T. Enant"_s, u"A property that is gone"_s);
    const records::Tenant before = *tenant;
    Open(&frmTenant::EditTenant, tenant);
    EXPECT_EQ(List("cboProperty").currentIndex(), -1);
    Type("txtName", u"Another"_s);
    Type("txtRent", u"1"_s);
    Cancel();
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(tenant->Name, before.Name);
    EXPECT_EQ(tenant->PropertyName, before.PropertyName);
    EXPECT_EQ(tenant->CurrentRent, before.CurrentRent);
    EXPECT_EQ(tenant->EndDate, before.EndDate);
}

TEST_F(TenantDialogTest, ItsTexts) {
    Open();
    EXPECT_EQ(Find<QLabel>("Label11").text(),
              u"You can enter below a tenants rent balance.  If you choose to do this Hearthbook will "
              "generate balancing transactions.  This will save data entry time but is less accurate than "
              "entering the transactions manually.  A negative balance means overpaid rent."_s);
    EXPECT_EQ(Find<QLabel>("lblStartNote").text(), u"NOTE - This date can NOT be changed later."_s);
    EXPECT_EQ(Option("optDont").text(),
              u"Dont set the balance.  I will manually enter all transactions since the tenancy start "
              "date"_s);
    EXPECT_EQ(Option("optSet").text(), u"Set this tenants rent balance as "_s);
    EXPECT_EQ(Find<QLabel>("lblMonthDay1").text(), u"from day"_s);
    EXPECT_EQ(Find<QLabel>("lblMonthDay2").text(), u"of each month"_s);
}

}  // namespace
