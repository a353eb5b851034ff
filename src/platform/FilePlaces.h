#pragma once

#include <QString>

#include <system_error>

/// Names of files, and what is done with them. Failures are those of std::errc, or no error.
namespace platform {

/// No error if something has this name, be it a link to nowhere; or why the system found nothing.
std::error_code LookFor(const QString& name);

/// Makes a folder that is this process's own, where the system can keep others out. Its name, which the
/// beginning is made into, ends in characters that no other one has.
std::error_code MakePrivateFolder(QString& name);

/// Gives a file another name, and never replaces what has that name. The old name may stay as well.
std::error_code RenameWithoutReplacing(const QString& from, const QString& to);

/// Brings the names in the folder of this file to the disk, where the file system does that.
std::error_code SyncFolderOf(const QString& name);

std::error_code RemoveFile(const QString& name);

/// Gives a file the permissions of another one, where its file system keeps any, and the owner and group as
/// far as this process may: a group that it can't give the file to gets no rights on it.
std::error_code TakePermissions(const QString& from, const QString& to);

}  // namespace platform
