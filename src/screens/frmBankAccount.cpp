#include "screens/frmBankAccount.h"

namespace screens {

frmBankAccount::frmBankAccount(QWidget* parent, records::Collections& all)
    : RecordDialog(QStringLiteral("Bank Account"), 6600, 3300, parent, all, EditAccount, AddAccount) {
    txtName_ = AddTextBox(QStringLiteral("txtName"), QStringLiteral("Account Name"), 0, 3600,
                          {.MaxLength = records::EntryLimit::BankAccountName, .Text = QString()});
    datBalance_ = AddDate(QStringLiteral("datBalance"), QStringLiteral("Balance Date"), 1, {});
    txtBalance_ =
        AddTextBox(QStringLiteral("txtBalance"), QStringLiteral("Balance Amount"), 2, 1575, MoneyBox());
    AddLabel(
        this, QStringLiteral("Label4"),
        QStringLiteral("By entering a bank account balance date and value from a previous bank statement, "
                       "Hearthbook can keep track of the current account balance."),
        {240, TopOfLine(3) + 150, 6120, 900});
    AddSaveAndCancel();
}

records::bankAccounts& frmBankAccount::Records() {
    return All().bankAccounts;
}

void frmBankAccount::ShowRecord(const records::BankAccount& record) {
    txtBalance_->SetText(TextOf(record.BalanceAmount));
    txtName_->SetText(record.BankAccountName);
    datBalance_->SetValue(record.BalanceDate);
}

records::BankAccountEntry frmBankAccount::Entered() const {
    return {.BankAccountName = txtName_->Text(),
            .BalanceDate = datBalance_->Value(),
            .BalanceAmount = txtBalance_->Value()};
}

const QString& frmBankAccount::NameIn(const records::BankAccountEntry& entry) const {
    return entry.BankAccountName;
}

QWidget& frmBankAccount::NameField() const {
    return *txtName_;
}

std::shared_ptr<records::BankAccount> frmBankAccount::Make(const records::BankAccountEntry& entry) {
    return records::MakeRecord(entry);
}

}  // namespace screens
