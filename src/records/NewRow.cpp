#include "records/NewRow.h"

#include "platform/Failure.h"
#include "records/SetFieldDefaults.h"

namespace records {

engine::Field& Column(const database::RecordsetReference& recordset, const QString& name) {
    if (!recordset) {
        platform::RaiseObjectNotSet();
    }
    return recordset->Fields(name);
}

database::RecordsetReference OpenForChange(QString statement) {
    database::RecordsetReference recordset;
    database::CreateSet(recordset, statement, engine::dbOpenDynaset, engine::dbOptimistic);
    return recordset;
}

void AddRow(const database::RecordsetReference& recordset, std::initializer_list<ColumnValue> values) {
    const int reportedBefore = database::ReportedErrors();
    database::AddRecord(recordset);
    if (!recordset) {
        platform::RaiseObjectNotSet();
    }
    // The layer tells of a failure by reporting it alone. Nothing can be set in a row that was never begun.
    if (database::ReportedErrors() != reportedBefore) {
        return;
    }
    SetFieldDefaults(*recordset);
    for (const ColumnValue& value : values) {
        recordset->Fields(value.column).Set(value.value);
    }
    database::UpdateRecord(recordset);
}

}  // namespace records
