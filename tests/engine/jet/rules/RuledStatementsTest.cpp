#include "RulesFile.h"
#include "engine/DBEngine.h"
#include "engine/jet/FileCheck.h"
#include "engine/jet/Text.h"
#include "support/SecondReader.h"

#include <QFile>
#include <QTemporaryDir>

#include <tuple>

namespace engine::jet {
namespace {

NewTable Owners() {
    NewTable table;
    table.name = QStringLiteral("owner");
    table.columns = {ColumnOf("code", ColumnType::Text, 10), ColumnOf("name", ColumnType::Text, 50),
                     ColumnOf("fee", ColumnType::Currency), ColumnOf("since", ColumnType::DateTime)};
    table.indexes = {PrimaryKeyOver({"code"})};
    return table;
}

NewTable Houses() {
    NewTable table;
    table.name = QStringLiteral("house");
    table.columns = {ColumnOf("code", ColumnType::Text, 10), ColumnOf("owner", ColumnType::Text, 10),
                     ColumnOf("part_of", ColumnType::Text, 10)};
    table.indexes = {PrimaryKeyOver({"code"}), IndexOver("by owner", {"owner"}),
                     IndexOver("by part_of", {"part_of"})};
    return table;
}

NewTable Notes() {
    NewTable table;
    table.name = QStringLiteral("notes");
    table.columns = {ColumnOf("text", ColumnType::Text, 50), ColumnOf("number", ColumnType::Double)};
    return table;
}

NewTable Keys() {
    NewTable table;
    table.name = QStringLiteral("keys");
    table.columns = {ColumnOf("house", ColumnType::Text, 10), ColumnOf("number", ColumnType::Double)};
    table.indexes = {IndexOver("by house", {"house"})};
    table.indexes.front().refusesNulls = true;
    return table;
}

// With longer rows than a page takes.
NewTable Letters() {
    NewTable table;
    table.name = QStringLiteral("letters");
    for (const char* column : {"a", "b", "c", "d", "e", "f", "g", "h", "i"}) {
        table.columns.push_back(ColumnOf(column, ColumnType::Text, 255));
    }
    return table;
}

constexpr std::uint8_t Cascade = 1;
constexpr std::uint8_t SetNull = 2;

/// Statements on a file with rules of its own, by way of the engine's surface.
class JetRuledStatements : public ::testing::Test {
protected:
    void RelateHouses(std::uint8_t onDelete = 0, bool cascadesUpdates = false) {
        made.Relate({"ownerhouse", "owner", "PrimaryKey", "house", "by owner", onDelete, cascadesUpdates});
    }
    void RelateParts(std::uint8_t onDelete) {
        made.Relate({"househouse", "house", "PrimaryKey", "house", "by part_of", onDelete, false});
    }
    void SetProperties(const char* table, const PropertyBytes& properties) {
        made.SetProperties(table, properties.Block());
    }
    void SetOwnersProperties() {
        SetProperties("owner", PropertyBytes()
                                   .OfColumn("name", "Required", true)
                                   .OfColumn("name", "AllowZeroLength", false)
                                   .OfColumn("name", "DefaultValue", QStringLiteral("\"nobody\""))
                                   .OfColumn("fee", "DefaultValue", QStringLiteral("7.5"))
                                   .OfColumn("fee", "ValidationRule", QStringLiteral(">=0"))
                                   .OfTable("ValidationRule", QStringLiteral("[code] <> [name]"))
                                   .OfTable("ValidationText", QStringLiteral("A code is no name.")));
    }

    // On the real disk, as the engine opens it. Nothing is made of it any more after that.
    Database& Opened() {
        if (!database) {
            made.pages->EndGroup(GroupKind::Adds);
            QFile file(path);
            EXPECT_TRUE(file.open(QIODevice::WriteOnly));
            file.write(made.disk.files[made.path]->bytes);
            file.close();
            database = DBEngine::Instance().OpenDatabase(path);
            database->OnLostWrite([](const Error& error, const QString& write) {
                ADD_FAILURE() << error.what() << write.toStdString();
            });
        }
        return *database;
    }
    Failing Execute(const char* statement) {
        return FailureOf([&] { Opened().Execute(QString::fromUtf8(statement)); });
    }
    int NumberOf(const char* statement) { return Execute(statement).number; }

    // What other programs read then. The engine says itself that nothing is missing, and the file is sound.
    std::string Rows(const char* sql) {
        const std::vector<Error> differences = Opened().CheckWritten();
        EXPECT_TRUE(differences.empty()) << differences.front().what();
        EXPECT_EQ(FaultsOfFile(path), std::vector<std::string>());
        return ReadRows(path, sql).join(QLatin1String(", ")).toStdString();
    }

    RulesFile made{{Owners(), Houses(), Notes(), Keys(), Letters()}};
    QTemporaryDir folder;
    QString path = folder.filePath(QStringLiteral("property.mdb"));
    std::unique_ptr<Database> database;
};

TEST_F(JetRuledStatements, WhatAnInsertDoesNotNameHasItsDefault) {
    SetOwnersProperties();
    EXPECT_EQ(NumberOf("insert into owner (code) values ('A')"), 0);
    EXPECT_EQ(NumberOf("insert into owner (code, fee) values ('B', null)"), 0);
    EXPECT_EQ(NumberOf("insert into owner (code, name, fee) values ('C', 'Cole', 3)"), 0);
    EXPECT_EQ(Rows("select code, name, fee from owner order by code"),
              "A|nobody|7.5, B|nobody|NULL, C|Cole|3");
}

TEST_F(JetRuledStatements, SoDoesWhatACopyOfRowsDoesNotName) {
    SetOwnersProperties();
    EXPECT_EQ(NumberOf("insert into notes (text, number) values ('A', 1)"), 0);
    EXPECT_EQ(NumberOf("insert into notes (text) values ('B')"), 0);
    EXPECT_EQ(NumberOf("insert into owner (code, fee) select text, number from notes"), 0);
    EXPECT_EQ(Rows("select code, name, fee from owner order by code"), "A|nobody|1, B|nobody|NULL");
}

TEST_F(JetRuledStatements, SoDoesWhatARowSetLeavesAlone) {
    SetOwnersProperties();
    const auto rows =
        Opened().OpenRecordset(QStringLiteral("select * from owner"), dbOpenDynaset, dbOptimistic);
    rows->AddNew();
    rows->Fields(QStringLiteral("code")).Set(QStringLiteral("A"));
    rows->Update(dbUpdateRegular, false);
    rows->AddNew();
    rows->Fields(QStringLiteral("code")).Set(QStringLiteral("B"));
    rows->Fields(QStringLiteral("fee")).Set(Null());
    rows->Update(dbUpdateRegular, false);
    EXPECT_EQ(Rows("select code, name, fee from owner order by code"), "A|nobody|7.5, B|nobody|NULL");
}

// Inserts of a shape that wait for one another would be told later, as lost.
TEST_F(JetRuledStatements, ANullThatAnIndexRefusesFailsWithItsOwnStatement) {
    EXPECT_EQ(NumberOf("insert into keys (house, number) values ('A', 1)"), 0);
    for (int time = 0; time < 2; ++time) {
        EXPECT_EQ(NumberOf("insert into keys (number) values (2)"), ErrorNumber::NullNotAllowed);
    }
    EXPECT_EQ(Rows("select house from keys"), "A");
}

// Other programs need not store a text as it would be here.
TEST_F(JetRuledStatements, AnIndexFindsATextHoweverItIsStored) {
    const auto keys = made.Open("keys");
    RowCells cells;
    cells.Clear(2);
    cells.Set(0, ToStoredText(QStringLiteral("north"), false));
    keys->Rows().Insert(cells);
    EXPECT_EQ(NumberOf("insert into keys(house) values('north')"), 0);
    EXPECT_EQ(NumberOf("insert into keys(house) values('North')"), 0);
    EXPECT_EQ(NumberOf("update keys set [number] = 1 where house = 'north'"), 0);
    Opened().Flush();
    EXPECT_EQ(ReadRows(path, "select number from keys"),
              (QStringList{QStringLiteral("1.0"), QStringLiteral("1.0"), QStringLiteral("NULL")}));
}

// A text is never a number; compared with one it is what the number is written as.
TEST_F(JetRuledStatements, AnIndexFindsTheTextOfANumber) {
    for (const char* house : {"7", "07", "7.0", "7.5"}) {
        Opened().Execute(QStringLiteral("insert into keys(house) values('%1')").arg(QLatin1String(house)));
    }
    EXPECT_EQ(NumberOf("update keys set [number] = 1 where house = 7"), 0);
    EXPECT_EQ(NumberOf("update keys set [number] = 2 where house = 7.5"), 0);
    EXPECT_EQ(Rows("select number from keys"), "1.0, NULL, NULL, 2.0");
}

TEST_F(JetRuledStatements, ARowThatNoPageTakesFailsWithItsOwnStatement) {
    const QString text(255, QChar(0x044F));
    const QStringList values(9, QLatin1Char('\'') + text + QLatin1Char('\''));
    const QString statement = QStringLiteral("insert into letters (a, b, c, d, e, f, g, h, i) values (%1)")
                                  .arg(values.join(QLatin1Char(',')));
    EXPECT_EQ(NumberOf("insert into letters (a) values ('short')"), 0);
    for (int time = 0; time < 2; ++time) {
        EXPECT_EQ(NumberOf(statement.toUtf8().constData()), ErrorNumber::RecordTooLarge);
    }
    EXPECT_EQ(Rows("select a from letters"), "short");
}

// Keys of another order, or another version of it, are others than those that would be looked for.
TEST_F(JetRuledStatements, TextsOfAnUnknownOrderAreFoundWithoutTheirIndex) {
    for (const auto& [table, order, version] :
         {std::tuple("owner", GeneralSortOrder, std::uint8_t{1}),
          std::tuple("house", std::uint16_t{0x041F}, std::uint8_t{0})}) {
        TableLayout layout = ReadTableLayout(*made.pages, made.EntryOf(table).page);
        const RowPlace key =
            made.Open(table)->Rows().Insert(RulesFile::RowOf(layout, {{"code", QStringLiteral("B")}}));
        Table(*made.pages, layout).Update(key, {{0, QStringLiteral("A")}});
        layout.columns[0].sortOrder = order;
        layout.columns[0].sortVersion = version;
        WriteDefinition(*made.pages, layout);
    }
    for (const char* table : {"owner", "house"}) {
        const auto found = [&](const char* code) {
            const QString sql = QStringLiteral("select * from %1 where code = '%2'")
                                    .arg(QLatin1String(table), QLatin1String(code));
            return !Opened().OpenRecordset(sql, dbOpenForwardOnly, dbReadOnly)->Eof();
        };
        EXPECT_TRUE(found("A")) << table;
        EXPECT_FALSE(found("B")) << table;
    }
    EXPECT_EQ(NumberOf("update owner set name = 'a name' where code = 'A'"), 0);
    Opened().Flush();
    EXPECT_EQ(ReadRows(path, "select name from owner"), QStringList{QStringLiteral("a name")});
}

TEST_F(JetRuledStatements, ANewRowOfARowSetHoldsItsDefaultsAtOnce) {
    SetProperties("owner", PropertyBytes()
                               .OfColumn("code", "DefaultValue", QStringLiteral("NewCode()"))
                               .OfColumn("name", "DefaultValue", QStringLiteral("\"nobody\""))
                               .OfColumn("fee", "DefaultValue", QStringLiteral("7.5"))
                               .OfColumn("since", "DefaultValue", QStringLiteral("#1/31/2020#")));
    const auto owners = [this] {
        return Opened().OpenRecordset(QStringLiteral("select since, fee, name, code from owner"),
                                      dbOpenDynaset, dbOptimistic);
    };
    const auto rows = owners();
    rows->AddNew();
    const std::vector<Value> shown{rows->Fields(0).Get(), rows->Fields(1).Get(), rows->Fields(2).Get()};
    EXPECT_EQ(shown, (std::vector<Value>{FromDate(QDate(2020, 1, 31)), Currency::FromScaled(75000),
                                         QStringLiteral("nobody")}));
    EXPECT_TRUE(IsNull(rows->Fields(3).Get())) << "what isn't understood";
    rows->Fields(3).Set(QStringLiteral("A"));
    rows->Update(dbUpdateRegular, false);
    rows->AddNew();
    rows->Fields(2).Set(QStringLiteral("Ann"));
    rows->CancelUpdate(dbUpdateRegular);
    rows->AddNew();
    EXPECT_EQ(rows->Fields(2).Get(), Value(QStringLiteral("nobody"))) << "nothing is left of a row given up";
    const auto stored = owners();
    EXPECT_EQ((std::vector<Value>{stored->Fields(0).Get(), stored->Fields(1).Get(), stored->Fields(2).Get()}),
              shown);
}

TEST_F(JetRuledStatements, ARowThatBreaksARuleIsRefusedAtOnce) {
    SetOwnersProperties();
    EXPECT_EQ(NumberOf("insert into owner (code, name) values ('A', 'Ann')"), 0);
    EXPECT_EQ(NumberOf("insert into owner (code, name) values ('B', null)"), ErrorNumber::NullNotAllowed);
    EXPECT_EQ(NumberOf("insert into owner (code, name) values ('B', '')"), ErrorNumber::EmptyTextNotAllowed);
    EXPECT_EQ(NumberOf("insert into owner (code, fee) values ('B', -1)"), ErrorNumber::RuleBroken);
    const Failing inWords = Execute("insert into owner (code, name) values ('B', 'B')");
    EXPECT_EQ(inWords.number, ErrorNumber::RuleBrokenInWords);
    EXPECT_EQ(inWords.sentence, QStringLiteral("A code is no name."));
    EXPECT_EQ(NumberOf("update owner set fee = -1"), ErrorNumber::RuleBroken);
    EXPECT_EQ(NumberOf("insert into owner (code, name) values ('C', 'Cole')"), 0);
    EXPECT_EQ(Rows("select code, name, fee from owner order by code"), "A|Ann|7.5, C|Cole|7.5");
}

// Inserts into a table that refuses nothing wait for one another.
TEST_F(JetRuledStatements, AlsoWhereNoKeyCouldRefuseIt) {
    SetProperties("notes", PropertyBytes().OfColumn("number", "ValidationRule", QStringLiteral(">=0")));
    EXPECT_EQ(NumberOf("insert into notes (text, number) values ('A', 1)"), 0);
    EXPECT_EQ(NumberOf("insert into notes (text, number) values ('B', -1)"), ErrorNumber::RuleBroken);
    EXPECT_EQ(NumberOf("insert into notes (text, number) values ('C', 2)"), 0);
    EXPECT_EQ(Rows("select text from notes order by text"), "A, C");
}

TEST_F(JetRuledStatements, ACopyOfRowsIsTakenBackAsAWhole) {
    SetOwnersProperties();
    EXPECT_EQ(NumberOf("insert into notes (text, number) values ('A', 1)"), 0);
    EXPECT_EQ(NumberOf("insert into notes (text, number) values ('B', -1)"), 0);
    EXPECT_EQ(NumberOf("insert into owner (code, fee) select text, number from notes"),
              ErrorNumber::RuleBroken);
    EXPECT_EQ(Rows("select code from owner"), "");
    EXPECT_EQ(Rows("select text from notes order by text"), "A, B");
}

TEST_F(JetRuledStatements, ParentsAndChildrenAreInTheWay) {
    RelateHouses();
    EXPECT_EQ(NumberOf("insert into owner (code) values ('A')"), 0);
    EXPECT_EQ(NumberOf("insert into house (code, owner) values ('H', 'A')"), 0);
    EXPECT_EQ(NumberOf("insert into house (code, owner) values ('I', 'B')"), ErrorNumber::NoParent);
    EXPECT_EQ(NumberOf("delete from owner where code = 'A'"), ErrorNumber::HasChildren);
    EXPECT_EQ(NumberOf("delete from owner"), ErrorNumber::HasChildren);
    EXPECT_EQ(NumberOf("update owner set code = 'C'"), ErrorNumber::HasChildren);
    EXPECT_EQ(Rows("select owner.code, house.code from owner join house on house.owner = owner.code"), "A|H");
    // The children first, as the wipe of an import has to.
    EXPECT_EQ(NumberOf("delete from house"), 0);
    EXPECT_EQ(NumberOf("delete from owner"), 0);
    EXPECT_EQ(Rows("select code from owner"), "");
}

TEST_F(JetRuledStatements, ChildrenFollowTheirParents) {
    RelateHouses(Cascade, true);
    for (const char* statement :
         {"insert into owner (code) values ('A')", "insert into owner (code) values ('B')",
          "insert into house (code, owner) values ('H', 'A')",
          "insert into house (code, owner) values ('I', 'A')",
          "insert into house (code, owner) values ('J', 'B')"}) {
        EXPECT_EQ(NumberOf(statement), 0) << statement;
    }
    EXPECT_EQ(NumberOf("update owner set code = 'Z' where code = 'B'"), 0);
    EXPECT_EQ(Rows("select code, owner from house order by code"), "H|A, I|A, J|Z");
    EXPECT_EQ(NumberOf("delete from owner where code = 'A'"), 0);
    EXPECT_EQ(Rows("select code, owner from house"), "J|Z");
    EXPECT_EQ(NumberOf("delete from owner"), 0);
    EXPECT_EQ(Rows("select code, owner from house"), "");
}

TEST_F(JetRuledStatements, ChildrenMayStayWithoutAParent) {
    RelateHouses(SetNull);
    EXPECT_EQ(NumberOf("insert into owner (code) values ('A')"), 0);
    EXPECT_EQ(NumberOf("insert into house (code, owner) values ('H', 'A')"), 0);
    EXPECT_EQ(NumberOf("delete from owner where code = 'A'"), 0);
    EXPECT_EQ(Rows("select code, owner from house"), "H|NULL");
}

TEST_F(JetRuledStatements, ARowMayBeGoneWithAnotherBeforeItsTurn) {
    RelateParts(Cascade);
    EXPECT_EQ(NumberOf("insert into house (code) values ('H')"), 0);
    EXPECT_EQ(NumberOf("insert into house (code, part_of) values ('I', 'H')"), 0);
    EXPECT_EQ(NumberOf("insert into house (code) values ('J')"), 0);
    EXPECT_EQ(NumberOf("delete from house where code = 'H' or code = 'I'"), 0);
    EXPECT_EQ(Rows("select code from house"), "J");
}

TEST_F(JetRuledStatements, AnImportIsToldBeforehandWhatIsNotUnderstood) {
    SetOwnersProperties();
    SetProperties("house",
                  PropertyBytes().OfColumn("code", "ValidationRule", QStringLiteral("Eval([code]) > 2")));
    const auto require = [this](const QStringList& tables) {
        return FailureOf([&] { Opened().RequireWritable(tables); });
    };
    EXPECT_EQ(require({QStringLiteral("OWNER"), QStringLiteral("notes"), QStringLiteral("garden")}).number,
              0);
    const Failing failing = require({QStringLiteral("notes"), QStringLiteral("house")});
    EXPECT_EQ(failing.number, ErrorNumber::InvalidOperation);
    EXPECT_TRUE(failing.sentence.contains(QStringLiteral("house.code"))) << failing.sentence.toStdString();
    // Other statements go on as far as they can.
    EXPECT_EQ(NumberOf("insert into notes (text) values ('A')"), 0);
    EXPECT_EQ(NumberOf("insert into house (code) values ('A')"), ErrorNumber::InvalidOperation);
    EXPECT_EQ(Rows("select text from notes"), "A");
}

}  // namespace
}  // namespace engine::jet
