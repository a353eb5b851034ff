#pragma once

#include "engine/Value.h"
#include "engine/jet/RowObserver.h"
#include "engine/jet/RowPages.h"
#include "engine/jet/TableFigures.h"

#include <optional>
#include <vector>

namespace engine::jet {

/// A change of one column in a row.
struct CellChange {
    int column = 0;  ///< Its place in the layout.
    Value value;
};

/// The rows of a table.
///
/// Keeps nothing of them in memory: what it says is what the pages say, after an undo as well. A routine that
/// fails may have changed some pages; whoever calls it sets a mark before and undoes to it (PagedFile).
class Table {
public:
    Table(PageStore& pages, TableLayout layout);

    const TableLayout& Layout() const { return layout_; }
    const Column& ColumnAt(int column) const { return layout_.columns[static_cast<std::size_t>(column)]; }
    TableFigures Figures() const { return {pages_, layout_.page}; }

    /// Observers are asked and told in this order. They must outlive the table.
    void Watch(RowObserver& observer) { observers_.push_back(&observer); }

    /// The keys of all rows, one by one in the order of their places. Rows may come and go meanwhile: none is
    /// met twice, and of those that come, only some.
    std::optional<RowPlace> FirstRow() const { return NextFrom({}); }
    std::optional<RowPlace> RowBehind(RowPlace key) const;
    /// The row with this key, none if it has been deleted or never was there.
    std::optional<StoredRow> Find(RowPlace key) const;
    /// The same into a row whose memory is taken over, for few of its columns (StoredRow::TakeWhole). False
    /// if there is none.
    bool Find(RowPlace key, StoredRow& into) const;
    /// The same for a row that must be there: fails with 3167 if it is deleted.
    StoredRow Read(RowPlace key) const;
    /// The same, likewise.
    void Read(RowPlace key, StoredRow& into) const { into.TakeWhole(layout_, BytesAt(LocateLive(key).last)); }
    /// A column's value, that of a long one included: QString for a memo, QByteArray for a long binary.
    Value ValueOf(const StoredRow& row, int column) const;

    /// Adds a row with a value for each column of the layout. A column that counts up gets the next number
    /// for null, and counts on from a higher one; one that makes identifiers gets a new one. Fails with 3421
    /// and 3163 as ToCell does, and with 3047 for a row longer than the format allows.
    RowPlace Insert(const std::vector<Value>& values);
    /// The same for cells that the columns take, each as PutCell and ToCell make them. Those that number
    /// themselves are filled in.
    RowPlace Insert(RowCells& cells);
    /// Each column may be named once; those that aren't keep their bytes, long values their places. A number
    /// that is given to a column that counts up is counted on from, too. Fails as Insert does, and with 3167
    /// for a deleted row.
    void Update(RowPlace key, const std::vector<CellChange>& changes);
    /// The same with the cells of these columns.
    void Update(RowPlace key, const std::vector<int>& columns, const RowCells& changed);
    /// Puts in the cell of a value. A long value is written to its pages. Fails with 3421 and 3163 as ToCell
    /// does.
    void PutCell(RowCells& cells, int column, const Value& value);
    void Delete(RowPlace key);
    /// Deletes all rows in as much time as their pages take. The last automatic number stays.
    void Wipe();

private:
    /// Where a row's bytes are, and what leads there: its key, then the places it has moved to.
    struct Whereabouts {
        RowPlace key;
        RowPlace last;                ///< Where its bytes are.
        std::vector<RowPlace> moves;  ///< From the key on, up to the last place.
        bool isDeleted = false;
    };

    std::optional<RowPlace> NextFrom(RowPlace place) const;
    std::optional<RowPlace> NextOfPage(RowPlace place) const;
    Whereabouts Locate(RowPlace key) const;
    Whereabouts LocateLive(RowPlace key) const;
    Bytes BytesAt(RowPlace place) const { return rows_.PageOf(place.page).Row(place.row); }

    void Number(RowCells& cells);
    void PutNextNumber(RowCells& cells, int column);
    void Compose(const RowCells& cells);
    void ComposeChanged(const std::vector<int>& columns, const RowCells& changed);
    void FreeLongValue(const StoredRow& row, int column);
    void Put(const Whereabouts& old, const Bytes& row);
    void LeaveTrail(const Whereabouts& old);

    PageStore& pages_;
    TableLayout layout_;
    RowPages rows_;
    std::vector<RowObserver*> observers_;
    std::vector<int> numbered_;  ///< The columns that fill themselves in new rows.
    // Only for the row that is being written; its memory serves the next one as well.
    RowMaker maker_;
    RowCells cells_;
    StoredRow old_;
    StoredRow made_;
};

}  // namespace engine::jet
