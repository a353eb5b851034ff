#include "IndexTreeTest.h"

#include "FailureOf.h"
#include "engine/jet/EntryList.h"
#include "engine/jet/IndexRules.h"

#include <algorithm>
#include <array>

namespace engine::jet {

namespace {

Key KeyOf(int number) {
    Key key;
    AppendColumnKey(key, {ColumnType::Long}, qint64(number));
    return key;
}

/// Keys of 100 bytes. A leaf is full with some 35 of them, depending on how many bytes they share.
Key LongKey(int number) {
    Key key = KeyOf(number);
    key.resize(100);
    return key;
}

class IndexTreeTest : public ::testing::Test {
protected:
    void ExpectSound() { EXPECT_EQ(index.Check().faults, std::vector<std::string>()); }

    void InsertLong(int from, int to) {
        const int step = from < to ? 1 : -1;
        for (int number = from; number != to; number += step) {
            index.tree->Insert(LongKey(number), 1);
        }
    }

    void RemoveLong(int from, int to) {
        for (int number = from; number != to; ++number) {
            EXPECT_TRUE(index.tree->Remove(LongKey(number), 1));
        }
    }

    static Key KeyAt(const IndexCursor& cursor) {
        return {cursor.EntryKey().begin(), cursor.EntryKey().end()};
    }

    IndexPage ViewOf(PageNumber page) { return {index.store.Read(page), page, index.table}; }
    /// The leaves of a tree of two levels, the tail included.
    std::vector<PageNumber> Leaves() {
        const IndexPage root = ViewOf(index.root);
        std::vector<PageNumber> leaves = {root.ChildAt(0)};
        while (ViewOf(leaves.back()).Next() != 0) {
            leaves.push_back(ViewOf(leaves.back()).Next());
        }
        return leaves;
    }
    /// The number of the key that a leaf begins with.
    int FirstOf(PageNumber leaf) {
        const Key entry = ViewOf(leaf).EntryAt(0);
        return static_cast<int>(NumberOf(KeyView(entry).subspan(1)) ^ 0x80000000);
    }
    void Empty(PageNumber page) {
        Page& leaf = index.store.Change(page);
        EntryList(ViewOf(page), 0, 0, {}).Write(leaf, 0, 0);
    }

    std::vector<std::uint32_t> RowsForwards(IndexCursor cursor) {
        std::vector<std::uint32_t> rows;
        for (; cursor.HasEntry(); cursor.Next()) {
            rows.push_back(cursor.Row());
        }
        return rows;
    }

    OwnIndex index;
};

TEST_F(IndexTreeTest, AnEmptyIndexHasNoEntry) {
    ExpectSound();
    EXPECT_FALSE(index.tree->First().HasEntry());
    EXPECT_FALSE(index.tree->Last().HasEntry());
    EXPECT_FALSE(index.tree->AtLeast(KeyOf(1)).HasEntry());
    EXPECT_FALSE(index.tree->Remove(KeyOf(1), 1));
}

TEST_F(IndexTreeTest, AnEntryIsTheKeyAndThenTheRowHighestByteFirst) {
    index.tree->Insert(FromHex("7F80000001"), 0x00001203);
    EXPECT_EQ(HexOf(KeyView(index.store.Read(index.root)).subspan(480, 9)), "7F8000000100001203");
    ExpectSound();
}

TEST_F(IndexTreeTest, EqualKeysAreOrderedByRow) {
    for (const std::uint32_t row : {0x20001U, 0x10005U, 0x10FFU, 0x30000U}) {
        index.tree->Insert(KeyOf(7), row);
    }
    EXPECT_EQ(RowsForwards(index.tree->First()),
              (std::vector<std::uint32_t>{0x10FF, 0x10005, 0x20001, 0x30000}));
}

TEST_F(IndexTreeTest, TheRootKeepsItsPageAndGetsATail) {
    InsertLong(0, 40);
    ExpectSound();
    EXPECT_EQ(index.store.Read(index.root)[0], 3);
    EXPECT_EQ(ViewOf(index.root).Tail(), Leaves().back());
    EXPECT_EQ(Leaves().size(), 2U);
    EXPECT_EQ(index.Check().tails, 1);
}

TEST_F(IndexTreeTest, RisingKeysFillTheirLeaves) {
    InsertLong(0, 3400);
    ExpectSound();
    EXPECT_LE(index.Check().leaves, 100);
    EXPECT_EQ(index.Check().levels, 3);
}

TEST_F(IndexTreeTest, FallingKeysLeaveThemHalfFull) {
    InsertLong(3400, 0);
    ExpectSound();
    EXPECT_LE(index.Check().leaves, 205);
}

TEST_F(IndexTreeTest, ALeafIsHalvedWhereKeysComeInBetween) {
    for (int number = 0; index.Check().leaves == 1; ++number) {
        index.tree->Insert(LongKey(number * 7 % 100), 1);
    }
    ExpectSound();
    ASSERT_EQ(Leaves().size(), 2U);
    EXPECT_GE(ViewOf(Leaves()[0]).Used(), 1500U);
    EXPECT_GE(ViewOf(Leaves()[1]).Used(), 1500U);
}

TEST_F(IndexTreeTest, AnEntryThatBecomesTheLastOfItsLeafIsToldAbove) {
    InsertLong(0, 100);
    const int last = FirstOf(Leaves()[1]) - 1;
    index.tree->Insert(LongKey(last), 2);
    ExpectSound();
    EXPECT_TRUE(index.tree->Remove(LongKey(last), 2));
    EXPECT_TRUE(index.tree->Remove(LongKey(last), 1));
    ExpectSound();
}

TEST_F(IndexTreeTest, WalksGoOnFromLeafToLeafBothWays) {
    InsertLong(0, 200);
    int number = 150;
    for (IndexCursor cursor = index.tree->AtLeast(LongKey(150)); cursor.HasEntry(); cursor.Next()) {
        EXPECT_EQ(KeyAt(cursor), LongKey(number++));
    }
    EXPECT_EQ(number, 200);
    for (IndexCursor cursor = index.tree->Before(LongKey(150)); cursor.HasEntry(); cursor.Previous()) {
        EXPECT_EQ(KeyAt(cursor), LongKey(--number - 50));
    }
    EXPECT_EQ(number, 50);
}

TEST_F(IndexTreeTest, AWalkMayTurnAround) {
    InsertLong(0, 100);
    IndexCursor cursor = index.tree->AtLeast(LongKey(50));
    for (int times = 0; times < 1000; ++times) {
        for (int steps = 0; steps < 40; ++steps) {
            cursor.Next();
        }
        for (int steps = 0; steps < 40; ++steps) {
            cursor.Previous();
        }
    }
    EXPECT_EQ(KeyAt(cursor), LongKey(50));
}

TEST_F(IndexTreeTest, ALeafThatLosesItsLastEntryIsGivenBack) {
    InsertLong(0, 340);
    const std::vector<PageNumber> leaves = Leaves();
    RemoveLong(FirstOf(leaves[3]), FirstOf(leaves[4]));
    ExpectSound();
    EXPECT_EQ(Leaves().size(), leaves.size() - 1);
    EXPECT_FALSE(index.pages.pages.contains(leaves[3]));
}

TEST_F(IndexTreeTest, ATailThatLosesItsLastEntryIsGivenBack) {
    InsertLong(0, 110);
    const int last = FirstOf(Leaves().back());
    RemoveLong(last, 110);
    ExpectSound();
    EXPECT_EQ(index.Check().tails, 0);
    InsertLong(last, 200);
    ExpectSound();
    EXPECT_EQ(index.Check().tails, 1);
}

TEST_F(IndexTreeTest, ANodeThatKeepsItsTailAloneGivesItAnEntry) {
    InsertLong(0, 3400);
    ASSERT_EQ(index.Check().levels, 3);
    RemoveLong(1200, 3399);
    ExpectSound();
    EXPECT_EQ(index.Check().tails, 0);
}

TEST_F(IndexTreeTest, ARootWithOneChildTakesItsPlace) {
    InsertLong(0, 3400);
    RemoveLong(30, 3400);
    ExpectSound();
    EXPECT_EQ(index.pages.pages.size(), 1U);
    EXPECT_EQ(index.Check().entries.size(), 30U);
}

TEST_F(IndexTreeTest, AnIndexThatLosesAllEntriesIsALeafAgain) {
    InsertLong(0, 3400);
    RemoveLong(0, 3400);
    ExpectSound();
    EXPECT_EQ(index.store.Read(index.root)[0], 4);
    EXPECT_EQ(index.pages.pages.size(), 1U);
}

TEST_F(IndexTreeTest, ClearingGivesAllPagesBackButTheRoot) {
    InsertLong(0, 3400);
    index.tree->Clear();
    ExpectSound();
    EXPECT_EQ(index.pages.pages, std::set{index.root});
    EXPECT_EQ(index.store.UsedCount(), 3U);
    EXPECT_FALSE(index.tree->First().HasEntry());
    index.tree->Clear();
    ExpectSound();
}

TEST_F(IndexTreeTest, AnotherRowWithTheSameKeyIsFound) {
    InsertLong(0, 100);
    EXPECT_EQ(index.tree->RowWith(LongKey(33)), 1U);
    EXPECT_EQ(index.tree->RowWith(LongKey(33), 1), std::nullopt);
    EXPECT_EQ(index.tree->RowWith(KeyOf(33)), std::nullopt);
    index.tree->Insert(LongKey(33), 5);
    EXPECT_EQ(index.tree->RowWith(LongKey(33), 1), 5U);
    EXPECT_EQ(index.tree->RowWith(LongKey(33), 5), 1U);
}

// With keys of a hundred bytes, each of which has rows on several leaves.
TEST_F(IndexTreeTest, WhoeverInsertsLearnsWhetherTheKeyIsNew) {
    std::set<int> known;
    for (std::uint32_t step = 0; step < 3000; ++step) {
        const std::uint32_t row = step * 1237 % 3001;
        const auto number = static_cast<int>(row % 41);
        EXPECT_EQ(index.tree->Insert(LongKey(number), row), known.insert(number).second) << step;
    }
    ExpectSound();
}

TEST_F(IndexTreeTest, EntriesUpToTheLongestAreTakenAndLongerOnesRefused) {
    for (int number = 0; number < 50; ++number) {
        Key key = KeyOf(number * 7919 % 50);
        key.resize(IndexForm::LongestEntry - 4);
        index.tree->Insert(key, 1);
        ExpectSound();
    }
    const Key tooLong(IndexForm::LongestEntry - 3);
    EXPECT_EQ(FailureOf([&] { index.tree->Insert(tooLong, 1); }), ErrorNumber::Other);
    EXPECT_EQ(index.Check().entries.size(), 50U);
}

TEST_F(IndexTreeTest, TheLongestKeyOfATextFits) {
    Key key;
    AppendColumnKey(key, {ColumnType::Text}, QString(300, QChar(0x05F0)));
    EXPECT_EQ(key.size(), 1023U);
    index.tree->Insert(key, 1);
    Key places;
    AppendColumnKey(places, {ColumnType::Text, Order::Descending}, QString(300, QLatin1Char('-')));
    index.tree->Insert(places, 2);
    ExpectSound();
    EXPECT_LT(places.size(), IndexForm::LongestEntry - 4);
}

TEST_F(IndexTreeTest, AnEntryThatStandsThereAlreadyIsDamage) {
    index.tree->Insert(KeyOf(1), 1);
    EXPECT_EQ(FailureOf([&] { index.tree->Insert(KeyOf(1), 1); }), ErrorNumber::DatabaseDamaged);
}

TEST_F(IndexTreeTest, WhatIsNotThereIsNotRemoved) {
    InsertLong(0, 100);
    EXPECT_FALSE(index.tree->Remove(LongKey(5), 2));
    EXPECT_FALSE(index.tree->Remove(LongKey(1000), 1));
    EXPECT_EQ(index.Check().entries.size(), 100U);
}

// What other programs leave behind.

TEST_F(IndexTreeTest, ANodeMayTellMoreThanTheLastEntryOfAChild) {
    InsertLong(0, 100);
    const int last = FirstOf(Leaves()[1]) - 1;
    Key larger = WithRow(LongKey(last), 9);
    AppendNumber(larger, Leaves()[0]);
    ASSERT_TRUE(TryReplace(index.store.Change(index.root), ViewOf(index.root), 0, larger));
    EXPECT_FALSE(index.Check().faults.empty());
    EXPECT_EQ(index.tree->RowWith(LongKey(last)), 1U);
    EXPECT_EQ(index.tree->RowWith(LongKey(last + 1)), 1U);
    index.tree->Insert(LongKey(last), 5);
    EXPECT_EQ(index.tree->RowWith(LongKey(last), 1), 5U);
    ExpectSound();
}

TEST_F(IndexTreeTest, LeavesWithoutEntriesArePassedAndUsed) {
    InsertLong(0, 100);
    const int first = FirstOf(Leaves()[1]);
    const int behind = FirstOf(Leaves()[2]);
    Empty(Leaves()[1]);
    EXPECT_EQ(RowsForwards(index.tree->First()).size(), 100U - static_cast<unsigned>(behind - first));
    EXPECT_EQ(KeyAt(index.tree->AtLeast(LongKey(first))), LongKey(behind));
    EXPECT_EQ(KeyAt(index.tree->Before(LongKey(behind))), LongKey(first - 1));
    index.tree->Insert(LongKey(first), 1);
    ExpectSound();
}

TEST_F(IndexTreeTest, AnEmptyTailThatIsLeftAloneGoesToo) {
    InsertLong(0, 50);
    const int last = FirstOf(Leaves().back());
    Empty(Leaves().back());
    RemoveLong(0, last);
    EXPECT_FALSE(index.tree->First().HasEntry());
    index.tree->Insert(LongKey(1), 1);
    EXPECT_EQ(RowsForwards(index.tree->First()).size(), 1U);
}

TEST_F(IndexTreeTest, AnEmptyTailBelowANodeGoesWithIt) {
    InsertLong(0, 3400);
    ASSERT_EQ(index.Check().levels, 3);
    IndexPage node = ViewOf(index.root);
    node = ViewOf(node.ChildAt(node.Before(node.Used())));
    const int first = FirstOf(node.ChildAt(0));
    const int behind = FirstOf(node.Tail());
    Empty(node.Tail());
    RemoveLong(first, behind);
    ExpectSound();
    EXPECT_EQ(RowsForwards(index.tree->First()).size(), static_cast<unsigned>(first));
}

TEST_F(IndexTreeTest, NodesNeedntKnowTheirNeighbours) {
    InsertLong(0, 3400);
    for (const PageNumber page : index.pages.pages) {
        Page& node = index.store.Change(page);
        if (node[0] == 3) {
            std::fill(node.begin() + 12, node.begin() + 20, std::uint8_t{0});
        }
    }
    for (int number = 0; number < 3400; ++number) {
        index.tree->Insert(LongKey(number), 2);
    }
    RemoveLong(0, 3400);
    EXPECT_EQ(RowsForwards(index.tree->First()).size(), 3400U);
}

}  // namespace

}  // namespace engine::jet
