#pragma once

#include "engine/Error.h"
#include "platform/FileLock.h"

#include <memory>
#include <optional>

namespace engine {

/// Keeps imports in other processes out of a database file. Programs that don't know of it write as they
/// always did. Whatever engine reads the file, its databases ask for this lock before they write.
///
/// There is one for each file in a process, so that the databases that are open on it share it. Keep it as
/// long as the database is open: with the last one the file is closed, and that lets go of the locks that an
/// engine holds on its bytes.
class ImportLock {
public:
    /// That of the file that the name leads to. Platform failure 53 if the file can't be opened.
    static std::shared_ptr<ImportLock> Of(const QString& path);

    explicit ImportLock(const QString& path) : lock_(path) {}

    /// Takes the lock, to keep it, unless this process has it already. Fails with 3260, naming who has it.
    void Take();

    /// The same for each write, except that a refusal holds until Take succeeds: what another import has left
    /// when it is done must not be mixed with the rest of this one.
    void Require();

    /// Refuses each write for a reason of the caller's, likewise.
    void Refuse(const Error& why) { refusal_ = why; }

    /// For whoever was kept out of a file and wants to say why: fails with 3260, naming who has its lock, if
    /// another process has it and the system tells. Takes nothing itself.
    static void RequireNoOther(const QString& path);

    const platform::FileIdentity& File() const { return lock_.File(); }

private:
    platform::FileLock lock_;
    bool isTaken_ = false;
    std::optional<Error> refusal_;
};

}  // namespace engine
