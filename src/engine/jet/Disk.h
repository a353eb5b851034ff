#pragma once

#include <QString>

#include <cstdint>
#include <memory>
#include <span>

namespace engine::jet {

/// An open file. What the disk refuses fails with DiskFull where it has no room, and else with DiskError.
class DiskFile {
public:
    DiskFile() = default;
    DiskFile(const DiskFile&) = delete;
    DiskFile& operator=(const DiskFile&) = delete;
    virtual ~DiskFile() = default;

    virtual std::uint64_t Size() = 0;
    /// Fails where the file ends before the last of the bytes.
    virtual void Read(std::uint64_t at, std::span<std::uint8_t> bytes) = 0;
    virtual void Write(std::uint64_t at, std::span<const std::uint8_t> bytes) = 0;
    virtual void Resize(std::uint64_t size) = 0;
    /// When it is over, what was written is on the disk.
    virtual void Sync() = 0;
};

/// What the pages of a database and their journal ask of the disk. Tests have others than the system's.
class Disk {
public:
    Disk() = default;
    Disk(const Disk&) = delete;
    Disk& operator=(const Disk&) = delete;
    virtual ~Disk() = default;

    /// Makes a new file. Fails if the name is taken.
    virtual std::unique_ptr<DiskFile> Make(const QString& path) = 0;
    /// Opens a file that is there, for reading and writing.
    virtual std::unique_ptr<DiskFile> Open(const QString& path) = 0;
    /// Opens a file, which is made if it isn't there, with the permissions of another one. Only a regular
    /// file of this name is opened, not one that a link leads to. Its name is on the disk when this is over.
    virtual std::unique_ptr<DiskFile> OpenOrMake(const QString& path, const QString& permissionsOf) = 0;
    virtual bool IsThere(const QString& path) = 0;
    virtual void Remove(const QString& path) = 0;
    /// Never replaces another file: fails if the new name is taken.
    virtual void Rename(const QString& from, const QString& to) = 0;
};

/// The system's files.
Disk& SystemDisk();

/// The disk that databases are opened on: the system's, unless a test has put another one in its place. Null
/// puts it back.
Disk& DiskInUse();
void UseDisk(Disk* disk);

}  // namespace engine::jet
