#include "Hex.h"
#include "engine/Error.h"
#include "engine/jet/EntryList.h"
#include "engine/jet/IndexPageEdit.h"

#include <gtest/gtest.h>

#include <array>

namespace engine::jet {

namespace {

constexpr PageNumber Table = 9;

/// A page of an index made by hand.
class HandMade {
public:
    explicit HandMade(std::uint8_t kind) {
        page.fill(0);
        page[0] = kind;
        page[1] = 1;
        page[4] = Table;
        SetFree(3616);
    }

    /// Stores the bytes as they are told.
    HandMade& With(const char* digits) {
        const Key stored = FromHex(digits);
        std::copy(stored.begin(), stored.end(), page.begin() + static_cast<std::ptrdiff_t>(480 + used_));
        used_ += stored.size();
        page[27 + used_ / 8] = static_cast<std::uint8_t>(page[27 + used_ / 8] | 1 << used_ % 8);
        SetFree(3616 - used_);
        return *this;
    }

    HandMade& WithPrefix(std::uint8_t size) {
        page[24] = size;
        return *this;
    }

    void SetFree(std::size_t free) {
        page[2] = static_cast<std::uint8_t>(free);
        page[3] = static_cast<std::uint8_t>(free >> 8);
    }

    IndexPage View() const { return {page, 17, Table}; }

    Page page;

private:
    std::size_t used_ = 0;
};

std::string StoredBytes(const Page& page, std::size_t size) {
    return HexOf(KeyView(page).subspan(480, size));
}

TEST(IndexPage, EntriesLieOneBehindTheOther) {
    const HandMade made = HandMade(4).With("7F800000010000120A").With("7F800000020000120B");
    const IndexPage page = made.View();
    EXPECT_TRUE(page.IsLeaf());
    EXPECT_EQ(page.Used(), 18U);
    EXPECT_EQ(page.Behind(0), 9U);
    EXPECT_EQ(page.Behind(9), 18U);
    EXPECT_EQ(page.Before(18), 9U);
    EXPECT_EQ(page.Before(9), 0U);
    EXPECT_EQ(HexOf(page.EntryAt(9)), "7F800000020000120B");
}

TEST(IndexPage, AllButTheFirstLackThePrefix) {
    const HandMade made = HandMade(4).With("7F800000010000120A").With("020000120B").WithPrefix(4);
    EXPECT_EQ(HexOf(made.View().EntryAt(0)), "7F800000010000120A");
    EXPECT_EQ(HexOf(made.View().EntryAt(9)), "7F800000020000120B");
}

TEST(IndexPage, TheFirstEntryThatIsNotSmallerIsFound) {
    for (const bool hasPrefix : {false, true}) {
        const HandMade made =
            !hasPrefix
                ? HandMade(4).With("7F8010AAAAAAAA").With("7F8020AAAAAAAA").With("7F8030AAAAAAAA")
                : HandMade(4).With("7F8010AAAAAAAA").With("20AAAAAAAA").With("30AAAAAAAA").WithPrefix(2);
        const IndexPage page = made.View();
        const std::size_t second = page.Behind(0);
        const std::size_t third = page.Behind(second);
        for (std::size_t guess = 0; guess < 25; ++guess) {
            EXPECT_EQ(page.FirstNotLess({}, guess), 0U);
            EXPECT_EQ(page.FirstNotLess(FromHex("00"), guess), 0U);
            EXPECT_EQ(page.FirstNotLess(FromHex("7F"), guess), 0U);
            EXPECT_EQ(page.FirstNotLess(FromHex("7F8010AAAAAAAA"), guess), 0U);
            EXPECT_EQ(page.FirstNotLess(FromHex("7F8010AAAAAAAB"), guess), second);
            EXPECT_EQ(page.FirstNotLess(FromHex("7F8010AAAAAAAA00"), guess), second);
            EXPECT_EQ(page.FirstNotLess(FromHex("7F8020"), guess), second);
            EXPECT_EQ(page.FirstNotLess(FromHex("7F8030AAAAAAAA"), guess), third);
            EXPECT_EQ(page.FirstNotLess(FromHex("7F81"), guess), page.Used());
            EXPECT_EQ(page.FirstNotLess(FromHex("FF"), guess), page.Used());
        }
    }
}

TEST(IndexPage, ANodeTellsChildrenThatDontCountInASearch) {
    const HandMade made = HandMade(3).With("7F0100000A0100000020").With("7F0200000A0100000021");
    const IndexPage page = made.View();
    EXPECT_FALSE(page.IsLeaf());
    EXPECT_EQ(page.ChildAt(0), 0x20U);
    EXPECT_EQ(page.ChildAt(10), 0x21U);
    EXPECT_EQ(HexOf(page.EntryAt(10)), "7F0200000A01");
    EXPECT_EQ(page.FirstNotLess(FromHex("7F0100000A01"), 0), 0U);
    EXPECT_EQ(page.FirstNotLess(FromHex("7F0100000A0100"), 0), 10U);
}

TEST(IndexPage, APrefixMayReachIntoTheChild) {
    const HandMade made = HandMade(3).With("7F0100000A0100000120").With("21").WithPrefix(9);
    const IndexPage page = made.View();
    EXPECT_EQ(page.ChildAt(10), 0x121U);
    EXPECT_EQ(HexOf(page.EntryAt(10)), "7F0100000A01");
    EXPECT_EQ(page.FirstNotLess(FromHex("7F0100000A02"), 0), 11U);
}

TEST(IndexPage, TailsAndNeighboursAreTold) {
    HandMade made(3);
    made.page[12] = 5;
    made.page[17] = 1;
    made.page[20] = 7;
    EXPECT_EQ(made.View().Previous(), 5U);
    EXPECT_EQ(made.View().Next(), 256U);
    EXPECT_EQ(made.View().Tail(), 7U);
    made.page[0] = 4;
    EXPECT_EQ(made.View().Tail(), 0U);
}

TEST(IndexPage, AnEntryIsPutInBetween) {
    HandMade made = HandMade(4).With("7F0100000001").With("7F0300000001");
    ASSERT_TRUE(TryInsert(made.page, made.View(), 6, FromHex("7F020500000001")));
    EXPECT_EQ(StoredBytes(made.page, 19), "7F01000000017F0205000000017F0300000001");
    EXPECT_EQ(made.View().Used(), 19U);
    // Bits 6, 13 and 19, the lowest of a byte first.
    EXPECT_EQ(HexOf(KeyView(made.page).subspan(27, 3)), "402008");
    EXPECT_EQ(HexOf(KeyView(made.page).subspan(2, 2)), "0D0E");
}

TEST(IndexPage, AnEntryIsPutBeforeAndBehindAllOthers) {
    HandMade made = HandMade(4).With("7F0200000001");
    ASSERT_TRUE(TryInsert(made.page, made.View(), 0, FromHex("7F0100000001")));
    ASSERT_TRUE(TryInsert(made.page, made.View(), 12, FromHex("7F0300000001")));
    EXPECT_EQ(StoredBytes(made.page, 18), "7F01000000017F02000000017F0300000001");
    EXPECT_EQ(HexOf(KeyView(made.page).subspan(27, 3)), "401004");
}

TEST(IndexPage, OnlyWhatBeginsAlikeIsPutBehindAPrefix) {
    HandMade made = HandMade(4).With("7F8010000000 01").With("2000000001").WithPrefix(2);
    EXPECT_FALSE(TryInsert(made.page, made.View(), 12, FromHex("7F813000000001")));
    EXPECT_FALSE(TryInsert(made.page, made.View(), 0, FromHex("7F800500000001")));
    EXPECT_FALSE(TryInsert(made.page, made.View(), 12, FromHex("7F80")));
    EXPECT_TRUE(TryInsert(made.page, made.View(), 12, FromHex("7F803000000001")));
    EXPECT_EQ(StoredBytes(made.page, 17), "7F80100000000120000000013000000001");
}

TEST(IndexPage, ALeftoverPrefixOfAnEmptyPageCountsForNothing) {
    HandMade made = HandMade(4).WithPrefix(30);
    ASSERT_TRUE(TryInsert(made.page, made.View(), 0, FromHex("7F0100000001")));
    ASSERT_TRUE(TryInsert(made.page, made.View(), 6, FromHex("7F0200000001")));
    EXPECT_EQ(HexOf(made.View().EntryAt(6)), "7F0200000001");
}

TEST(IndexPage, APageTakesEntriesToItsLastByte) {
    HandMade made(4);
    Key entry(1808, 0x7F);
    ASSERT_TRUE(TryInsert(made.page, made.View(), 0, entry));
    entry.back() = 0x80;
    ASSERT_TRUE(TryInsert(made.page, made.View(), 1808, entry));
    EXPECT_EQ(made.View().Used(), 3616U);
    EXPECT_EQ(HexOf(KeyView(made.page).subspan(2, 2)), "0000");
    EXPECT_EQ(made.View().EntryAt(1808), entry);
    EXPECT_FALSE(TryInsert(made.page, made.View(), 3616, FromHex("FF")));
}

TEST(IndexPage, AnEntryIsTakenOut) {
    HandMade made = HandMade(4).With("7F0100000001").With("7F020500000001").With("7F0300000001");
    ASSERT_TRUE(TryErase(made.page, made.View(), 6));
    EXPECT_EQ(StoredBytes(made.page, 12), "7F01000000017F0300000001");
    EXPECT_EQ(HexOf(KeyView(made.page).subspan(27, 3)), "401000");
    ASSERT_TRUE(TryErase(made.page, made.View(), 0));
    EXPECT_EQ(StoredBytes(made.page, 6), "7F0300000001");
    ASSERT_TRUE(TryErase(made.page, made.View(), 0));
    EXPECT_TRUE(made.View().IsEmpty());
    EXPECT_EQ(HexOf(KeyView(made.page).subspan(27, 3)), "000000");
}

TEST(IndexPage, TheFirstEntryBeforeAPrefixIsNotTakenOutAlone) {
    HandMade made = HandMade(4).With("7F801000000001").With("2000000001").WithPrefix(2);
    EXPECT_FALSE(TryErase(made.page, made.View(), 0));
    const EntryList entries(made.View(), 0, 1, {});
    entries.Write(made.page, 0, entries.Count());
    EXPECT_EQ(StoredBytes(made.page, 7), "7F802000000001");
    EXPECT_EQ(made.View().PrefixSize(), 0U);
}

TEST(IndexPage, AnEntryIsReplacedByOneOfTheSameLength) {
    HandMade made = HandMade(4).With("7F801000000001").With("2000000001").WithPrefix(2);
    EXPECT_TRUE(TryReplace(made.page, made.View(), 7, FromHex("7F802500000001")));
    EXPECT_FALSE(TryReplace(made.page, made.View(), 7, FromHex("7F8025000000 0101")));
    EXPECT_FALSE(TryReplace(made.page, made.View(), 7, FromHex("7F902500000001")));
    EXPECT_FALSE(TryReplace(made.page, made.View(), 0, FromHex("7F702500000001")));
    EXPECT_TRUE(TryReplace(made.page, made.View(), 0, FromHex("7F800500000001")));
    EXPECT_EQ(StoredBytes(made.page, 12), "7F8005000000012500000001");
}

class LongEntries : public ::testing::Test {
protected:
    /// So many entries of 100 bytes, of which the first `shared` are the same in all.
    static HandMade Full(int count, std::size_t shared) {
        HandMade made(4);
        for (int number = 0; number < count; ++number) {
            made.With(HexOf(Entry(number, shared)).c_str());
        }
        return made;
    }

    static Key Entry(int number, std::size_t shared) {
        Key entry(100, 0x55);
        entry[shared] = static_cast<std::uint8_t>(2 * number + 1);
        return entry;
    }
};

TEST_F(LongEntries, APrefixIsOnlyStoredWhereTheEntriesWouldNotFit) {
    const HandMade made = Full(36, 10);
    const EntryList asTheyAre(made.View(), 0, 0, {});
    HandMade other(4);
    asTheyAre.Write(other.page, 0, 36);
    EXPECT_EQ(other.View().PrefixSize(), 0U);
    EXPECT_EQ(other.page, made.page);

    const Key added = Entry(36, 10);
    const EntryList entries(made.View(), 3600, 0, std::array{KeyView(added)});
    ASSERT_TRUE(entries.Fits(0, 37));
    entries.Write(other.page, 0, 37);
    EXPECT_EQ(other.View().PrefixSize(), 10U);
    EXPECT_EQ(other.View().Used(), 37U * 100 - 36 * 10);
    EXPECT_EQ(other.View().EntryAt(other.View().Before(other.View().Used())), added);
}

TEST_F(LongEntries, APrefixLeavesTheLastByteOfEachEntry) {
    HandMade made = Full(36, 99);
    const Key begin(99, 0x55);
    const EntryList entries(made.View(), 0, 0, std::array{KeyView(begin)});
    entries.Write(made.page, 0, 37);
    EXPECT_EQ(made.View().PrefixSize(), 98U);
}

TEST_F(LongEntries, AListIsHalvedByBytes) {
    const HandMade made = Full(36, 0);
    const Key added = Entry(36, 0);
    const EntryList entries(made.View(), 3600, 0, std::array{KeyView(added)});
    EXPECT_FALSE(entries.Fits(0, 37));
    EXPECT_EQ(entries.Middle(), 18U);
    EXPECT_EQ(entries.MostFirst(), 36U);
}

TEST_F(LongEntries, WhatCantBeDividedIsTold) {
    const EntryList entries(HandMade(4).View(), 0, 0,
                            std::array{KeyView(Key(3616, 1)), KeyView(Key(3617, 2))});
    EXPECT_EQ(entries.Middle(), 0U);
    EXPECT_EQ(entries.MostFirst(), 0U);
}

TEST(EntryList, PutsEntriesInThePlaceOfOthers) {
    HandMade made = HandMade(4).With("7F0100000001").With("7F0200000001").With("7F0300000001");
    const Key first = FromHex("7F010500000001");
    const Key second = FromHex("7F0200000002");
    const EntryList entries(made.View(), 6, 1, std::array{KeyView(first), KeyView(second)});
    ASSERT_EQ(entries.Count(), 4U);
    entries.Write(made.page, 0, 4);
    EXPECT_EQ(StoredBytes(made.page, 25), "7F01000000017F0105000000017F02000000027F0300000001");
}

}  // namespace

}  // namespace engine::jet
