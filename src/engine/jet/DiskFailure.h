#pragma once

#include <QString>

#include <system_error>

namespace engine::jet {

/// Fails with DiskFull if the disk has no room, and else with ReadOnlyDatabase or DiskError, whichever the
/// reason makes of it: "'name' can't be what: reason".
[[noreturn]] void RaiseDiskFailure(const QString& path, const char* what, const std::error_code& reason,
                                   bool isFull);

/// For a lock file that can't be opened: ReadOnlyDatabase or DiskError.
[[noreturn]] void RaiseUnopenedLockFile(const QString& path, const std::error_code& reason);

/// For what only has the name of one: DiskError.
[[noreturn]] void RaiseNoLockFile(const QString& path);

/// Whether it can't be written however often it's tried: for want of a permission, or with so long a name.
bool IsForbidden(const std::error_code& reason);

}  // namespace engine::jet
