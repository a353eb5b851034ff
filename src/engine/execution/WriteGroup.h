#pragma once

#include "engine/Error.h"
#include "engine/ImportLock.h"
#include "engine/execution/Connection.h"
#include "engine/execution/HeldKeys.h"
#include "engine/execution/InsertBatch.h"
#include "engine/execution/MadeRows.h"
#include "engine/execution/Transaction.h"
#include "engine/execution/WriteExecutor.h"
#include "engine/execution/WriteLog.h"

#include <chrono>
#include <functional>
#include <optional>
#include <vector>

namespace engine::execution {

/// Brings writes to the disk in groups, since a disk takes thousands of rows at once as fast as a single one.
///
/// Each write is still final on its own: one that fails undoes itself alone. If the file takes none of a
/// whole group (disk full, I/O error), its writes run a second time (see SecondRun.h), so that only what
/// can't be stored is lost, and each loss is told to the listener.
///
/// A reader in another program can hold a commit up. The group then goes on in memory, up to a bound; a write
/// beyond it fails like one that meets a lock.
class WriteGroup {
public:
    using LostWriteListener = std::function<void(const Error& error, const QString& write)>;

    WriteGroup(Connection& connection, StatementCache& statements, WriteExecutor& executor,
               Transaction& transaction, ImportLock& importLock)
        : connection_(connection),
          executor_(executor),
          transaction_(transaction),
          importLock_(importLock),
          batch_(connection, statements) {}

    void OnLostWrite(LostWriteListener listener) { lostWriteListener_ = std::move(listener); }

    /// Runs one statement. Its failure is raised as an engine error.
    void Execute(const QString& statement);

    /// Changes one row. One of the first two comes right before it, and the key of the row is asked for in
    /// between: bringing a group to the disk can give its rows other keys.
    void BeforeChangingRow();
    void BeforeRemovingRow(const TableSchema& table, qint64 key);
    void ChangeRow(RowWrite row);

    /// Before a reader on this connection looks for what was written. Brings the group to the disk if its
    /// time is over, or will be when the reading has taken as long as the last one.
    void BeforeReading();
    void AfterReading();

    /// Brings the group to the disk now, whatever it takes.
    void Commit();

    /// Brings the group to the disk now, unless another program holds it up.
    void CommitUnlessHeldUp();

    /// How many writes the present group has done.
    size_t Size() const { return log_.Size(); }

    HeldKeysList& Held() { return held_; }

    /// For tests, as the clock says nothing on a busy machine: groups end when they have done so many writes,
    /// and not when their time is over. Without a number they go by the time again.
    static void EndAfter(std::optional<size_t> writes) { endAfter_ = writes; }

private:
    using Clock = std::chrono::steady_clock;

    /// Brings the group to the disk if its time is over, or will be when what comes next has taken as long as
    /// expected. A reader in another program may hold that up; the group then goes on.
    void CommitIfDue(Clock::duration expected = {});
    bool IsDue(Clock::duration expected) const;
    void CommitBefore(Clock::duration expected);
    bool TryCommit();
    bool IsHeldUp() const;
    void RequireRoom();
    size_t Memory() const;
    bool LetWait(const QString& statement);
    void RunBatch();
    void RunNow(Write write);
    void BeforeRow();
    WriteKind KindOfRemoval(const TableSchema& table, qint64 key) const;
    WriteKind KindOf(const Write& write) const;
    void EndUnlessItTakes(WriteKind kind);
    void Begin(WriteKind kind);
    void GiveUp();
    std::optional<Error> RunAgain(size_t ran);
    void RunAgainWith(Write write);
    void LoseFrom(size_t place);
    void GroupEnded();
    void LetOthersWrite();
    void TellOfLosses();

    static inline std::optional<size_t> endAfter_;

    Connection& connection_;
    WriteExecutor& executor_;
    Transaction& transaction_;
    ImportLock& importLock_;
    InsertBatch batch_;
    LostWriteListener lostWriteListener_;

    WriteKind kind_ = WriteKind::Adds;  ///< Of the present group.
    WriteLog log_;
    MadeRows rows_;
    HeldKeysList held_;

    Clock::time_point began_;
    Clock::time_point ended_;
    Clock::time_point othersHadTheirTurn_ = Clock::now();

    /// How long the last ones took.
    Clock::duration copyTook_{};
    Clock::duration readingTook_{};
    Clock::time_point readingBegan_;

    bool isHeldUpTold_ = false;
    Clock::time_point triedAt_;  ///< To bring the present group to the disk.

    struct Loss {
        Error error;
        QString write;
    };
    std::vector<Loss> losses_;
};

}  // namespace engine::execution
