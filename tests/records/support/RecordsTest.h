#pragma once

#include "platform/Clock.h"
#include "records/Collections.h"
#include "records/ImportSettings.h"
#include "support/PrintQt.h"
#include "support/RecordingMessageBoxes.h"
#include "support/Workplace.h"

#include <QDate>
#include <QString>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

/// Collections as at the start of the wizard but without the preset account, on a fixed day, with message
/// boxes noted.
class RecordsTest : public ::testing::Test {
protected:
    RecordsTest() {
        platform::PinToday(QDate(2026, 6, 10));
        records::TheCollections() = records::Collections();
        records::CurrentSettings() = records::ImportSettings();
    }
    ~RecordsTest() override { platform::PinToday(QDate()); }

    static std::shared_ptr<records::BankAccount> AddAccount(const QString& name, const QString& code = {}) {
        auto account = std::make_shared<records::BankAccount>();
        account->BankAccountName = name;
        account->Code = code;
        account->BalanceDate = QDate(2026, 1, 31);
        records::TheCollections().bankAccounts.Add(account);
        return account;
    }

    static std::shared_ptr<records::Owner> AddOwner(const QString& name, const QString& code = {}) {
        auto owner = std::make_shared<records::Owner>();
        owner->OwnersName = name;
        owner->Code = code;
        records::TheCollections().Owners.Add(owner);
        return owner;
    }

    static std::shared_ptr<records::Property> AddProperty(const QString& address1,
                                                          const QString& bankAccount = {},
                                                          const QString& owner = {}) {
        auto property = std::make_shared<records::Property>();
        property->Address1 = address1;
        property->BankAccount = bankAccount;
        property->Owner = owner;
        records::TheCollections().Properties.Add(property);
        return property;
    }

    /// A weekly tenant since November 2026, whose balance is not set.
    static std::shared_ptr<records::Tenant> AddTenant(const QString& name, const QString& propertyName) {
        auto tenant = std::make_shared<records::Tenant>();
        tenant->Name = name;
        tenant->PropertyName = propertyName;
        tenant->StartDate = QDate(2026, 11, 1);
        tenant->EndDate = platform::NoDate();
        tenant->CurrentRent = 250;
        tenant->RentFrequency = u"Week"_s;
        records::TheCollections().Tenants.Add(tenant);
        return tenant;
    }

    Workplace workplace_;
    RecordingMessageBoxes boxes_;
};

/// Runs the action and gives the number of the failure that it raises, 0 if it raises none.
template <typename Action>
int FailureOf(Action&& action) {
    try {
        action();
    } catch (const platform::Failure& failure) {
        return failure.Number();
    }
    return 0;
}
