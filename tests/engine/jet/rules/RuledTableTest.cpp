#include "RuledTableTest.h"

namespace engine::jet {
namespace {

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

}  // namespace
}  // namespace engine::jet
