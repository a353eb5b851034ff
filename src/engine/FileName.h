#pragma once

#include <QString>

namespace engine {

/// The name that a file is handed on under, as platform::AbsoluteName gives it. Fails with 3044 for a name
/// that has none.
QString FileName(const QString& name);

}  // namespace engine
