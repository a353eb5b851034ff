#include "records/NewRow.h"

#include "database/RecordAccess.h"
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
    const bool hasBegun = database::AddRecord(recordset);
    if (!recordset) {
        platform::RaiseObjectNotSet();
    }
    if (!hasBegun) {
        return;
    }
    SetFieldDefaults(*recordset);
    for (const ColumnValue& value : values) {
        recordset->Fields(value.column).Set(value.value);
    }
    database::UpdateRecord(recordset);
}

}  // namespace records
