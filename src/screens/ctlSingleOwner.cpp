#include "screens/ctlSingleOwner.h"

#include "controls/ctlTextBox.h"
#include "records/EntryRules.h"
#include "screens/Paper.h"

#include <QLabel>

namespace screens {

ctlSingleOwner::ctlSingleOwner(QWidget* parent, records::Owners& owners) : Page(parent), owners_(owners) {
    AddLabel(
        this, QStringLiteral("Label1"),
        QStringLiteral("As a landlord, enter your name or company name or trust name as the property owner."),
        {0, 0, 11000, 300});
    const QString caption = QStringLiteral("Owner Name");
    QLabel* label = AddLabel(this, QStringLiteral("Label2"), caption, {0, 645, 1500, 300});
    txtName_ = new controls::ctlTextBox(
        {.MaxLength = records::EntryLimit::SingleOwnersName, .Text = QString()}, this);
    txtName_->setObjectName(QStringLiteral("txtName"));
    txtName_->SetLabel(caption);
    label->setBuddy(txtName_->focusProxy());
    PutAt(*txtName_, {1600, 600, 3600, 285});
}

void ctlSingleOwner::Initialise() {
    if (owners_.Count() > 0) {
        txtName_->SetText(owners_.Item(1)->OwnersName);
    }
}

bool ctlSingleOwner::IsValid() {
    records::ReplaceOwners(owners_, txtName_->Text());
    return true;
}

QWidget* ctlSingleOwner::FirstField() const {
    return txtName_;
}

}  // namespace screens
