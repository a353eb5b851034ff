#include "screens/frmOwner.h"

namespace screens {

frmOwner::frmOwner(QWidget* parent, records::Collections& all)
    : RecordDialog(QStringLiteral("Owner"), 6600, 1500, parent, all, EditOwner, AddOwner) {
    txtName_ = AddTextBox(QStringLiteral("txtName"), QStringLiteral("Owner Name"), 0, 3600,
                          {.MaxLength = records::EntryLimit::OwnersName, .Text = QString()});
    AddSaveAndCancel();
}

records::Owners& frmOwner::Records() {
    return All().Owners;
}

void frmOwner::ShowRecord(const records::Owner& record) {
    txtName_->SetText(record.OwnersName);
}

records::OwnerEntry frmOwner::Entered() const {
    return {.OwnersName = txtName_->Text()};
}

const QString& frmOwner::NameIn(const records::OwnerEntry& entry) const {
    return entry.OwnersName;
}

QWidget& frmOwner::NameField() const {
    return *txtName_;
}

std::shared_ptr<records::Owner> frmOwner::Make(const records::OwnerEntry& entry) {
    return records::MakeRecord(entry);
}

}  // namespace screens
