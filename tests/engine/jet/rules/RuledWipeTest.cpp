#include "RuledTableTest.h"

namespace engine::jet {
namespace {

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

}  // namespace
}  // namespace engine::jet
