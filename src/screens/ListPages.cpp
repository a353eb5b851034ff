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

const QString AccountsPage::label =
    QStringLiteral("Enter your list of bank accounts used for properties or your business.");
const QString AccountsPage::list = QStringLiteral("List of bank accounts");
const QString AccountsPage::headings = QStringLiteral("Bank Account Name|");
const QString AccountsPage::widths = QStringLiteral("8000|");

bool AccountsPage::MayLeave(const records::bankAccounts& collection) {
    return MayLeaveUnlessFaulty(collection);
}

bool AccountsPage::TakeFrom(Dialog& dialog, records::Collections& all) {
    return AddIfMade(Collection(all), dialog.AddAccount);
}

const QString OwnerPage::label =
    QStringLiteral("Enter your list of people/companies who own the properties you are managing.");
const QString OwnerPage::list = QStringLiteral("List of owners");
const QString OwnerPage::headings = QStringLiteral("Owner|");
const QString OwnerPage::widths = QStringLiteral("8000|");

bool OwnerPage::MayLeave(const records::Owners& collection) {
    return !records::NeedsNoOwnersAnswer(collection) ||
           platform::AskQuestion(records::EntryQuestion::NoOwners);
}

bool OwnerPage::TakeFrom(Dialog& dialog, records::Collections& all) {
    return AddIfMade(Collection(all), dialog.AddOwner);
}

const QString PropertyPage::label = QStringLiteral("Enter the list of properties you manage.");
const QString PropertyPage::list = QStringLiteral("List of properties");
const QString PropertyPage::headings = QStringLiteral("Property|Owner|");
const QString PropertyPage::widths = QStringLiteral("4000|4000|");

bool PropertyPage::MayLeave(const records::Properties& collection) {
    return MayLeaveUnlessFaulty(collection);
}

bool PropertyPage::TakeFrom(Dialog& /*dialog*/, records::Collections& /*all*/) {
    // The dialog has added its records itself, since a building brings its units along.
    return true;
}

const QString TenantPage::label = QStringLiteral("Enter the list of tenants you manage.");
const QString TenantPage::list = QStringLiteral("List of tenants");
const QString TenantPage::headings = QStringLiteral("Tenant|Property|");
const QString TenantPage::widths = QStringLiteral("4000|4000|");

bool TenantPage::MayLeave(const records::Tenants& collection) {
    return MayLeaveUnlessFaulty(collection);
}

bool TenantPage::TakeFrom(Dialog& dialog, records::Collections& all) {
    return AddIfMade(Collection(all), dialog.AddTenant);
}

}  // namespace screens
