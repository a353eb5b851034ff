#include "JetTest.h"
#include "engine/jet/DataPage.h"
#include "engine/jet/RowPlace.h"
#include "engine/jet/WriteOrder.h"

#include <map>

namespace engine::jet {
namespace {

/// Pages of all kinds that a group has changed, and in which order they are written.
class JetWriteOrder : public ::testing::Test {
protected:
    JetWriteOrder() : store(100) {}

    void Add(PageNumber number, const Page& page, bool isNew = false, bool isFreeMap = false) {
        store.Change(number) = page;
        Page old = page;
        old[4095] = static_cast<std::uint8_t>(old[4095] + 1);
        before[number] = old;
        AddWrite(number, page, isNew ? nullptr : &before[number], isFreeMap);
    }
    void AddWrite(PageNumber number, const Page& page, const Page* old, bool isFreeMap) {
        auto copy = std::make_unique<const Page>(page);
        const Page* now = copy.get();
        writes.push_back({number, now, old, isFreeMap, std::move(copy)});
    }

    static Page Kind(std::uint8_t kind, std::uint8_t owner = 9) {
        Page page{};
        page[0] = kind;
        page[4] = owner;
        return page;
    }

    // A node with one entry of 9 bytes, the last 4 of which name the child.
    static Page NodeOver(std::uint8_t child) {
        Page page = Kind(PageKind::IndexNode);
        page[27 + 1] = 0x02;
        page[480 + 8] = child;
        return page;
    }

    std::vector<PageNumber> Order(GroupKind kind) {
        OrderWrites(writes, kind, store);
        std::vector<PageNumber> order;
        for (const PageWrite& write : writes) {
            order.push_back(write.number);
        }
        return order;
    }

    MemoryPages store;
    std::map<PageNumber, Page> before;
    std::vector<PageWrite> writes;
};

TEST_F(JetWriteOrder, WhatNobodyNamesYetComesFirstAndTheDefinitionLast) {
    Add(10, Kind(PageKind::Definition));
    Add(11, Kind(PageKind::IndexLeaf));
    Add(12, Kind(PageKind::Data));
    Add(13, Kind(PageKind::Data, 0));
    Add(14, Kind(PageKind::UsageBits));
    Add(15, Kind(PageKind::UsageBits), false, true);
    Add(1, Kind(PageKind::Data, 1), false, true);
    Add(16, Kind(PageKind::IndexLeaf), true);
    EXPECT_EQ(Order(GroupKind::Adds), (std::vector<PageNumber>{16, 1, 15, 14, 13, 12, 11, 10}));
}

TEST_F(JetWriteOrder, EntriesGoBeforeTheRowsThatTheyLeadToAndRowsBeforeTheMapOfTheirPages) {
    Add(10, Kind(PageKind::Definition));
    Add(11, Kind(PageKind::IndexLeaf));
    Add(12, Kind(PageKind::Data));
    Add(13, Kind(PageKind::Data, 0));
    Add(16, Kind(PageKind::Data), true);
    EXPECT_EQ(Order(GroupKind::Removes), (std::vector<PageNumber>{16, 11, 12, 13, 10}));
}

TEST_F(JetWriteOrder, ParentsComeBeforeTheirChildren) {
    Add(20, Kind(PageKind::IndexLeaf));
    Add(21, NodeOver(20));
    Add(22, NodeOver(21));
    Add(23, NodeOver(20));
    EXPECT_EQ(Order(GroupKind::Adds), (std::vector<PageNumber>{22, 21, 23, 20}));
}

TEST_F(JetWriteOrder, ChildrenLoseEntriesBeforeTheirParents) {
    Add(20, Kind(PageKind::IndexLeaf));
    Add(19, NodeOver(20));
    Add(18, NodeOver(19));
    EXPECT_EQ(Order(GroupKind::Removes), (std::vector<PageNumber>{20, 19, 18}));
}

TEST_F(JetWriteOrder, ALeafThatHasLostEntriesComesAfterThoseThatHaveAnotherNeighbour) {
    Add(20, Kind(PageKind::IndexLeaf));
    Add(30, Kind(PageKind::IndexLeaf));
    before[30] = store.Read(30);
    before[30][16] = 20;
    EXPECT_EQ(Order(GroupKind::Adds), (std::vector<PageNumber>{30, 20}));
}

/// A page with one row, and what it was without it.
class JetWriteOrderOfRows : public JetWriteOrder {
protected:
    void AddRow(PageNumber number, std::uint32_t owner, RowState then, RowState now) {
        before[number] = PageWith(number, owner, then);
        AddWrite(number, PageWith(number, owner, now), &before[number], false);
    }

    static Page PageWith(PageNumber number, std::uint32_t owner, RowState state) {
        Page page{};
        ChangeableDataPage rows = ChangeableDataPage::Begin(page, number, owner);
        rows.Add(BytesOf(QByteArray(40, 'r'), number), state);
        return page;
    }
};

TEST_F(JetWriteOrderOfRows, LongValuesComeBeforeTheRowsThatReferToThemAndGoAfterThem) {
    AddRow(10, 9, RowState::Here, RowState::Here);
    AddRow(11, PageOwner::LongValues, RowState::Here, RowState::Deleted);
    AddRow(12, PageOwner::LongValues, RowState::Deleted, RowState::Here);
    Add(13, Kind(PageKind::Data, 0));
    EXPECT_EQ(Order(GroupKind::Adds), (std::vector<PageNumber>{12, 13, 10, 11}));
    EXPECT_EQ(Order(GroupKind::Removes), (std::vector<PageNumber>{12, 10, 11, 13}));
}

/// A row, and where it has moved away to: to the row of the same number there.
struct Row {
    RowState state;
    PageNumber to = 0;
};

/// Pages of rows of which some have moved.
class JetWriteOrderOfMoves : public JetWriteOrder {
protected:
    static constexpr Row Here{RowState::Here};
    static constexpr Row Deleted{RowState::Deleted};
    static constexpr Row MovedHere{RowState::MovedHere};
    static constexpr Row MovedTo(PageNumber page) { return {RowState::MovedAway, page}; }

    void AddPage(PageNumber number, const std::vector<Row>& then, const std::vector<Row>& now) {
        before[number] = PageWith(number, then);
        AddWrite(number, PageWith(number, now), &before[number], false);
    }

private:
    static Page PageWith(PageNumber number, const std::vector<Row>& states) {
        Page page{};
        ChangeableDataPage rows = ChangeableDataPage::Begin(page, number, 9);
        for (const Row& row : states) {
            QByteArray bytes(40, 'r');
            PutRowPlace(ChangeableBytesOf(bytes, number), 0,
                        {row.to, static_cast<std::uint8_t>(rows.RowCount())});
            rows.Add(BytesOf(bytes, number), row.state);
        }
        return page;
    }
};

TEST_F(JetWriteOrderOfMoves, ARowIsWhereItMovesToBeforeItGoesFromWhereItWas) {
    AddPage(10, {Here}, {MovedTo(12)});
    AddPage(11, {MovedHere}, {Deleted});
    AddPage(12, {Deleted}, {MovedHere});
    AddPage(13, {MovedTo(11)}, {Here});
    EXPECT_EQ(Order(GroupKind::Adds), (std::vector<PageNumber>{12, 13, 10, 11}));
}

TEST_F(JetWriteOrderOfMoves, APageThatRowsMoveToAndFromComesBetweenTheOthers) {
    AddPage(10, {Here, Deleted}, {MovedTo(11), Deleted});
    AddPage(11, {Deleted, Here}, {MovedHere, MovedTo(12)});
    AddPage(12, {Deleted, Deleted}, {Deleted, MovedHere});
    EXPECT_EQ(Order(GroupKind::Adds), (std::vector<PageNumber>{12, 11, 10}));
}

TEST_F(JetWriteOrderOfMoves, ARowThatMovesOnGoesFromItsOldPlaceLast) {
    AddPage(10, {MovedHere}, {Deleted});
    AddPage(11, {MovedTo(10)}, {MovedTo(12)});
    AddPage(12, {Deleted}, {MovedHere});
    EXPECT_EQ(Order(GroupKind::Adds), (std::vector<PageNumber>{12, 11, 10}));
}

TEST_F(JetWriteOrderOfMoves, TheKeyOfADeletedRowGoesBeforeItsBytes) {
    AddPage(10, {MovedHere}, {Deleted});
    AddPage(11, {MovedTo(10)}, {Deleted});
    EXPECT_EQ(Order(GroupKind::Removes), (std::vector<PageNumber>{11, 10}));
}

TEST_F(JetWriteOrderOfMoves, MovesThatCrossHaveSomeOrder) {
    AddPage(10, {Here, Deleted}, {MovedTo(11), MovedHere});
    AddPage(11, {Deleted, Here}, {MovedHere, MovedTo(10)});
    EXPECT_EQ(Order(GroupKind::Adds).size(), 2U);
}

TEST_F(JetWriteOrder, ATreeThatRunsInACircleHasSomeOrder) {
    Add(21, NodeOver(22));
    Add(22, NodeOver(21));
    Add(23, NodeOver(200));
    EXPECT_EQ(Order(GroupKind::Adds).size(), 3U);
}

}  // namespace
}  // namespace engine::jet
