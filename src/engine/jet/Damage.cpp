#include "engine/jet/Damage.h"

#include "engine/Error.h"

namespace engine::jet {

void RaiseDamaged(PageNumber page, const QString& what) {
    throw Error(ErrorNumber::DatabaseDamaged,
                QStringLiteral("The database is damaged: page %1 %2.").arg(page).arg(what));
}

}  // namespace engine::jet
