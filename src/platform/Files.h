#pragma once

#include <QString>

#include <optional>

namespace platform {

/// The directory that the running program lies in, without a separator at its end.
QString ProgramDirectory();

/// Lets tests stand elsewhere. An empty text goes back to the real directory.
void SetProgramDirectory(const QString& directory);

/// File names are told with backslashes, as the settings hold them; the platform's separator takes their
/// place.
QString WithPlatformSeparators(QString path);

/// The name of a file from the root on, for one that may be told from the working folder. Only such a name
/// means the same file to everybody: others, such as "file:x" and ":x:", are taken for something else than a
/// file in places. Links and ".." stay as they are. Nothing if the file can't be told by its name, for the
/// reason that WhyNoName gives: it is empty, or holds U+FFFD where bytes were no text in UTF-8, or the
/// working folder is gone or has such a name.
std::optional<QString> AbsoluteName(const QString& name);
QString WhyNoName();

/// Whether two names from the root on are spelt alike, as far as the system tells spellings apart.
bool IsSameName(const QString& one, const QString& other);

/// True for an existing file. A folder is no file, and a failing test counts as a file not found.
bool FileExists(const QString& path);

/// Opens the file for appending (creating it), writes the text and a line end as UTF-8 and closes it again.
/// False if any of that failed. Never waits: a pipe that nobody reads is a failure.
bool AppendLine(const QString& path, const QString& text);

}  // namespace platform
