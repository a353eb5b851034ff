#include "platform/FileLock.h"

#include "platform/Failure.h"
#include "platform/windows/FileInformation.h"
#include "platform/windows/Handle.h"

#include <QFileInfo>

#include <array>

namespace platform {

namespace {

// Behind anything that a file holds, and not one of the bytes that database engines lock.
constexpr DWORD LockedByteHigh = DWORD{1} << 30;

constexpr DWORD ShareWithAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

HANDLE FileOf(qintptr file) {
    return reinterpret_cast<HANDLE>(file);
}

bool TryTakeByte(HANDLE file) {
    OVERLAPPED place{};
    place.OffsetHigh = LockedByteHigh;
    constexpr DWORD AtOnce = LOCKFILE_EXCLUSIVE_LOCK | LOCKFILE_FAIL_IMMEDIATELY;
    return LockFileEx(file, AtOnce, 0, 1, 0, &place) != 0 ||
           (GetLastError() != ERROR_LOCK_VIOLATION && GetLastError() != ERROR_IO_PENDING);
}

}  // namespace

FileIdentity IdentityIn(const BY_HANDLE_FILE_INFORMATION& information) {
    return {information.dwVolumeSerialNumber,
            (quint64{information.nFileIndexHigh} << 32) | information.nFileIndexLow};
}

QString ProgramOf(qint64 process) {
    const Handle opened(OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, static_cast<DWORD>(process)));
    std::array<wchar_t, 32768> name{};
    auto size = static_cast<DWORD>(name.size());
    if (!opened.IsOpen() || QueryFullProcessImageNameW(opened.Get(), 0, name.data(), &size) == 0) {
        return {};
    }
    return QFileInfo(QString::fromWCharArray(name.data(), static_cast<qsizetype>(size))).fileName();
}

std::optional<FileIdentity> IdentityOf(const QString& path) {
    const Handle file(CreateFileW(WideName(path).c_str(), 0, ShareWithAll, nullptr, OPEN_EXISTING,
                                  FILE_FLAG_BACKUP_SEMANTICS, nullptr));
    BY_HANDLE_FILE_INFORMATION information{};
    if (!file.IsOpen() || GetFileInformationByHandle(file.Get(), &information) == 0) {
        return std::nullopt;
    }
    return IdentityIn(information);
}

FileLock::FileLock(const QString& path)
    : file_(reinterpret_cast<qintptr>(CreateFileW(WideName(path).c_str(), GENERIC_READ | GENERIC_WRITE,
                                                  ShareWithAll, nullptr, OPEN_EXISTING, 0, nullptr))) {
    BY_HANDLE_FILE_INFORMATION information{};
    if (FileOf(file_) == INVALID_HANDLE_VALUE ||
        GetFileInformationByHandle(FileOf(file_), &information) == 0) {
        const QString reason = qt_error_string(static_cast<int>(GetLastError()));
        throw Failure(FailureNumber::FileNotFound,
                      QStringLiteral("Could not open file '%1': %2.").arg(path, reason));
    }
    identity_ = IdentityIn(information);
}

FileLock::~FileLock() {
    CloseHandle(FileOf(file_));
}

// A second lock of the byte would be refused to whoever has the first one, too.
bool FileLock::TryTake() const {
    isTaken_ = isTaken_ || TryTakeByte(FileOf(file_));
    return isTaken_;
}

// The system tells who has a file open, but not who has locked a byte of it.
std::optional<LockHolder> FileLock::Holder() const {
    return std::nullopt;
}

}  // namespace platform
