#include "engine/jet/sql/JetTransaction.h"

#include "engine/OpenDatabases.h"

namespace engine::jet {

// What another database of this process has in memory for the same file is not to share its fate.
std::optional<Error> JetTransaction::Begin() {
    if (file_.Pages().HasChanges()) {
        FlushOpenDatabases();
    }
    try {
        file_.BeAlone();
        return std::nullopt;
    } catch (const Error& failure) {
        return failure;
    }
}

JetTransaction::Ended JetTransaction::Commit() {
    const bool removes = Kind() == execution::WriteKind::Removes;
    try {
        file_.Pages().EndGroup(removes ? GroupKind::Removes : GroupKind::Adds);
        return {};
    } catch (const Error& failure) {
        TakeBack();
        return {End::GivenUp, failure};
    }
}

void JetTransaction::TakeBack() {
    file_.Pages().GiveUpGroup();
}

void JetTransaction::RowsWent(execution::RowTally& rows) {
    if (file_.Tables().HaveRelations()) {
        rows.LimitTo([this](const std::string& table) {
            return qint64{file_.TableNamed(QString::fromStdString(table)).Rows().Figures().Rows()};
        });
    }
}

// One that stays means nothing, and the next opening removes it.
void JetTransaction::RemoveJournal() {
    try {
        if (!file_.Pages().HasChanges()) {
            file_.Pages().RemoveJournal();
        }
    } catch (const Error&) {
        return;
    }
}

}  // namespace engine::jet
