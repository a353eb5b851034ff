#pragma once

#include "database/RecordAccess.h"

#include <QString>

#include <initializer_list>

namespace records {

/// The value that one column of a row is to get.
struct ColumnValue {
    QString column;
    engine::Value value;
};

/// The column of a row set. Platform failure 91 where the row set could not be opened: what follows would
/// rest on rows that nobody has read, so it is not passed over like a single failing row.
engine::Field& Column(const database::RecordsetReference& recordset, const QString& name);

/// Opens a row set that can be changed.
database::RecordsetReference OpenForChange(QString statement);

/// Adds one row: every column gets its default first, then the given ones their values. A row that can't be
/// begun or saved has been reported and is left out.
void AddRow(const database::RecordsetReference& recordset, std::initializer_list<ColumnValue> values);

}  // namespace records
