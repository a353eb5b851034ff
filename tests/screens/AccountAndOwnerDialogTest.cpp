#include "DialogTest.h"
#include "screens/frmBankAccount.h"
#include "screens/frmOwner.h"

namespace {

using screens::frmBankAccount;
using screens::frmOwner;

using AccountDialogTest = DialogTest<frmBankAccount>;
using OwnerDialogTest = DialogTest<frmOwner>;

TEST_F(AccountDialogTest, DefaultEntriesAreTodayAndZero) {
    Open();
    EXPECT_EQ(Box("txtBalance").Text(), u"0.00"_s);
    Type("txtName", u"Kestrel Cheque"_s);
    Save();
    ExpectSaved();
    ASSERT_TRUE(dialog->AddAccount);
    EXPECT_EQ(dialog->AddAccount->BankAccountName, u"Kestrel Cheque"_s);
    EXPECT_EQ(dialog->AddAccount->BalanceDate, QDate(2026, 6, 10));
    EXPECT_EQ(dialog->AddAccount->BalanceAmount, 0);
    EXPECT_EQ(records::TheCollections().bankAccounts.Count(), 0) << "adding it is left to the page";
}

TEST_F(AccountDialogTest, ANameIsRequiredAndIsTheOnlyCheck) {
    Open();
    Type("txtBalance", u"-12.5"_s);
    Save();
    ExpectRefused(u"An account name is required"_s, "txtName");
    EXPECT_FALSE(dialog->AddAccount);
    EXPECT_EQ(Box("txtBalance").Text(), u"-12.5"_s);
    Type("txtName", u" "_s);
    Save();
    ExpectSaved();
    EXPECT_EQ(dialog->AddAccount->BankAccountName, u" "_s);
    EXPECT_EQ(dialog->AddAccount->BalanceAmount, -12.5);
}

TEST_F(AccountDialogTest, ATakenNameIsRefusedInAnyLetterCase) {
    AddAccount(u"Kestrel"_s);
    Open();
    Type("txtName", u"KESTREL"_s);
    Save();
    ExpectRefused(NameTaken, "txtName");
    EXPECT_FALSE(dialog->AddAccount);
}

TEST_F(AccountDialogTest, EditingShowsTheRecordWithAsManyDecimalsAsItNeeds) {
    const auto account = AddAccount(u"Kestrel"_s);
    account->BalanceAmount = 100;
    Open(&frmBankAccount::EditAccount, account);
    EXPECT_EQ(Box("txtName").Text(), u"Kestrel"_s);
    EXPECT_EQ(Box("txtBalance").Text(), u"100"_s);
    EXPECT_EQ(Date("datBalance").Value(), QDate(2026, 1, 31));
    account->BalanceAmount = -0.5;
    Open(&frmBankAccount::EditAccount, account);
    EXPECT_EQ(Box("txtBalance").Text(), u"-0.5"_s);
}

TEST_F(AccountDialogTest, ARenameReachesThePropertiesAndTheRecordStaysTheSameOne) {
    const auto account = AddAccount(u"Kestrel"_s, u"BankAcct"_s);
    AddAccount(u"Other"_s);
    const auto first = AddProperty(u"1 Main Road"_s, u"Kestrel"_s);
    const auto second = AddProperty(u"2 Main Road"_s, u"Other"_s);
    Open(&frmBankAccount::EditAccount, account);
    Type("txtName", u"other"_s);
    Save();
    ExpectRefused(NameTaken, "txtName");
    EXPECT_EQ(account->BankAccountName, u"Kestrel"_s);
    Type("txtName", u"KESTREL"_s);
    Type("txtBalance", u"7.25"_s);
    Date("datBalance").SetValue(QDate(2026, 2, 28));
    Save();
    ExpectSaved();
    EXPECT_FALSE(dialog->AddAccount);
    EXPECT_EQ(account->BankAccountName, u"KESTREL"_s);
    EXPECT_EQ(account->BalanceAmount, 7.25);
    EXPECT_EQ(account->BalanceDate, QDate(2026, 2, 28));
    EXPECT_EQ(account->Code, u"BankAcct"_s);
    EXPECT_EQ(first->BankAccount, u"KESTREL"_s);
    EXPECT_EQ(second->BankAccount, u"Other"_s);
}

TEST_F(AccountDialogTest, CancelLeavesEverythingAsItWas) {
    const auto account = AddAccount(u"Kestrel"_s);
    const auto property = AddProperty(u"1 Main Road"_s, u"Kestrel"_s);
    Open(&frmBankAccount::EditAccount, account);
    Type("txtName", u"Merlin"_s);
    Type("txtBalance", u"5"_s);
    Cancel();
    ExpectSaved();
    EXPECT_EQ(account->BankAccountName, u"Kestrel"_s);
    EXPECT_EQ(account->BalanceAmount, 0);
    EXPECT_EQ(property->BankAccount, u"Kestrel"_s);
    Open();
    Type("txtName", u"Merlin"_s);
    Cancel();
    EXPECT_FALSE(dialog->AddAccount);
}

TEST_F(AccountDialogTest, ItSaysWhatTheBalanceIsFor) {
    Open();
    EXPECT_EQ(Find<QLabel>("Label4").text(),
              u"By entering a bank account balance date and value from a previous bank statement, Hearthbook "
              "can keep track of the current account balance."_s);
    EXPECT_EQ(Box("txtName").MaxLength(), 30);
    EXPECT_FALSE(Date("datBalance").IncludeNone());
    ExpectNumberBox("txtBalance", 2, true);
}

TEST_F(OwnerDialogTest, ANameIsRequiredAndMustBeFree) {
    AddOwner(u"A. Smith"_s);
    Open();
    EXPECT_EQ(Box("txtName").MaxLength(), 40);
    Save();
    ExpectRefused(u"A name is required"_s, "txtName");
    Type("txtName", u"a. smith"_s);
    Save();
    ExpectRefused(NameTaken, "txtName");
    Type("txtName", u"B. Smith"_s);
    Save();
    ExpectSaved();
    ASSERT_TRUE(dialog->AddOwner);
    EXPECT_EQ(dialog->AddOwner->OwnersName, u"B. Smith"_s);
    EXPECT_EQ(records::TheCollections().Owners.Count(), 1);
}

TEST_F(OwnerDialogTest, ARenameReachesTheProperties) {
    const auto owner = AddOwner(u"A. Smith"_s);
    const auto property = AddProperty(u"1 Main Road"_s, {}, u"A. Smith"_s);
    const auto other = AddProperty(u"2 Main Road"_s, {}, u"a. smith"_s);
    Open(&frmOwner::EditOwner, owner);
    EXPECT_EQ(Box("txtName").Text(), u"A. Smith"_s);
    Type("txtName", u"Smith Trust"_s);
    Save();
    ExpectSaved();
    EXPECT_EQ(owner->OwnersName, u"Smith Trust"_s);
    EXPECT_EQ(property->Owner, u"Smith Trust"_s);
    EXPECT_EQ(other->Owner, u"a. smith"_s);
    EXPECT_FALSE(dialog->AddOwner);
}

}  // namespace
