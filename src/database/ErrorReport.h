#pragma once

#include "platform/Failure.h"

#include <QString>

#include <optional>

/// How a failure reaches the user and the support.
namespace database {

/// Tells the user of the failure being handled, in a box titled with the label, and logs it with the extra
/// text. An error whose source is exactly "Microsoft JET Database Engine" is shown without its description.
void ReportError(const QString& label, const QString& extra);

/// Adds a line to this month's error log beside the program. Failures are ignored.
void WriteLog(const QString& text);

/// Whether the last line reached the log: a program that is installed for all users mostly may not write
/// beside itself.
bool IsLogWritable();

/// How many failures ReportError has reported since the process began.
int ReportedErrors();

/// What ReportError does, for a failure that isn't the one being handled: a write that was lost after the
/// routine that made it had returned.
void ReportFailure(const std::optional<platform::Failure>& failure, const QString& label,
                   const QString& extra);

}  // namespace database
