#pragma once

#include <QByteArray>
#include <QString>

#include <cstdint>
#include <memory>
#include <optional>

namespace engine::jet {

/// An open file whose bytes its users lock, far behind its end. Locks end with this object and with the
/// process. Another object of the same process is somebody else to them, where the system has such locks;
/// elsewhere closing one lets go of the locks of all.
class LockFile {
public:
    enum class Access { Reading, Writing };
    enum class Answer {
        Granted,
        Held,     ///< By somebody else.
        NoLocks,  ///< The file system has none.
    };
    struct Range {
        std::uint64_t first = 0;
        std::uint64_t count = 0;
    };
    /// Who has locked some of the bytes.
    struct Holder {
        std::uint64_t first = 0;        ///< The first byte that he has locked.
        std::optional<qint64> process;  ///< On this computer.
    };

    /// Opens the file, which is made if it isn't there, with the permissions of another one. Fails with
    /// DiskError, and changes nothing, unless it is a regular file with no second name that is no longer
    /// than `longest`. For reading alone it's also opened where it may not be written, and there is none if
    /// it may not be read or made either; otherwise that fails with ReadOnlyDatabase.
    static std::unique_ptr<LockFile> OpenOrMake(const QString& path, const QString& permissionsOf,
                                                qint64 longest, Access access);
    LockFile() = default;
    LockFile(const LockFile&) = delete;
    LockFile& operator=(const LockFile&) = delete;
    virtual ~LockFile() = default;

    /// Whether it wasn't there before.
    virtual bool WasMade() const = 0;
    virtual bool IsWritable() const = 0;
    /// Whether its name leads to it. Otherwise what it locks keeps nobody out.
    virtual bool IsStillThere() const = 0;

    /// Locks bytes without waiting; against everybody, or only against those who do so if the file may not be
    /// written. What this object has locked before is no obstacle.
    virtual Answer TryLock(Range range) = 0;
    /// Somebody whose lock keeps TryLock from being granted.
    virtual std::optional<Holder> HolderOf(Range range) const = 0;

    /// As far as the file goes.
    virtual QByteArray Read(qint64 at, qint64 size) const = 0;
    /// False if that isn't possible.
    virtual bool Write(qint64 at, const QByteArray& bytes) = 0;
    /// Takes the name away, if it still leads to this file. Locks stay until the end.
    virtual void Remove() = 0;
};

}  // namespace engine::jet
