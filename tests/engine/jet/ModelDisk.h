#pragma once

#include "engine/Error.h"
#include "engine/jet/Disk.h"

#include <QByteArray>
#include <QMap>
#include <QString>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace engine::jet {

/// A disk in memory that counts what is asked of it. It can refuse from some operation on, or stop the
/// program there (with Stopped), and it knows what of each file is on the disk for good.
class ModelDisk : public Disk {
public:
    /// The program was ended in the middle of an operation.
    struct Stopped {};

    struct File {
        QByteArray bytes;
        QByteArray synced;
        std::vector<std::pair<qsizetype, QByteArray>> written;  ///< Since the last sync. At -1: another size.
    };

    std::unique_ptr<DiskFile> Make(const QString& path) override { return OpenOrMake(path, path); }
    std::unique_ptr<DiskFile> Open(const QString& path) override;
    std::unique_ptr<DiskFile> OpenOrMake(const QString& path, const QString& permissionsOf) override;
    bool IsThere(const QString& path) override { return files.contains(path); }
    void Remove(const QString& path) override {
        Count();
        files.remove(path);
    }
    void Rename(const QString& from, const QString& to) override {
        Count();
        files[to] = files.take(from);
    }

    /// Operations that change something, so far.
    int operations = 0;
    /// The operation in which the program ends, after the first half of a write. None behind it is done.
    std::optional<int> stopAt;
    /// Those that are refused, with the number of the failure.
    std::optional<int> failAt;
    int failUntil = 0;
    int failure = ErrorNumber::DiskError;

    /// Told of each file that was written to.
    std::function<void(const File& file)> afterWrite;

    /// What a power cut leaves of each file: what was synced, and of the writes since then those that it
    /// happens to have done, each asked for by `isDone`.
    void CutPower(const std::function<bool()>& isDone);

    /// Counts an operation; true if only its first half is to be done.
    bool Count();

    QMap<QString, std::shared_ptr<File>> files;
};

}  // namespace engine::jet
