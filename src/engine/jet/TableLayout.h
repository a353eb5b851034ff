#pragma once

#include "engine/jet/ColumnType.h"
#include "engine/jet/RowPlace.h"

#include <QString>

#include <optional>
#include <vector>

namespace engine::jet {

/// How many bytes each value of a type has; 0 where they differ, and for a type that isn't known here.
std::size_t SizeOfType(std::uint8_t type);
inline bool IsLongType(std::uint8_t type) {
    return type == ColumnType::LongBinary || type == ColumnType::Memo;
}
inline bool IsTextType(std::uint8_t type) {
    return type == ColumnType::Text || type == ColumnType::Memo;
}
/// Yes and no are numbers too, -1 and 0. Decimals aren't: nothing here calculates with them.
inline bool IsNumberType(std::uint8_t type) {
    return type >= ColumnType::Boolean && type <= ColumnType::Double;
}

/// No table has more columns, deleted ones counted, and no name of a column or an index is longer.
inline constexpr int MostColumns = 255;
inline constexpr int MostCharactersOfName = 64;

/// The order of texts whose keys are known (TextKey), in its first version: that of every new file.
inline constexpr std::uint16_t GeneralSortOrder = 0x0409;

struct Column {
    QString name;
    std::uint8_t type = 0;
    std::uint16_t number = 0;  ///< Its bit in the null mask of each row.
    /// Whether it lies in the fixed part of a row. A matter of its own: numbers may lie in the variable part.
    bool isFixed = false;
    std::uint16_t fixedAt = 0;        ///< From the start of the fixed part.
    std::uint16_t variablePlace = 0;  ///< Among the variable columns.
    std::uint16_t size = 0;           ///< Bytes; those of a text uncompressed. 0 for long values.
    bool countsUp = false;            ///< Gets the next number in a row that leaves it out.
    /// Holds the numbers of users, which are masked. Only in system tables, and kept as they are.
    bool isMasked = false;
    /// The engine's own. In a table of users only where the file is replicated.
    bool isOfSystem = false;
    bool makesGuids = false;     ///< Gets a new identifier likewise.
    bool isCompressed = false;   ///< Whether its texts may be.
    std::uint8_t precision = 0;  ///< Decimal digits of a decimal, and those behind the point.
    std::uint8_t scale = 0;
    std::uint16_t sortOrder = GeneralSortOrder;  ///< Of a text.
    std::uint8_t sortVersion = 0;
    /// Of a long value: the map of its pages, and that of those with room. Page 0: there is none.
    RowPlace longPages;
    RowPlace longPagesWithRoom;
};

struct IndexColumn {
    int column = 0;  ///< Its place in the list of columns.
    bool ascending = true;
};

/// An index, as it lies in the file.
struct RealIndex {
    std::vector<IndexColumn> columns;
    RowPlace pages;  ///< The map of its pages.
    PageNumber root = 0;
    bool isUnique = false;
    bool ignoresNulls = false;  ///< Rows that are null in all its columns have no entry.
    bool refusesNulls = false;
};

enum class LogicalKind : std::uint8_t { Plain = 0, PrimaryKey = 1, Relation = 2 };

/// A name that an index goes by, or one end of a relation. Several may share one real index.
struct LogicalIndex {
    QString name;
    std::uint32_t number = 0;
    int realIndex = 0;  ///< Its place in the list of real indexes.
    LogicalKind kind = LogicalKind::Plain;
    /// The rest tells of relations only: whether this is the end of the parent (1) or of the child (2), the
    /// number of the other end, and the first page of its table's definition.
    std::uint8_t side = 0;
    std::uint32_t other = 0;
    PageNumber otherTable = 0;
    bool cascadesUpdates = false;
    std::uint8_t cascadesDeletes = 0;  ///< 1: children go with their parents. 2: their keys become null.
};

/// What the definition of a table says of how its rows lie in the file. What changes with the rows (how many
/// there are, the last automatic number) is TableFigures' business.
struct TableLayout {
    PageNumber page = 0;                ///< The first one of the definition, by which the table is named.
    bool isSystem = false;              ///< By the definition's own word.
    std::uint16_t rowColumns = 0;       ///< How many columns a new row says it has, deleted ones counted.
    std::uint16_t variableColumns = 0;  ///< Deleted ones counted.
    std::vector<Column> columns;        ///< In the order in which they were made.
    RowPlace pages;                     ///< The map of its pages.
    RowPlace pagesWithRoom;
    std::vector<RealIndex> indexes;
    std::vector<LogicalIndex> names;

    /// Without regard to case.
    std::optional<int> FindColumn(const QString& name) const;
};

/// Reads the definition that begins on a page. Fails with DatabaseDamaged if it isn't one, runs in a circle,
/// or says something of its columns or indexes that can't be.
TableLayout ReadTableLayout(PageStore& pages, PageNumber first);

}  // namespace engine::jet
