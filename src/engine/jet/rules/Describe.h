#pragma once

#include "engine/Value.h"

#include <QString>

namespace engine::jet {

/// A value as messages show it: texts in quotes, and the beginning of long ones.
QString Describe(const Value& value);

}  // namespace engine::jet
