#include "platform/FileLock.h"

#include "platform/Failure.h"

#include <QFile>
#include <QStringList>

#include <fcntl.h>
#include <linux/magic.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <sys/vfs.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>

namespace platform {

namespace {

// Behind anything that a file holds, and not one of the bytes that database engines lock.
constexpr off_t LockedByte = off_t{1} << 62;

int DescriptorOf(qintptr file) {
    return static_cast<int>(file);
}

FileIdentity ToIdentity(const struct stat& status) {
    return {status.st_dev, status.st_ino};
}

// These make a lock of the file out of locks of all its bytes, which would keep out a database engine's own.
bool AreFileLocksByteLocks(int file) {
    constexpr std::array<quint32, 5> Networks{NFS_SUPER_MAGIC, SMB_SUPER_MAGIC, CIFS_SUPER_MAGIC,
                                              SMB2_SUPER_MAGIC, V9FS_MAGIC};
    struct statfs fileSystem {};
    return fstatfs(file, &fileSystem) == 0 &&
           std::count(Networks.begin(), Networks.end(), static_cast<quint32>(fileSystem.f_type)) > 0;
}

bool TryTakeByte(int file) {
    struct flock byte {};
    byte.l_type = F_WRLCK;
    byte.l_whence = SEEK_SET;
    byte.l_start = LockedByte;
    byte.l_len = 1;
    // Of the open file and not of the process: a database engine that closes the file doesn't let go of it.
    return fcntl(file, F_OFD_SETLK, &byte) == 0 || (errno != EAGAIN && errno != EACCES);
}

bool TryTakeFile(int file) {
    if (AreFileLocksByteLocks(file)) {
        return TryTakeByte(file);
    }
    if (flock(file, LOCK_EX | LOCK_NB) == 0) {
        return true;
    }
    return errno != EWOULDBLOCK && TryTakeByte(file);
}

QByteArray ReadSystemFile(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// How the system's list of locks names a file.
QString NameInLockList(const FileIdentity& file) {
    return QStringLiteral("%1:%2:%3")
        .arg(major(file.device), 2, 16, QLatin1Char('0'))
        .arg(minor(file.device), 2, 16, QLatin1Char('0'))
        .arg(file.file);
}

}  // namespace

// The system keeps the first 15 characters of a program's name; its command line mostly begins with all.
QString ProgramOf(qint64 process) {
    const QString folder = QStringLiteral("/proc/%1/").arg(process);
    const QByteArray name = ReadSystemFile(folder + QLatin1String("comm")).trimmed();
    const QByteArray command = ReadSystemFile(folder + QLatin1String("cmdline"));
    const QByteArray whole = command.left(command.indexOf('\0'));
    const QByteArray file = whole.mid(whole.lastIndexOf('/') + 1);
    return QFile::decodeName(file.startsWith(name) ? file : name);
}

std::optional<FileIdentity> IdentityOf(const QString& path) {
    struct stat status {};
    if (stat(QFile::encodeName(path).constData(), &status) != 0) {
        return std::nullopt;
    }
    return ToIdentity(status);
}

FileLock::FileLock(const QString& path)
    : file_(open(QFile::encodeName(path).constData(), O_RDWR | O_CLOEXEC)) {
    struct stat status {};
    if (file_ < 0 || fstat(DescriptorOf(file_), &status) != 0) {
        throw Failure(FailureNumber::FileNotFound,
                      QStringLiteral("Could not open file '%1': %2.").arg(path, qt_error_string(errno)));
    }
    identity_ = ToIdentity(status);
}

FileLock::~FileLock() {
    close(DescriptorOf(file_));
}

bool FileLock::TryTake() const {
    isTaken_ = isTaken_ || TryTakeFile(DescriptorOf(file_));
    return isTaken_;
}

std::optional<LockHolder> FileLock::Holder() const {
    const QString wanted = NameInLockList(identity_);
    const QString locks = QString::fromLatin1(ReadSystemFile(QStringLiteral("/proc/locks")));
    for (const QString& line : locks.split(QLatin1Char('\n'))) {
        // 7: FLOCK  ADVISORY  WRITE 4711 fe:00:10960988 0 EOF
        const QStringList words = line.simplified().split(QLatin1Char(' '));
        if (words.value(1) == QLatin1String("FLOCK") && words.value(5) == wanted) {
            LockHolder holder{words.at(4).toLongLong(), ProgramOf(words.at(4).toLongLong())};
            return holder.program.isEmpty() ? std::nullopt : std::optional(holder);
        }
    }
    return std::nullopt;
}

}  // namespace platform
