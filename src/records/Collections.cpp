#include "records/Collections.h"

#include "database/Database.h"
#include "platform/Clock.h"
#include "platform/Process.h"

namespace records {

Collections& TheCollections() {
    static Collections collections;
    return collections;
}

void CreateCollections() {
    TheCollections() = Collections();

    auto mainAccount = std::make_shared<BankAccount>();
    mainAccount->BankAccountName = QStringLiteral("Main Bank Account");
    mainAccount->Code = QStringLiteral("BankAcct");
    mainAccount->BalanceDate = platform::Today();
    TheCollections().bankAccounts.Add(mainAccount);
}

void InitialiseData() {
    if (!database::StartDatabase()) {
        platform::EndProcess(1);
    }
    CreateCollections();
}

}  // namespace records
