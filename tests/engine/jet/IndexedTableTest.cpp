#include "JetTest.h"
#include "ModelDisk.h"
#include "TableMakers.h"
#include "engine/jet/IndexedTable.h"
#include "engine/jet/MakeDatabase.h"
#include "engine/jet/PagedFile.h"
#include "engine/jet/WriteDefinition.h"

#include <bit>
#include <set>

namespace engine::jet {
namespace {

const QDateTime Created(QDate(2026, 3, 1), QTime(9, 30), Qt::UTC);

// A table with an index over each type of column that an index can have, in either order.
NewTable Things() {
    NewTable table;
    table.name = QStringLiteral("things");
    table.columns = {ColumnOf("id", ColumnType::Long),         ColumnOf("yes", ColumnType::Boolean),
                     ColumnOf("byte", ColumnType::Byte),       ColumnOf("short", ColumnType::Short),
                     ColumnOf("money", ColumnType::Currency),  ColumnOf("single", ColumnType::Single),
                     ColumnOf("double", ColumnType::Double),   ColumnOf("date", ColumnType::DateTime),
                     ColumnOf("bytes", ColumnType::Binary, 9), ColumnOf("text", ColumnType::Text, 50),
                     ColumnOf("memo", ColumnType::Memo),       ColumnOf("guid", ColumnType::Guid),
                     ColumnOf("decimal", ColumnType::Decimal)};
    bool ascending = true;
    for (const NewColumn& column : table.columns) {
        NewIndex index;
        index.name = QStringLiteral("by ") + column.name;
        index.columns = {{column.name, ascending = !ascending}};
        table.indexes.push_back(index);
    }
    table.indexes[0].isPrimaryKey = true;
    table.indexes[9].ignoresNulls = true;
    return table;
}

std::vector<Value> Thing(int number) {
    return {qint64{number},
            number % 2 == 0,
            qint64{number % 7},
            qint64{-number},
            Currency::FromScaled(number * 100),
            number / 2.0,
            number / 3.0,
            Created.addSecs(number),
            QByteArray("bytes") + char('a' + number % 20),
            number % 5 == 0 ? Value() : Value(QStringLiteral("text %1").arg(number % 11)),
            QString(200, QLatin1Char('m')) + QString::number(number % 13),
            QByteArray(16, char(number)),
            QByteArray(16, '\0') + char(number)};
}

class JetIndexedTable : public ::testing::Test {
protected:
    JetIndexedTable() {
        MakeDatabase(disk, path, {Things()}, Created, KeepIndexes);
        pages = std::make_unique<PagedFile>(disk, path);
        things = Open("things");
    }

    std::unique_ptr<IndexedTable> Open(const char* name) {
        return OpenTable(*pages, Catalogue(*pages).Find(QLatin1String(name)));
    }

    // The rows that an index leads to, in its order, each of them under the key that it has.
    static std::vector<RowPlace> RowsOf(IndexedTable& table, int place) {
        IndexObserver& index = table.IndexAt(place);
        std::vector<RowPlace> rows;
        for (IndexCursor at = index.Tree().First(); at.HasEntry(); at.Next()) {
            rows.push_back(ToRowPlace(at.Row()));
            RowKey key;
            MakeRowKey(key, index.Columns(), index.ValuesOf(table.Rows().Read(rows.back())));
            EXPECT_EQ(Compare(at.EntryKey(), key.bytes), 0) << "index " << place;
        }
        return rows;
    }

    static std::set<RowPlace> RowsOf(const Table& table, int column, bool withNulls) {
        std::set<RowPlace> rows;
        for (auto key = table.FirstRow(); key; key = table.RowBehind(*key)) {
            if (withNulls || table.Read(*key).Has(column)) {
                rows.insert(*key);
            }
        }
        return rows;
    }

    void ExpectIndexesToBeRight() {
        for (int index = 0; index < 13; ++index) {
            const std::vector<RowPlace> rows = RowsOf(*things, index);
            EXPECT_EQ(std::set(rows.begin(), rows.end()), RowsOf(things->Rows(), index, index != 9)) << index;
        }
    }

    ModelDisk disk;
    QString path = QStringLiteral("/books/property.mdb");
    std::unique_ptr<PagedFile> pages;
    std::unique_ptr<IndexedTable> things;
};

TEST_F(JetIndexedTable, IndexesFollowTheRowsThatComeChangeAndGo) {
    std::vector<RowPlace> keys;
    for (int number = 1; number <= 60; ++number) {
        keys.push_back(things->Rows().Insert(Thing(number)));
    }
    ExpectIndexesToBeRight();
    for (int number = 1; number <= 60; number += 3) {
        std::vector<CellChange> changes;
        const std::vector<Value> values = Thing(number + 60);
        for (int column = 0; column < 13; ++column) {
            changes.push_back({column, values[static_cast<std::size_t>(column)]});
        }
        things->Rows().Update(keys[static_cast<std::size_t>(number - 1)], changes);
    }
    ExpectIndexesToBeRight();
    for (std::size_t place = 0; place < keys.size(); place += 4) {
        things->Rows().Delete(keys[place]);
    }
    ExpectIndexesToBeRight();
    EXPECT_EQ(RowsOf(*things, 0).size(), 45U);
    things->Rows().Wipe();
    ExpectIndexesToBeRight();
}

TEST_F(JetIndexedTable, AnUpdateOfOtherColumnsLeavesAnIndexAlone) {
    const RowPlace key = things->Rows().Insert(Thing(1));
    pages->EndGroup(GroupKind::Adds);
    const PageNumber root = things->Layout().indexes[9].root;
    const Page before = pages->Read(root);
    things->Rows().Update(key, {{3, qint64{9}}});
    EXPECT_EQ(pages->Read(root), before);
    EXPECT_EQ(RowsOf(*things, 3).size(), 1U);
}

TEST_F(JetIndexedTable, AKeyThatAnotherRowHasIsRefused) {
    things->Rows().Insert(Thing(1));
    const RowPlace second = things->Rows().Insert(Thing(2));
    const Failing failing = FailureOf([&] { things->Rows().Insert(Thing(1)); });
    EXPECT_EQ(failing.number, ErrorNumber::DuplicateKey);
    EXPECT_TRUE(failing.sentence.contains(QStringLiteral("by id"))) << failing.sentence.toStdString();
    EXPECT_EQ(FailureOf([&] {
                  things->Rows().Update(second, {{0, qint64{1}}});
              }).number,
              ErrorNumber::DuplicateKey);
    EXPECT_EQ(FailureOf([&] {
                  things->Rows().Update(second, {{0, Null()}});
              }).number,
              ErrorNumber::NullInPrimaryKey);
    ExpectIndexesToBeRight();
}

// Two moments that are the same to the millisecond.
TEST_F(JetIndexedTable, ADateHasItsKeyFromAllOfItsDigits) {
    const auto keyOf = [&](double date) {
        RowCells cells;
        cells.Clear(13);
        cells.SetNumber(7, date);
        StoredRow row;
        RowMaker(things->Layout()).Make(things->Layout(), cells, row);
        return things->IndexAt(7).ValuesOf(row);
    };
    EXPECT_EQ(keyOf(45000.25), std::vector<Value>{45000.25});
    EXPECT_EQ(keyOf(45000.2500000001), std::vector<Value>{45000.2500000001});
}

TEST_F(JetIndexedTable, KeysAreCountedUntilTheIndexIsEmpty) {
    const auto keys = [&] { return things->Rows().Figures().DistinctKeys(2); };
    std::vector<RowPlace> rows;
    for (const int number : {1, 2, 8}) {
        rows.push_back(things->Rows().Insert(Thing(number)));
    }
    EXPECT_EQ(keys(), 2U);
    things->Rows().Update(rows[0], {{2, qint64{6}}});
    EXPECT_EQ(keys(), 3U);
    for (const RowPlace row : rows) {
        EXPECT_EQ(keys(), 3U);
        things->Rows().Delete(row);
    }
    EXPECT_EQ(keys(), 0U);
    things->Rows().Insert(Thing(1));
    things->Rows().Wipe();
    EXPECT_EQ(keys(), 0U);
}

TEST_F(JetIndexedTable, AnIndexOverTextsOfAnotherOrderIsNotTouched) {
    things->Rows().Insert(Thing(1));
    TableLayout layout = things->Layout();
    layout.columns[9].sortOrder = 0x041F;
    IndexedTable other(*pages, layout);
    const RowPlace key = other.Rows().FirstRow().value();
    const Failing failing = FailureOf([&] { other.Rows().Insert(Thing(2)); });
    EXPECT_EQ(failing.number, ErrorNumber::InvalidOperation);
    EXPECT_TRUE(failing.sentence.contains(QStringLiteral("by text"))) << failing.sentence.toStdString();
    const PagedFile::Mark mark = pages->SetMark();
    EXPECT_EQ(FailureOf([&] { other.Rows().Delete(key); }).number, ErrorNumber::InvalidOperation);
    pages->UndoTo(mark);
    EXPECT_EQ(FailureOf([&] {
                  other.Rows().Update(key, {{9, QStringLiteral("x")}});
              }).number,
              ErrorNumber::InvalidOperation);
    EXPECT_EQ(FailureOf([&] { other.Rows().Update(key, {{3, qint64{1}}}); }).number, 0);
    EXPECT_EQ(FailureOf([&] { other.Rows().Wipe(); }).number, 0);
}

TEST_F(JetIndexedTable, SystemTablesOfANewFileHaveTheirIndexes) {
    const auto objects = Open("MSysObjects");
    for (int index = 0; index < 2; ++index) {
        EXPECT_EQ(RowsOf(*objects, index).size(), 9U);
    }
}

TEST_F(JetIndexedTable, ATableOfAnotherFileIsNotOpened) {
    CatalogueTable linked;
    linked.isLinked = true;
    EXPECT_EQ(FailureOf([&] { OpenTable(*pages, linked); }).number, ErrorNumber::InvalidOperation);
}

}  // namespace
}  // namespace engine::jet
