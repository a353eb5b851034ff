#pragma once

#include <QString>

namespace platform {

/// The directory that the running program lies in, without a separator at its end.
QString ProgramDirectory();

/// Lets tests stand elsewhere. An empty text goes back to the real directory.
void SetProgramDirectory(const QString& directory);

/// File names are told with backslashes, as the settings hold them; the platform's separator takes their
/// place.
QString WithPlatformSeparators(QString path);

/// True for an existing file. A folder is no file, and a failing test counts as a file not found.
bool FileExists(const QString& path);

/// Opens the file for appending (creating it), writes the text and a line end as UTF-8 and closes it again.
/// False if any of that failed. Never waits: a pipe that nobody reads is a failure.
bool AppendLine(const QString& path, const QString& text);

}  // namespace platform
