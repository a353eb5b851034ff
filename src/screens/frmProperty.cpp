#include "screens/frmProperty.h"

#include "controls/base/Accessible.h"
#include "controls/base/ClickableAccessible.h"
#include "controls/base/Font.h"
#include "platform/Rounding.h"

#include <QCheckBox>
#include <QLabel>

namespace screens {

using controls::ctlTextBox;

namespace {

constexpr int WidthOfAddress = 3600;

/// A single entry needs no choosing.
template <typename Collection>
void FillWithNames(QComboBox& list, const Collection& collection) {
    for (const auto& record : collection.Walk()) {
        list.addItem(collection.NameOf(*record));
    }
    list.setCurrentIndex(list.count() == 1 ? 0 : -1);
}

}  // namespace

frmProperty::frmProperty(QWidget* parent, records::Collections& all)
    : RecordDialog(QStringLiteral("Property"), 7800, 4500, parent, all, EditProperty, AddProperty) {
    const ctlTextBox::Properties address{.MaxLength = records::EntryLimit::Address, .Text = QString()};
    txtAddress1_ =
        AddTextBox(QStringLiteral("txtAddress1"), QStringLiteral("Address 1"), 0, WidthOfAddress, address);
    txtAddress2_ =
        AddTextBox(QStringLiteral("txtAddress2"), QStringLiteral("Address 2"), 1, WidthOfAddress, address);
    txtAddress3_ =
        AddTextBox(QStringLiteral("txtAddress3"), QStringLiteral("Address 3"), 2, WidthOfAddress, address);
    cboOwner_ = AddList(QStringLiteral("cboOwner"), QStringLiteral("Owner"), 3, WidthOfAddress);
    cboAccount_ =
        AddList(QStringLiteral("cboAccount"), QStringLiteral("Default Bank Account"), 4, WidthOfAddress);
    AddSaveAndCancel();
    AddUnitFields();
}

void frmProperty::AddUnitFields() {
    controls::RegisterAccessible<QCheckBox, controls::ClickableAccessible>();
    Check1_ = new QCheckBox(QStringLiteral("This property has multiple units/rooms which we manage"), this);
    Check1_->setObjectName(QStringLiteral("Check1"));
    Check1_->setFont(controls::ControlFont());
    PutAt(*Check1_, {240, TopOfLine(5) + 60, 7300, HeightOfFields});
    txtUnitCount_ = AddTextBox(QStringLiteral("txtUnitCount"), QStringLiteral("Number of Units"), 6, 900,
                               {.Enabled = false,
                                .Alignment = 1,
                                .MaxLength = 30,
                                .Text = QString(),
                                .IsNumeric = true,
                                .DecimalPlaces = 0});
    txtUnitNumbers_ = AddTextBox(QStringLiteral("txtUnitNumbers"), QStringLiteral("Unit Numbers"), 7, 4800,
                                 {.Enabled = false, .Text = QString()});
    Label6_ = findChild<QLabel*>(QStringLiteral("lblUnitCount"));
    Label6_->setObjectName(QStringLiteral("Label6"));
    Label7_ = findChild<QLabel*>(QStringLiteral("lblUnitNumbers"));
    Label7_->setObjectName(QStringLiteral("Label7"));
    EnableUnitFields(false);
    connect(Check1_, &QCheckBox::toggled, this, &frmProperty::EnableUnitFields);
    connect(txtUnitCount_, &ctlTextBox::GotFocus, this, [this] { rememberedCount_ = txtUnitCount_->Text(); });
    connect(txtUnitCount_, &ctlTextBox::LostFocus, this, &frmProperty::ReplaceUnitNumbers);
    connect(txtUnitNumbers_, &ctlTextBox::Change, this, &frmProperty::CountUnitNumbers);
}

void frmProperty::EnableUnitFields(bool on) {
    txtUnitCount_->SetEnabled(on);
    txtUnitNumbers_->SetEnabled(on);
    Label6_->setEnabled(on);
    Label7_->setEnabled(on);
}

void frmProperty::ReplaceUnitNumbers() {
    if (txtUnitCount_->Text() != rememberedCount_) {
        txtUnitNumbers_->SetText(records::UnitNumbersOf(platform::ToInteger(txtUnitCount_->Value())));
    }
}

void frmProperty::CountUnitNumbers() {
    txtUnitCount_->SetText(QString::number(records::UnitCountOf(txtUnitNumbers_->Text())));
}

records::Properties& frmProperty::Records() {
    return All().Properties;
}

void frmProperty::FillLists() {
    FillWithNames(*cboOwner_, All().Owners);
    FillWithNames(*cboAccount_, All().bankAccounts);
}

void frmProperty::ShowRecord(const records::Property& record) {
    txtAddress1_->SetText(record.Address1);
    txtAddress2_->SetText(record.Address2);
    txtAddress3_->SetText(record.Address3);
    // An owner or account that was removed since is not among the entries, and none is selected then.
    cboAccount_->setCurrentIndex(cboAccount_->findText(record.BankAccount));
    cboOwner_->setCurrentIndex(cboOwner_->findText(record.Owner));
    Check1_->setEnabled(false);
}

records::PropertyEntry frmProperty::Entered() const {
    return {.Address1 = txtAddress1_->Text(),
            .Address2 = txtAddress2_->Text(),
            .Address3 = txtAddress3_->Text(),
            .Owner = cboOwner_->currentText(),
            .BankAccount = cboAccount_->currentText(),
            .UnitNumbers = txtUnitNumbers_->Text()};
}

const QString& frmProperty::NameIn(const records::PropertyEntry& entry) const {
    return entry.Address1;
}

QWidget& frmProperty::NameField() const {
    return *txtAddress1_;
}

std::shared_ptr<records::Property> frmProperty::Make(const records::PropertyEntry& entry) {
    return records::AddPropertyWithUnits(Records(), entry);
}

}  // namespace screens
