#pragma once

#include "engine/Error.h"
#include "engine/sqlite/Connection.h"

#include <optional>

namespace engine::sqlite {

/// A transaction that is known to have reached the disk or not to have, whatever fails on the way.
class Transaction {
public:
    explicit Transaction(Connection& connection) : connection_(connection) {}

    /// Takes the right to write, or says that it couldn't.
    bool TryBegin();

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

    /// SQLite has taken everything back because of a statement that failed.
    bool IsLost() const { return isOpen_ && !connection_.InTransaction(); }

private:
    bool HasReachedTheDisk() const;
    bool JournalStands() const;
    quint32 ChangeCounter() const;

    Connection& connection_;
    bool isOpen_ = false;
    std::optional<Error> failure_;
    quint32 changeCounterBefore_ = 0;
};

}  // namespace engine::sqlite
