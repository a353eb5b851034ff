#include "engine/ImportLock.h"

#include <map>

namespace engine {

namespace {

using KnownLocks = std::map<platform::FileIdentity, std::weak_ptr<ImportLock>>;

KnownLocks& Known() {
    // Never destroyed: a database that lives to the end of a process still has its lock.
    static auto& locks = *new KnownLocks;
    return locks;
}

std::shared_ptr<ImportLock> Find(const platform::FileIdentity& file) {
    const auto known = Known().find(file);
    return known == Known().end() ? nullptr : known->second.lock();
}

Error HeldBy(const std::optional<platform::LockHolder>& holder) {
    const QString who =
        holder ? QStringLiteral(": %1, process %2").arg(holder->program).arg(holder->process) : QString();
    return {ErrorNumber::Locked,
            QStringLiteral("Couldn't write; another import is filling the database%1.").arg(who)};
}

}  // namespace

std::shared_ptr<ImportLock> ImportLock::Of(const QString& path) {
    // Looked for before the file is opened, since it would have to be closed again.
    if (const auto file = platform::IdentityOf(path)) {
        if (auto known = Find(*file)) {
            return known;
        }
    }
    auto lock = std::make_shared<ImportLock>(path);
    if (auto known = Find(lock->File())) {
        return known;
    }
    std::erase_if(Known(), [](const auto& entry) { return entry.second.expired(); });
    Known().emplace(lock->File(), lock);
    return lock;
}

void ImportLock::Take() {
    if (!isTaken_ && !lock_.TryTake()) {
        refusal_ = HeldBy(lock_.Holder());
        throw Error(*refusal_);
    }
    isTaken_ = true;
    refusal_.reset();
}

void ImportLock::Require() {
    if (refusal_) {
        throw Error(*refusal_);
    }
    Take();
}

void ImportLock::RequireNoOther(const QString& path) {
    if (const auto holder = platform::FileLock(path).Holder()) {
        throw HeldBy(holder);
    }
}

}  // namespace engine
