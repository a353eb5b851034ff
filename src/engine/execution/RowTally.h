#pragma once

#include <QtGlobal>

#include <functional>
#include <map>
#include <string>

namespace engine::execution {

/// How many rows a connection has added to its tables and not removed again: as many at least must be there.
///
/// Rows that others have added are not counted. Where some of those are removed, fewer are left of one's own
/// for all that one knows.
class RowTally {
public:
    using RowsByTable = std::map<std::string, qint64>;

    /// A write has added so many rows to a table, or removed them if the number is negative. It counts with
    /// the next Keep.
    void Add(const std::string& table, qint64 rows);

    /// Rows may have gone with others: no more are expected than the tables have now.
    void LimitTo(const std::function<qint64(const std::string& table)>& rowsIn);

    /// What was added is on the disk.
    void Keep() { kept_ = rows_; }

    /// What was added since the last Keep has been taken back.
    void Undo() { rows_ = kept_; }

    const RowsByTable& Kept() const { return kept_; }

private:
    RowsByTable rows_;
    RowsByTable kept_;
};

}  // namespace engine::execution
