#include "engine/jet/DiskFailure.h"
#include "engine/jet/LockFile.h"
#include "platform/windows/FileInformation.h"
#include "platform/windows/Handle.h"

#include <set>

namespace engine::jet {

namespace {

using platform::Handle;

constexpr DWORD ShareWithAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

OVERLAPPED PlaceAt(std::uint64_t at) {
    OVERLAPPED place{};
    place.Offset = static_cast<DWORD>(at);
    place.OffsetHigh = static_cast<DWORD>(at >> 32);
    return place;
}

class SystemLockFile : public LockFile {
public:
    SystemLockFile(QString path, HANDLE file, bool wasMade, bool isWritable)
        : path_(std::move(path)), file_(file), wasMade_(wasMade), isWritable_(isWritable) {}

    bool WasMade() const override { return wasMade_; }
    bool IsWritable() const override { return isWritable_; }

    bool IsStillThere() const override {
        BY_HANDLE_FILE_INFORMATION opened{};
        FILE_STANDARD_INFO standard{};
        return GetFileInformationByHandle(file_.Get(), &opened) != 0 &&
               GetFileInformationByHandleEx(file_.Get(), FileStandardInfo, &standard, sizeof standard) != 0 &&
               standard.DeletePending == 0 && platform::IdentityOf(path_) == platform::IdentityIn(opened);
    }

    // The system refuses a second lock of a byte to everybody, so only those are asked for that are missing.
    // One by one, as every program that knows the format does it.
    Answer TryLock(Range range) override {
        std::set<std::uint64_t> taken;
        for (std::uint64_t byte = range.first; byte < range.first + range.count; ++byte) {
            const Answer answer = locked_.count(byte) > 0 ? Answer::Granted : TryLockByte(byte);
            if (answer != Answer::Granted) {
                for (const std::uint64_t other : taken) {
                    UnlockByte(other);
                }
                return answer;
            }
            if (locked_.count(byte) == 0) {
                taken.insert(byte);
            }
        }
        locked_.merge(taken);
        return Answer::Granted;
    }

    // The system doesn't tell which process it is.
    std::optional<Holder> HolderOf(Range range) const override {
        for (std::uint64_t byte = range.first; byte < range.first + range.count; ++byte) {
            if (locked_.count(byte) > 0) {
                continue;
            }
            if (TryLockByte(byte) == Answer::Held) {
                return Holder{byte, std::nullopt};
            }
            UnlockByte(byte);
        }
        return std::nullopt;
    }

    QByteArray Read(qint64 at, qint64 size) const override {
        QByteArray bytes(static_cast<qsizetype>(size), '\0');
        OVERLAPPED place = PlaceAt(static_cast<std::uint64_t>(at));
        DWORD read = 0;
        if (ReadFile(file_.Get(), bytes.data(), static_cast<DWORD>(size), &read, &place) == 0) {
            read = 0;
        }
        bytes.truncate(static_cast<qsizetype>(read));
        return bytes;
    }

    bool Write(qint64 at, const QByteArray& bytes) override {
        OVERLAPPED place = PlaceAt(static_cast<std::uint64_t>(at));
        const auto size = static_cast<DWORD>(bytes.size());
        DWORD written = 0;
        return WriteFile(file_.Get(), bytes.constData(), size, &written, &place) != 0 && written == size;
    }

    // Whoever still has it open keeps it; the last one to close it takes it away.
    void Remove() override {
        if (IsStillThere()) {
            DeleteFileW(platform::WideName(path_).c_str());
        }
    }

private:
    Answer TryLockByte(std::uint64_t byte) const {
        OVERLAPPED place = PlaceAt(byte);
        const DWORD atOnce = LOCKFILE_FAIL_IMMEDIATELY | (isWritable_ ? LOCKFILE_EXCLUSIVE_LOCK : 0);
        if (LockFileEx(file_.Get(), atOnce, 0, 1, 0, &place) != 0) {
            return Answer::Granted;
        }
        const DWORD failure = GetLastError();
        return failure == ERROR_LOCK_VIOLATION || failure == ERROR_IO_PENDING ? Answer::Held
                                                                              : Answer::NoLocks;
    }

    void UnlockByte(std::uint64_t byte) const {
        OVERLAPPED place = PlaceAt(byte);
        UnlockFileEx(file_.Get(), 0, 1, 0, &place);
    }

    QString path_;
    Handle file_;
    bool wasMade_;
    bool isWritable_;
    std::set<std::uint64_t> locked_;
};

// A file with a second name, or a long one, is something else that would be written over.
bool IsLockFile(HANDLE file, qint64 longest) {
    BY_HANDLE_FILE_INFORMATION found{};
    constexpr DWORD NoFile = FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_REPARSE_POINT;
    return GetFileType(file) == FILE_TYPE_DISK && GetFileInformationByHandle(file, &found) != 0 &&
           (found.dwFileAttributes & NoFile) == 0 && found.nNumberOfLinks == 1 && found.nFileSizeHigh == 0 &&
           found.nFileSizeLow <= longest;
}

HANDLE OpenFile(const QString& path, DWORD access, DWORD disposition) {
    return CreateFileW(platform::WideName(path).c_str(), access, ShareWithAll, nullptr, disposition,
                       FILE_ATTRIBUTE_NORMAL | FILE_FLAG_OPEN_REPARSE_POINT, nullptr);
}

// One that was removed while somebody had it open is refused until he closes it.
HANDLE OpenForWriting(const QString& path) {
    constexpr int Tries = 5;
    constexpr DWORD BetweenTries = 10;
    HANDLE file = INVALID_HANDLE_VALUE;
    for (int tries = 0; tries < Tries; ++tries) {
        file = OpenFile(path, GENERIC_READ | GENERIC_WRITE, OPEN_ALWAYS);
        if (file != INVALID_HANDLE_VALUE || GetLastError() != ERROR_ACCESS_DENIED) {
            break;
        }
        Sleep(BetweenTries);
        SetLastError(ERROR_ACCESS_DENIED);
    }
    return file;
}

}  // namespace

// A new file gets its permissions from the folder that it lies in, as the other one did.
std::unique_ptr<LockFile> LockFile::OpenOrMake(const QString& path, const QString&, qint64 longest,
                                               Access access) {
    HANDLE file = OpenForWriting(path);
    bool wasMade = file != INVALID_HANDLE_VALUE && GetLastError() != ERROR_ALREADY_EXISTS;
    bool isWritable = true;
    if (file == INVALID_HANDLE_VALUE && access == Access::Reading && IsForbidden(platform::LastFailure())) {
        isWritable = false;
        file = OpenFile(path, GENERIC_READ, OPEN_EXISTING);
        const std::error_code failure = platform::FailureUnless(file != INVALID_HANDLE_VALUE);
        if (IsForbidden(failure) || failure == std::errc::no_such_file_or_directory) {
            return nullptr;
        }
    }
    if (file == INVALID_HANDLE_VALUE) {
        RaiseUnopenedLockFile(path, platform::LastFailure());
    }
    auto opened = std::make_unique<SystemLockFile>(path, file, wasMade, isWritable);
    if (!IsLockFile(file, longest)) {
        RaiseNoLockFile(path);
    }
    return opened;
}

}  // namespace engine::jet
