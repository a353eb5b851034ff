#pragma once

#include "records/Records.h"

#include <QHash>
#include <QString>

namespace records {

struct Collections;

/// The codes that the rows of tenants need of their properties, looked up once for all tenants of an import.
class LetProperties {
public:
    /// As the collections stand now, with their codes made. They have to outlive this.
    explicit LetProperties(const Collections& all);

    /// Empty if no property has this name.
    QString CodeOf(const QString& propertyName) const { return codes_.value(propertyName); }

    /// The code of the property's bank account, or of the first account if it has none. Platform failure 9 if
    /// there is no first account then.
    QString BankCodeOf(const QString& propertyName) const;

private:
    const Collections& all_;
    QHash<QString, QString> codes_;
    QHash<QString, QString> bankCodes_;
};

/// Writes the receipts of a tenant whose rent balance is to be set; nothing for any other.
///
/// At first every rent period counts as paid in full. Then receipts are taken back from the newest on until
/// what was received falls short of what was charged by the balance (or exceeds it, if the tenant is in
/// credit). A balance larger than all receipts is used up as far as they go. The balance is a double and is
/// not rounded.
///
/// Failures that leave nothing to go on from are raised: no row of options (3021), no tax rate though rent is
/// taxed (94), a receipt that can't be deleted, receipts that could not be read.
void InsertBalanceTransactions(const Tenant& Item, const LetProperties& properties);

}  // namespace records
