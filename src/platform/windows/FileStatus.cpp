#include "platform/FileStatus.h"

#include "platform/windows/FileInformation.h"
#include "platform/windows/Handle.h"

namespace platform {

namespace {

constexpr DWORD ShareWithAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

FileKind KindOf(HANDLE file, DWORD attributes) {
    if ((attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0) {
        return FileKind::Link;
    }
    if ((attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
        return FileKind::Folder;
    }
    switch (GetFileType(file)) {
        case FILE_TYPE_DISK:
            return FileKind::Regular;
        case FILE_TYPE_PIPE:
            return FileKind::Pipe;
        default:
            return FileKind::Other;
    }
}

}  // namespace

// Only attributes are asked for, so whoever has the file open is no obstacle.
std::optional<NamedThing> WhatHasName(const QString& name) {
    const Handle file(CreateFileW(WideName(name).c_str(), FILE_READ_ATTRIBUTES, ShareWithAll, nullptr,
                                  OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS | FILE_FLAG_OPEN_REPARSE_POINT,
                                  nullptr));
    BY_HANDLE_FILE_INFORMATION information{};
    if (!file.IsOpen()) {
        return std::nullopt;
    }
    if (GetFileInformationByHandle(file.Get(), &information) == 0) {
        return NamedThing{};
    }
    return NamedThing{KindOf(file.Get(), information.dwFileAttributes), information.nNumberOfLinks > 1};
}

std::optional<FileStatus> StatusOf(const QString& path) {
    const Handle file(CreateFileW(WideName(path).c_str(), FILE_READ_ATTRIBUTES, ShareWithAll, nullptr,
                                  OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
    BY_HANDLE_FILE_INFORMATION information{};
    FILE_BASIC_INFO times{};
    if (!file.IsOpen() || GetFileInformationByHandle(file.Get(), &information) == 0 ||
        GetFileInformationByHandleEx(file.Get(), FileBasicInfo, &times, sizeof times) == 0) {
        return std::nullopt;
    }
    const quint64 size = (quint64{information.nFileSizeHigh} << 32) | information.nFileSizeLow;
    return FileStatus{IdentityIn(information), static_cast<qint64>(size), times.ChangeTime.QuadPart};
}

}  // namespace platform
