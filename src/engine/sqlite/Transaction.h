#pragma once

#include "engine/Error.h"
#include "engine/sqlite/Connection.h"
#include "engine/sqlite/RowTally.h"

#include <QByteArray>

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

    /// A write within the transaction has added so many rows to a table, or removed them if the number is
    /// negative.
    void Wrote(const std::string& table, qint64 rows) { rows_.Add(table, rows); }

    /// What all transactions together have left in the file.
    const RowTally::RowsByTable& Rows() const { return rows_.Kept(); }

    /// Somebody who doesn't ask for the file's locks has put other bytes into it, as a copying program does
    /// that was told the wrong name: the counts of commits and pages have changed while nobody else might
    /// write, or the number of commits has become lower. A file with a higher number that is put there
    /// between two transactions is not noticed.
    bool IsOverwritten() const { return isOverwritten_; }

private:
    struct Front {
        bool isRollbackMode = true;
        quint32 commits = 0;
        QByteArray counts;  ///< Of commits and pages: what every commit writes anew.
    };
    std::optional<Front> ReadFront() const;
    void LookForLowerNumber(const std::optional<Front>& last);
    void LookForOtherCounts();
    bool HasReachedTheDisk() const;
    bool JournalStands() const;

    Connection& connection_;
    bool isOpen_ = false;
    std::optional<Error> failure_;
    std::optional<Front> atBegin_;
    RowTally rows_;
    bool isOverwritten_ = false;
};

}  // namespace engine::sqlite
