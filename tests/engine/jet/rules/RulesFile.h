#pragma once

#include "PropertyBytes.h"
#include "engine/jet/IndexedTable.h"
#include "engine/jet/JetTest.h"
#include "engine/jet/MakeDatabase.h"
#include "engine/jet/ModelDisk.h"
#include "engine/jet/PagedFile.h"
#include "engine/jet/SystemTables.h"
#include "engine/jet/TableMakers.h"
#include "engine/jet/WriteDefinition.h"

namespace engine::jet {

/// A database with rules, such as only the designer of another program makes.
class RulesFile {
public:
    explicit RulesFile(const std::vector<NewTable>& tables) {
        const QDateTime created(QDate(2026, 3, 1), QTime(9, 30), Qt::UTC);
        MakeDatabase(disk, path, tables, created, KeepIndexes);
        pages = std::make_unique<PagedFile>(disk, path);
    }
    /// One that is there already. Rules are given to it while nobody else uses it.
    RulesFile(Disk& where, const QString& file)
        : path(file), pages(std::make_unique<PagedFile>(where, file)) {}

    CatalogueTable EntryOf(const char* table) const { return Catalogue(*pages).Find(QLatin1String(table)); }
    std::unique_ptr<IndexedTable> Open(const char* table) const { return OpenTable(*pages, EntryOf(table)); }

    void SetProperties(const char* table, const QByteArray& block) {
        const auto objects = Open("MSysObjects");
        objects->Rows().Update(EntryOf(table).row,
                               {{objects->Layout().FindColumn(QStringLiteral("LvProp")).value(), block}});
        pages->EndGroup(GroupKind::Adds);
    }

    /// A relation over an index of each table, which must have no rows yet.
    struct Link {
        const char* name;
        const char* parent;
        const char* parentIndex;
        const char* child;
        const char* childIndex;
        std::uint8_t onDelete = 0;
        bool cascadesUpdates = false;
    };
    void Relate(const Link& link) {
        const bool isWithItself = QLatin1String(link.parent) == QLatin1String(link.child);
        TableLayout parent = ReadTableLayout(*pages, EntryOf(link.parent).page);
        TableLayout other = ReadTableLayout(*pages, EntryOf(link.child).page);
        TableLayout& child = isWithItself ? parent : other;
        LogicalIndex end;
        end.kind = LogicalKind::Relation;
        end.cascadesUpdates = link.cascadesUpdates;
        end.cascadesDeletes = link.onDelete;
        LogicalIndex& ofChild = Append(child, end, link.childIndex);
        const std::uint32_t childNumber = ofChild.number;
        ofChild.name = QLatin1String(link.name);
        ofChild.side = 2;
        ofChild.otherTable = parent.page;
        ofChild.other = static_cast<std::uint32_t>(parent.names.size());
        LogicalIndex& ofParent = Append(parent, end, link.parentIndex);
        ofParent.name = QStringLiteral(".r%1").arg(QChar(static_cast<char16_t>(u'A' + ofParent.number)));
        ofParent.side = 1;
        ofParent.otherTable = child.page;
        ofParent.other = childNumber;
        WriteDefinition(*pages, parent);
        if (!isWithItself) {
            WriteDefinition(*pages, child);
        }
        Tell(link, parent, child);
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

private:
    static LogicalIndex& Append(TableLayout& layout, LogicalIndex end, const char* index) {
        const auto named = std::find_if(layout.names.begin(), layout.names.end(), [index](const auto& name) {
            return name.name == QLatin1String(index);
        });
        end.realIndex = named->realIndex;
        end.number = static_cast<std::uint32_t>(layout.names.size());
        return layout.names.emplace_back(end);
    }

    // In the system tables, where other programs look.
    void Tell(const Link& link, const TableLayout& parent, const TableLayout& child) {
        const auto rows = Open("MSysRelationships");
        const auto& parentColumns =
            parent.indexes[static_cast<std::size_t>(parent.names.back().realIndex)].columns;
        const auto ofChild = std::find_if(child.names.begin(), child.names.end(), [&link](const auto& name) {
            return name.name == QLatin1String(link.name);
        });
        const auto& childColumns = child.indexes[static_cast<std::size_t>(ofChild->realIndex)].columns;
        const qint64 deletes = link.onDelete == 1 ? 0x1000 : link.onDelete == 2 ? 0x2000 : 0;
        for (std::size_t place = 0; place < parentColumns.size(); ++place) {
            const auto nameOf = [place](const TableLayout& layout, const std::vector<IndexColumn>& columns) {
                return layout.columns[static_cast<std::size_t>(columns[place].column)].name;
            };
            rows->Rows().Insert(
                RowOf(rows->Layout(), {{"szRelationship", QString(QLatin1String(link.name))},
                                       {"grbit", deletes + (link.cascadesUpdates ? 0x100 : 0)},
                                       {"ccolumn", static_cast<qint64>(parentColumns.size())},
                                       {"icolumn", static_cast<qint64>(place)},
                                       {"szObject", QString(QLatin1String(link.child))},
                                       {"szColumn", nameOf(child, childColumns)},
                                       {"szReferencedObject", QString(QLatin1String(link.parent))},
                                       {"szReferencedColumn", nameOf(parent, parentColumns)}}));
        }
        const auto objects = Open("MSysObjects");
        constexpr qint64 KindOfRelation = 8;
        objects->Rows().Insert(RowOf(objects->Layout(), {{"Id", 0x20000000 + relations_++},
                                                         {"ParentId", SystemObject::Relationships},
                                                         {"Name", QString(QLatin1String(link.name))},
                                                         {"Type", KindOfRelation},
                                                         {"Flags", qint64{0}}}));
    }

    qint64 relations_ = 0;

public:
    ModelDisk disk;
    QString path = QStringLiteral("/books/property.mdb");
    std::unique_ptr<PagedFile> pages;
};

}  // namespace engine::jet
