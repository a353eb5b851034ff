#include "records/Collections.h"

#include "database/CurrentDatabase.h"
#include "platform/Clock.h"
#include "platform/Process.h"

namespace records {

Collections& TheCollections() {
    static Collections collections;
    return collections;
}

QString CountsOf(const Collections& collections) {
    return QStringLiteral("%1 bank accounts\n%2 property owners\n%3 properties\n%4 tenants\n")
        .arg(collections.bankAccounts.Count())
        .arg(collections.Owners.Count())
        .arg(collections.Properties.Count())
        .arg(collections.Tenants.Count());
}

void CreateCollections(Collections& all) {
    all = Collections();

    auto mainAccount = std::make_shared<BankAccount>();
    mainAccount->BankAccountName = QStringLiteral("Main Bank Account");
    mainAccount->Code = QStringLiteral("BankAcct");
    mainAccount->BalanceDate = platform::Today();
    all.bankAccounts.Add(mainAccount);
}

void InitialiseData(Collections& all) {
    if (!database::StartDatabase()) {
        platform::EndProcess(1);
    }
    CreateCollections(all);
}

}  // namespace records
