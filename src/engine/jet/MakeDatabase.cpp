#include "engine/jet/MakeDatabase.h"

#include "engine/jet/Catalogue.h"
#include "engine/jet/FileHeader.h"
#include "engine/jet/FreePages.h"
#include "engine/jet/PagedFile.h"
#include "engine/jet/SystemTables.h"

#include <array>
#include <utility>

namespace engine::jet {

namespace {

using User = std::array<char, 2>;

// What a user may do with an object, as bits. A right that is inherited goes over to new objects below it.
struct Right {
    qint64 object;
    qint64 rights;
    bool isInherited;
    User user;
};

constexpr qint64 SystemFlags = -0x80000000LL;
constexpr qint64 AllOfTable = 0xFFEFF;

// As a file has them that the original engine has just made.
constexpr std::array<Right, 16> SystemRights{{
    {2, 0x60000, false, FileUser::Admin},
    {3, 0x60000, false, FileUser::Admin},
    {4, 0x60000, false, FileUser::Admin},
    {5, 0xE0000, false, FileUser::Admin},
    {SystemObject::Tables, 0xF00FE, true, FileUser::Creator},
    {SystemObject::Tables, 0x60001, false, FileUser::Admin},
    {SystemObject::Relationships, 0xF00FE, true, FileUser::Creator},
    {SystemObject::Relationships, 0x60001, false, FileUser::Admin},
    {SystemObject::Databases, 0x60000, false, FileUser::Admin},
    {SystemObject::Database, 0x6000E, false, FileUser::Admin},
    {SystemObject::Database, 0x0000E, false, FileUser::Everybody},
    {4, 0x00014, false, FileUser::Everybody},
    {5, 0x00014, false, FileUser::Everybody},
    {2, 0x00014, false, FileUser::Everybody},
    {SystemObject::Tables, AllOfTable, true, FileUser::Everybody},
    {SystemObject::Relationships, 0xFFFFF, true, FileUser::Everybody},
}};

QByteArray BytesOfUser(const User& user) {
    return {user.data(), static_cast<qsizetype>(user.size())};
}

// A row of a table with values for some of its columns.
class RowOf {
public:
    explicit RowOf(const TableLayout& layout) : layout_(layout), values_(layout.columns.size()) {}

    RowOf& With(const char* column, const Value& value) {
        values_[static_cast<std::size_t>(layout_.FindColumn(QLatin1String(column)).value())] = value;
        return *this;
    }
    const std::vector<Value>& Values() const { return values_; }

private:
    const TableLayout& layout_;
    std::vector<Value> values_;
};

// A table with what keeps its indexes.
class KeptTable {
public:
    KeptTable(PageStore& pages, TableLayout layout, const IndexKeepers& indexKeepers)
        : table_(pages, std::move(layout)) {
        if (indexKeepers) {
            keepers_ = indexKeepers(pages, table_.Layout());
        }
        for (const auto& keeper : keepers_) {
            table_.Watch(*keeper);
        }
    }

    RowOf NewRow() const { return RowOf(table_.Layout()); }
    void Insert(const RowOf& row) { table_.Insert(row.Values()); }

private:
    Table table_;
    std::vector<std::unique_ptr<RowObserver>> keepers_;
};

class DatabaseMaker {
public:
    DatabaseMaker(PagedFile& pages, QDateTime created, const IndexKeepers& indexKeepers)
        : pages_(pages), created_(std::move(created)), indexKeepers_(indexKeepers) {}

    void Make(const std::vector<NewTable>& tables) {
        MakeSystemTables();
        FillCatalogue();
        for (const NewTable& table : tables) {
            const PageNumber page = pages_.Take();
            MakeTable(pages_, maps_, table, page);
            AddObject(page, SystemObject::Tables, table.name, ObjectKind::Table, 0, FileUser::Admin);
            AddRight({page, AllOfTable, false, FileUser::Admin});
            AddRight({page, AllOfTable, false, FileUser::Everybody});
        }
    }

private:
    // Their definitions have the pages behind that of the free map, in every file.
    void MakeSystemTables() {
        const std::vector<NewTable> tables = SystemTables();
        std::vector<PageNumber> definitions;
        for (std::size_t table = 0; table < tables.size(); ++table) {
            definitions.push_back(pages_.Take());
        }
        std::vector<TableLayout> layouts;
        for (std::size_t table = 0; table < tables.size(); ++table) {
            layouts.push_back(MakeTable(pages_, maps_, tables[table], definitions[table]));
        }
        objects_.emplace(pages_, layouts[static_cast<std::size_t>(SystemTable::Objects)], indexKeepers_);
        rights_.emplace(pages_, layouts[static_cast<std::size_t>(SystemTable::Rights)], indexKeepers_);
    }

    void FillCatalogue() {
        AddSystemObject(SystemObject::Tables, SystemObject::Root, QStringLiteral("Tables"),
                        ObjectKind::Container);
        AddSystemObject(SystemObject::Databases, SystemObject::Root, QStringLiteral("Databases"),
                        ObjectKind::Container);
        AddSystemObject(SystemObject::Relationships, SystemObject::Root, QStringLiteral("Relationships"),
                        ObjectKind::Container);
        AddObject(SystemObject::Database, SystemObject::Databases, QStringLiteral("MSysDb"),
                  ObjectKind::Database, SystemFlags, FileUser::Admin);
        qint64 page = Catalogue::FirstPage;
        for (const NewTable& table : SystemTables()) {
            AddSystemObject(page++, SystemObject::Tables, table.name, ObjectKind::Table);
        }
        for (const Right& right : SystemRights) {
            AddRight(right);
        }
    }

    void AddSystemObject(qint64 id, qint64 parent, const QString& name, qint64 kind) {
        AddObject(id, parent, name, kind, SystemFlags, FileUser::Engine);
    }

    void AddObject(qint64 id, qint64 parent, const QString& name, qint64 kind, qint64 flags,
                   const User& owner) {
        objects_->Insert(objects_->NewRow()
                             .With("Id", id)
                             .With("ParentId", parent)
                             .With("Name", name)
                             .With("Type", kind)
                             .With("DateCreate", created_)
                             .With("DateUpdate", created_)
                             .With("Owner", BytesOfUser(owner))
                             .With("Flags", flags));
    }

    void AddRight(const Right& right) {
        rights_->Insert(rights_->NewRow()
                            .With("ObjectId", right.object)
                            .With("SID", BytesOfUser(right.user))
                            .With("ACM", right.rights)
                            .With("FInheritable", right.isInherited));
    }

    PagedFile& pages_;
    QDateTime created_;
    const IndexKeepers& indexKeepers_;
    MapRows maps_{pages_};
    std::optional<KeptTable> objects_;
    std::optional<KeptTable> rights_;
};

void MakeFirstPages(Disk& disk, const QString& path) {
    const std::unique_ptr<DiskFile> file = disk.Make(path);
    file->Write(0, MakeFileHeader());
    file->Write(PageSize, FreePages::MakeMapPage(FreePages::MapPage + 1));
    file->Sync();
}

}  // namespace

void MakeDatabase(Disk& disk, const QString& path, const std::vector<NewTable>& tables,
                  const QDateTime& created, const IndexKeepers& indexKeepers) {
    MakeFirstPages(disk, path);
    PagedFile pages(disk, path);
    DatabaseMaker(pages, created, indexKeepers).Make(tables);
    pages.EndGroup(GroupKind::Adds);
    pages.RemoveJournal();
}

}  // namespace engine::jet
