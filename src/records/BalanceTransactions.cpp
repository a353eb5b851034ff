#include "records/BalanceTransactions.h"

#include "database/RecordAccess.h"
#include "database/StatementText.h"
#include "records/Collections.h"
#include "records/NewRow.h"

namespace records {
namespace {

/// What Hearthbook's options say about rent receipts.
struct ReceiptOptions {
    engine::Currency TaxAmount;
    QString rentGroup;
};

ReceiptOptions ReadOptions(double CurrentRent) {
    database::RecordsetReference options;
    QString statement = QStringLiteral("select * from options");
    database::CreateSet(options, statement, engine::dbOpenForwardOnly, engine::dbReadOnly);

    ReceiptOptions result;
    if (engine::ToBoolean(
            database::Nz(Column(options, QStringLiteral("taxincome")).Get(), engine::Value(false)))) {
        // The rent is entered with its tax, so the tax is taken out of it and not put on top.
        const double taxincrate = engine::ToDouble(Column(options, QStringLiteral("taxincrate")).Get());
        result.TaxAmount = engine::Currency::FromDouble(CurrentRent - CurrentRent / (1 + taxincrate / 100));
    }
    result.rentGroup = engine::ToText(
        database::Nz(Column(options, QStringLiteral("Rent_Group")).Get(), engine::Value(QString())));
    return result;
}

void InsertReceipts(const Tenant& Item, const ReceiptOptions& options, const QString& PropertyCode,
                    const QString& BankCode) {
    QString statement =
        QStringLiteral(
            "insert into revenues([date], [property code], amount, [revenue group], description, "
            "[your reference],rent_weeks, paid_to, counter_gl, tenant_code, recon_id, tax, "
            "disburse_id) select period_from, '") +
        PropertyCode + QStringLiteral("', rent_due,'") + options.rentGroup +
        QStringLiteral("', '', '', 0, #01/01/1900#, '") + BankCode + QStringLiteral("', '") + Item.Code +
        QStringLiteral("', 0, ") + database::DecimalText(options.TaxAmount) +
        QStringLiteral(", 0 from rent_periods where tenant_code = '") + Item.Code + QStringLiteral("'");
    database::ExecuteSql(statement);
}

void SetColumn(const database::RecordsetReference& recordset, const QString& name, double value) {
    database::EditRecord(recordset);
    Column(recordset, name).Set(value);
    database::UpdateRecord(recordset);
}

void TakeFromColumn(const database::RecordsetReference& recordset, const QString& name, double amount) {
    database::EditRecord(recordset);
    engine::Field& column = Column(recordset, name);
    column.Set(engine::ToDouble(column.Get()) - amount);
    database::UpdateRecord(recordset);
}

/// Takes the balance back from the receipts, the newest first. Both row sets hold one row for each period in
/// the same order, so the current rows of the two belong together.
void TakeBackReceipts(double Balance, const database::RecordsetReference& receipts,
                      const database::RecordsetReference& periods) {
    const QString amountColumn = QStringLiteral("amount");
    const QString paidColumn = QStringLiteral("paid");
    while (Balance != 0) {
        const double amount = engine::ToDouble(Column(receipts, amountColumn).Get());
        if (amount < Balance) {
            Balance -= amount;
            receipts->Delete();
            SetColumn(periods, paidColumn, 0);
            database::MoveNextRecord(periods);
            database::MoveNextRecord(receipts);
            if (database::DataEof(receipts)) {
                return;
            }
        } else {
            TakeFromColumn(receipts, amountColumn, Balance);
            TakeFromColumn(periods, paidColumn, Balance);
            Balance = 0;
        }
    }
}

}  // namespace

LetProperties::LetProperties(const Collections& all)
    : all_(all),
      codes_(all.Properties.CodesByName()),
      bankCodes_(all.Properties.BankAccountsByName(all.bankAccounts)) {
}

QString LetProperties::BankCodeOf(const QString& propertyName) const {
    const QString code = bankCodes_.value(propertyName);
    return code.isEmpty() ? all_.bankAccounts.Item(1)->Code : code;
}

void InsertBalanceTransactions(const Tenant& Item, const LetProperties& properties) {
    if (!Item.Setbalance) {
        return;
    }
    const ReceiptOptions options = ReadOptions(Item.CurrentRent);
    const QString PropertyCode = properties.CodeOf(Item.PropertyName);
    InsertReceipts(Item, options, PropertyCode, properties.BankCodeOf(Item.PropertyName));

    const double Balance = Item.BalanceAmount;
    if (Balance == 0) {
        return;
    }
    const auto receipts = OpenForChange(QStringLiteral("select * from revenues where [property code] = '") +
                                        PropertyCode + QStringLiteral("' and tenant_code = '") + Item.Code +
                                        QStringLiteral("' and [revenue group] = '") + options.rentGroup +
                                        QStringLiteral("' order by date desc"));
    const auto periods = OpenForChange(QStringLiteral("select * from rent_periods where tenant_code = '") +
                                       Item.Code + QStringLiteral("' order by period_from desc"));
    TakeBackReceipts(Balance, receipts, periods);
}

}  // namespace records
