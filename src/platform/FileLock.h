#pragma once

#include <QString>

#include <compare>
#include <optional>

namespace platform {

/// Which file it is, whatever name leads to it. No other file has the same identity while this one is open.
struct FileIdentity {
    quint64 device = 0;
    quint64 file = 0;

    friend auto operator<=>(const FileIdentity&, const FileIdentity&) = default;
};

/// The identity of the file that the name leads to now, through links too; none if it leads nowhere.
std::optional<FileIdentity> IdentityOf(const QString& path);

/// Another process that has a lock.
struct LockHolder {
    qint64 process = 0;
    QString program;  ///< Its name without the folder.
};

/// The name of the program that a process runs, without the folder. Empty if the system doesn't tell.
QString ProgramOf(qint64 process);

/// A lock on a whole file among the programs that ask for it. It hinders nobody else: reading, writing and
/// the locks of a database engine on single bytes go on as without it.
///
/// The lock ends with this object and with the process, however that ends, and programs that the process
/// starts don't get it. To the lock a second object of the same process is somebody else.
///
/// Closing a file lets go of every lock that this process has on bytes of it, whoever in the process set
/// them: destroy this object only while nobody here holds any.
class FileLock {
public:
    /// Opens the file and locks nothing yet. Platform failure 53 if it can't be opened for writing.
    explicit FileLock(const QString& path);
    ~FileLock();
    FileLock(const FileLock&) = delete;
    FileLock& operator=(const FileLock&) = delete;

    const FileIdentity& File() const { return identity_; }

    /// Takes the lock without waiting. False if another has it. On a file system without any locks it is
    /// always granted: a database engine, which needs locks as well, writes nothing there in any case.
    bool TryTake() const;

    /// Who has the lock, as far as the system tells: not on network file systems, nor where processes are
    /// hidden from one another.
    std::optional<LockHolder> Holder() const;

private:
    qintptr file_;  ///< As the system names it.
    FileIdentity identity_;
    mutable bool isTaken_ = false;
};

}  // namespace platform
