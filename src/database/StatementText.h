#pragma once

#include "engine/Currency.h"

#include <QDate>
#include <QString>

/// Values as they stand in the text of a statement.
namespace database {

/// The date as a literal in statements: #mm/dd/yyyy#, in this order whatever the user's locale.
QString SqlDate(QDate date);

/// The same at the end of a statement, for those who write a great many.
void AppendSqlDate(QString& statement, QDate date);

/// A currency or a double as decimal text in statements, with the decimal mark of the user's locale and no
/// thousands separators. A double shows up to 15 significant digits.
QString DecimalText(engine::Currency value);
QString DecimalText(double value);

}  // namespace database
