#pragma once

#include "engine/Error.h"
#include "engine/ImportLock.h"
#include "engine/sqlite/InsertBatch.h"
#include "engine/sqlite/WriteExecutor.h"
#include "engine/sqlite/WriteLog.h"

#include <chrono>
#include <functional>
#include <vector>

namespace engine::sqlite {

/// Brings writes to the disk in groups, since a disk takes thousands of rows at once as fast as a single one.
///
/// Each write is still final on its own: one that fails undoes itself alone. If SQLite gives up a whole group
/// (disk full, I/O error), its writes are run again one by one, so that only what can't be stored is lost,
/// and each loss is told to the listener.
class WriteGroup {
public:
    using LostWriteListener = std::function<void(const Error& error, const QString& write)>;

    WriteGroup(Connection& connection, StatementCache& statements, WriteExecutor& executor,
               ImportLock& importLock)
        : connection_(connection),
          executor_(executor),
          importLock_(importLock),
          batch_(connection, statements) {}

    void OnLostWrite(LostWriteListener listener) { lostWriteListener_ = std::move(listener); }

    /// Does one write. Its failure is raised as an engine error.
    void Perform(Write write);

    /// Lets a reader on this connection see all that was written, and brings the group to the disk if its
    /// time is over.
    void BeforeReading();

    /// Brings the group to the disk now, whatever it takes.
    void Commit();

private:
    using Clock = std::chrono::steady_clock;

    /// Brings the group to the disk if its time is over. A reader in another program may hold that up; the
    /// group then stays together for the next try.
    void CommitIfDue();
    bool LetWait(const QString& statement);
    void RunBatch();
    void Begin();
    int TryCommit();
    void KeepJournal();
    void RemoveJournal();
    bool HasReachedTheDisk() const;
    bool JournalStands() const;
    quint32 ChangeCounter() const;
    void GiveUp();
    void RunAgain(std::vector<Write> writes);
    void RunAlone(Write& write);
    void LetOthersWrite();
    void TellOfLosses();

    Connection& connection_;
    WriteExecutor& executor_;
    ImportLock& importLock_;
    InsertBatch batch_;
    LostWriteListener lostWriteListener_;

    bool open_ = false;
    bool isJournalKept_ = false;
    Clock::time_point began_;
    Clock::time_point ended_;
    Clock::time_point othersHadTheirTurn_ = Clock::now();
    quint32 changeCounterBefore_ = 0;
    WriteLog log_;

    struct Loss {
        Error error;
        QString write;
    };
    std::vector<Loss> losses_;
};

}  // namespace engine::sqlite
