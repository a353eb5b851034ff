#include "engine/NewFile.h"

#include "engine/Error.h"
#include "engine/FileName.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <system_error>

namespace engine {

namespace {

std::string SystemName(const QString& name) {
    return QFile::encodeName(name).toStdString();
}

std::string FolderOf(const std::string& name) {
    return name.substr(0, name.find_last_of('/') + 1);
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

// Not every file system can rename without replacing, and not every other one can give a file a second name.
// Where neither is known, an empty file of our own holds the name until the whole one takes its place: no
// file of somebody else is ever replaced.
bool RenameWithoutReplacing(const char* from, const char* to) {
    if (renameat2(AT_FDCWD, from, AT_FDCWD, to, RENAME_NOREPLACE) == 0) {
        return true;
    }
    if (!IsUnknownHere(errno)) {
        return false;
    }
    // The old name goes with its folder.
    if (link(from, to) == 0) {
        return true;
    }
    if (!IsUnknownHere(errno)) {
        return false;
    }
    if (!OpenFile(to, O_WRONLY | O_CREAT | O_EXCL).IsOpen()) {
        return false;
    }
    if (rename(from, to) == 0) {
        return true;
    }
    const int failure = errno;
    unlink(to);
    errno = failure;
    return false;
}

// A folder that may be written to but not read can't be synced, and some file systems don't sync folders.
bool SyncFolder(const std::string& folder) {
    const OpenFile opened(folder, O_RDONLY | O_DIRECTORY);
    return !opened.IsOpen() || fsync(opened.Descriptor()) == 0 || errno == EINVAL;
}

[[noreturn]] void Raise(const QString& name, int systemError) {
    if (systemError == EEXIST) {
        throw Error(ErrorNumber::DatabaseExists, QStringLiteral("File '%1' already exists.").arg(name));
    }
    const std::string reason = std::generic_category().message(systemError);
    throw Error(
        ErrorNumber::DiskError,
        QStringLiteral("Disk error: '%1' can't be made: %2.").arg(name, QString::fromStdString(reason)));
}

// 0 if something has the name, or why the system didn't find it.
int LookFor(const QString& name) {
    struct stat found {};
    return lstat(SystemName(name).c_str(), &found) == 0 ? 0 : errno;
}

void RequireFree(const QString& name) {
    const int answer = LookFor(name);
    if (answer == 0) {
        Raise(name, EEXIST);
    }
    if (answer == ENAMETOOLONG) {
        Raise(name, answer);
    }
}

}  // namespace

void RequireOtherName(const QString& name, const QStringList& kept) {
    const QFileInfo file(FileName(name));
    if (kept.contains(file.dir().canonicalPath() + QLatin1Char('/') + file.fileName())) {
        throw Error(ErrorNumber::InvalidOperation,
                    QStringLiteral("Invalid operation: the database uses the name %1 for itself.").arg(name));
    }
}

bool IsNameTaken(const QString& name) {
    return LookFor(FileName(name)) == 0;
}

NewFile::NewFile(const QString& name, const QStringList& endsBeside) : name_(FileName(name)) {
    RequireFree(name_);
    for (const QString& end : endsBeside) {
        RequireFree(name_ + end);
    }
    folder_ = FolderOf(SystemName(name_)) + ".wrenfield-XXXXXX";
    if (mkdtemp(folder_.data()) == nullptr) {
        Raise(name_, errno);
    }
    path_ = QFile::decodeName((folder_ + "/new").c_str());
}

NewFile::~NewFile() {
    std::error_code cannotBeHelped;
    std::filesystem::remove_all(folder_, cannotBeHelped);
}

void NewFile::TakePermissionsOf(const QString& original) {
    struct stat theirs {};
    struct stat ours {};
    const OpenFile file(SystemName(path_), O_RDONLY);
    if (stat(SystemName(original).c_str(), &theirs) != 0 || !file.IsOpen()) {
        Raise(name_, errno);
    }
    // Whether this process may is seen by what has come of it.
    if (fchown(file.Descriptor(), theirs.st_uid, theirs.st_gid) != 0) {
        static_cast<void>(fchown(file.Descriptor(), static_cast<uid_t>(-1), theirs.st_gid) == 0);
    }
    if (fstat(file.Descriptor(), &ours) != 0) {
        Raise(name_, errno);
    }
    const mode_t forEverybody = S_IRWXU | S_IRWXO;
    const mode_t kept = ours.st_gid == theirs.st_gid ? forEverybody | S_IRWXG : forEverybody;
    if (fchmod(file.Descriptor(), theirs.st_mode & kept) != 0 && !IsUnknownHere(errno)) {
        Raise(name_, errno);
    }
}

void NewFile::TakePlace() {
    const std::string place = SystemName(name_);
    if (!RenameWithoutReplacing(SystemName(path_).c_str(), place.c_str())) {
        Raise(name_, errno);
    }
    if (!SyncFolder(FolderOf(place))) {
        const int failure = errno;
        unlink(place.c_str());
        Raise(name_, failure);
    }
}

}  // namespace engine
