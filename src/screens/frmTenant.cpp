#include "screens/frmTenant.h"

#include "platform/NoDate.h"
#include "platform/Rounding.h"
#include "records/RentFrequency.h"

#include <QLabel>
#include <QRadioButton>

namespace screens {

using controls::ctlTextBox;

namespace {

constexpr int LineOfFrequency = 5;
constexpr int TopOfBalance = 3800;

const ctlTextBox::Properties& CountBox() {
    static const ctlTextBox::Properties properties{
        .Alignment = 1, .Text = QStringLiteral("1"), .IsNumeric = true, .DecimalPlaces = 0};
    return properties;
}

}  // namespace

frmTenant::frmTenant(QWidget* parent, records::Collections& all)
    : RecordDialog(QStringLiteral("Tenant"), 9600, 5700, parent, all, EditTenant, AddTenant) {
    AddTenancyFields();
    AddRentFields();
    AddBalanceFields();
    AddMonthDayFields();
    Load();
}

void frmTenant::AddTenancyFields() {
    txtName_ = AddTextBox(QStringLiteral("txtName"), QStringLiteral("Tenants Name"), 0, 3600,
                          {.MaxLength = records::EntryLimit::TenantsName, .Text = QString()});
    datStart_ =
        AddDate(QStringLiteral("datStart"), QStringLiteral("Tenancy Start Date"), 1, {.IncludeNone = true});
    AddLabel(this, QStringLiteral("lblStartNote"),
             QStringLiteral("NOTE - This date can NOT be changed later."),
             {LeftOfFields + 1800, TopOfLine(1) + 45, 4600, HeightOfFields});
    datEnd_ = AddDate(QStringLiteral("datEnd"), QStringLiteral("Tenancy End Date"), 2, {.IncludeNone = true});
    cboProperty_ = AddList(QStringLiteral("cboProperty"), QStringLiteral("Property"), 3, 3600);
}

void frmTenant::AddRentFields() {
    ctlTextBox::Properties rent = MoneyBox();
    rent.AllowNegative = false;
    txtRent_ = AddTextBox(QStringLiteral("txtRent"), QStringLiteral("Current Rent"), 4, 1575, rent);
    txtFreqNumber_ = AddTextBox(QStringLiteral("txtFreqNumber"), QStringLiteral("Rent Frequency"),
                                LineOfFrequency, 600, CountBox());
    cboFrequency_ = AddPlainList(QStringLiteral("cboFrequency"), QStringLiteral("Rent Frequency Unit"),
                                 {LeftOfFields + 720, TopOfLine(LineOfFrequency), 1200, HeightOfFields});
    txtBond_ =
        AddTextBox(QStringLiteral("txtBond"), QStringLiteral("Bond/Deposit Held"), 6, 1575, MoneyBox());
}

void frmTenant::AddBalanceFields() {
    AddLabel(this, QStringLiteral("Label11"),
             QStringLiteral(
                 "You can enter below a tenants rent balance.  If you choose to do this Hearthbook will "
                 "generate balancing transactions.  This will save data entry time but is less accurate "
                 "than entering the transactions manually.  A negative balance means overpaid rent."),
             {240, 3350, 9120, 750});
    const QString setCaption = QStringLiteral("Set this tenants rent balance as ");
    txtBalance_ = new ctlTextBox(MoneyBox(), this);
    txtBalance_->setObjectName(QStringLiteral("txtBalance"));
    // The option beside it bears the caption already, and no two fields are called alike.
    txtBalance_->SetLabel(QStringLiteral("Rent Balance"));
    PutAt(*txtBalance_, {3700, TopOfBalance + 735, 1575, HeightOfFields});
    AddSaveAndCancel();
    optDont_ =
        AddOption(this, QStringLiteral("optDont"),
                  QStringLiteral("Dont set the balance.  I will manually enter all transactions since the "
                                 "tenancy start date"),
                  {240, TopOfBalance + 330, 9120, HeightOfFields});
    optSet_ = AddOption(this, QStringLiteral("optSet"), setCaption,
                        {240, TopOfBalance + 735, 3400, HeightOfFields});
}

void frmTenant::AddMonthDayFields() {
    const int top = TopOfLine(LineOfFrequency);
    lblMonthDay1_ = AddLabel(this, QStringLiteral("lblMonthDay1"), QStringLiteral("from day"),
                             {LeftOfFields + 2050, top + 45, 800, HeightOfFields});
    txtMonthDay_ = new ctlTextBox(CountBox(), this);
    txtMonthDay_->setObjectName(QStringLiteral("txtMonthDay"));
    txtMonthDay_->SetLabel(QStringLiteral("from day of each month"));
    PutAt(*txtMonthDay_, {LeftOfFields + 2850, top, 600, HeightOfFields});
    lblMonthDay2_ = AddLabel(this, QStringLiteral("lblMonthDay2"), QStringLiteral("of each month"),
                             {LeftOfFields + 3550, top + 45, 1500, HeightOfFields});
    for (QLabel* label : {lblMonthDay1_, lblMonthDay2_}) {
        label->setBuddy(txtMonthDay_->focusProxy());
    }
}

void frmTenant::Load() {
    connect(cboFrequency_, &QComboBox::currentTextChanged, this, &frmTenant::ShowMonthDay);
    cboFrequency_->addItems(records::OfferedFrequencies());
    cboFrequency_->setCurrentText(records::DefaultFrequency());
    ShowMonthDay();
    for (const auto& property : All().Properties.Walk()) {
        if (records::CanBeLet(*property)) {
            cboProperty_->addItem(property->Address1);
        }
    }
    cboProperty_->setCurrentIndex(-1);
    datEnd_->SetValue(platform::NoDate());
    datStart_->SetValue(platform::NoDate());
}

void frmTenant::ShowMonthDay() {
    const bool hasMonthDay = records::HasMonthDay(cboFrequency_->currentText());
    lblMonthDay1_->setVisible(hasMonthDay);
    lblMonthDay2_->setVisible(hasMonthDay);
    txtMonthDay_->setVisible(hasMonthDay);
}

records::Tenants& frmTenant::Records() {
    return All().Tenants;
}

void frmTenant::ShowRecord(const records::Tenant& record) {
    txtName_->SetText(record.Name);
    txtBalance_->SetText(TextOf(record.BalanceAmount));
    txtBond_->SetText(TextOf(record.BondHeld));
    txtRent_->SetText(TextOf(record.CurrentRent));
    datEnd_->SetValue(record.EndDate);
    // A property that was removed since is not among the entries, and none is selected then.
    cboProperty_->setCurrentIndex(cboProperty_->findText(record.PropertyName));
    cboFrequency_->setCurrentIndex(cboFrequency_->findText(record.RentFrequency));
    datStart_->SetValue(record.StartDate);
    txtFreqNumber_->SetText(QString::number(record.FrequencyNumber));
    txtMonthDay_->SetText(QString::number(record.MonthDay));
    optDont_->setChecked(!record.Setbalance);
    optSet_->setChecked(record.Setbalance);
}

records::TenantEntry frmTenant::Entered() const {
    records::TenantEntry entry;
    entry.Name = txtName_->Text();
    entry.PropertyName = cboProperty_->currentText();
    entry.StartDate = datStart_->Value();
    entry.EndDate = datEnd_->Value();
    entry.CurrentRent = txtRent_->Value();
    entry.RentFrequency = cboFrequency_->currentText();
    entry.BondHeld = txtBond_->Value();
    entry.BalanceAmount = txtBalance_->Value();
    if (optSet_->isChecked() || optDont_->isChecked()) {
        entry.Setbalance = optSet_->isChecked();
    }
    return entry;
}

const QString& frmTenant::NameIn(const records::TenantEntry& entry) const {
    return entry.Name;
}

QWidget& frmTenant::NameField() const {
    return *txtName_;
}

QWidget& frmTenant::FieldOf(const records::EntryFault& fault) const {
    const QLatin1String field(fault.Field);
    if (field == QLatin1String("PropertyName")) {
        return *cboProperty_;
    }
    if (field == QLatin1String("StartDate")) {
        return *datStart_;
    }
    if (field == QLatin1String("Setbalance")) {
        return *optDont_;
    }
    return NameField();
}

bool frmTenant::IsConfirmed(const records::TenantEntry& entry) {
    if (!records::NeedsZeroRentAnswer(entry) || platform::AskQuestion(records::EntryQuestion::ZeroRent)) {
        return true;
    }
    txtRent_->setFocus();
    return false;
}

void frmTenant::Complete(records::TenantEntry& entry) const {
    entry.FrequencyNumber = records::ToInteger(txtFreqNumber_->Text());
    entry.MonthDay = platform::ToInteger(txtMonthDay_->Value());
}

std::shared_ptr<records::Tenant> frmTenant::Make(const records::TenantEntry& entry) {
    return records::MakeRecord(entry);
}

}  // namespace screens
