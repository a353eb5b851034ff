#include "engine/Error.h"
#include "engine/jet/LockFile.h"

#include <QFile>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

namespace engine::jet {

namespace {

[[noreturn]] void Raise(const QString& path, const QString& why) {
    throw Error(ErrorNumber::DiskError,
                QStringLiteral("Disk error: '%1' can't be opened: %2.").arg(path, why));
}

[[noreturn]] void RaiseReadOnly(const QString& path, const QString& why) {
    throw Error(
        ErrorNumber::ReadOnlyDatabase,
        QStringLiteral(
            "Cannot update. Database or object is read-only: its lock file '%1' can't be written: %2.")
            .arg(path, why));
}

QString Words(int systemError) {
    return QString::fromStdString(std::generic_category().message(systemError));
}

bool IsForbidden(int systemError) {
    return systemError == EACCES || systemError == EPERM || systemError == EROFS ||
           systemError == ENAMETOOLONG;
}

struct flock LockOf(LockFile::Range range, bool isExclusive) {
    struct flock lock {};
    lock.l_type = isExclusive ? F_WRLCK : F_RDLCK;
    lock.l_whence = SEEK_SET;
    lock.l_start = static_cast<off_t>(range.first);
    lock.l_len = static_cast<off_t>(range.count);
    return lock;
}

class SystemLockFile : public LockFile {
public:
    SystemLockFile(QByteArray name, int file, bool wasMade, bool isWritable)
        : name_(std::move(name)), file_(file), wasMade_(wasMade), isWritable_(isWritable) {}
    ~SystemLockFile() override { close(file_); }
    SystemLockFile(const SystemLockFile&) = delete;
    SystemLockFile& operator=(const SystemLockFile&) = delete;

    bool WasMade() const override { return wasMade_; }
    bool IsWritable() const override { return isWritable_; }

    bool IsStillThere() const override {
        struct stat named {};
        struct stat opened {};
        return lstat(name_.constData(), &named) == 0 && fstat(file_, &opened) == 0 &&
               named.st_dev == opened.st_dev && named.st_ino == opened.st_ino;
    }

    // Of the open file where the system can: a lock of the process goes when any opening of the file is
    // closed.
    Answer TryLock(Range range) override {
        struct flock lock = LockOf(range, isWritable_);
        if (fcntl(file_, F_OFD_SETLK, &lock) == 0 || (errno == EINVAL && fcntl(file_, F_SETLK, &lock) == 0)) {
            return Answer::Granted;
        }
        return errno == EAGAIN || errno == EACCES ? Answer::Held : Answer::NoLocks;
    }

    std::optional<Holder> HolderOf(Range range) const override {
        struct flock lock = LockOf(range, isWritable_);
        const bool isKnown =
            fcntl(file_, F_OFD_GETLK, &lock) == 0 || (errno == EINVAL && fcntl(file_, F_GETLK, &lock) == 0);
        if (!isKnown || lock.l_type == F_UNLCK) {
            return std::nullopt;
        }
        Holder holder{static_cast<std::uint64_t>(lock.l_start), std::nullopt};
        if (lock.l_pid > 0) {
            holder.process = lock.l_pid;
        }
        return holder;
    }

    QByteArray Read(qint64 at, qint64 size) const override {
        QByteArray bytes(static_cast<qsizetype>(size), '\0');
        const ssize_t read = pread(file_, bytes.data(), static_cast<std::size_t>(size), at);
        bytes.truncate(static_cast<qsizetype>(read > 0 ? read : 0));
        return bytes;
    }

    bool Write(qint64 at, const QByteArray& bytes) override {
        return pwrite(file_, bytes.constData(), static_cast<std::size_t>(bytes.size()), at) == bytes.size();
    }

    void Remove() override {
        if (IsStillThere()) {
            unlink(name_.constData());
        }
    }

private:
    QByteArray name_;
    int file_;
    bool wasMade_;
    bool isWritable_;
};

// A file with a second name, or a long one, is something else that would be written over.
void RequireLockFile(const QString& path, int file, qint64 longest) {
    struct stat found {};
    if (fstat(file, &found) != 0) {
        Raise(path, Words(errno));
    }
    if (!S_ISREG(found.st_mode) || found.st_nlink > 1 || found.st_size > longest) {
        Raise(path, QStringLiteral("it is no lock file of a database"));
    }
}

// The mode is that of the other file, whatever new files of this process may not have: others who write the
// database have to get in.
int Make(const QByteArray& name, const QString& permissionsOf, int flags) {
    struct stat original {};
    if (stat(QFile::encodeName(permissionsOf).constData(), &original) != 0) {
        return -1;
    }
    const int file = open(name.constData(), flags | O_RDWR | O_CREAT | O_EXCL, 0600);
    if (file >= 0) {
        // Where that isn't possible, its owner has it, and nobody else.
        fchmod(file, original.st_mode & 0666);
    }
    return file;
}

}  // namespace

std::unique_ptr<LockFile> LockFile::OpenOrMake(const QString& path, const QString& permissionsOf,
                                               qint64 longest, Access access) {
    const QByteArray name = QFile::encodeName(path);
    // A pipe would be waited for without O_NONBLOCK.
    constexpr int Flags = O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK;
    bool wasMade = false;
    bool isWritable = true;
    int file = open(name.constData(), Flags | O_RDWR);
    if (file < 0 && errno == ENOENT) {
        file = Make(name, permissionsOf, Flags);
        wasMade = file >= 0;
        // Another one may have made it meanwhile.
        file = file < 0 && errno == EEXIST ? open(name.constData(), Flags | O_RDWR) : file;
    }
    if (file < 0 && access == Access::Reading && IsForbidden(errno)) {
        isWritable = false;
        file = open(name.constData(), Flags | O_RDONLY);
        if (file < 0 && (IsForbidden(errno) || errno == ENOENT)) {
            return nullptr;
        }
    }
    if (file < 0) {
        IsForbidden(errno) ? RaiseReadOnly(path, Words(errno)) : Raise(path, Words(errno));
    }
    auto opened = std::make_unique<SystemLockFile>(name, file, wasMade, isWritable);
    RequireLockFile(path, file, longest);
    return opened;
}

}  // namespace engine::jet
