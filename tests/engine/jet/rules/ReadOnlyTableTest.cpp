#include "RuledTableTest.h"

#include <functional>

namespace engine::jet {
namespace {

// Rows of such a table carry marks by which copies of the file are put together again. Nobody here makes
// them.
void Replicate(RulesFile& file, const char* table) {
    TableLayout layout = ReadTableLayout(*file.pages, file.EntryOf(table).page);
    layout.columns[1].isOfSystem = true;
    WriteDefinition(*file.pages, layout);
}

TEST_F(JetRuledTable, AReplicatedTableIsOnlyRead) {
    Replicate(file, "owner");
    Open("owner").Rows().Insert({Text("A"), Text("a name")});
    for (const Failing& failing :
         {Insert("owner", {{"code", Text("B")}}), Wipe("owner"), Delete("owner", "A"),
          Change("owner", "A", {{"code", Text("C")}}),
          FailureOf([&] { Tables().RequireUnderstood({QStringLiteral("owner")}); })}) {
        EXPECT_EQ(failing.number, ErrorNumber::InvalidOperation);
        EXPECT_TRUE(Tells(failing, {"'owner'", "'name'"})) << failing.sentence.toStdString();
    }
    EXPECT_EQ(Column("owner", "code"), QStringLiteral("A"));
    EXPECT_EQ(AddHouse("h1", Null()), 0);
}

TEST_F(JetRuledTable, NoCascadeReachesATableThatIsOnlyRead) {
    RelateHouses(Cascade, true);
    Replicate(file, "house");
    AddOwner("A");
    Open("house").Rows().Insert({Text("h1"), Text("A"), Null(), Null()});
    for (const Failing& failing :
         {Delete("owner", "A"), Wipe("owner"), Change("owner", "A", {{"code", Text("C")}})}) {
        EXPECT_EQ(failing.number, ErrorNumber::InvalidOperation);
        EXPECT_TRUE(Tells(failing, {"'house'"})) << failing.sentence.toStdString();
    }
    EXPECT_EQ(Column("owner", "code"), QStringLiteral("A"));
    EXPECT_EQ(Column("house", "owner"), QStringLiteral("A"));
}

// Changes what a definition says of an end of a relation.
template <class Damage>
void DamageEnds(PagedFile& pages, PageNumber table, Damage damage) {
    TableLayout layout = ReadTableLayout(pages, table);
    for (LogicalIndex& index : layout.names) {
        if (index.kind == LogicalKind::Relation) {
            damage(index);
        }
    }
    WriteDefinition(pages, layout);
}

TEST_F(JetRuledTable, EndsThatDoNotFitMakeBothTablesReadOnly) {
    using Damage = std::function<void(LogicalIndex&)>;
    const Damage damages[] = {[](LogicalIndex& end) { end.other = 77; },
                              [](LogicalIndex& end) { end.otherTable = 3; },
                              [](LogicalIndex& end) { end.side = 3; },
                              [](LogicalIndex& end) { end.cascadesUpdates = true; },
                              [](LogicalIndex& end) { end.cascadesDeletes = 1; },
                              [](LogicalIndex& end) { end.realIndex = 2; }};
    for (const char* damaged : {"owner", "house"}) {
        for (std::size_t place = 0; place < std::size(damages); ++place) {
            const bool isOwner = QLatin1String(damaged) == QLatin1String("owner");
            if (isOwner && place == 5) {
                continue;
            }
            RulesFile one({Owners(), Houses(), Periods()});
            one.Relate({"ownerhouse", "owner", "PrimaryKey", "house", "by owner"});
            DamageEnds(*one.pages, one.EntryOf(damaged).page, damages[place]);
            const Catalogue entries(*one.pages);
            RuledTables all(*one.pages, entries);
            // Another column of the same type fits as well as the right one.
            const int expected = place == 5 ? 0 : ErrorNumber::InvalidOperation;
            for (const char* name : {"owner", "house"}) {
                RuledTable& table = all.Open(QLatin1String(name));
                const std::vector<Value> row = RulesFile::RowOf(table.Layout(), {{"code", Text("x")}});
                const Failing failing =
                    FailureOf([&] { table.Insert(row, std::vector<bool>(row.size(), true)); });
                EXPECT_EQ(failing.number, expected) << damaged << place << name;
                EXPECT_TRUE(expected == 0 || Tells(failing, {name, "'ownerhouse'"}) ||
                            Tells(failing, {name, "'.r"}))
                    << failing.sentence.toStdString();
                EXPECT_EQ(FailureOf([&] { table.Wipe(); }).number, expected);
            }
            EXPECT_EQ(FailureOf([&] { all.Open(QStringLiteral("period")).RequireWritable(); }).number, 0);
        }
    }
}

TEST_F(JetRuledTable, EndsWithOtherTypesOrWithoutAUniqueParentDoNotFit) {
    NewTable owners = Owners();
    owners.columns[0].type = ColumnType::Long;
    NewTable plain = Owners();
    plain.indexes[0].isPrimaryKey = false;
    for (const NewTable& parent : {owners, plain}) {
        RulesFile one({parent, Houses()});
        one.Relate({"ownerhouse", "owner", "PrimaryKey", "house", "by owner"});
        const Catalogue entries(*one.pages);
        RuledTables all(*one.pages, entries);
        EXPECT_EQ(FailureOf([&] { all.Open(QStringLiteral("house")).RequireWritable(); }).number,
                  ErrorNumber::InvalidOperation);
    }
}

TEST_F(JetRuledTable, AWrongNumberInTheParentsEndIsOverlookedForATableWithItself) {
    RelateParts();
    DamageEnds(*file.pages, file.EntryOf("house").page, [](LogicalIndex& end) {
        if (end.side == 1) {
            end.other = end.number;
        }
    });
    EXPECT_EQ(AddHouse("h1", Null(), Text("h2")), ErrorNumber::NoParent);
    EXPECT_EQ(AddHouse("h1", Null(), Text("h1")), 0);
}

TEST_F(JetRuledTable, ADefinitionThatCannotBeReadConcernsThoseRelatedToIt) {
    RelateHouses();
    file.pages->Change(file.EntryOf("owner").page)[0] = 1;
    EXPECT_EQ(FailureOf([&] { Open("house").RequireWritable(); }).number, ErrorNumber::InvalidOperation);
    EXPECT_EQ(FailureOf([&] { Open("period").RequireWritable(); }).number, 0);
    EXPECT_EQ(FailureOf([&] { Open("owner"); }).number, ErrorNumber::DatabaseDamaged);
}

TEST_F(JetRuledTable, WhatAnImportWillMeetIsKnownBeforeItsFirstWrite) {
    RelateHouses(Cascade);
    RelatePeriods(Cascade);
    const auto require = [&](std::initializer_list<const char*> names) {
        tables.reset();
        QStringList list;
        for (const char* name : names) {
            list += QLatin1String(name);
        }
        return FailureOf([&] { Tables().RequireUnderstood(list); });
    };
    EXPECT_EQ(require({"owner", "HOUSE", "period", "letter"}).number, 0);
    EXPECT_EQ(require({"nothing"}).number, ErrorNumber::NoSuchTable);
    file.SetProperties("letter", QByteArray("?"));
    EXPECT_EQ(require({"owner"}).number, 0);
    EXPECT_TRUE(Tells(require({"owner", "letter"}), {"'letter'"}));
    file.SetProperties("period", PropertyBytes().OfTable("ValidationRule", QStringLiteral("f(1)")).Block());
    const Failing failing = require({"owner"});
    EXPECT_EQ(failing.number, ErrorNumber::InvalidOperation);
    EXPECT_TRUE(Tells(failing, {"'period'", "f(1)"})) << failing.sentence.toStdString();
}

TEST_F(JetRuledTable, AnUnknownOrderOfTextsIsKnownBeforeTheFirstWriteToo) {
    TableLayout layout = ReadTableLayout(*file.pages, file.EntryOf("house").page);
    layout.columns[1].sortOrder = 0x041F;
    WriteDefinition(*file.pages, layout);
    const Failing failing = FailureOf([&] { Tables().RequireUnderstood({QStringLiteral("house")}); });
    EXPECT_EQ(failing.number, ErrorNumber::InvalidOperation);
    EXPECT_TRUE(Tells(failing, {"by owner"})) << failing.sentence.toStdString();
}

}  // namespace
}  // namespace engine::jet
