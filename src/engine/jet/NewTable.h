#pragma once

#include "engine/jet/TableLayout.h"

#include <QString>

#include <vector>

namespace engine::jet {

/// What a table that is to be made looks like.
struct NewColumn {
    QString name;
    std::uint8_t type = ColumnType::Text;
    int size = 0;  ///< Characters of a text, at most 255, and bytes of a binary; nothing else asks for it.
    bool countsUp = false;
    bool isCompressed = true;     ///< Whether texts and memos may be.
    std::uint8_t precision = 18;  ///< Of a decimal, with its scale.
    std::uint8_t scale = 0;
    bool isMasked = false;
};

struct NewIndexColumn {
    QString name;
    bool ascending = true;
};

struct NewIndex {
    QString name;
    std::vector<NewIndexColumn> columns;
    bool isPrimaryKey = false;  ///< Is unique and refuses nulls as well.
    bool isUnique = false;
    bool ignoresNulls = false;
    bool refusesNulls = false;
};

struct NewTable {
    QString name;
    std::vector<NewColumn> columns;
    std::vector<NewIndex> indexes;
    bool isSystem = false;
};

/// Takes rows for usage maps, on pages that hold nothing else.
class MapRows {
public:
    explicit MapRows(PageStore& pages) : pages_(pages) {}

    /// The place of a map of no pages. The next one is on the same page, in the row behind, if it is asked
    /// for together with this one.
    RowPlace Add();
    struct Pair {
        RowPlace pages;
        RowPlace pagesWithRoom;
    };
    Pair AddPair();

private:
    void TakePageUnlessRoomFor(int rows);

    PageStore& pages_;
    PageNumber page_ = 0;
};

/// Makes a table without rows, its definition on a page that is taken already: its maps, and for each index
/// a root without entries. Fails with NoSuchColumn for an index on a column that isn't there, and with
/// WrongType for a column of a type or a size that no table can have.
TableLayout MakeTable(PageStore& pages, MapRows& maps, const NewTable& table, PageNumber definition);

}  // namespace engine::jet
