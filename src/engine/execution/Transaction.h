#pragma once

#include "engine/Error.h"
#include "engine/execution/RowTally.h"

#include <optional>

namespace engine::execution {

/// What a write does to the rows that the file had before.
enum class WriteKind { Adds, Removes };

/// A transaction that is known to have reached the disk or not to have, whatever fails on the way.
class Transaction {
public:
    Transaction() = default;
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;
    virtual ~Transaction() = default;

    /// Takes the right to write, or says that it couldn't. The first write is of this kind.
    bool TryBegin(WriteKind kind);

    enum class End {
        Committed,
        HeldUp,   ///< Another program reads or writes: the transaction goes on.
        GivenUp,  ///< Nothing of it is in the file.
    };
    End TryCommit();

    /// Why TryBegin or TryCommit failed last.
    const Error& Failure() const { return *failure_; }

    /// Takes everything back.
    void GiveUp();

    bool IsOpen() const { return isOpen_; }

    /// A statement that failed has taken everything back.
    virtual bool IsLost() const { return false; }

    /// A write within the transaction has added so many rows to a table, or removed them if the number is
    /// negative.
    void Wrote(const std::string& table, qint64 rows);

    /// What all transactions together have left in the file.
    const RowTally::RowsByTable& Rows() const { return rows_.Kept(); }

    /// Somebody who doesn't ask for the file's locks has put other bytes into it, as a copying program does
    /// that was told the wrong name.
    virtual bool IsOverwritten() const { return false; }

    /// Whether a write of this kind can go into the transaction that is open.
    virtual bool Takes(WriteKind /*kind*/) const { return true; }

    /// Whether other programs may write between two transactions, and so are to get their turn.
    virtual bool LetsOthersWrite() const { return false; }

    /// Transactions will follow each other: what one leaves beside the file serves the next. And none is in
    /// sight: nothing of that is left.
    virtual void KeepJournal() {}
    virtual void RemoveJournal() = 0;

protected:
    /// That of the transaction that is open.
    WriteKind Kind() const { return kind_; }

    /// Why it couldn't begin, or nothing.
    virtual std::optional<Error> Begin() = 0;

    struct Ended {
        End end = End::Committed;
        std::optional<Error> failure;  ///< Unless it was committed.
    };
    virtual Ended Commit() = 0;

    virtual void TakeBack() = 0;

    /// Rows were removed. Those of other tables may have gone with them.
    virtual void RowsWent(RowTally& /*rows*/) {}

private:
    bool isOpen_ = false;
    WriteKind kind_ = WriteKind::Adds;
    std::optional<Error> failure_;
    RowTally rows_;
};

}  // namespace engine::execution
