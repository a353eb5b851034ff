#pragma once

#include "platform/FileLock.h"

#include <optional>

namespace platform {

enum class FileKind { Regular, Link, Folder, Pipe, Other };

/// What has this name, a link itself if it is one; nothing if nothing has it.
struct NamedThing {
    FileKind kind = FileKind::Other;
    bool hasOtherNames = false;
};
std::optional<NamedThing> WhatHasName(const QString& name);

/// Differs as soon as the file is another one or has been changed.
struct FileStatus {
    FileIdentity identity;
    qint64 size = 0;
    qint64 changed = 0;

    bool operator==(const FileStatus&) const = default;
};

/// That of the file that the name leads to; none if it leads nowhere.
std::optional<FileStatus> StatusOf(const QString& path);

}  // namespace platform
