#pragma once

#include "engine/jet/PageStore.h"

#include <QString>

namespace engine::jet {

/// Fails with DatabaseDamaged, in a sentence that names the page and says what is wrong with it. `what` is
/// the part behind "page 17": "is no table definition".
[[noreturn]] void RaiseDamaged(PageNumber page, const QString& what);

}  // namespace engine::jet
