#pragma once

#include "screens/RecordDialog.h"

#include <memory>

namespace screens {

/// Adds a bank account or changes one, with the balance of a statement from which Hearthbook goes on.
class frmBankAccount : public RecordDialog<records::bankAccounts, records::BankAccountEntry> {
public:
    frmBankAccount(QWidget* parent, records::Collections& all);

    std::shared_ptr<records::BankAccount> EditAccount;
    std::shared_ptr<records::BankAccount> AddAccount;

protected:
    records::bankAccounts& Records() override;
    void ShowRecord(const records::BankAccount& record) override;
    records::BankAccountEntry Entered() const override;
    const QString& NameIn(const records::BankAccountEntry& entry) const override;
    QWidget& NameField() const override;
    std::shared_ptr<records::BankAccount> Make(const records::BankAccountEntry& entry) override;

private:
    controls::ctlTextBox* txtName_;
    controls::akDate* datBalance_;
    controls::ctlTextBox* txtBalance_;
};

}  // namespace screens
