#pragma once

#include "platform/Failure.h"

#include <QString>

#include <optional>

namespace database {

/// What ReportError does, for a failure that isn't the one being handled: a write that was lost after the
/// routine that made it had returned.
void ReportFailure(const std::optional<platform::Failure>& failure, const QString& label,
                   const QString& extra);

}  // namespace database
