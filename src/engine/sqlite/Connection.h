#pragma once

#include "engine/sqlite/InsertedKeys.h"

#include <QString>

#include <sqlite3.h>

#include <chrono>
#include <memory>
#include <optional>
#include <string>

namespace engine::sqlite {

struct FinalizeStatement {
    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};
using StatementHandle = std::unique_ptr<sqlite3_stmt, FinalizeStatement>;

/// Lets go of a statement's rows and locks at the end of a scope, whatever happens in it.
struct ResetStatement {
    void operator()(sqlite3_stmt* statement) const { sqlite3_reset(statement); }
};
using RunningStatement = std::unique_ptr<sqlite3_stmt, ResetStatement>;

/// An open SQLite file, taken for data only (see Hardening.h). Locks of other programs are waited for, up to
/// 5 seconds each time, unless the program is about to end (see Waiting.h).
class Connection {
public:
    enum class Mode { Existing, New };

    /// The path is absolute. Fails with 3044 if it leads to a file whose own name is no text, 3343 if the
    /// file is no SQLite database after all or holds what no file of Hearthbook's does, 3027 if it can't be
    /// written or has no room beside it for a journal, 3183 if the disk is full, 3260 if locked, 3049 if it
    /// is damaged (see SoundFile.h) or has files beside it that can't be its own (see SideFiles.h).
    Connection(const QString& path, Mode mode);
    ~Connection();
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    sqlite3* Handle() const { return handle_; }

    /// Compiles one statement. Failures are raised as engine errors.
    StatementHandle Prepare(const std::string& sql);

    /// Runs one statement that needs no values: the result code of SQLite, or raised as an engine error.
    int TryRun(const char* sql);
    void Run(const char* sql);

    /// The keys of new rows.
    InsertedKeys& Inserted() { return inserted_; }

    bool InTransaction() const { return sqlite3_get_autocommit(handle_) == 0; }

    /// Turns a result code of the statement just run into an engine error and raises it.
    [[noreturn]] void Raise(int resultCode) const;

    using Moment = std::chrono::steady_clock::time_point;

    /// While set, all waiting for locks together ends at this moment.
    void LimitWaiting(std::optional<Moment> end) { waitingEnd_ = end; }

    /// A lock has been waited for in vain. No other one is waited for until the patience is renewed: one
    /// statement may meet the same lock for each page that it touches.
    bool HasWaitedInVain() const { return hasWaitedInVain_; }
    void RenewPatience() { hasWaitedInVain_ = false; }

private:
    static int WaitForLock(void* connection, int attempt);
    void OpenFile(const QString& path, Mode mode);
    void CheckFile();
    void TryJournal();
    void Close();

    sqlite3* handle_ = nullptr;
    InsertedKeys inserted_;
    std::optional<Moment> waitingEnd_;
    Moment waitingBegan_;
    bool hasWaitedInVain_ = false;
};

}  // namespace engine::sqlite
