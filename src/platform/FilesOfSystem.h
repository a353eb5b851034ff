#pragma once

#include <QByteArray>
#include <QString>

namespace platform {

/// The folder of the running program, as the system tells it.
QString FolderOfProgram();

/// Opens the file for appending (creating it), writes the bytes and closes it again. False if any of that
/// failed. Never waits.
bool AppendBytes(const QString& absoluteName, const QByteArray& bytes);

}  // namespace platform
