#include "RulesFile.h"
#include "engine/jet/rules/RuledTables.h"

#include <functional>

namespace engine::jet {
namespace {

NewTable Owners() {
    NewTable table;
    table.name = QStringLiteral("owner");
    table.columns = {ColumnOf("code", ColumnType::Text, 10), ColumnOf("name", ColumnType::Text, 50)};
    table.indexes = {PrimaryKeyOver({"code"})};
    return table;
}

NewTable Houses() {
    NewTable table;
    table.name = QStringLiteral("house");
    table.columns = {ColumnOf("code", ColumnType::Text, 20), ColumnOf("owner", ColumnType::Text, 10),
                     ColumnOf("part_of", ColumnType::Text, 20), ColumnOf("notes", ColumnType::Memo)};
    table.indexes = {PrimaryKeyOver({"code"}), IndexOver("by owner", {"owner"}),
                     IndexOver("by part_of", {"part_of"})};
    return table;
}

NewTable Periods() {
    NewTable table;
    table.name = QStringLiteral("period");
    table.columns = {ColumnOf("house", ColumnType::Text, 20), ColumnOf("begins", ColumnType::DateTime),
                     ColumnOf("rent", ColumnType::Currency)};
    table.indexes = {PrimaryKeyOver({"house", "begins"}), IndexOver("by house", {"house"})};
    return table;
}

NewTable Letters() {
    NewTable table;
    table.name = QStringLiteral("letter");
    table.columns = {ColumnOf("id", ColumnType::Long), ColumnOf("house", ColumnType::Text, 20),
                     ColumnOf("begins", ColumnType::DateTime)};
    table.columns[0].countsUp = true;
    table.indexes = {PrimaryKeyOver({"id"}), IndexOver("by period", {"house", "begins"}),
                     IndexOver("by house", {"house"})};
    return table;
}

constexpr std::uint8_t Cascade = 1;
constexpr std::uint8_t SetNull = 2;

const QDate January(2026, 1, 1);

Value Text(const char* text) {
    return QString(QLatin1String(text));
}

class JetRuledTable : public ::testing::Test {
protected:
    void Relate(const RulesFile::Link& link) { file.Relate(link); }
    void RelateHouses(std::uint8_t onDelete = 0, bool cascadesUpdates = false) {
        Relate({"ownerhouse", "owner", "PrimaryKey", "house", "by owner", onDelete, cascadesUpdates});
    }
    void RelatePeriods(std::uint8_t onDelete = 0, bool cascadesUpdates = false) {
        Relate({"houseperiod", "house", "PrimaryKey", "period", "by house", onDelete, cascadesUpdates});
    }
    void RelateLetters(std::uint8_t onDelete = 0, bool cascadesUpdates = false) {
        Relate({"periodletter", "period", "PrimaryKey", "letter", "by period", onDelete, cascadesUpdates});
    }
    void RelateParts(std::uint8_t onDelete = 0, bool cascadesUpdates = false) {
        Relate({"househouse", "house", "PrimaryKey", "house", "by part_of", onDelete, cascadesUpdates});
    }

    RuledTables& Tables() {
        if (!tables) {
            catalogue.emplace(*file.pages);
            tables.emplace(*file.pages, *catalogue);
        }
        return *tables;
    }
    RuledTable& Open(const char* table) { return Tables().Open(QLatin1String(table)); }

    // As a statement does: what fails leaves nothing behind.
    template <class Action>
    Failing Try(Action action) {
        const PagedFile::Mark mark = file.pages->SetMark();
        const Failing failing = FailureOf(action);
        if (failing.number != 0) {
            file.pages->UndoTo(mark);
        }
        file.pages->EndStatement();
        return failing;
    }
    Failing Insert(const char* table, std::initializer_list<std::pair<const char*, Value>> values) {
        RuledTable& to = Open(table);
        const std::vector<Value> row = RulesFile::RowOf(to.Layout(), values);
        return Try([&] { to.Insert(row, std::vector<bool>(row.size(), true)); });
    }
    int AddOwner(const char* code) { return Insert("owner", {{"code", Text(code)}}).number; }
    int AddHouse(const char* code, const Value& owner, const Value& partOf = Null()) {
        return Insert("house", {{"code", Text(code)}, {"owner", owner}, {"part_of", partOf}}).number;
    }
    int AddPeriod(const Value& house, int month) {
        return Insert("period", {{"house", house}, {"begins", FromDate(January.addMonths(month))}}).number;
    }
    int AddLetter(const Value& house, const Value& begins) {
        return Insert("letter", {{"house", house}, {"begins", begins}}).number;
    }

    // The rows of a table whose first column has this value, and all rows.
    RowPlace Find(const char* table, const Value& first) {
        const Table& rows = Open(table).Rows();
        for (auto key = rows.FirstRow(); key; key = rows.RowBehind(*key)) {
            if (rows.ValueOf(rows.Read(*key), 0) == first) {
                return *key;
            }
        }
        ADD_FAILURE() << "no such row in " << table;
        return {};
    }
    Failing Delete(const char* table, const char* code) {
        return Try([&] { Open(table).Delete(Find(table, Text(code))); });
    }
    Failing Change(const char* table, const char* code,
                   std::initializer_list<std::pair<const char*, Value>> values) {
        std::vector<CellChange> changes;
        for (const auto& [column, value] : values) {
            changes.push_back({Open(table).Layout().FindColumn(QLatin1String(column)).value(), value});
        }
        return Try([&] { Open(table).Update(Find(table, Text(code)), changes); });
    }
    Failing Wipe(const char* table) {
        return Try([&] { Open(table).Wipe(); });
    }

    // What a column of all rows holds, in their order, with "-" for null.
    QString Column(const char* table, const char* column) {
        const Table& rows = Open(table).Rows();
        QStringList texts;
        for (auto key = rows.FirstRow(); key; key = rows.RowBehind(*key)) {
            const Value value =
                rows.ValueOf(rows.Read(*key), rows.Layout().FindColumn(QLatin1String(column)).value());
            texts += IsNull(value) ? QStringLiteral("-") : ToText(value);
        }
        return texts.join(QLatin1Char(' '));
    }
    int RowsOf(const char* table) { return static_cast<int>(Open(table).Rows().Figures().Rows()); }

    static bool Tells(const Failing& failing, std::initializer_list<const char*> words) {
        return std::all_of(words.begin(), words.end(), [&failing](const char* word) {
            return failing.sentence.contains(QLatin1String(word));
        });
    }

    RulesFile file{{Owners(), Houses(), Periods(), Letters()}};
    std::optional<Catalogue> catalogue;
    std::optional<RuledTables> tables;
};

TEST_F(JetRuledTable, AChildNeedsItsParent) {
    RelateHouses();
    EXPECT_EQ(AddOwner("A"), 0);
    EXPECT_EQ(AddHouse("h1", Text("A")), 0);
    const Failing failing = Insert("house", {{"code", Text("h2")}, {"owner", Text("B")}});
    EXPECT_EQ(failing.number, 3201);
    EXPECT_TRUE(Tells(failing, {"'house'", "'owner'", "owner, with \"B\""}))
        << failing.sentence.toStdString();
    EXPECT_EQ(Column("house", "code"), QStringLiteral("h1"));
}

TEST_F(JetRuledTable, TablesThatAreNotRelatedAskNothing) {
    EXPECT_EQ(AddHouse("h1", Text("nobody")), 0);
    EXPECT_EQ(AddOwner("A"), 0);
    EXPECT_EQ(Delete("owner", "A").number, 0);
    EXPECT_EQ(Wipe("house").number, 0);
}

TEST_F(JetRuledTable, KeysAreComparedAsTheIndexSeesThem) {
    RelateHouses();
    AddOwner("OWN003");
    EXPECT_EQ(AddHouse("h1", Text("own003")), 0);
    EXPECT_EQ(AddHouse("h2", Text("Own003  ")), 0);
    EXPECT_EQ(AddHouse("h3", Text("own3")), ErrorNumber::NoParent);
    EXPECT_EQ(Change("owner", "OWN003", {{"code", Text("Own003")}}).number, 0);
    EXPECT_EQ(Column("house", "owner"), QStringLiteral("own003 Own003  "));
    EXPECT_EQ(Delete("owner", "Own003").number, ErrorNumber::HasChildren);
}

TEST_F(JetRuledTable, NullHasNoParentAndAnEmptyTextNeedsOne) {
    RelateHouses();
    EXPECT_EQ(AddHouse("h1", Null()), 0);
    EXPECT_EQ(AddHouse("h2", Text("")), ErrorNumber::NoParent);
    EXPECT_EQ(AddOwner(""), 0);
    EXPECT_EQ(AddHouse("h2", Text("")), 0);
}

TEST_F(JetRuledTable, AKeyOfSeveralColumnsIsNullAltogetherOrNotAtAll) {
    RelateLetters();
    EXPECT_EQ(AddPeriod(Text("h1"), 0), 0);
    EXPECT_EQ(AddLetter(Null(), Null()), 0);
    EXPECT_EQ(AddLetter(Text("h1"), Null()), ErrorNumber::NoParent);
    EXPECT_EQ(AddLetter(Null(), FromDate(January)), ErrorNumber::NoParent);
    EXPECT_EQ(AddLetter(Text("H1"), FromDate(January)), 0);
    EXPECT_EQ(AddLetter(Text("h1"), FromDate(January.addDays(1))), ErrorNumber::NoParent);
}

// Only an index that isn't the primary key has such a parent.
TEST_F(JetRuledTable, AKeyWithANullHasNoParentEvenIfThereIsOneLikeIt) {
    NewTable parent = Periods();
    parent.indexes[0].isPrimaryKey = false;
    parent.indexes[0].isUnique = true;
    RulesFile one({parent, Letters()});
    one.Relate({"periodletter", "period", "PrimaryKey", "letter", "by period"});
    const Catalogue entries(*one.pages);
    RuledTables all(*one.pages, entries);
    RuledTable& periods = all.Open(QStringLiteral("period"));
    RuledTable& letters = all.Open(QStringLiteral("letter"));
    periods.Insert({Text("h1"), Null(), Null()}, std::vector<bool>(3, true));
    EXPECT_EQ(FailureOf([&] {
                  letters.Insert({Null(), Text("h1"), Null()}, std::vector<bool>(3, true));
              }).number,
              ErrorNumber::NoParent);
}

TEST_F(JetRuledTable, AParentIsAskedForBeforeTheIndexesAre) {
    RelateHouses();
    AddHouse("h1", Null());
    EXPECT_EQ(AddHouse("h1", Text("nobody")), ErrorNumber::NoParent);
    EXPECT_EQ(Insert("house", {{"owner", Text("nobody")}}).number, ErrorNumber::NoParent);
    EXPECT_EQ(Insert("house", {{"owner", Null()}}).number, ErrorNumber::NullInPrimaryKey);
    EXPECT_EQ(AddHouse("h1", Null()), ErrorNumber::DuplicateKey);
}

TEST_F(JetRuledTable, AChildsChangedKeyNeedsAParentToo) {
    RelateHouses();
    AddOwner("A");
    AddOwner("B");
    AddHouse("h1", Text("A"));
    EXPECT_EQ(Change("house", "h1", {{"owner", Text("C")}}).number, ErrorNumber::NoParent);
    EXPECT_EQ(Change("house", "h1", {{"owner", Text("b")}}).number, 0);
    EXPECT_EQ(Change("house", "h1", {{"owner", Null()}}).number, 0);
    EXPECT_EQ(Column("house", "owner"), QStringLiteral("-"));
}

// Such rows come from programs that didn't look.
TEST_F(JetRuledTable, AChildWithoutAParentMayChangeInOtherColumns) {
    RelateHouses();
    Open("house").Rows().Insert(
        RulesFile::RowOf(Open("house").Layout(), {{"code", Text("h1")}, {"owner", Text("gone")}}));
    EXPECT_EQ(Change("house", "h1", {{"notes", Text("x")}}).number, 0);
    EXPECT_EQ(Change("house", "h1", {{"owner", Text("GONE")}, {"notes", Text("y")}}).number, 0);
    EXPECT_EQ(Change("house", "h1", {{"owner", Text("other")}}).number, ErrorNumber::NoParent);
}

TEST_F(JetRuledTable, ChildrenAreInTheWayOfTheirParent) {
    RelateHouses();
    AddOwner("A");
    AddOwner("B");
    AddHouse("h1", Text("A"));
    const Failing failing = Delete("owner", "A");
    EXPECT_EQ(failing.number, 3200);
    EXPECT_TRUE(Tells(failing, {"'owner'", "'house'"})) << failing.sentence.toStdString();
    EXPECT_EQ(Change("owner", "A", {{"code", Text("C")}}).number, ErrorNumber::HasChildren);
    EXPECT_EQ(Change("owner", "A", {{"name", Text("x")}, {"code", Text("a")}}).number, 0);
    EXPECT_EQ(Delete("owner", "B").number, 0);
    EXPECT_EQ(Delete("house", "h1").number, 0);
    EXPECT_EQ(Delete("owner", "a").number, 0);
    EXPECT_EQ(RowsOf("owner"), 0);
}

TEST_F(JetRuledTable, CascadesDeleteChildrenAndTheirChildren) {
    RelateHouses(Cascade);
    RelatePeriods(Cascade);
    RelateLetters(Cascade);
    AddOwner("A");
    AddOwner("B");
    AddHouse("h1", Text("A"));
    AddHouse("h2", Text("B"));
    for (int month = 0; month < 3; ++month) {
        AddPeriod(Text("h1"), month);
        AddPeriod(Text("h2"), month);
    }
    EXPECT_EQ(AddLetter(Text("h1"), FromDate(January)), 0);
    EXPECT_EQ(AddLetter(Null(), Null()), 0);
    EXPECT_EQ(Delete("owner", "A").number, 0);
    EXPECT_EQ(Column("owner", "code"), QStringLiteral("B"));
    EXPECT_EQ(Column("house", "code"), QStringLiteral("h2"));
    EXPECT_EQ(Column("period", "house"), QStringLiteral("h2 h2 h2"));
    EXPECT_EQ(Column("letter", "house"), QStringLiteral("-"));
}

// The periods would go, but one of them has a letter: nothing is touched before that is known.
TEST_F(JetRuledTable, ARefusalAtALowerLevelIsMetBeforeAnythingGoes) {
    RelatePeriods(Cascade);
    RelateLetters();
    AddHouse("h1", Null());
    for (int month = 0; month < 3; ++month) {
        AddPeriod(Text("h1"), month);
    }
    AddLetter(Text("h1"), FromDate(January.addMonths(2)));
    file.pages->EndGroup(GroupKind::Adds);
    const RowPlace house = Find("house", Text("h1"));
    const Failing failing = FailureOf([&] { Open("house").Delete(house); });
    EXPECT_EQ(failing.number, ErrorNumber::HasChildren);
    EXPECT_TRUE(Tells(failing, {"'period'", "'letter'"})) << failing.sentence.toStdString();
    EXPECT_FALSE(file.pages->HasChanges());
    EXPECT_EQ(RowsOf("period"), 3);
}

// The letter belongs to the house and to a period of it, which takes the letter along.
TEST_F(JetRuledTable, AChildThatGoesByAnotherRelationIsNotInTheWay) {
    RelatePeriods(Cascade);
    RelateLetters(Cascade);
    Relate({"houseletter", "house", "PrimaryKey", "letter", "by house"});
    AddHouse("h1", Null());
    AddPeriod(Text("h1"), 0);
    EXPECT_EQ(AddLetter(Text("h1"), FromDate(January)), 0);
    EXPECT_EQ(Delete("house", "h1").number, 0);
    EXPECT_EQ(RowsOf("letter"), 0);
}

TEST_F(JetRuledTable, ChildrenMayStayWithoutAKey) {
    RelateHouses(SetNull);
    AddOwner("A");
    AddOwner("B");
    AddHouse("h1", Text("A"));
    AddHouse("h2", Text("B"));
    EXPECT_EQ(Delete("owner", "A").number, 0);
    EXPECT_EQ(Column("house", "owner"), QStringLiteral("- B"));
}

TEST_F(JetRuledTable, AKeyThatIsRequiredCannotBeTakenAway) {
    RelateHouses(SetNull);
    file.SetProperties("house", PropertyBytes().OfColumn("owner", "Required", true).Block());
    AddOwner("A");
    AddHouse("h1", Text("A"));
    EXPECT_EQ(Delete("owner", "A").number, ErrorNumber::NullNotAllowed);
    EXPECT_EQ(Column("owner", "code"), QStringLiteral("A"));
    EXPECT_EQ(Column("house", "owner"), QStringLiteral("A"));
}

// The house belongs to the owner by two columns, and goes by one of them.
TEST_F(JetRuledTable, AChildThatGoesAnywayKeepsItsKey) {
    RelateHouses(Cascade);
    Relate({"owner2house", "owner", "PrimaryKey", "house", "by part_of", SetNull});
    file.SetProperties("house", PropertyBytes().OfColumn("part_of", "Required", true).Block());
    AddOwner("A");
    EXPECT_EQ(AddHouse("h1", Text("A"), Text("A")), 0);
    EXPECT_EQ(Delete("owner", "A").number, 0);
    EXPECT_EQ(RowsOf("house"), 0);
}

TEST_F(JetRuledTable, CascadesGiveChildrenAndTheirChildrenTheNewKey) {
    RelatePeriods(0, true);
    RelateLetters(0, true);
    AddHouse("h1", Null());
    AddHouse("h2", Null());
    AddPeriod(Text("H1"), 0);
    AddPeriod(Text("h1"), 1);
    AddPeriod(Text("h2"), 0);
    AddLetter(Text("h1"), FromDate(January));
    AddLetter(Text("h2"), FromDate(January));
    EXPECT_EQ(Change("house", "h1", {{"code", Text("H1")}}).number, 0);
    EXPECT_EQ(Column("period", "house"), QStringLiteral("H1 h1 h2"));
    EXPECT_EQ(Change("house", "H1", {{"code", Text("h9")}, {"notes", Text("x")}}).number, 0);
    EXPECT_EQ(Column("period", "house"), QStringLiteral("h9 h9 h2"));
    EXPECT_EQ(Column("letter", "house"), QStringLiteral("h9 h2"));
    EXPECT_EQ(Column("letter", "begins"), QStringLiteral("2026-01-01 2026-01-01"));
    EXPECT_EQ(Delete("house", "h9").number, ErrorNumber::HasChildren);
}

TEST_F(JetRuledTable, ACascadeLeavesColumnsAloneThatStayTheSame) {
    RelateLetters(0, true);
    AddPeriod(Text("h1"), 0);
    AddLetter(Text("H1"), FromDate(January));
    EXPECT_EQ(Change("period", "h1", {{"begins", FromDate(January.addDays(1))}}).number, 0);
    EXPECT_EQ(Column("letter", "begins"), QStringLiteral("2026-01-02"));
    EXPECT_EQ(Column("letter", "house"), QStringLiteral("H1"));
}

TEST_F(JetRuledTable, ACascadeThatIsRefusedChangesNothing) {
    RelatePeriods(0, true);
    RelateLetters();
    AddHouse("h1", Null());
    AddPeriod(Text("h1"), 0);
    AddPeriod(Text("h1"), 1);
    AddLetter(Text("h1"), FromDate(January.addMonths(1)));
    EXPECT_EQ(Change("house", "h1", {{"code", Text("h2")}}).number, ErrorNumber::HasChildren);
    EXPECT_EQ(Column("house", "code"), QStringLiteral("h1"));
    EXPECT_EQ(Column("period", "house"), QStringLiteral("h1 h1"));
}

TEST_F(JetRuledTable, ACascadeKeepsToRulesAndUniqueKeys) {
    RelatePeriods(0, true);
    file.SetProperties(
        "period", PropertyBytes().OfColumn("house", "ValidationRule", QStringLiteral("Like \"h*\"")).Block());
    AddHouse("h1", Null());
    AddPeriod(Text("h1"), 0);
    EXPECT_EQ(Change("house", "h1", {{"code", Text("x1")}}).number, ErrorNumber::RuleBroken);
    // An orphan that another program has left has the key already.
    Open("period").Rows().Insert(
        RulesFile::RowOf(Open("period").Layout(), {{"house", Text("h2")}, {"begins", FromDate(January)}}));
    EXPECT_EQ(Change("house", "h1", {{"code", Text("h2")}}).number, ErrorNumber::DuplicateKey);
    EXPECT_EQ(Change("house", "h1", {{"code", Text("h3")}}).number, 0);
    EXPECT_EQ(Column("period", "house"), QStringLiteral("h3 h2"));
}

TEST_F(JetRuledTable, ARowMayBeItsOwnParent) {
    RelateParts();
    EXPECT_EQ(AddHouse("h1", Null(), Text("H1")), 0);
    EXPECT_EQ(AddHouse("h2", Null(), Text("h3")), ErrorNumber::NoParent);
    EXPECT_EQ(AddHouse("h2", Null(), Text("h1")), 0);
    EXPECT_EQ(Change("house", "h1", {{"notes", Text("x")}}).number, 0);
    EXPECT_EQ(Delete("house", "h1").number, ErrorNumber::HasChildren);
    EXPECT_EQ(Delete("house", "h2").number, 0);
    EXPECT_EQ(Delete("house", "h1").number, 0);
}

TEST_F(JetRuledTable, ARowThatIsItsOwnParentChangesItsKeyOnlyAsAWhole) {
    RelateParts();
    AddHouse("h1", Null(), Text("h1"));
    EXPECT_EQ(Change("house", "h1", {{"code", Text("h2")}}).number, ErrorNumber::HasChildren);
    EXPECT_EQ(Change("house", "h1", {{"part_of", Text("h2")}}).number, ErrorNumber::NoParent);
    EXPECT_EQ(Change("house", "h1", {{"code", Text("h2")}, {"part_of", Text("h2")}}).number, 0);
    EXPECT_EQ(Change("house", "h2", {{"code", Text("h3")}, {"part_of", Null()}}).number, 0);
    EXPECT_EQ(Change("house", "h3", {{"code", Text("h4")}, {"part_of", Text("h3")}}).number,
              ErrorNumber::NoParent);
    EXPECT_EQ(Column("house", "part_of"), QStringLiteral("-"));
}

TEST_F(JetRuledTable, ARowThatIsItsOwnParentFollowsItself) {
    RelateParts(0, true);
    AddHouse("h1", Null(), Text("h1"));
    AddHouse("h2", Null(), Text("h1"));
    EXPECT_EQ(Change("house", "h1", {{"code", Text("h9")}}).number, 0);
    EXPECT_EQ(Column("house", "code"), QStringLiteral("h9 h2"));
    EXPECT_EQ(Column("house", "part_of"), QStringLiteral("h9 h9"));
}

// h1 belongs to h3, h3 to h2, h2 to h1.
TEST_F(JetRuledTable, ACircleGoesAsAWhole) {
    RelateParts(Cascade);
    AddHouse("h1", Null());
    AddHouse("h2", Null(), Text("h1"));
    AddHouse("h3", Null(), Text("h2"));
    AddHouse("h4", Null());
    EXPECT_EQ(Change("house", "h1", {{"part_of", Text("h3")}}).number, 0);
    EXPECT_EQ(Delete("house", "h2").number, 0);
    EXPECT_EQ(Column("house", "code"), QStringLiteral("h4"));
}

TEST_F(JetRuledTable, ALongChainGoesAsAWhole) {
    RelateParts(Cascade);
    AddHouse("h0", Null());
    for (int number = 1; number <= 3000; ++number) {
        const QByteArray code = "h" + QByteArray::number(number);
        ASSERT_EQ(AddHouse(code, Null(), QStringLiteral("h%1").arg(number - 1)), 0);
    }
    EXPECT_EQ(Delete("house", "h0").number, 0);
    EXPECT_EQ(RowsOf("house"), 0);
}

TEST_F(JetRuledTable, AnAutomaticNumberMayBeAKeyOfTheChild) {
    NewTable parent;
    parent.name = QStringLiteral("p");
    parent.columns = {ColumnOf("n", ColumnType::Long)};
    parent.indexes = {PrimaryKeyOver({"n"})};
    NewTable child = parent;
    child.name = QStringLiteral("c");
    child.columns[0].countsUp = true;
    RulesFile numbers({parent, child});
    numbers.Relate({"pc", "p", "PrimaryKey", "c", "PrimaryKey"});
    const Catalogue entries(*numbers.pages);
    RuledTables both(*numbers.pages, entries);
    RuledTable& p = both.Open(QStringLiteral("p"));
    RuledTable& c = both.Open(QStringLiteral("c"));
    EXPECT_EQ(FailureOf([&] { c.Insert({Null()}, {false}); }).number, ErrorNumber::NoParent);
    p.Insert({qint64{1}}, {true});
    EXPECT_EQ(FailureOf([&] { c.Insert({Null()}, {false}); }).number, 0);
    EXPECT_EQ(FailureOf([&] { c.Insert({Null()}, {false}); }).number, ErrorNumber::NoParent);
}

TEST_F(JetRuledTable, AWipeOfAParentIsRefusedForChildrenWithAKey) {
    RelateHouses();
    AddOwner("A");
    AddHouse("h1", Null());
    EXPECT_EQ(Wipe("owner").number, 0);
    AddOwner("A");
    AddHouse("h2", Text("A"));
    EXPECT_EQ(Wipe("owner").number, ErrorNumber::HasChildren);
    EXPECT_EQ(RowsOf("owner"), 1);
    EXPECT_EQ(Wipe("house").number, 0);
    EXPECT_EQ(Wipe("owner").number, 0);
    EXPECT_EQ(RowsOf("owner"), 0);
}

TEST_F(JetRuledTable, AWipeTakesChildrenAlongThatHaveAKey) {
    RelateHouses(Cascade);
    RelatePeriods(Cascade);
    AddOwner("A");
    AddHouse("h1", Text("A"));
    AddPeriod(Text("h1"), 0);
    EXPECT_EQ(Wipe("owner").number, 0);
    EXPECT_EQ(RowsOf("owner") + RowsOf("house") + RowsOf("period"), 0);
    AddOwner("A");
    AddHouse("h1", Text("A"));
    AddHouse("h2", Null());
    AddPeriod(Text("h1"), 0);
    AddPeriod(Text("h2"), 0);
    EXPECT_EQ(Wipe("owner").number, 0);
    EXPECT_EQ(RowsOf("owner"), 0);
    EXPECT_EQ(Column("house", "code"), QStringLiteral("h2"));
    EXPECT_EQ(Column("period", "house"), QStringLiteral("h2"));
}

TEST_F(JetRuledTable, AWipeIsRefusedForGrandchildrenInTheWay) {
    RelateHouses(Cascade);
    RelatePeriods();
    AddOwner("A");
    AddHouse("h1", Text("A"));
    AddPeriod(Text("h1"), 0);
    EXPECT_EQ(Wipe("owner").number, ErrorNumber::HasChildren);
    AddHouse("h2", Null());
    EXPECT_EQ(Wipe("owner").number, ErrorNumber::HasChildren);
    EXPECT_EQ(RowsOf("owner"), 1);
    EXPECT_EQ(RowsOf("house"), 2);
}

TEST_F(JetRuledTable, AWipeTakesKeysAway) {
    RelateHouses(SetNull);
    AddOwner("A");
    AddHouse("h1", Text("A"));
    EXPECT_EQ(Wipe("owner").number, 0);
    EXPECT_EQ(RowsOf("owner"), 0);
    EXPECT_EQ(Column("house", "owner"), QStringLiteral("-"));
}

TEST_F(JetRuledTable, ARelationOfATableWithItselfIsNotInTheWayOfAWipe) {
    RelateParts();
    AddHouse("h1", Null());
    AddHouse("h2", Null(), Text("h1"));
    EXPECT_EQ(Wipe("house").number, 0);
    EXPECT_EQ(RowsOf("house"), 0);
}

TEST_F(JetRuledTable, AWipeMeetsEachTableOfACircleOnce) {
    RelateParts(Cascade);
    AddHouse("h1", Null(), Text("h1"));
    AddHouse("h2", Null(), Text("h1"));
    EXPECT_EQ(Wipe("house").number, 0);
    EXPECT_EQ(RowsOf("house"), 0);
}

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

TEST_F(JetRuledTable, AnUpdateIsCheckedWithoutAnyRelation) {
    file.SetProperties("owner", PropertyBytes().OfColumn("name", "Required", true).Block());
    EXPECT_EQ(Insert("owner", {{"code", Text("A")}, {"name", Text("x")}}).number, 0);
    EXPECT_EQ(Change("owner", "A", {{"name", Null()}}).number, ErrorNumber::NullNotAllowed);
    EXPECT_EQ(Change("owner", "A", {{"name", Text("y")}}).number, 0);
    EXPECT_EQ(Column("owner", "name"), QStringLiteral("y"));
}

TEST_F(JetRuledTable, DefaultsAndRulesComeWithTheRow) {
    RelateHouses();
    file.SetProperties("house", PropertyBytes()
                                    .OfColumn("owner", "DefaultValue", QStringLiteral("\"A\""))
                                    .OfColumn("code", "ValidationRule", QStringLiteral("Len(code)<3"))
                                    .Block());
    RuledTable& houses = Open("house");
    const std::vector<Value> row = RulesFile::RowOf(houses.Layout(), {{"code", Text("h1")}});
    const std::vector<bool> isGiven{true, false, false, false};
    EXPECT_EQ(Try([&] { houses.Insert(row, isGiven); }).number, ErrorNumber::NoParent);
    AddOwner("A");
    EXPECT_EQ(Try([&] { houses.Insert(row, isGiven); }).number, 0);
    EXPECT_EQ(Column("house", "owner"), QStringLiteral("A"));
    EXPECT_EQ(AddHouse("h10", Text("nobody")), ErrorNumber::RuleBroken);
    EXPECT_EQ(Change("house", "h1", {{"code", Text("h10")}}).number, ErrorNumber::RuleBroken);
    EXPECT_EQ(Change("house", "h1", {{"owner", Null()}}).number, 0);
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
