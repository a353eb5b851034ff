#pragma once

#include "support/WriteTrace.h"

#include <QFile>

#include <atomic>
#include <chrono>
#include <cstdint>
#include <optional>
#include <vector>

/// A write of an import, by the clock on the wall and by the time the process itself had worked.
struct Done {
    std::chrono::steady_clock::time_point at;
    std::int64_t worked = 0;             ///< In nanoseconds.
    std::optional<std::int64_t> waited;  ///< For a core, in nanoseconds, where the system tells it.
};

/// What an import in another process has written so far, in a file that both have in their memory and that
/// outlives it. The import can be held up between two groups of writes, where it holds nobody up by a lock of
/// the database engine.
class ImportProgress {
public:
    /// A file that isn't there yet begins with nothing.
    explicit ImportProgress(const QString& path);
    ImportProgress(const ImportProgress&) = delete;
    ImportProgress& operator=(const ImportProgress&) = delete;

    QString Path() const { return file_.fileName(); }

    void Clear() const;
    size_t Writes() const { return progress_->writes; }
    /// How many of the writes were done when the last group had come to the disk.
    size_t Committed() const { return progress_->committed; }
    std::vector<Done> AllDone() const;

    /// Has the import stand still as soon as a group has come to the disk and so many writes are done.
    void HoldAfter(size_t writes) const;
    bool IsHeld() const { return progress_->isHeld; }
    void LetGoOn() const { progress_->holdAfter = Never; }

    /// For the import.
    void AddWrite(const TracedWrite& write) const;
    void AddCommit() const;

private:
    static constexpr size_t Room = 1'000'000;
    static constexpr size_t Never = SIZE_MAX;

    struct Progress {
        std::atomic<size_t> writes;
        std::atomic<size_t> committed;
        std::atomic<size_t> holdAfter;
        std::atomic<bool> isHeld;
        Done done[Room];
    };

    QFile file_;
    Progress* progress_;
};
