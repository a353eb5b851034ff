#pragma once

#include "engine/Error.h"
#include "engine/Value.h"
#include "engine/execution/InsertedKeys.h"
#include "engine/execution/LiteralRows.h"
#include "engine/execution/Transaction.h"

#include <QString>

#include <sqlite3.h>

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace engine::execution {

struct FinalizeStatement {
    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};
using StatementHandle = std::unique_ptr<sqlite3_stmt, FinalizeStatement>;

/// Lets go of a statement's rows and locks at the end of a scope, whatever happens in it.
struct ResetStatement {
    void operator()(sqlite3_stmt* statement) const { sqlite3_reset(statement); }
};
using RunningStatement = std::unique_ptr<sqlite3_stmt, ResetStatement>;

/// What SQLite has to do with a file: it plans and runs the statements, on its own file or on tables that
/// another engine gives it. Each engine has a connection of its own kind.
class Connection {
public:
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;
    virtual ~Connection();

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
    [[noreturn]] void Raise(int resultCode);

    /// For the writes on this connection. One at a time.
    virtual std::unique_ptr<Transaction> MakeTransaction() = 0;

    /// Whether the file has this table, names compared without regard to case. What only computes its rows is
    /// none.
    virtual bool HasTable(const std::string& name) = 0;
    /// Whether there is nothing in the file that could turn a row of this table away: no keys and no rules.
    virtual bool TakesAnyRow(const std::string& table) = 0;

    /// What a new row of this table holds before anybody gives it a value, by the columns' places; empty
    /// where the file has nothing of its own for it.
    virtual std::vector<std::optional<Value>> DefaultsOf(const std::string& /*table*/) { return {}; }

    /// Runs a compiled statement that changes rows, to its end. It changes all of them or, where it fails,
    /// none. Returns how many it has changed. `written` are the columns that it names, by their places: new
    /// rows may have something of the file's own in the others.
    virtual qint64 Change(sqlite3_stmt* statement, const std::vector<size_t>& written);
    /// Removes all rows of a table, if the file has a shorter way than one by one. Returns how many there
    /// were.
    virtual std::optional<qint64> Empty(const std::string& /*table*/) { return std::nullopt; }

    /// Changes these columns, each named once, to the values that the one row of `values` has, in all rows
    /// whose keys `keys` finds, if the file has a shorter way than a statement. All of them or none, as
    /// Change does. Returns how many it has changed.
    virtual std::optional<qint64> ChangeEach(const std::string& /*table*/, sqlite3_stmt* /*keys*/,
                                             const std::vector<size_t>& /*columns*/,
                                             sqlite3_stmt* /*values*/) {
        return std::nullopt;
    }

    /// Rows of literals for these columns of a table that takes any row, by the columns' places, if the file
    /// takes them without a statement; else null. Stands for as long as the connection.
    virtual std::unique_ptr<LiteralRows> RowsOfLiterals(const std::string& /*table*/,
                                                        const std::vector<size_t>& /*columns*/) {
        return nullptr;
    }

    /// A part of a transaction that can be taken back alone. Parts are not set within parts.
    virtual void BeginPart();
    virtual void TakeBackPart();
    virtual void EndPart();

    /// What the transaction takes in memory, in bytes.
    virtual size_t Memory() const;
    /// Lets go of all that is known of the file, so that what is read next comes from there.
    virtual void Forget();

    /// For tests, which hear of statements by SQLite's trace: hears of so many rows of literals that were put
    /// in without one, when they are. On every connection, until there is another listener or none.
    static void OnRowsOfLiterals(std::function<void(size_t rows)> listener);

    using Moment = std::chrono::steady_clock::time_point;

    /// While set, all waiting for locks together ends at this moment.
    void LimitWaiting(std::optional<Moment> end) { waitingEnd_ = end; }

    /// A lock has been waited for in vain. No other one is waited for until the patience is renewed: one
    /// statement may meet the same lock for each page that it touches.
    bool HasWaitedInVain() const { return hasWaitedInVain_; }
    void RenewPatience() { hasWaitedInVain_ = false; }

protected:
    Connection() = default;

    /// Opens what SQLite calls a file, by the flags that it has for that. Locks of other programs are waited
    /// for, up to 5 seconds each time, unless the program is about to end (see Waiting.h).
    void Open(const QByteArray& name, int flags);
    void Close();

    virtual Error FailureOf(int resultCode);

    static void TellOfRows(size_t rows);

private:
    static std::function<void(size_t)>& ListenerToRows();
    static int WaitForLock(void* connection, int attempt);

    sqlite3* handle_ = nullptr;
    InsertedKeys inserted_;
    std::optional<Moment> waitingEnd_;
    Moment waitingBegan_;
    bool hasWaitedInVain_ = false;
};

}  // namespace engine::execution
