#pragma once

#include "engine/execution/InsertedKeys.h"
#include "engine/execution/TableSchema.h"

#include <map>
#include <optional>
#include <vector>

namespace engine::execution {

/// The rows that the writes of one group have made, by the places of the writes in the group.
///
/// A row is found again by its key, and SQLite gives a new row the next free one. When the writes of a group
/// run a second time and one of them is lost, the rows after it get the keys of their neighbours. So this
/// tells, for the key that a row had in the first run, which one it has now.
class MadeRows {
public:
    /// The rows that so many writes have made in the first run, the first of the writes at `place`. Where it
    /// is more than one write, each has made one row.
    void Add(size_t place, size_t writes, const TableSchema& table, const std::vector<KeyRun>& keys);

    /// The second run of the write at `place` has made these rows, as many as the first. They replace what
    /// an earlier try has made.
    void MadeAgain(size_t place, const std::vector<KeyRun>& keys);

    /// The rows of the write at `place` aren't there: its second run has failed.
    void Lose(size_t place) { others_[place] = {}; }

    /// How many rows the write at `place` made in the first run.
    qint64 CountOf(size_t place) const;

    /// Whether a write of the first run has made the row with this key.
    bool Has(const TableSchema& table, qint64 key) const;

    struct Row {
        /// The key that the row has now; none if it is lost.
        std::optional<qint64> key;
        /// Of a lost row: the place of the write that made it.
        size_t madeBy = 0;
    };

    /// The row that had this key when the first `place` writes of the first run had been done.
    Row Find(const TableSchema& table, qint64 key, size_t place) const;

    void Clear();

private:
    /// Rows with keys that follow one another, of one write or of as many writes as there are rows.
    struct Made {
        size_t place;
        size_t writes;
        const TableSchema* table;
        KeyRun keys;
        qint64 rowsBefore;  ///< Made by the same write before these.
    };

    std::vector<KeyRun> FirstKeys(size_t place) const;

    std::vector<Made> made_;  ///< In the order of places.
    /// The keys of the second run where they are others than in the first; none for a lost write.
    std::map<size_t, std::vector<KeyRun>> others_;
};

}  // namespace engine::execution
