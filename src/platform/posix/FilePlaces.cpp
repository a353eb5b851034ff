#include "platform/FilePlaces.h"

#include <QFile>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <string>

namespace platform {

namespace {

std::string SystemName(const QString& name) {
    return QFile::encodeName(name).toStdString();
}

std::string FolderOf(const std::string& name) {
    return name.substr(0, name.find_last_of('/') + 1);
}

std::error_code LastFailure() {
    return {errno, std::generic_category()};
}

std::error_code FailureUnless(bool isDone) {
    return isDone ? std::error_code() : LastFailure();
}

class OpenFile {
public:
    OpenFile(const std::string& name, int flags) : file_(open(name.c_str(), flags | O_CLOEXEC, 0600)) {}
    ~OpenFile() {
        if (file_ >= 0) {
            close(file_);
        }
    }
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;

    bool IsOpen() const { return file_ >= 0; }
    int Descriptor() const { return file_; }

private:
    int file_;
};

bool IsUnknownHere(int systemError) {
    return systemError == EINVAL || systemError == ENOSYS || systemError == EOPNOTSUPP ||
           systemError == EPERM;
}

}  // namespace

std::error_code LookFor(const QString& name) {
    struct stat found {};
    return FailureUnless(lstat(SystemName(name).c_str(), &found) == 0);
}

std::error_code MakePrivateFolder(QString& name) {
    std::string folder = SystemName(name) + "XXXXXX";
    if (mkdtemp(folder.data()) == nullptr) {
        return LastFailure();
    }
    name = QFile::decodeName(folder.c_str());
    return {};
}

// Not every file system can rename without replacing, and not every other one can give a file a second name.
// Where neither is known, an empty file of our own holds the name until the whole one takes its place: no
// file of somebody else is ever replaced.
std::error_code RenameWithoutReplacing(const QString& from, const QString& to) {
    const std::string oldName = SystemName(from);
    const std::string newName = SystemName(to);
    if (renameat2(AT_FDCWD, oldName.c_str(), AT_FDCWD, newName.c_str(), RENAME_NOREPLACE) == 0) {
        return {};
    }
    if (!IsUnknownHere(errno)) {
        return LastFailure();
    }
    if (link(oldName.c_str(), newName.c_str()) == 0) {
        return {};
    }
    if (!IsUnknownHere(errno)) {
        return LastFailure();
    }
    if (!OpenFile(newName, O_WRONLY | O_CREAT | O_EXCL).IsOpen()) {
        return LastFailure();
    }
    if (rename(oldName.c_str(), newName.c_str()) == 0) {
        return {};
    }
    const std::error_code failure = LastFailure();
    unlink(newName.c_str());
    return failure;
}

// A folder that may be written to but not read can't be synced, and some file systems don't sync folders.
std::error_code SyncFolderOf(const QString& name) {
    const OpenFile opened(FolderOf(SystemName(name)), O_RDONLY | O_DIRECTORY);
    return FailureUnless(!opened.IsOpen() || fsync(opened.Descriptor()) == 0 || errno == EINVAL);
}

std::error_code RemoveFile(const QString& name) {
    return FailureUnless(unlink(SystemName(name).c_str()) == 0);
}

std::error_code TakePermissions(const QString& from, const QString& to) {
    struct stat theirs {};
    struct stat ours {};
    const OpenFile file(SystemName(to), O_RDONLY);
    if (!file.IsOpen() || stat(SystemName(from).c_str(), &theirs) != 0) {
        return LastFailure();
    }
    // Whether this process may is seen by what has come of it.
    if (fchown(file.Descriptor(), theirs.st_uid, theirs.st_gid) != 0) {
        static_cast<void>(fchown(file.Descriptor(), static_cast<uid_t>(-1), theirs.st_gid) == 0);
    }
    if (fstat(file.Descriptor(), &ours) != 0) {
        return LastFailure();
    }
    const mode_t forEverybody = S_IRWXU | S_IRWXO;
    const mode_t kept = ours.st_gid == theirs.st_gid ? forEverybody | S_IRWXG : forEverybody;
    return FailureUnless(fchmod(file.Descriptor(), theirs.st_mode & kept) == 0 || IsUnknownHere(errno));
}

}  // namespace platform
