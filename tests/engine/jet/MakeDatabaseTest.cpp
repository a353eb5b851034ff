#include "IsSound.h"
#include "JetTest.h"
#include "ModelDisk.h"
#include "TableWithIndexes.h"
#include "engine/jet/Catalogue.h"
#include "engine/jet/FreePages.h"
#include "engine/jet/MakeDatabase.h"
#include "engine/jet/PagedFile.h"
#include "support/PrintQt.h"

#include <set>

namespace engine::jet {
namespace {

const QDateTime Created(QDate(2026, 3, 1), QTime(9, 30), Qt::UTC);

NewColumn MakeColumn(const char* name, std::uint8_t type, int size = 0) {
    NewColumn column;
    column.name = QLatin1String(name);
    column.type = type;
    column.size = size;
    return column;
}

NewTable Things() {
    NewTable table;
    table.name = QStringLiteral("things");
    table.columns = {MakeColumn("id", ColumnType::Long),
                     MakeColumn("yes", ColumnType::Boolean),
                     MakeColumn("byte", ColumnType::Byte),
                     MakeColumn("short", ColumnType::Short),
                     MakeColumn("money", ColumnType::Currency),
                     MakeColumn("single", ColumnType::Single),
                     MakeColumn("double", ColumnType::Double),
                     MakeColumn("date", ColumnType::DateTime),
                     MakeColumn("binary", ColumnType::Binary, 20),
                     MakeColumn("text", ColumnType::Text, 50),
                     MakeColumn("picture", ColumnType::LongBinary),
                     MakeColumn("memo", ColumnType::Memo),
                     MakeColumn("guid", ColumnType::Guid),
                     MakeColumn("decimal", ColumnType::Decimal)};
    table.columns[0].countsUp = true;
    table.columns[13].scale = 2;
    NewIndex primary;
    primary.name = QStringLiteral("PrimaryKey");
    primary.columns = {{QStringLiteral("id"), true}};
    primary.isPrimaryKey = true;
    NewIndex other;
    other.name = QStringLiteral("by text");
    other.columns = {{QStringLiteral("TEXT"), false}, {QStringLiteral("date"), true}};
    other.ignoresNulls = true;
    table.indexes = {primary, other};
    return table;
}

std::vector<Value> SomeThing() {
    return {Null(),
            true,
            qint64{255},
            qint64{-2},
            Currency::FromScaled(12345),
            1.5,
            0.1,
            Created,
            QByteArray("bytes"),
            QStringLiteral("a text"),
            QByteArray(5000, 'p'),
            QString(3000, QLatin1Char('m')),
            QByteArray(16, 'g'),
            QByteArray(17, '\0')};
}

class JetMakeDatabase : public ::testing::Test {
protected:
    void Make(const std::vector<NewTable>& tables, const IndexKeepers& keepers = {}) {
        MakeDatabase(disk, path, tables, Created, keepers);
        pages = std::make_unique<PagedFile>(disk, path);
    }

    Table Open(const char* name) const { return Catalogue(*pages).Open(QLatin1String(name)); }

    static std::vector<StoredRow> RowsOf(const Table& table) {
        std::vector<StoredRow> rows;
        for (auto key = table.FirstRow(); key; key = table.RowBehind(*key)) {
            rows.push_back(table.Read(*key));
        }
        return rows;
    }

    ModelDisk disk;
    QString path = QStringLiteral("/books/property.mdb");
    std::unique_ptr<PagedFile> pages;
};

TEST_F(JetMakeDatabase, AFileHasTheSystemTablesWhereEveryFileHasThem) {
    Make({});
    QStringList names;
    std::vector<PageNumber> places;
    const Catalogue catalogue(*pages);
    for (const CatalogueTable& table : catalogue.Tables()) {
        EXPECT_TRUE(table.isSystem);
        names += table.name;
        places.push_back(table.page);
    }
    EXPECT_EQ(names, QStringList({QStringLiteral("MSysObjects"), QStringLiteral("MSysACEs"),
                                  QStringLiteral("MSysQueries"), QStringLiteral("MSysRelationships")}));
    EXPECT_EQ(places, (std::vector<PageNumber>{2, 3, 4, 5}));
    EXPECT_EQ(RowsOf(Open("MSysObjects")).size(), 8U);
    EXPECT_EQ(RowsOf(Open("MSysACEs")).size(), 16U);
    EXPECT_TRUE(RowsOf(Open("MSysQueries")).empty());
    EXPECT_EQ(pages->Count(), 16U);
    EXPECT_EQ(disk.files.size(), 1);
}

TEST_F(JetMakeDatabase, ATableHasTheColumnsAndIndexesThatItWasGiven) {
    Make({Things()});
    const Table table = Open("Things");
    const TableLayout& layout = table.Layout();
    ASSERT_EQ(layout.columns.size(), 14U);
    for (std::size_t column = 0; column < 14; ++column) {
        EXPECT_EQ(layout.columns[column].name, Things().columns[column].name);
        EXPECT_EQ(layout.columns[column].type, Things().columns[column].type);
    }
    EXPECT_FALSE(layout.isSystem);
    EXPECT_TRUE(layout.columns[0].countsUp);
    EXPECT_EQ(layout.columns[9].size, 100);
    EXPECT_TRUE(layout.columns[9].isCompressed);
    EXPECT_EQ(layout.columns[13].scale, 2);
    ASSERT_EQ(layout.indexes.size(), 2U);
    EXPECT_TRUE(layout.indexes[0].isUnique);
    EXPECT_TRUE(layout.indexes[0].refusesNulls);
    EXPECT_TRUE(layout.indexes[1].ignoresNulls);
    EXPECT_EQ(layout.indexes[1].columns[0].column, 9);
    EXPECT_FALSE(layout.indexes[1].columns[0].ascending);
    EXPECT_EQ(layout.names[0].kind, LogicalKind::PrimaryKey);
    EXPECT_EQ(layout.names[1].name, QStringLiteral("by text"));
    for (const RealIndex& index : layout.indexes) {
        EXPECT_EQ(UsageMap(*pages, index.pages).All(), std::vector<PageNumber>{index.root});
        const Bytes root(pages->Read(index.root), index.root);
        EXPECT_EQ(root.U16(0), 0x0104);
        EXPECT_EQ(root.U16(2), 3616);
        EXPECT_EQ(root.U32(4), layout.page);
    }
}

TEST_F(JetMakeDatabase, ANewTableTakesRowsOfAllTypes) {
    Make({Things()});
    Table table = Open("things");
    const RowPlace key = table.Insert(SomeThing());
    pages->EndGroup(GroupKind::Adds);
    pages = std::make_unique<PagedFile>(disk, path);
    const Table again = Open("things");
    const StoredRow row = again.Read(key);
    std::vector<Value> expected = SomeThing();
    expected[0] = qint64{1};
    for (int column = 0; column < 14; ++column) {
        EXPECT_EQ(again.ValueOf(row, column), expected[static_cast<std::size_t>(column)]) << column;
    }
}

TEST_F(JetMakeDatabase, TheCatalogueTellsOfATableAndOfEverybodysRights) {
    Make({Things()});
    const Table objects = Open("MSysObjects");
    const auto column = [&](const char* name) { return *objects.Layout().FindColumn(QLatin1String(name)); };
    const StoredRow row = RowsOf(objects).back();
    const PageNumber page = Catalogue(*pages).Find(QStringLiteral("things")).page;
    EXPECT_EQ(objects.ValueOf(row, column("Id")), Value(qint64{page}));
    EXPECT_EQ(objects.ValueOf(row, column("ParentId")), Value(qint64{0x0F000001}));
    EXPECT_EQ(objects.ValueOf(row, column("Type")), Value(qint64{1}));
    EXPECT_EQ(objects.ValueOf(row, column("Flags")), Value(qint64{0}));
    EXPECT_EQ(objects.ValueOf(row, column("DateCreate")), Value(Created));
    const Table rights = Open("MSysACEs");
    int ofTable = 0;
    for (const StoredRow& right : RowsOf(rights)) {
        ofTable += rights.ValueOf(right, 0) == Value(qint64{page}) ? 1 : 0;
    }
    EXPECT_EQ(ofTable, 2);
}

TEST_F(JetMakeDatabase, ANewFileIsSoundAndHasNoFreePage) {
    std::vector<NewTable> tables;
    for (int number = 0; number < 40; ++number) {
        tables.push_back(Things());
        tables.back().name += QString::number(number);
    }
    Make(tables, KeepAllIndexes);
    EXPECT_TRUE(IsSound(disk.files[path]->bytes));
    FreePages free(*pages, [] { return PageNumber{0}; });
    EXPECT_EQ(free.Lowest(), std::nullopt);
    const Catalogue catalogue(*pages);
    for (const CatalogueTable& entry : catalogue.Tables()) {
        const TableLayout layout = ReadTableLayout(*pages, entry.page);
        EXPECT_EQ(layout.pagesWithRoom,
                  (RowPlace{layout.pages.page, static_cast<std::uint8_t>(layout.pages.row + 1)}));
        for (const Column& column : layout.columns) {
            EXPECT_EQ(column.longPages.page, column.longPagesWithRoom.page);
        }
    }
}

TEST_F(JetMakeDatabase, ADefinitionMayEndAnywhereInAPage) {
    std::vector<NewTable> tables;
    for (int length = 1; length <= 40; ++length) {
        NewTable table;
        table.name = QStringLiteral("table %1").arg(length);
        for (int column = 0; column < 60; ++column) {
            table.columns.push_back(MakeColumn("", ColumnType::Long));
            table.columns.back().name = QString::number(100 + column) + QString(17, QLatin1Char('x'));
        }
        table.columns.back().name += QString(length, QLatin1Char('y'));
        tables.push_back(table);
    }
    Make(tables, KeepAllIndexes);
    std::set<PageNumber> ends;
    for (const NewTable& table : tables) {
        const Table made = Open(table.name.toLatin1().constData());
        EXPECT_EQ(made.Layout().columns.back().name, table.columns.back().name);
        ends.insert(Bytes(pages->Read(made.Layout().page), made.Layout().page).U32(8));
    }
    EXPECT_LT(*ends.begin(), 4088U);
    EXPECT_GT(*ends.rbegin(), 4096U);
    EXPECT_TRUE(IsSound(disk.files[path]->bytes));
}

TEST_F(JetMakeDatabase, AnIndexOnAColumnThatIsNotThereIsRefused) {
    NewTable table = Things();
    table.indexes[0].columns[0].name = QStringLiteral("other");
    EXPECT_EQ(FailureOf([&] { Make({table}); }).number, ErrorNumber::NoSuchColumn);
}

TEST_F(JetMakeDatabase, AColumnThatNoTableCanHaveIsRefused) {
    for (const NewColumn& column :
         {MakeColumn("x", ColumnType::Text, 0), MakeColumn("x", ColumnType::Text, 256),
          MakeColumn("x", ColumnType::Binary, 511), MakeColumn("x", 17), MakeColumn("x", 0)}) {
        NewTable table;
        table.name = QStringLiteral("t");
        table.columns = {column};
        disk.files.clear();
        EXPECT_EQ(FailureOf([&] { Make({table}); }).number, ErrorNumber::WrongType) << int{column.type};
    }
    NewTable table;
    table.columns.resize(256, MakeColumn("x", ColumnType::Long));
    disk.files.clear();
    EXPECT_EQ(FailureOf([&] { Make({table}); }).number, ErrorNumber::WrongType);
}

/// Counts the rows that come.
class CountingKeeper : public RowObserver {
public:
    explicit CountingKeeper(int& rows) : rows_(rows) {}
    void MayCome(const StoredRow* /*old*/, const StoredRow& /*row*/) override {}
    void Came(RowPlace /*key*/, const StoredRow& /*row*/) override { ++rows_; }
    void Changed(RowPlace /*key*/, const StoredRow& /*old*/, const StoredRow& /*row*/) override {}
    void Goes(RowPlace /*key*/, const StoredRow& /*row*/) override {}
    void AllWent() override {}

private:
    int& rows_;
};

TEST_F(JetMakeDatabase, WhoKeepsTheIndexesIsToldOfEachRowOfTheCatalogue) {
    int rows = 0;
    Make({Things()}, [&rows](PageStore&, const TableLayout& layout) {
        EXPECT_TRUE(layout.isSystem);
        std::vector<std::unique_ptr<RowObserver>> keepers;
        keepers.push_back(std::make_unique<CountingKeeper>(rows));
        return keepers;
    });
    EXPECT_EQ(rows, 9 + 18);
}

/// A catalogue with rows that others have written.
class JetCatalogue : public JetMakeDatabase {
protected:
    void AddObject(const char* name, qint64 kind, qint64 id, const Value& properties = Null(),
                   qint64 flags = 0) {
        Table objects = Open("MSysObjects");
        std::vector<Value> values(objects.Layout().columns.size());
        const auto set = [&](const char* column, const Value& value) {
            values[static_cast<std::size_t>(*objects.Layout().FindColumn(QLatin1String(column)))] = value;
        };
        set("Id", id);
        set("Name", QString(QLatin1String(name)));
        set("Type", kind);
        set("Flags", flags);
        set("LvProp", properties);
        objects.Insert(values);
    }
};

TEST_F(JetCatalogue, ATableIsFoundWithoutRegardToCase) {
    Make({Things()});
    EXPECT_EQ(Catalogue(*pages).Find(QStringLiteral("THINGS")).name, QStringLiteral("things"));
    EXPECT_EQ(FailureOf([&] { Catalogue(*pages).Find(QStringLiteral("thing")); }).number,
              ErrorNumber::NoSuchTable);
}

TEST_F(JetCatalogue, ATableOfAnotherFileIsRefusedInWords) {
    Make({});
    AddObject("elsewhere", 6, 77);
    AddObject("on a server", 4, 78);
    for (const char* name : {"elsewhere", "on a server"}) {
        const Failing failing = FailureOf([&] { Open(name); });
        EXPECT_EQ(failing.number, ErrorNumber::InvalidOperation);
        EXPECT_TRUE(failing.sentence.contains(QLatin1String(name)));
        EXPECT_TRUE(failing.sentence.contains(QStringLiteral("another file")));
    }
}

TEST_F(JetCatalogue, WhatIsNoTableIsNotFound) {
    Make({});
    AddObject("a query", 5, 77);
    EXPECT_EQ(FailureOf([&] { Open("a query"); }).number, ErrorNumber::NoSuchTable);
}

TEST_F(JetCatalogue, ATableNamesItsProperties) {
    Make({Things()});
    AddObject("other", 1, 77, QByteArray("MR2"), 2);
    const Catalogue catalogue(*pages);
    EXPECT_EQ(catalogue.Properties(catalogue.Find(QStringLiteral("other"))), QByteArray("MR2"));
    EXPECT_EQ(catalogue.Properties(catalogue.Find(QStringLiteral("things"))), std::nullopt);
    EXPECT_TRUE(catalogue.Find(QStringLiteral("other")).isSystem);
}

TEST_F(JetCatalogue, ATableWithoutADefinitionIsDamage) {
    Make({});
    AddObject("nothing", 1, 0xFFFFFF);
    AddObject("no definition", 1, 7);
    EXPECT_TRUE(FindsDamage(0xFFFFFF, [&] { Open("nothing"); }));
    EXPECT_TRUE(FindsDamage(7, [&] { Open("no definition"); }));
}

TEST_F(JetCatalogue, ACatalogueWithoutItsColumnsIsDamage) {
    Make({});
    const QByteArray name("L\0v\0P\0r\0o\0p\0", 12);
    Page& definition = pages->Change(2);
    const auto found = std::search(definition.begin(), definition.end(), name.begin(), name.end());
    ASSERT_NE(found, definition.end());
    *found = 'X';
    EXPECT_TRUE(FindsDamage(2, [&] { Catalogue catalogue(*pages); }));
}

}  // namespace
}  // namespace engine::jet
