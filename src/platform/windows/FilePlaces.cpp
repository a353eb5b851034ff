#include "platform/FilePlaces.h"

#include "platform/windows/Handle.h"

#include <QRandomGenerator>

#include <aclapi.h>

namespace platform {

namespace {

QString RandomEnd() {
    static const QString letters = QStringLiteral("abcdefghijklmnopqrstuvwxyz0123456789");
    QString end;
    for (int place = 0; place < 6; ++place) {
        end += letters[QRandomGenerator::system()->bounded(static_cast<int>(letters.size()))];
    }
    return end;
}

// Not for a process that may not read them, and not on file systems that keep none.
bool HasNoPermissions(DWORD failure) {
    return failure == ERROR_ACCESS_DENIED || failure == ERROR_NOT_SUPPORTED ||
           failure == ERROR_INVALID_FUNCTION || failure == ERROR_CALL_NOT_IMPLEMENTED;
}

}  // namespace

std::error_code LookFor(const QString& name) {
    return FailureUnless(GetFileAttributesW(WideName(name).c_str()) != INVALID_FILE_ATTRIBUTES);
}

std::error_code MakePrivateFolder(QString& name) {
    constexpr int Tries = 100;
    for (int tries = 0; tries < Tries; ++tries) {
        const QString folder = name + RandomEnd();
        if (CreateDirectoryW(WideName(folder).c_str(), nullptr) != 0) {
            name = folder;
            return {};
        }
        if (GetLastError() != ERROR_ALREADY_EXISTS) {
            break;
        }
    }
    return LastFailure();
}

// The system brings the new name to the disk before it returns.
std::error_code RenameWithoutReplacing(const QString& from, const QString& to) {
    return FailureUnless(MoveFileExW(WideName(from).c_str(), WideName(to).c_str(), MOVEFILE_WRITE_THROUGH) !=
                         0);
}

// Folders aren't brought to the disk by themselves here.
std::error_code SyncFolderOf(const QString&) {
    return {};
}

std::error_code RemoveFile(const QString& name) {
    return FailureUnless(DeleteFileW(WideName(name).c_str()) != 0);
}

// The list of who may do what. Owner and group stay this process's own.
std::error_code TakePermissions(const QString& from, const QString& to) {
    PACL list = nullptr;
    PSECURITY_DESCRIPTOR descriptor = nullptr;
    DWORD failure = GetNamedSecurityInfoW(WideName(from).c_str(), SE_FILE_OBJECT, DACL_SECURITY_INFORMATION,
                                          nullptr, nullptr, &list, nullptr, &descriptor);
    if (failure == ERROR_SUCCESS) {
        failure = SetNamedSecurityInfoW(WideName(to).data(), SE_FILE_OBJECT, DACL_SECURITY_INFORMATION,
                                        nullptr, nullptr, list, nullptr);
        LocalFree(descriptor);
    }
    SetLastError(failure);
    return FailureUnless(failure == ERROR_SUCCESS || HasNoPermissions(failure));
}

}  // namespace platform
