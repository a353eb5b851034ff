#include "engine/jet/NewTable.h"

#include "engine/Error.h"
#include "engine/jet/UsageMap.h"
#include "engine/jet/WriteDefinition.h"

#include <algorithm>

namespace engine::jet {

namespace {

constexpr int MostCharacters = 255;
constexpr std::size_t IndexEntriesSize = 3616;
constexpr std::size_t FreeBytesAt = 2;
constexpr std::size_t OwnerAt = 4;

[[noreturn]] void RefuseColumn(const NewColumn& column) {
    throw Error(ErrorNumber::WrongType,
                QStringLiteral("There is no column '%1' of type %2 with a size of %3.")
                    .arg(column.name)
                    .arg(column.type)
                    .arg(column.size));
}

std::uint16_t SizeOf(const NewColumn& column) {
    switch (column.type) {
        case ColumnType::Boolean:
            return 1;
        case ColumnType::Memo:
        case ColumnType::LongBinary:
            return 0;
        case ColumnType::Text:
            if (column.size < 1 || column.size > MostCharacters) {
                RefuseColumn(column);
            }
            return static_cast<std::uint16_t>(2 * column.size);
        case ColumnType::Binary:
            if (column.size < 1 || column.size > 2 * MostCharacters) {
                RefuseColumn(column);
            }
            return static_cast<std::uint16_t>(column.size);
        default:
            if (SizeOfType(column.type) == 0) {
                RefuseColumn(column);
            }
            return static_cast<std::uint16_t>(SizeOfType(column.type));
    }
}

bool IsVariable(std::uint8_t type) {
    return IsTextType(type) || type == ColumnType::Binary || type == ColumnType::LongBinary;
}

Column MakeColumn(const NewColumn& column) {
    Column made;
    made.name = column.name;
    made.type = column.type;
    made.size = SizeOf(column);
    made.isFixed = !IsVariable(column.type);
    made.countsUp = column.countsUp;
    made.isMasked = column.isMasked;
    made.isCompressed = column.isCompressed && IsTextType(column.type);
    if (column.type == ColumnType::Decimal) {
        made.precision = column.precision;
        made.scale = column.scale;
    }
    return made;
}

// In the order in which the columns are told, each kind in its part of the row.
void AddColumns(TableLayout& layout, const std::vector<NewColumn>& columns) {
    std::uint16_t fixedEnd = 0;
    for (const NewColumn& column : columns) {
        Column made = MakeColumn(column);
        made.number = layout.rowColumns++;
        made.variablePlace = layout.variableColumns;
        if (made.isFixed) {
            made.fixedAt = fixedEnd;
            fixedEnd =
                static_cast<std::uint16_t>(fixedEnd + (made.type == ColumnType::Boolean ? 0 : made.size));
        } else {
            ++layout.variableColumns;
        }
        layout.columns.push_back(made);
    }
}

void AddMaps(TableLayout& layout, MapRows& maps) {
    const MapRows::Pair rows = maps.AddPair();
    layout.pages = rows.pages;
    layout.pagesWithRoom = rows.pagesWithRoom;
    for (Column& column : layout.columns) {
        if (IsLongType(column.type)) {
            const MapRows::Pair values = maps.AddPair();
            column.longPages = values.pages;
            column.longPagesWithRoom = values.pagesWithRoom;
        }
    }
}

PageNumber MakeRoot(PageStore& pages, PageNumber table) {
    const PageNumber root = pages.Take();
    ChangeableBytes page(pages.Change(root), root);
    page.Put8(0, PageKind::IndexLeaf);
    page.Put8(1, 1);
    page.Put16(FreeBytesAt, IndexEntriesSize);
    page.Put32(OwnerAt, table);
    return root;
}

std::vector<IndexColumn> ColumnsOf(const TableLayout& layout, const NewIndex& index) {
    std::vector<IndexColumn> columns;
    for (const NewIndexColumn& column : index.columns) {
        const auto place = layout.FindColumn(column.name);
        if (!place) {
            throw Error(
                ErrorNumber::NoSuchColumn,
                QStringLiteral("There is no column '%1' for the index '%2'.").arg(column.name, index.name));
        }
        columns.push_back({*place, column.ascending});
    }
    return columns;
}

void AddIndexes(TableLayout& layout, PageStore& pages, MapRows& maps, const std::vector<NewIndex>& indexes) {
    for (const NewIndex& index : indexes) {
        RealIndex real;
        real.columns = ColumnsOf(layout, index);
        real.pages = maps.Add();
        real.root = MakeRoot(pages, layout.page);
        real.isUnique = index.isUnique || index.isPrimaryKey;
        real.ignoresNulls = index.ignoresNulls;
        real.refusesNulls = index.refusesNulls || index.isPrimaryKey;
        UsageMap(pages, real.pages).Add(real.root);
        LogicalIndex name;
        name.name = index.name;
        name.number = static_cast<std::uint32_t>(layout.indexes.size());
        name.realIndex = static_cast<int>(layout.indexes.size());
        name.kind = index.isPrimaryKey ? LogicalKind::PrimaryKey : LogicalKind::Plain;
        layout.indexes.push_back(real);
        layout.names.push_back(name);
    }
}

}  // namespace

void MapRows::TakePageUnlessRoomFor(int rows) {
    const std::size_t needed = static_cast<std::size_t>(rows) * (UsageMapForm::UsualSize + RowListEntry);
    if (page_ != 0 && DataPage(pages_.Read(page_), page_, PageOwner::Nobody).FreeBytes() >= needed) {
        return;
    }
    page_ = pages_.Take();
    ChangeableDataPage::Begin(pages_.Change(page_), page_, PageOwner::Nobody);
}

RowPlace MapRows::Add() {
    TakePageUnlessRoomFor(1);
    const QByteArray empty(UsageMapForm::UsualSize, '\0');
    ChangeableDataPage rows(pages_.Change(page_), page_, PageOwner::Nobody);
    return {page_, static_cast<std::uint8_t>(rows.Add(BytesOf(empty, page_), RowState::Here))};
}

MapRows::Pair MapRows::AddPair() {
    TakePageUnlessRoomFor(2);
    const RowPlace pages = Add();
    return {pages, Add()};
}

TableLayout MakeTable(PageStore& pages, MapRows& maps, const NewTable& table, PageNumber definition) {
    if (table.columns.size() > MostColumns) {
        throw Error(ErrorNumber::WrongType,
                    QStringLiteral("No table has %1 columns.").arg(table.columns.size()));
    }
    TableLayout layout;
    layout.page = definition;
    layout.isSystem = table.isSystem;
    AddColumns(layout, table.columns);
    AddMaps(layout, maps);
    AddIndexes(layout, pages, maps, table.indexes);
    WriteDefinition(pages, layout);
    return layout;
}

}  // namespace engine::jet
