#include "JetTest.h"
#include "engine/jet/FreePages.h"
#include "engine/jet/UsageMap.h"

#include <QByteArray>

#include <rapidcheck/gtest.h>

#include <set>

namespace engine::jet {
namespace {

/// A file of so many pages with the map of the free ones.
class Pages {
public:
    explicit Pages(PageNumber count) : store(count) { store.Change(1) = FreePages::MakeMapPage(count); }

    /// Puts another map in the place of the one that is there.
    void SetMap(const QByteArray& row) {
        ChangeableDataPage(store.Change(1), 1, PageOwner::FreeMap)
            .Replace(0, BytesOf(row, 1), RowState::Here);
    }
    QByteArray Map() { return DataPage(store.Read(1), 1, PageOwner::FreeMap).Row(0).Copy(); }
    QByteArray SecondRow() { return DataPage(store.Read(1), 1, PageOwner::FreeMap).Row(1).Copy(); }

    /// A page as the file takes it: the lowest free one, or one more.
    PageNumber Take() {
        const auto lowest = free.Lowest();
        const PageNumber taken = lowest ? *lowest : store.Take();
        free.NoteUsed(taken);
        return taken;
    }

    MemoryPages store;
    FreePages free{store, [this] { return store.Take(); }};
};

TEST(JetFreePages, TheLowestFreePageOfTheFileIsFound) {
    Pages pages(100);
    EXPECT_EQ(pages.free.Lowest(), std::nullopt);
    pages.free.NoteFree(70);
    pages.free.NoteFree(40);
    EXPECT_EQ(pages.free.Lowest(), 40U);
    EXPECT_TRUE(pages.free.IsFree(70));
    EXPECT_FALSE(pages.free.IsFree(71));
    pages.free.NoteUsed(40);
    EXPECT_EQ(pages.free.Lowest(), 70U);
}

TEST(JetFreePages, WhatIsSaidOfPagesBehindTheEndMeansNothing) {
    Pages pages(100);
    EXPECT_NE(pages.Map()[5 + 13], 0);
    EXPECT_EQ(pages.free.Lowest(), std::nullopt);
    EXPECT_FALSE(pages.free.IsFree(104));
}

TEST(JetFreePages, TheHeaderTheMapAndTheCatalogueAreNeverFree) {
    Pages pages(100);
    QByteArray map = pages.Map();
    map[5] = 0x07;
    pages.SetMap(map);
    EXPECT_EQ(pages.free.Lowest(), std::nullopt);
    EXPECT_FALSE(pages.free.IsFree(2));
}

TEST(JetFreePages, TheMapGrowsWithTheFile) {
    Pages pages(512);
    const QByteArray second = pages.SecondRow();
    EXPECT_EQ(pages.Take(), 512U);
    EXPECT_EQ(pages.Map().size(), 73);
    EXPECT_EQ(pages.Map()[69], '\xFE');
    EXPECT_EQ(pages.SecondRow(), second);
    pages.free.NoteFree(300);
    EXPECT_EQ(pages.Take(), 300U);
    EXPECT_EQ(pages.Take(), 513U);
}

TEST(JetFreePages, AMapThatBeginsLaterReachesBackAsUsed) {
    Pages pages(785);
    QByteArray map(69, '\0');
    map[2] = 2;  // from page 512
    map[5] = 0x10;
    pages.SetMap(map);
    EXPECT_EQ(pages.free.Lowest(), 516U);
    pages.free.NoteFree(9);
    EXPECT_EQ(pages.free.Lowest(), 9U);
    pages.free.NoteUsed(9);
    EXPECT_EQ(pages.free.Lowest(), 516U);
    pages.free.NoteUsed(516);
    EXPECT_EQ(pages.free.Lowest(), std::nullopt);
}

TEST(JetFreePages, AMapThatIsTooLongForItsPageTurnsToPagesOfBits) {
    Pages pages(40000);
    pages.free.NoteFree(500);
    pages.free.NoteFree(39999);
    EXPECT_EQ(pages.Map()[0], 1);
    EXPECT_EQ(pages.free.OwnPages(), (std::vector<PageNumber>{1, 40000, 40001}));
    EXPECT_EQ(pages.free.Lowest(), 500U);
    pages.free.NoteUsed(500);
    EXPECT_EQ(pages.free.Lowest(), 39999U);
    EXPECT_EQ(pages.Take(), 39999U);
    EXPECT_EQ(pages.Take(), 40002U);
}

TEST(JetFreePages, AMapOfBitsReachesAsFarAsTheFile) {
    Pages pages(65472);
    QByteArray map(69, '\0');
    map[0] = 1;
    pages.SetMap(map);
    EXPECT_EQ(pages.free.Lowest(), std::nullopt);
    EXPECT_EQ(pages.Take(), 65472U);
    EXPECT_EQ(pages.Take(), 65474U);
    pages.free.NoteFree(65472);
    EXPECT_EQ(pages.Take(), 65472U);
}

TEST(JetFreePages, APageOfBitsForEarlierPagesIsNotFreeItself) {
    Pages pages(40000);
    BeginBitsPage(pages.store.Change(30), 30).Fill(0, 4092, 0xFF);
    QByteArray map(69, '\0');
    map[0] = 1;
    map[5] = 30;
    pages.SetMap(map);
    pages.free.NoteFree(50);
    EXPECT_EQ(pages.free.OwnPages(), (std::vector<PageNumber>{1, 40000, 30}));
    EXPECT_EQ(pages.free.Lowest(), 50U);
    EXPECT_FALSE(pages.free.IsFree(40000));
}

TEST(JetFreePages, AMapThatIsNoneIsDamage) {
    Pages pages(100);
    for (const QByteArray& map : {QByteArray(), QByteArray(4, '\0'), QByteArray(69, '\x02'),
                                  QByteArray(69, '\0').replace(1, 4, "\xFF\xFF\xFF\xFF")}) {
        pages.SetMap(map);
        EXPECT_TRUE(FindsDamage(1, [&] { pages.free.Lowest(); }));
        EXPECT_TRUE(FindsDamage(1, [&] { pages.free.NoteFree(50); }));
    }
}

TEST(JetFreePages, AReferenceToAnotherKindOfPageIsDamage) {
    Pages pages(100);
    QByteArray map(69, '\0');
    map[0] = 1;
    map[1] = 50;
    pages.SetMap(map);
    EXPECT_TRUE(FindsDamage(50, [&] { pages.free.Lowest(); }));
    EXPECT_TRUE(FindsDamage(50, [&] { pages.free.NoteFree(60); }));
}

RC_GTEST_PROP(JetFreePagesProperty, NoPageIsGivenTwice, ()) {
    Pages pages(*rc::gen::element<PageNumber>(4, 500, 2000, 29000, 31000, 32700, 65440));
    std::set<PageNumber> used;
    std::set<PageNumber> free;
    const PageNumber first = pages.store.Count();
    const int steps = *rc::gen::inRange(1, 200);
    for (int step = 0; step < steps; ++step) {
        if (used.empty() || *rc::gen::inRange(0, 3) > 0) {
            const PageNumber page = pages.Take();
            RC_ASSERT(used.insert(page).second);
            if (!free.empty()) {
                RC_ASSERT(page == *free.begin());
                free.erase(page);
            } else {
                RC_ASSERT(page >= first);
            }
        } else {
            const PageNumber page = *std::next(
                used.begin(), *rc::gen::inRange<std::ptrdiff_t>(0, static_cast<std::ptrdiff_t>(used.size())));
            pages.free.NoteFree(page);
            used.erase(page);
            free.insert(page);
        }
        for (const PageNumber own : pages.free.OwnPages()) {
            RC_ASSERT(!pages.free.IsFree(own));
            RC_ASSERT(!used.contains(own));
        }
    }
    for (const PageNumber page : free) {
        RC_ASSERT(pages.free.IsFree(page));
    }
}

}  // namespace
}  // namespace engine::jet
