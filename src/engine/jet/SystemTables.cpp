#include "engine/jet/SystemTables.h"

namespace engine::jet {

namespace {

constexpr int LongestText = 255;
constexpr int LongestBinary = 510;

NewColumn Plain(const char* name, std::uint8_t type, int size = 0) {
    NewColumn column;
    column.name = QLatin1String(name);
    column.type = type;
    column.size = size;
    // Texts of system tables are never compressed.
    column.isCompressed = false;
    return column;
}

NewColumn TextColumn(const char* name) {
    return Plain(name, ColumnType::Text, LongestText);
}

NewColumn Masked(const char* name) {
    NewColumn column = Plain(name, ColumnType::Binary, LongestBinary);
    column.isMasked = true;
    return column;
}

NewIndex IndexOn(const char* name, std::initializer_list<const char*> columns) {
    NewIndex index;
    index.name = QLatin1String(name);
    for (const char* column : columns) {
        index.columns.push_back({QLatin1String(column), true});
    }
    return index;
}

NewTable Objects() {
    NewTable table;
    table.name = QStringLiteral("MSysObjects");
    table.columns = {Plain("Id", ColumnType::Long),
                     Plain("ParentId", ColumnType::Long),
                     TextColumn("Name"),
                     Plain("Type", ColumnType::Short),
                     Plain("DateCreate", ColumnType::DateTime),
                     Plain("DateUpdate", ColumnType::DateTime),
                     Masked("Owner"),
                     Plain("Flags", ColumnType::Long),
                     Plain("Database", ColumnType::Memo),
                     Plain("Connect", ColumnType::Memo),
                     TextColumn("ForeignName"),
                     Plain("RmtInfoShort", ColumnType::Binary, LongestBinary),
                     Plain("RmtInfoLong", ColumnType::LongBinary),
                     Plain("Lv", ColumnType::LongBinary),
                     Plain("LvProp", ColumnType::LongBinary),
                     Plain("LvModule", ColumnType::LongBinary),
                     Plain("LvExtra", ColumnType::LongBinary)};
    table.indexes = {IndexOn("ParentIdName", {"ParentId", "Name"}), IndexOn("Id", {"Id"})};
    table.indexes[0].isUnique = true;
    table.indexes[1].isPrimaryKey = true;
    return table;
}

NewTable Rights() {
    NewTable table;
    table.name = QStringLiteral("MSysACEs");
    table.columns = {Plain("ObjectId", ColumnType::Long), Masked("SID"), Plain("ACM", ColumnType::Long),
                     Plain("FInheritable", ColumnType::Boolean)};
    table.indexes = {IndexOn("ObjectId", {"ObjectId"})};
    table.indexes[0].refusesNulls = true;
    return table;
}

NewTable Queries() {
    NewTable table;
    table.name = QStringLiteral("MSysQueries");
    table.columns = {Plain("ObjectId", ColumnType::Long),
                     Plain("Attribute", ColumnType::Byte),
                     Plain("Order", ColumnType::Binary, LongestBinary),
                     TextColumn("Name1"),
                     TextColumn("Name2"),
                     Plain("Expression", ColumnType::Memo),
                     Plain("Flag", ColumnType::Short),
                     Plain("LvExtra", ColumnType::Long)};
    table.indexes = {IndexOn("ObjectIdAttribute", {"ObjectId", "Attribute", "Order"})};
    table.indexes[0].isPrimaryKey = true;
    return table;
}

NewTable Relationships() {
    NewTable table;
    table.name = QStringLiteral("MSysRelationships");
    table.columns = {TextColumn("szRelationship"),
                     Plain("grbit", ColumnType::Long),
                     Plain("ccolumn", ColumnType::Long),
                     Plain("icolumn", ColumnType::Long),
                     TextColumn("szObject"),
                     TextColumn("szColumn"),
                     TextColumn("szReferencedObject"),
                     TextColumn("szReferencedColumn")};
    table.indexes = {IndexOn("szRelationship", {"szRelationship"}), IndexOn("szObject", {"szObject"}),
                     IndexOn("szReferencedObject", {"szReferencedObject"})};
    for (NewIndex& index : table.indexes) {
        index.ignoresNulls = true;
    }
    return table;
}

}  // namespace

std::vector<NewTable> SystemTables() {
    std::vector<NewTable> tables{Objects(), Rights(), Queries(), Relationships()};
    for (NewTable& table : tables) {
        table.isSystem = true;
    }
    return tables;
}

}  // namespace engine::jet
