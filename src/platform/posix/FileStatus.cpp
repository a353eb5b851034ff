#include "platform/FileStatus.h"

#include <QFile>

#include <sys/stat.h>

namespace platform {

namespace {

FileKind KindOf(mode_t mode) {
    switch (mode & S_IFMT) {
        case S_IFREG:
            return FileKind::Regular;
        case S_IFLNK:
            return FileKind::Link;
        case S_IFDIR:
            return FileKind::Folder;
        case S_IFIFO:
            return FileKind::Pipe;
        default:
            return FileKind::Other;
    }
}

}  // namespace

std::optional<NamedThing> WhatHasName(const QString& name) {
    struct stat status {};
    if (::lstat(QFile::encodeName(name).constData(), &status) != 0) {
        return std::nullopt;
    }
    return NamedThing{KindOf(status.st_mode), status.st_nlink > 1};
}

std::optional<FileStatus> StatusOf(const QString& path) {
    struct stat status {};
    if (::stat(QFile::encodeName(path).constData(), &status) != 0) {
        return std::nullopt;
    }
    constexpr qint64 NanosecondsOfSecond = 1'000'000'000;
    return FileStatus{{status.st_dev, status.st_ino},
                      status.st_size,
                      status.st_ctim.tv_sec * NanosecondsOfSecond + status.st_ctim.tv_nsec};
}

}  // namespace platform
