#pragma once

#include "records/Collections.h"
#include "screens/ListPage.h"
#include "screens/frmBankAccount.h"
#include "screens/frmOwner.h"
#include "screens/frmProperty.h"
#include "screens/frmTenant.h"

/// What each of the four list pages states as its own.
namespace screens {

struct AccountsPage {
    using Dialog = frmBankAccount;
    static const QString Label;
    static const QString List;
    static const QString Headings;
    static const QString Widths;
    static records::bankAccounts& Collection(records::Collections& all) { return all.bankAccounts; }
    static QString RowOf(const records::BankAccount& record) { return record.BankAccountName; }
    static bool MayLeave(const records::bankAccounts& collection);
    static auto& EditFieldOf(Dialog& dialog) { return dialog.EditAccount; }
    static bool TakeFrom(Dialog& dialog, records::Collections& all);
};

struct OwnerPage {
    using Dialog = frmOwner;
    static const QString Label;
    static const QString List;
    static const QString Headings;
    static const QString Widths;
    static records::Owners& Collection(records::Collections& all) { return all.Owners; }
    static QString RowOf(const records::Owner& record) { return record.OwnersName; }
    static bool MayLeave(const records::Owners& collection);
    static auto& EditFieldOf(Dialog& dialog) { return dialog.EditOwner; }
    static bool TakeFrom(Dialog& dialog, records::Collections& all);
};

struct PropertyPage {
    using Dialog = frmProperty;
    static const QString Label;
    static const QString List;
    static const QString Headings;
    static const QString Widths;
    static records::Properties& Collection(records::Collections& all) { return all.Properties; }
    static QString RowOf(const records::Property& record) {
        return record.Address1 + QLatin1Char('\t') + record.Owner;
    }
    static bool MayLeave(const records::Properties& collection);
    static auto& EditFieldOf(Dialog& dialog) { return dialog.EditProperty; }
    static bool TakeFrom(Dialog& dialog, records::Collections& all);
};

struct TenantPage {
    using Dialog = frmTenant;
    static const QString Label;
    static const QString List;
    static const QString Headings;
    static const QString Widths;
    static records::Tenants& Collection(records::Collections& all) { return all.Tenants; }
    static QString RowOf(const records::Tenant& record) {
        return record.Name + QLatin1Char('\t') + record.PropertyName;
    }
    static bool MayLeave(const records::Tenants& collection);
    static auto& EditFieldOf(Dialog& dialog) { return dialog.EditTenant; }
    static bool TakeFrom(Dialog& dialog, records::Collections& all);
};

using ctlPageAccounts = ListPage<AccountsPage>;
using ctlPageOwner = ListPage<OwnerPage>;
using ctlPageProperty = ListPage<PropertyPage>;
using ctlPageTenant = ListPage<TenantPage>;

}  // namespace screens
