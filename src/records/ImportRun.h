#pragma once

#include <QString>
#include <QStringList>

#include <functional>

namespace records {

struct Collections;

/// Told after each record that has been written: how many so far, of how many.
using ImportProgress = std::function<void(int done, int total)>;

/// The import, without any question: makes the codes, deletes what Hearthbook's database holds and writes
/// what the user has entered. Each statement and each row is final at once. Failures of statements and rows
/// are reported and passed over; any other comes out of here with everything done so far left done. At the
/// end everything is on the disk, and what is missing there has been reported as well.
void ImportData(Collections& all, const ImportProgress& progress = {});

/// The codes of all four collections. Raises platform failure 6 for more than 32767 records.
void PrepareCodes(Collections& all);

/// The tables that the import writes.
QStringList ImportTables();

/// Opens the database anew and empties its tables. If it can't be opened, nothing is deleted.
/// The rest of the chart of accounts, the options and the user's own contractors stay.
void WipeDatabase();

/// Writes all records, and marks as disbursed what the user says has been.
void InsertAllRecords(const Collections& all, const ImportProgress& progress = {});

/// Marks the expenses and revenues up to the last disbursement as disbursed, if there was one.
void SetDisbursementCutOff();

/// What the user is told at the end, whatever went wrong on the way.
QString ImportCompleteMessage(bool restartRequested);

}  // namespace records
