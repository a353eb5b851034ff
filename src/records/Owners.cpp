#include "records/Owners.h"

#include "records/Collections.h"
#include "records/ImportSettings.h"
#include "records/NewRow.h"

namespace records {

void Owners::PropogateChanges(const Collections& all, const QString& sOriginal, const QString& sNew) const {
    RenameReferences(all.Properties, &Property::Owner, sOriginal, sNew);
}

void Owners::InsertRecords(const Collections& /*all*/, const RecordWritten& recordWritten) const {
    const auto owners = OpenForChange(QStringLiteral("select * from owner"));
    for (const Reference& owner : Walk()) {
        // A landlord may leave the one owner's name empty. Hearthbook can't show an owner without a code.
        if (!owner->Code.isEmpty()) {
            AddRow(owners, {
                               {QStringLiteral("code"), owner->Code},
                               {QStringLiteral("name"), owner->OwnersName},
                               {QStringLiteral("fee_percent"), CurrentSettings().ManagementFee},
                           });
        }
        if (recordWritten) {
            recordWritten();
        }
    }
}

}  // namespace records
