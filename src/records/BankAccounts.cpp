#include "records/BankAccounts.h"

#include "records/Collections.h"
#include "records/NewRow.h"

#include <algorithm>

namespace records {
namespace {

/// What marks a bank account in the chart of accounts.
constexpr qint64 BankAccountType = 3;

}  // namespace

void bankAccounts::PropogateChanges(const Collections& all, const QString& sOriginal,
                                    const QString& sNew) const {
    RenameReferences(all.Properties, &Property::BankAccount, sOriginal, sNew);
}

void bankAccounts::InsertRecords(const Collections& /*all*/, const RecordWritten& recordWritten) const {
    const auto accounts = OpenForChange(QStringLiteral("select * from glcodes"));
    for (const Reference& account : Walk()) {
        AddRow(accounts, {
                             {QStringLiteral("type"), BankAccountType},
                             {QStringLiteral("taxable_yn"), true},
                             {QStringLiteral("gl_code"), account->Code},
                             {QStringLiteral("description"), account->BankAccountName},
                             {QStringLiteral("bankbalance"), account->BalanceAmount},
                             {QStringLiteral("balancedate"), engine::FromDate(account->BalanceDate)},
                         });
        if (recordWritten) {
            recordWritten();
        }
    }
}

QHash<QString, QString> bankAccounts::FinalCodesByName() const {
    // From the last account to the first, so that what a code leads to further down is known when it is met.
    const List& accounts = Walk();
    QHash<QString, QString> codes;
    std::for_each(accounts.rbegin(), accounts.rend(), [&codes](const Reference& account) {
        codes.insert(account->BankAccountName, codes.value(account->Code, account->Code));
    });
    return codes;
}

}  // namespace records
