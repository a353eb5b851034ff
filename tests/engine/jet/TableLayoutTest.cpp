#include "JetTest.h"
#include "engine/jet/DataPage.h"
#include "engine/jet/DefinitionForm.h"
#include "engine/jet/TableLayout.h"
#include "engine/jet/Text.h"
#include "engine/jet/WriteDefinition.h"
#include "support/PrintQt.h"

namespace engine::jet {
namespace {

/// A definition of two columns, an index and two names of it, byte by byte on page 5.
class JetTableLayout : public ::testing::Test {
protected:
    JetTableLayout() : pages(20) {
        ChangeableBytes page = PageAt(5);
        page.Put8(0, 2);
        page.Put8(1, 1);
        page.Put8(40, 0x4E);
        page.Put16(41, 3);  // columns of a row, one of them deleted
        page.Put16(43, 1);
        page.Put16(45, 2);
        page.Put32(47, 2);
        page.Put32(51, 1);
        page.Put32(55, 0x00000607);  // row 7 of page 6
        page.Put32(59, 0x00000608);
        at = 75;
        AddColumn(4, 0, 0x07, 0, 0, 4);
        AddColumn(12, 2, 0x02, 1, 0, 0);
        AddName(QStringLiteral("id"));
        AddName(QStringLiteral("Notes"));
        AddRealIndex();
        AddLogicalIndex(0, 1);
        AddLogicalIndex(1, 2);
        AddName(QStringLiteral("PrimaryKey"));
        AddName(QStringLiteral(".rB"));
        page.Put16(at, 2);
        page.Put32(at + 2, 0x00000609);
        page.Put32(at + 6, 0x0000060A);
        page.Put16(at + 10, 0xFFFF);
        page.Put32(8, static_cast<std::uint32_t>(at + 12));
    }

    ChangeableBytes PageAt(PageNumber number) { return {pages.Change(number), number}; }

    void AddColumn(std::uint8_t type, std::uint16_t number, std::uint8_t flags, std::uint8_t moreFlags,
                   std::uint16_t variable, std::uint16_t size) {
        ChangeableBytes page = PageAt(5);
        page.Put8(at, type);
        page.Put16(at + 5, number);
        page.Put16(at + 7, variable);
        page.Put16(at + 11, 0x0409);
        page.Put8(at + 15, flags);
        page.Put8(at + 16, moreFlags);
        page.Put16(at + 23, size);
        at += 25;
    }

    void AddName(const QString& name) {
        const QByteArray bytes = ToPlainText(name);
        PageAt(5).Put16(at, static_cast<std::uint16_t>(bytes.size()));
        PageAt(5).PutBytes(at + 2, BytesOf(bytes, 5));
        at += 2 + static_cast<std::size_t>(bytes.size());
    }

    void AddRealIndex() {
        ChangeableBytes page = PageAt(5);
        page.Fill(at + 4, 30, 0xFF);
        page.Put16(at + 4, 2);
        page.Put8(at + 6, 0);
        page.Put16(at + 7, 0);
        page.Put8(at + 9, 1);
        page.Put32(at + 34, 0x0000060B);
        page.Put32(at + 38, 9);
        page.Put8(at + 46, 0x89);
        at += 52;
    }

    void AddLogicalIndex(std::uint32_t number, std::uint8_t kind) {
        ChangeableBytes page = PageAt(5);
        page.Put32(at + 4, number);
        page.Put8(at + 12, 2);
        page.Put32(at + 13, 3);
        page.Put32(at + 17, 8);
        page.Put8(at + 21, 1);
        page.Put8(at + 22, 2);
        page.Put8(at + 23, kind);
        at += 28;
    }

    TableLayout Read() { return ReadTableLayout(pages, 5); }

    MemoryPages pages;
    std::size_t at = 0;
};

TEST_F(JetTableLayout, ColumnsSayWhereTheyLie) {
    const TableLayout layout = Read();
    EXPECT_EQ(layout.page, 5U);
    EXPECT_EQ(layout.rowColumns, 3);
    EXPECT_EQ(layout.variableColumns, 1);
    EXPECT_EQ(layout.pages, (RowPlace{6, 7}));
    EXPECT_EQ(layout.pagesWithRoom, (RowPlace{6, 8}));
    ASSERT_EQ(layout.columns.size(), 2U);
    const Column& id = layout.columns[0];
    EXPECT_EQ(id.name, QStringLiteral("id"));
    EXPECT_EQ(id.type, ColumnType::Long);
    EXPECT_TRUE(id.isFixed);
    EXPECT_TRUE(id.countsUp);
    EXPECT_EQ(id.size, 4);
    const Column& notes = layout.columns[1];
    EXPECT_EQ(notes.number, 2);
    EXPECT_FALSE(notes.isFixed);
    EXPECT_TRUE(notes.isCompressed);
    EXPECT_EQ(notes.longPages, (RowPlace{6, 9}));
    EXPECT_EQ(notes.longPagesWithRoom, (RowPlace{6, 10}));
    EXPECT_EQ(layout.FindColumn(QStringLiteral("NOTES")), 1);
    EXPECT_EQ(layout.FindColumn(QStringLiteral("note")), std::nullopt);
}

TEST_F(JetTableLayout, AnIndexMayGoByTwoNames) {
    const TableLayout layout = Read();
    ASSERT_EQ(layout.indexes.size(), 1U);
    const RealIndex& index = layout.indexes[0];
    ASSERT_EQ(index.columns.size(), 2U);
    EXPECT_EQ(index.columns[0].column, 1);
    EXPECT_FALSE(index.columns[0].ascending);
    EXPECT_EQ(index.columns[1].column, 0);
    EXPECT_TRUE(index.columns[1].ascending);
    EXPECT_EQ(index.pages, (RowPlace{6, 11}));
    EXPECT_EQ(index.root, 9U);
    EXPECT_TRUE(index.isUnique);
    EXPECT_FALSE(index.ignoresNulls);
    EXPECT_TRUE(index.refusesNulls);
    ASSERT_EQ(layout.names.size(), 2U);
    EXPECT_EQ(layout.names[0].name, QStringLiteral("PrimaryKey"));
    EXPECT_EQ(layout.names[0].kind, LogicalKind::PrimaryKey);
    EXPECT_EQ(layout.names[1].kind, LogicalKind::Relation);
    EXPECT_EQ(layout.names[1].side, 2);
    EXPECT_EQ(layout.names[1].other, 3U);
    EXPECT_EQ(layout.names[1].otherTable, 8U);
    EXPECT_TRUE(layout.names[1].cascadesUpdates);
    EXPECT_EQ(layout.names[1].cascadesDeletes, 2);
}

TEST_F(JetTableLayout, APageOfAnotherKindIsDamage) {
    EXPECT_TRUE(FindsDamage(6, [&] { ReadTableLayout(pages, 6); }));
    PageAt(5).Put32(4, 6);
    EXPECT_TRUE(FindsDamage(6, [&] { Read(); }));
}

TEST_F(JetTableLayout, PagesThatRunInACircleAreDamage) {
    pages.Change(6) = pages.Read(5);
    PageAt(5).Put32(4, 6);
    PageAt(6).Put32(4, 5);
    EXPECT_TRUE(FindsDamage(5, [&] { Read(); }));
    PageAt(6).Put32(4, 6);
    EXPECT_TRUE(FindsDamage(5, [&] { Read(); }));
}

TEST_F(JetTableLayout, ALengthBeyondThePagesIsDamage) {
    for (const std::uint32_t length : {0U, 4089U, 0xFFFFFFFFU}) {
        PageAt(5).Put32(8, length);
        EXPECT_TRUE(FindsDamage(5, [&] { Read(); })) << length;
    }
}

TEST_F(JetTableLayout, CountsThatOverflowAreDamage) {
    const struct {
        std::size_t at;
        std::uint32_t count;
        bool isShort;
    } counts[] = {{41, 256, true},         {41, 1, true},      {43, 4, true},           {43, 0, true},
                  {45, 256, true},         {45, 0xFFFF, true}, {47, 0xFFFFFFFF, false}, {47, 100, false},
                  {51, 0x10000000, false}, {51, 200, false}};
    const Page sound = pages.Read(5);
    for (const auto& count : counts) {
        pages.Change(5) = sound;
        if (count.isShort) {
            PageAt(5).Put16(count.at, static_cast<std::uint16_t>(count.count));
        } else {
            PageAt(5).Put32(count.at, count.count);
        }
        EXPECT_TRUE(FindsDamage(5, [&] { Read(); })) << count.at << " " << count.count;
    }
}

TEST_F(JetTableLayout, ANameThatIsTooLongIsDamage) {
    for (const unsigned size : {130U, 3U, 0xFFFFU}) {
        PageAt(5).Put16(125, static_cast<std::uint16_t>(size));
        EXPECT_TRUE(FindsDamage(5, [&] { Read(); })) << size;
    }
}

TEST_F(JetTableLayout, ANameHas64CharactersAtMost) {
    TableLayout layout = Read();
    for (const int length : {64, 65}) {
        layout.columns[1].name = QString(length, QLatin1Char('n'));
        pages.Change(5).fill(0);
        WriteDefinition(pages, layout);
        if (length == 64) {
            EXPECT_EQ(Read().columns[1].name, layout.columns[1].name);
        } else {
            EXPECT_TRUE(FindsDamage(5, [&] { Read(); }));
        }
    }
}

TEST_F(JetTableLayout, ColumnsThatCannotLieThereAreDamage) {
    const struct {
        std::size_t at;
        std::uint16_t number;
    } places[] = {{80, 3}, {105, 0}, {107, 1}, {96, 4093}, {98, 3}};
    const Page sound = pages.Read(5);
    for (const auto& place : places) {
        pages.Change(5) = sound;
        PageAt(5).Put16(place.at, place.number);
        EXPECT_TRUE(FindsDamage(5, [&] { Read(); })) << place.at;
    }
}

TEST_F(JetTableLayout, AnIndexOnAColumnThatIsNotThereIsDamage) {
    const std::size_t index = 125 + 2 + 4 + 2 + 10;
    PageAt(5).Put16(index + 4, 1);
    EXPECT_TRUE(FindsDamage(5, [&] { Read(); }));
}

TEST_F(JetTableLayout, ANameOfAnIndexThatIsNotThereIsDamage) {
    const std::size_t name = 125 + 2 + 4 + 2 + 10 + 52;
    PageAt(5).Put32(name + 8, 1);
    EXPECT_TRUE(FindsDamage(5, [&] { Read(); }));
}

// Each byte in turn: whatever it says, reading ends, with a layout or with damage.
TEST_F(JetTableLayout, NoByteOfADefinitionLeadsAstray) {
    const Page sound = pages.Read(5);
    for (std::size_t changed = 0; changed < at + 12; ++changed) {
        for (const int byte : {0x00, 0x01, 0x7F, 0x80, 0xFF}) {
            pages.Change(5) = sound;
            pages.Change(5)[changed] = static_cast<std::uint8_t>(byte);
            const Failing failing = FailureOf([&] { Read(); });
            EXPECT_TRUE(failing.number == 0 || failing.number == ErrorNumber::DatabaseDamaged) << changed;
        }
    }
}

TableLayout WideLayout() {
    TableLayout layout;
    layout.page = 5;
    layout.pages = {6, 0};
    layout.pagesWithRoom = {6, 1};
    for (std::uint16_t number = 0; number < 255; ++number) {
        Column column;
        column.name = QStringLiteral("a column with quite a long name %1").arg(number);
        column.type = number % 2 == 0 ? ColumnType::Text : ColumnType::Memo;
        column.number = column.variablePlace = number;
        column.size = number % 2 == 0 ? 100 : 0;
        column.longPages = number % 2 == 0 ? RowPlace{} : RowPlace{7, static_cast<std::uint8_t>(number)};
        layout.columns.push_back(column);
    }
    layout.rowColumns = layout.variableColumns = 255;
    return layout;
}

TEST_F(JetTableLayout, ADefinitionGoesOnOnFurtherPages) {
    const TableLayout written = WideLayout();
    WriteDefinition(pages, written);
    EXPECT_EQ(pages.Count(), 20U + 6);
    EXPECT_EQ(PageAt(5).U32(4), 20U);
    EXPECT_EQ(PageAt(5).U16(2), 0);
    EXPECT_EQ(PageAt(20).U16(0), 0x0102);
    const TableLayout read = Read();
    ASSERT_EQ(read.columns.size(), 255U);
    for (std::size_t column = 0; column < 255; ++column) {
        EXPECT_EQ(read.columns[column].name, written.columns[column].name);
        EXPECT_EQ(read.columns[column].longPages, written.columns[column].longPages);
    }
}

TEST_F(JetTableLayout, ADefinitionIsWrittenAsItIsRead) {
    const TableLayout layout = Read();
    pages.Change(5).fill(0);
    WriteDefinition(pages, layout);
    const TableLayout again = Read();
    ASSERT_EQ(again.columns.size(), 2U);
    EXPECT_TRUE(again.columns[0].countsUp);
    EXPECT_EQ(again.columns[1].longPagesWithRoom, (RowPlace{6, 10}));
    ASSERT_EQ(again.indexes.size(), 1U);
    EXPECT_EQ(again.indexes[0].columns[0].column, 1);
    EXPECT_EQ(again.indexes[0].root, 9U);
    EXPECT_TRUE(again.indexes[0].refusesNulls);
    ASSERT_EQ(again.names.size(), 2U);
    EXPECT_EQ(again.names[1].name, QStringLiteral(".rB"));
    EXPECT_EQ(again.names[1].otherTable, 8U);
    EXPECT_EQ(PageAt(5).U16(2), 4088 - PageAt(5).U32(8));
}

}  // namespace
}  // namespace engine::jet
