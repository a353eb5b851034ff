#include "shell/ctlPageType.h"

#include "controls/akDate.h"
#include "controls/ctlTextBox.h"
#include "platform/MessageBox.h"
#include "platform/NoDate.h"
#include "records/EntryMessages.h"
#include "records/ImportSettings.h"
#include "screens/Paper.h"

#include <QLabel>
#include <QRadioButton>

namespace shell {

ctlPageType::ctlPageType(QWidget* parent) : Page(parent) {
    screens::AddLabel(this, QStringLiteral("Label1"), QStringLiteral("What type of user are you?"),
                      {0, 0, 11000, 300});
    AddOptions();
    AddManagerFields();
    UpdateControls();
    connect(optLandlord_, &QRadioButton::clicked, this, &ctlPageType::UpdateControls);
    connect(optManager_, &QRadioButton::clicked, this, &ctlPageType::UpdateControls);
}

void ctlPageType::AddOptions() {
    optLandlord_ = screens::AddOption(this, QStringLiteral("optLandlord"),
                                      QStringLiteral("I am a landlord.  I only manage my own properties."),
                                      {0, 600, 11000, 300});
    optManager_ = screens::AddOption(
        this, QStringLiteral("optManager"),
        QStringLiteral("I am a property manager.  I manage properties on behalf of other owners"),
        {0, 1050, 11000, 300});
}

void ctlPageType::AddManagerFields() {
    const QString fee = QStringLiteral("Typical management fee % including all taxes is");
    const QString disbursement = QStringLiteral("Date of last disbursement");
    Label2_ = screens::AddLabel(this, QStringLiteral("Label2"), fee, {300, 1695, 4200, 300});
    txtManagementFee_ = new controls::ctlTextBox({.Enabled = false,
                                                  .Alignment = 1,
                                                  .Text = QStringLiteral("0.00"),
                                                  .IsNumeric = true,
                                                  .DecimalPlaces = 4},
                                                 this);
    txtManagementFee_->setObjectName(QStringLiteral("txtManagementFee"));
    txtManagementFee_->SetLabel(fee);
    Label2_->setBuddy(txtManagementFee_->focusProxy());
    screens::PutAt(*txtManagementFee_, {4600, 1650, 1050, 285});
    Label3_ = screens::AddLabel(this, QStringLiteral("Label3"), QStringLiteral("%"), {5730, 1695, 300, 300});
    Label4_ = screens::AddLabel(this, QStringLiteral("Label4"), disbursement, {300, 2145, 4200, 300});
    datLastDisbursement_ = new controls::akDate({.Enabled = false, .IncludeNone = true}, this);
    datLastDisbursement_->setObjectName(QStringLiteral("datLastDisbursement"));
    datLastDisbursement_->SetLabel(disbursement);
    Label4_->setBuddy(datLastDisbursement_);
    datLastDisbursement_->SetBackColor(controls::White);
    datLastDisbursement_->SetValue(platform::NoDate());
    datLastDisbursement_->Move(4600, 2100);
}

void ctlPageType::UpdateControls() {
    const bool isManager = optManager_->isChecked();
    Label2_->setEnabled(isManager);
    Label3_->setEnabled(isManager);
    Label4_->setEnabled(isManager);
    txtManagementFee_->SetEnabled(isManager);
    datLastDisbursement_->SetEnabled(isManager);
}

bool ctlPageType::IsValid() {
    if (!optLandlord_->isChecked() && !optManager_->isChecked()) {
        platform::ShowMessageBox(records::EntryMessage::TypeRequired);
        return false;
    }
    records::CurrentSettings() = {.IsLandlord = optLandlord_->isChecked(),
                                  .ManagementFee = txtManagementFee_->Value(),
                                  .LastDisbursement = datLastDisbursement_->Value()};
    return true;
}

QWidget* ctlPageType::FirstField() const {
    return optManager_->isChecked() ? optManager_ : optLandlord_;
}

}  // namespace shell
