#pragma once

#include "engine/Error.h"
#include "engine/execution/Connection.h"
#include "engine/execution/MadeRows.h"
#include "engine/execution/Transaction.h"
#include "engine/execution/WriteExecutor.h"
#include "engine/execution/WriteLog.h"

#include <map>
#include <vector>

namespace engine::execution {

/// The writes of a group that could not be brought to the disk together run again: all of them, then in
/// halves where that fails, down to the single ones that can't be stored.
///
/// A change finds the row that it was made for, whatever key it has now. What was meant for a row that could
/// not be stored is lost as well: changes of the row, and a copy of rows that it would have been among.
class SecondRun {
public:
    SecondRun(Connection& connection, Transaction& transaction, WriteExecutor& executor, const WriteLog& log,
              MadeRows& rows, WriteKind kind)
        : connection_(connection),
          transaction_(transaction),
          executor_(executor),
          log_(log),
          rows_(rows),
          kind_(kind) {}

    /// Only the first `ran` writes of the log have run before. Afterwards everything that can be stored is on
    /// the disk, and `rows` tells which keys it has.
    void Run(size_t ran);

    /// What is not, by the place of the write.
    const std::map<size_t, Error>& Losses() const { return losses_; }

    /// The program is about to end: the writes from this one on did not run again, and are lost without a
    /// loss of their own.
    std::optional<size_t> CutAt() const { return cutAt_; }

private:
    void Run(size_t begin, size_t end);
    bool Attempt(size_t begin, size_t end);
    bool RunAll(size_t begin, size_t end);
    void RunOne(size_t place);
    void FindRow(RowWrite& row, size_t place) const;
    void RunCopy(const Write& copy, size_t place);
    void RequireUnchangedRows(size_t place);
    void Lose(size_t place, const Error& error);

    /// A lost change of a row, or of all rows of a table that it may have met.
    struct LostChange {
        const TableSchema* table;
        std::optional<qint64> key;
    };

    Connection& connection_;
    Transaction& transaction_;
    WriteExecutor& executor_;
    const WriteLog& log_;
    MadeRows& rows_;
    WriteKind kind_;
    std::map<size_t, Error> losses_;
    std::map<size_t, LostChange> lostChanges_;  ///< By the place of the write.
    std::optional<Error> failure_;              ///< Of the attempt made last.
    size_t ran_ = 0;
    std::optional<size_t> cutAt_;
};

}  // namespace engine::execution
