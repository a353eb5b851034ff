#include "screens/ListPages.h"

#include "platform/MessageBox.h"
#include "records/EntryRules.h"

namespace screens {

namespace {

/// A page whose list must not be empty.
template <typename Collection>
bool MayLeaveUnlessFaulty(const Collection& collection) {
    const QString fault = records::FirstFault(collection);
    if (!fault.isEmpty()) {
        platform::ShowMessageBox(fault);
    }
    return fault.isEmpty();
}

/// The dialog made a record and leaves it to the page to add it.
template <typename Collection>
bool AddIfMade(Collection& collection, const typename Collection::Reference& record) {
    if (record) {
        collection.Add(record);
    }
    return record != nullptr;
}

}  // namespace

const QString AccountsPage::Label =
    QStringLiteral("Enter your list of bank accounts used for properties or your business.");
const QString AccountsPage::List = QStringLiteral("List of bank accounts");
const QString AccountsPage::Headings = QStringLiteral("Bank Account Name|");
const QString AccountsPage::Widths = QStringLiteral("8000|");

bool AccountsPage::MayLeave(const records::bankAccounts& collection) {
    return MayLeaveUnlessFaulty(collection);
}

bool AccountsPage::TakeFrom(Dialog& dialog, records::Collections& all) {
    return AddIfMade(Collection(all), dialog.AddAccount);
}

const QString OwnerPage::Label =
    QStringLiteral("Enter your list of people/companies who own the properties you are managing.");
const QString OwnerPage::List = QStringLiteral("List of owners");
const QString OwnerPage::Headings = QStringLiteral("Owner|");
const QString OwnerPage::Widths = QStringLiteral("8000|");

bool OwnerPage::MayLeave(const records::Owners& collection) {
    return !records::NeedsNoOwnersAnswer(collection) ||
           platform::AskQuestion(records::EntryQuestion::NoOwners);
}

bool OwnerPage::TakeFrom(Dialog& dialog, records::Collections& all) {
    return AddIfMade(Collection(all), dialog.AddOwner);
}

const QString PropertyPage::Label = QStringLiteral("Enter the list of properties you manage.");
const QString PropertyPage::List = QStringLiteral("List of properties");
const QString PropertyPage::Headings = QStringLiteral("Property|Owner|");
const QString PropertyPage::Widths = QStringLiteral("4000|4000|");

bool PropertyPage::MayLeave(const records::Properties& collection) {
    return MayLeaveUnlessFaulty(collection);
}

bool PropertyPage::TakeFrom(Dialog& /*dialog*/, records::Collections& /*all*/) {
    // The dialog has added its records itself, since a building brings its units along.
    return true;
}

const QString TenantPage::Label = QStringLiteral("Enter the list of tenants you manage.");
const QString TenantPage::List = QStringLiteral("List of tenants");
const QString TenantPage::Headings = QStringLiteral("Tenant|Property|");
const QString TenantPage::Widths = QStringLiteral("4000|4000|");

bool TenantPage::MayLeave(const records::Tenants& collection) {
    return MayLeaveUnlessFaulty(collection);
}

bool TenantPage::TakeFrom(Dialog& dialog, records::Collections& all) {
    return AddIfMade(Collection(all), dialog.AddTenant);
}

}  // namespace screens
