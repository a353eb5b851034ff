#include "engine/jet/Disk.h"
#include "engine/jet/DiskFailure.h"

#include <QFile>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <string>
#include <system_error>

namespace engine::jet {

namespace {

std::string SystemName(const QString& path) {
    return QFile::encodeName(path).toStdString();
}

std::string FolderOf(const std::string& name) {
    const auto end = name.find_last_of('/');
    return end == std::string::npos ? std::string(".") : name.substr(0, end + 1);
}

[[noreturn]] void Raise(const QString& path, const char* what, int systemError) {
    const bool isFull = systemError == ENOSPC || systemError == EDQUOT || systemError == EFBIG;
    RaiseDiskFailure(path, what, {systemError, std::generic_category()}, isFull);
}

class SystemFile : public DiskFile {
public:
    SystemFile(QString path, int descriptor) : path_(std::move(path)), descriptor_(descriptor) {}
    ~SystemFile() override { close(descriptor_); }
    SystemFile(const SystemFile&) = delete;
    SystemFile& operator=(const SystemFile&) = delete;

    std::uint64_t Size() override {
        struct stat found {};
        if (fstat(descriptor_, &found) != 0) {
            Raise(path_, "looked at", errno);
        }
        return static_cast<std::uint64_t>(found.st_size);
    }

    void Read(std::uint64_t at, std::span<std::uint8_t> bytes) override {
        std::size_t done = 0;
        while (done < bytes.size()) {
            const ssize_t step =
                pread(descriptor_, bytes.data() + done, bytes.size() - done, static_cast<off_t>(at + done));
            if (step < 0 && errno == EINTR) {
                continue;
            }
            if (step <= 0) {
                Raise(path_, "read", step < 0 ? errno : EIO);
            }
            done += static_cast<std::size_t>(step);
        }
    }

    void Write(std::uint64_t at, std::span<const std::uint8_t> bytes) override {
        std::size_t done = 0;
        while (done < bytes.size()) {
            const ssize_t step =
                pwrite(descriptor_, bytes.data() + done, bytes.size() - done, static_cast<off_t>(at + done));
            if (step < 0 && errno == EINTR) {
                continue;
            }
            if (step <= 0) {
                Raise(path_, "written", step < 0 ? errno : EIO);
            }
            done += static_cast<std::size_t>(step);
        }
    }

    void Resize(std::uint64_t size) override {
        if (ftruncate(descriptor_, static_cast<off_t>(size)) != 0) {
            Raise(path_, "cut or lengthened", errno);
        }
    }

    void Sync() override {
        if (fsync(descriptor_) != 0) {
            Raise(path_, "brought to the disk", errno);
        }
    }

private:
    QString path_;
    int descriptor_;
};

class RealDisk : public Disk {
public:
    std::unique_ptr<DiskFile> Open(const QString& path) override {
        const int descriptor = open(SystemName(path).c_str(), O_RDWR | O_CLOEXEC);
        if (descriptor < 0) {
            Raise(path, "opened", errno);
        }
        return std::make_unique<SystemFile>(path, descriptor);
    }

    std::unique_ptr<DiskFile> Make(const QString& path) override {
        const int descriptor = open(SystemName(path).c_str(), O_RDWR | O_CLOEXEC | O_CREAT | O_EXCL, 0666);
        if (descriptor < 0) {
            Raise(path, "made", errno);
        }
        return std::make_unique<SystemFile>(path, descriptor);
    }

    std::unique_ptr<DiskFile> OpenOrMake(const QString& path, const QString& permissionsOf) override {
        const std::string name = SystemName(path);
        // A pipe would be waited for without O_NONBLOCK.
        const int flags = O_RDWR | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK;
        struct stat original {};
        if (stat(SystemName(permissionsOf).c_str(), &original) != 0) {
            Raise(permissionsOf, "looked at", errno);
        }
        int descriptor = open(name.c_str(), flags);
        const bool isNew = descriptor < 0 && errno == ENOENT;
        if (isNew) {
            descriptor = open(name.c_str(), flags | O_CREAT | O_EXCL, original.st_mode & 0666);
        }
        if (descriptor < 0) {
            Raise(path, "opened", errno);
        }
        auto file = std::make_unique<SystemFile>(path, descriptor);
        struct stat found {};
        if (fstat(descriptor, &found) != 0 || !S_ISREG(found.st_mode)) {
            Raise(path, "opened", EINVAL);
        }
        if (isNew) {
            SyncFolder(path);
        }
        return file;
    }

    bool IsThere(const QString& path) override {
        struct stat found {};
        return lstat(SystemName(path).c_str(), &found) == 0;
    }

    void Remove(const QString& path) override {
        if (unlink(SystemName(path).c_str()) != 0) {
            Raise(path, "removed", errno);
        }
    }

    void Rename(const QString& from, const QString& to) override {
        // Not every file system knows how to rename without replacing; there it has been looked before.
        const std::string oldName = SystemName(from);
        const std::string newName = SystemName(to);
        if (renameat2(AT_FDCWD, oldName.c_str(), AT_FDCWD, newName.c_str(), RENAME_NOREPLACE) != 0 &&
            (errno != EINVAL || IsThere(to) || rename(oldName.c_str(), newName.c_str()) != 0)) {
            Raise(to, "made", errno);
        }
        SyncFolder(to);
    }

private:
    // Some file systems don't sync folders, and a folder that can't be read can't be opened for it.
    static void SyncFolder(const QString& path) {
        const int descriptor = open(FolderOf(SystemName(path)).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
        if (descriptor < 0) {
            return;
        }
        const int failure = fsync(descriptor) == 0 || errno == EINVAL ? 0 : errno;
        close(descriptor);
        if (failure != 0) {
            Raise(path, "brought to the disk", failure);
        }
    }
};

}  // namespace

// Outlives the databases that a program holds open to its very end.
Disk& SystemDisk() {
    static RealDisk& disk = *new RealDisk;
    return disk;
}

}  // namespace engine::jet
