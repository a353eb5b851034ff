#pragma once

#include "engine/jet/LockFile.h"

#include <chrono>

namespace engine::jet {

/// The users of a database in all programs, as its lock file "<name>.ldb" tells of them: each has a place of
/// 64 bytes with his names in it, and a locked byte for it that keeps others from thinking the place free.
///
/// Every program that knows the format asks there before it opens a database, on other computers too. Nobody
/// here can share a file while it's written, so whoever writes has all the places alone.
///
/// To another object of the same process this one is somebody else: there must be one for each file.
class FileUsers {
public:
    static constexpr std::chrono::milliseconds LongestWait{5000};

    /// Nothing is locked yet, nor made. The lock file is that of the file which the name leads to.
    explicit FileUsers(const QString& database, std::chrono::milliseconds longestWait = LongestWait);
    FileUsers(const FileUsers&) = delete;
    FileUsers& operator=(const FileUsers&) = delete;
    /// Lets everybody in. Removes the lock file if it was made here and nobody else uses it.
    ~FileUsers();

    /// Takes a single place, like any other user, so that nobody can be alone. Where the lock file can't be
    /// made, or nothing be locked, there is no place to take, and reading goes on without one. Fails with
    /// 3260 if somebody is alone and stays so, or all places are taken, and with DiskError if what has the
    /// name of the lock file is something else.
    void Join();

    /// Takes all places, to keep them. Waits for other users as long as a program waits for a lock, unless
    /// it's told to end meanwhile (Waiting.h). Fails with 3260 then, in a sentence that says who has the file
    /// open, with ReadOnlyDatabase if the lock file may not be made or written, and with DiskError if what
    /// has its name is something else, or nothing can be locked.
    void BeAlone();
    bool IsAlone() const { return state_ == State::Alone; }

    static QString LockFileFor(const QString& database);

private:
    enum class State { Outside, Joined, Alone };

    template <class Try>
    void Wait(const Try& isGranted);
    bool TryJoin();
    bool TryBeAlone();
    bool Open(LockFile::Access access);
    bool HasGone();
    void WriteNames(int place);
    [[noreturn]] void RaiseHeld() const;
    QString Who() const;

    QString database_;
    std::chrono::milliseconds longestWait_;
    std::unique_ptr<LockFile> file_;
    State state_ = State::Outside;
};

}  // namespace engine::jet
