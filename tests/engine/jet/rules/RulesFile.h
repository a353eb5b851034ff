#pragma once

#include "PropertyBytes.h"
#include "engine/jet/IndexedTable.h"
#include "engine/jet/JetTest.h"
#include "engine/jet/MakeDatabase.h"
#include "engine/jet/ModelDisk.h"
#include "engine/jet/PagedFile.h"
#include "engine/jet/SystemTables.h"
#include "engine/jet/WriteDefinition.h"

namespace engine::jet {

inline NewColumn ColumnOf(const char* name, std::uint8_t type, int size = 0) {
    NewColumn column;
    column.name = QLatin1String(name);
    column.type = type;
    column.size = size;
    return column;
}

inline NewIndex IndexOver(const char* name, std::initializer_list<const char*> columns) {
    NewIndex index;
    index.name = QLatin1String(name);
    for (const char* column : columns) {
        index.columns.push_back({QLatin1String(column), true});
    }
    return index;
}

inline NewIndex PrimaryKeyOver(std::initializer_list<const char*> columns) {
    NewIndex index = IndexOver("PrimaryKey", columns);
    index.isPrimaryKey = true;
    return index;
}

/// A database with rules, such as only the designer of another program makes.
class RulesFile {
public:
    explicit RulesFile(const std::vector<NewTable>& tables) {
        const QDateTime created(QDate(2026, 3, 1), QTime(9, 30), Qt::UTC);
        MakeDatabase(disk, path, tables, created, KeepIndexes);
        pages = std::make_unique<PagedFile>(disk, path);
    }

    CatalogueTable EntryOf(const char* table) const { return Catalogue(*pages).Find(QLatin1String(table)); }
    std::unique_ptr<IndexedTable> Open(const char* table) const { return OpenTable(*pages, EntryOf(table)); }

    void SetProperties(const char* table, const QByteArray& block) {
        const auto objects = Open("MSysObjects");
        objects->Rows().Update(EntryOf(table).row,
                               {{objects->Layout().FindColumn(QStringLiteral("LvProp")).value(), block}});
        pages->EndGroup(GroupKind::Adds);
    }

    /// The values of a new row for the columns that are named, and null for the others.
    static std::vector<Value> RowOf(const TableLayout& layout,
                                    std::initializer_list<std::pair<const char*, Value>> values) {
        std::vector<Value> row(layout.columns.size());
        for (const auto& [column, value] : values) {
            row[static_cast<std::size_t>(layout.FindColumn(QLatin1String(column)).value())] = value;
        }
        return row;
    }

    ModelDisk disk;
    QString path = QStringLiteral("/books/property.mdb");
    std::unique_ptr<PagedFile> pages;
};

}  // namespace engine::jet
