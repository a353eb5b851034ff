#pragma once

#include "engine/execution/Connection.h"
#include "engine/execution/Transaction.h"

#include <QByteArray>

#include <optional>

namespace engine::sqlite {

/// A transaction on a SQLite file.
class FileTransaction : public execution::Transaction {
public:
    explicit FileTransaction(execution::Connection& connection) : connection_(connection) {}

    bool IsLost() const override { return IsOpen() && !connection_.InTransaction(); }

    /// The counts of commits and pages have changed while nobody else might write, or the number of commits
    /// has become lower. A file with a higher number that is put there between two transactions is not
    /// noticed.
    bool IsOverwritten() const override { return isOverwritten_; }

    bool LetsOthersWrite() const override { return true; }

    /// Groups that follow each other write into the journal of the one before, since the room of a file that
    /// is there costs nothing to get.
    void KeepJournal() override;
    void RemoveJournal() override;

protected:
    std::optional<Error> Begin() override;
    Ended Commit() override;
    void TakeBack() override;

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

    execution::Connection& connection_;
    std::optional<Front> atBegin_;
    bool isJournalKept_ = false;
    bool isOverwritten_ = false;
};

}  // namespace engine::sqlite
