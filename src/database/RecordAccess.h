#pragma once

#include "engine/Recordset.h"

#include <QDate>
#include <QString>

#include <memory>

/// The layer through which every read and write of the wizard passes. Its routines catch the engine's
/// failures, report them (a message box and a line in the error log) and return normally, so that an import
/// goes on with its next step.
namespace database {

/// A row set owned by the caller. Empty when it could not be opened; DataIsEmpty and DataEof take that.
using RecordsetReference = std::unique_ptr<engine::Recordset>;

/// Opens the rows of a statement, which FixSql rewrites in place. Type is an engine::RecordsetType, lock an
/// engine::LockType. On failure ("Data Create Set") the row set is empty.
void CreateSet(RecordsetReference& recordset, QString& statement, short type, short lock);

/// Runs a statement, which FixSql rewrites in place. False if it failed ("Execute SQL").
bool ExecuteSql(QString& statement);
bool ExecuteSql(QString&& statement);

void AddRecord(const RecordsetReference& recordset);  ///< Begins a new row ("Add Record").
void EditRecord(
    const RecordsetReference& recordset);  ///< Begins a change of the current row ("Edit Record").

/// Saves the row ("Update Record"; the edit is then cancelled).
void UpdateRecord(const RecordsetReference& recordset);

/// True for an empty reference and for a set without rows; true also on failure ("Data Is Empty").
bool DataIsEmpty(const RecordsetReference& recordset);

/// True for an empty reference and at the end of the rows; false on failure ("Data EOF").
bool DataEof(const RecordsetReference& recordset);

void MoveNextRecord(const RecordsetReference& recordset);  ///< "Move Next".

/// The date as a literal in statements: #mm/dd/yyyy#, in this order whatever the user's locale.
QString SqlDate(QDate date);

/// The same at the end of a statement, for those who write a great many.
void AppendSqlDate(QString& statement, QDate date);

/// A currency or a double as decimal text in statements, with the decimal mark of the user's locale and no
/// thousands separators. A double shows up to 15 significant digits.
QString DecimalText(engine::Currency value);
QString DecimalText(double value);

/// A date read from the first row of "select <column> as result from <table> <rest>", or the default if there
/// is no row or the value is null.
QDate LookupDate(const QString& column, const QString& table, const QString& rest, QDate defaultDate);

/// The value, or the fallback if the value is null.
engine::Value Nz(const engine::Value& value, const engine::Value& fallback);

/// Brings everything to the disk and tells the user of each difference between what was written and what the
/// database file holds ("Import Data").
void CheckWritten();

/// Tells the user of the failure being handled, in a box titled with the label, and logs it with the extra
/// text. An error whose source is exactly "Microsoft JET Database Engine" is shown without its description.
void ReportError(const QString& label, const QString& extra);

/// Adds a line to this month's error log beside the program. Failures are ignored.
void WriteLog(const QString& text);

/// Whether the last line reached the log: a program that is installed for all users mostly may not write
/// beside itself.
bool IsLogWritable();

/// How many failures ReportError has reported since the process began.
int ReportedErrors();

}  // namespace database
