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

/// Begins a new row ("Add Record"). These four say whether they succeeded.
bool AddRecord(const RecordsetReference& recordset);
/// Begins a change of the current row ("Edit Record").
bool EditRecord(const RecordsetReference& recordset);
/// Saves the row ("Update Record"; the edit is then cancelled).
bool UpdateRecord(const RecordsetReference& recordset);
/// Goes to the next row ("Move Next").
bool MoveNextRecord(const RecordsetReference& recordset);

/// True for an empty reference and for a set without rows; true also on failure ("Data Is Empty").
bool DataIsEmpty(const RecordsetReference& recordset);

/// True for an empty reference and at the end of the rows; false on failure ("Data EOF").
bool DataEof(const RecordsetReference& recordset);

/// A date read from the first row of "select <column> as result from <table> <rest>", or the default if there
/// is no row or the value is null.
QDate LookupDate(const QString& column, const QString& table, const QString& rest, QDate defaultDate);

/// The value, or the fallback if the value is null.
engine::Value Nz(const engine::Value& value, const engine::Value& fallback);

/// Brings everything to the disk and tells the user of each difference between what was written and what the
/// database file holds ("Import Data").
void CheckWritten();

}  // namespace database
