#pragma once

#include <string>

/// A disk that fails when it is told to. While it lives, every database file opened in this process stands on
/// it.
///
/// It counts the operations that change or guard a file: write, sync, truncate, lock and removal of a file.
class FaultyDisk {
public:
    enum class Fault {
        Once,            ///< The n-th operation fails, the ones after it work again.
        FromThenOn,      ///< The n-th operation and all after it fail.
        FullFromThenOn,  ///< From the n-th operation on, writes that make a file longer find the disk full.
        EndBefore,       ///< The process is gone when it asks for the n-th operation, as one that is killed.
        EndWithin,       ///< The same, but if that is a write, the first half of it is done.
    };

    /// Of a process that has ended by a fault.
    static constexpr int EndStatus = 77;

    FaultyDisk();
    ~FaultyDisk();
    FaultyDisk(const FaultyDisk&) = delete;
    FaultyDisk& operator=(const FaultyDisk&) = delete;

    /// Counts from 1 anew and fails at the n-th operation from now. 0 lets everything work.
    void FailAt(int n, Fault fault);

    /// Lets others fail as well, so many in a row: from the n-th after the one that fails Once.
    void FailAgainAfter(int n, int operations);

    /// A disk of so many bytes in all: what doesn't fit any more finds it full. 0 for one without end. Stays
    /// as it is until it is set anew.
    void HoldAtMost(long long bytes);

    /// Lets all writes fail that hold these bytes: a place of the disk that takes one thing and not another.
    void FailOnBytes(const std::string& bytes);

    void Repair() { FailAt(0, Fault::Once); }

    /// Operations since FailAt or since the beginning.
    int Operations() const;

    /// How many of them were syncs.
    int Syncs() const;

    /// How many operations were made to fail since FailAt.
    int Faults() const;

    /// The kind of the first operation that was made to fail: "write", "sync", "truncate", "lock", "remove".
    std::string FirstFault() const;
};
