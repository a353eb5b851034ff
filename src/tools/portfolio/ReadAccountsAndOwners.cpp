#include "platform/Clock.h"
#include "records/EntryRules.h"
#include "tools/portfolio/Sections.h"

namespace tools {

namespace {

constexpr const char* AccountName = "BankAccountName";

/// Reads an account; a member that is absent leaves the entry as it was.
records::BankAccountEntry ReadAccount(ObjectReader& account, records::BankAccountEntry entry,
                                      NameBook& names) {
    std::optional<QString> name = entry.BankAccountName;
    if (entry.BankAccountName.isEmpty() || account.Value(AccountName)) {
        name = account.Text(AccountName, records::EntryLimit::BankAccountName);
    }
    entry.BalanceDate = account.Date("BalanceDate", entry.BalanceDate, NullMeans::Fault).value_or(QDate());
    entry.BalanceAmount = account.Amount("BalanceAmount").value_or(0);
    account.RefuseUnknownMembers();
    entry.BankAccountName = name.value_or(QString());
    RefuseFaults(account, records::FaultsOf(entry));
    EnterName(account, AccountName, name, names);
    return entry;
}

void ReadPresetAccount(ObjectReader& portfolio, Reading& reading) {
    records::bankAccounts& accounts = reading.collections.bankAccounts;
    const std::shared_ptr<records::BankAccount> preset = accounts.Item(1);
    const JsonValue* changes = portfolio.Value("MainBankAccount");
    if (!changes) {
        reading.accounts.Add(preset->BankAccountName);
        return;
    }
    if (changes->kind == JsonKind::Null) {
        accounts.Remove(1);
        return;
    }
    const QString pointer = portfolio.PointerTo("MainBankAccount");
    if (!MustBeObject(*changes, pointer, reading.faults)) {
        reading.accounts.MissOne();
        return;
    }
    ObjectReader account(*changes, pointer, reading.faults);
    const records::BankAccountEntry before{preset->BankAccountName, preset->BalanceDate,
                                           preset->BalanceAmount};
    records::ChangeRecord(reading.collections, *preset, ReadAccount(account, before, reading.accounts));
}

void ReadOwner(const JsonValue& value, const QString& pointer, Reading& reading) {
    if (!MustBeObject(value, pointer, reading.faults)) {
        reading.owners.MissOne();
        return;
    }
    ObjectReader owner(value, pointer, reading.faults);
    const int limit =
        reading.isLandlord ? records::EntryLimit::SingleOwnersName : records::EntryLimit::OwnersName;
    const std::optional<QString> name = owner.Text("OwnersName", limit);
    owner.RefuseUnknownMembers();
    const records::OwnerEntry entry{name.value_or(QString())};
    if (!reading.isLandlord) {
        RefuseFaults(owner, records::FaultsOf(entry));
    }
    EnterName(owner, "OwnersName", name, reading.owners);
    reading.collections.Owners.Add(records::MakeRecord(entry));
}

}  // namespace

void ReadBankAccounts(ObjectReader& portfolio, Reading& reading) {
    ReadPresetAccount(portfolio, reading);
    records::bankAccounts& accounts = reading.collections.bankAccounts;
    const std::vector<JsonValue>* values = portfolio.Array("BankAccounts");
    if (!values) {
        reading.accounts.MissOne();
        return;
    }
    for (std::size_t place = 0; place < values->size(); ++place) {
        const JsonValue& value = (*values)[place];
        const QString pointer =
            ElementPointer(portfolio.PointerTo("BankAccounts"), static_cast<qsizetype>(place));
        if (MustBeObject(value, pointer, reading.faults)) {
            ObjectReader account(value, pointer, reading.faults);
            const records::BankAccountEntry fresh{QString(), platform::Today(), 0};
            accounts.Add(records::MakeRecord(ReadAccount(account, fresh, reading.accounts)));
        } else {
            reading.accounts.MissOne();
        }
    }
    const auto listed = static_cast<qsizetype>(values->size());
    if (accounts.Count() == 0 && listed == 0) {
        portfolio.Refuse("BankAccounts", records::EntryMessage::NoBankAccounts);
    }
    RefuseTooManyRecords(portfolio, "BankAccounts", accounts.Count(), reading.faults);
}

void ReadOwners(ObjectReader& portfolio, Reading& reading) {
    const std::vector<JsonValue>* values = portfolio.Array("Owners");
    if (!values) {
        reading.owners.MissOne();
        return;
    }
    for (std::size_t place = 0; place < values->size(); ++place) {
        ReadOwner((*values)[place],
                  ElementPointer(portfolio.PointerTo("Owners"), static_cast<qsizetype>(place)), reading);
    }
    const auto count = static_cast<qsizetype>(values->size());
    if (reading.isLandlord && count != 1) {
        reading.faults.push_back({portfolio.PointerTo("Owners"),
                                  QStringLiteral("A landlord has exactly one owner"),
                                  QString::number(count)});
    }
    RefuseTooManyRecords(portfolio, "Owners", count, reading.faults);
}

}  // namespace tools
