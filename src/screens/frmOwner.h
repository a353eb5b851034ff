#pragma once

#include "screens/RecordDialog.h"

#include <memory>

namespace screens {

/// Adds an owner or changes one.
class frmOwner : public RecordDialog<records::Owners, records::OwnerEntry> {
public:
    frmOwner(QWidget* parent, records::Collections& all);

    std::shared_ptr<records::Owner> EditOwner;
    std::shared_ptr<records::Owner> AddOwner;

protected:
    records::Owners& Records() override;
    void ShowRecord(const records::Owner& record) override;
    records::OwnerEntry Entered() const override;
    const QString& NameIn(const records::OwnerEntry& entry) const override;
    QWidget& NameField() const override;
    std::shared_ptr<records::Owner> Make(const records::OwnerEntry& entry) override;

private:
    controls::ctlTextBox* txtName_;
};

}  // namespace screens
