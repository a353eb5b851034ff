#include "records/SetFieldDefaults.h"

#include "platform/Clock.h"
#include "platform/MessageBox.h"

namespace records {

void SetFieldDefaults(engine::Recordset& row) {
    for (int place = 0; place < row.FieldCount(); ++place) {
        engine::Field& field = row.Fields(place);
        switch (field.Type()) {
            case engine::dbInteger:
            case engine::dbLong:
            case engine::dbCurrency:
            case engine::dbSingle:
            case engine::dbDouble:
                field.Set(qint64{0});
                break;
            case engine::dbText:
            case engine::dbMemo:
                field.Set(QStringLiteral(""));
                break;
            case engine::dbDate:
                field.Set(engine::FromDate(platform::Today()));
                break;
            case engine::dbBoolean:
                field.Set(false);
                break;
            default:
                platform::ShowMessageBox(QStringLiteral("Unknown type ") + QString::number(field.Type()));
                break;
        }
    }
}

}  // namespace records
