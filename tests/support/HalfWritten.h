#pragma once

#include <QString>

/// Runs a statement on a Jet file and leaves it as a program does that is ended while the writes come to the
/// disk: half written, with a journal beside it.
void LeaveHalfWritten(const QString& path, const QString& statement);
