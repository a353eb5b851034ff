#include "BareFile.h"
#include "JetTest.h"
#include "engine/jet/PagedFile.h"
#include "engine/jet/UsageBits.h"
#include "engine/jet/UsageMap.h"

#include <rapidcheck/gtest.h>

#include <set>

namespace engine::jet {
namespace {

constexpr PageNumber MapsPage = 2;

/// Maps in rows of page 2.
class Maps {
public:
    explicit Maps(PageNumber count = 3) : pages(count) {
        ChangeableDataPage::Begin(pages.Change(MapsPage), MapsPage, PageOwner::Nobody);
    }

    RowPlace Add(QByteArray row) {
        ChangeableDataPage page(pages.Change(MapsPage), MapsPage, PageOwner::Nobody);
        return {MapsPage, static_cast<std::uint8_t>(page.Add(BytesOf(row, MapsPage), RowState::Here))};
    }
    RowPlace AddEmpty() { return Add(QByteArray(UsageMapForm::UsualSize, '\0')); }
    QByteArray Row(RowPlace place) {
        return DataPage(pages.Read(MapsPage), MapsPage, PageOwner::Nobody).Row(place.row).Copy();
    }

    MemoryPages pages;
};

TEST(JetUsageMap, BitsInTheRowCountFromItsFirstPage) {
    Maps maps(2000);
    QByteArray row(UsageMapForm::UsualSize, '\0');
    row[1] = '\x08';
    row[2] = '\x03';  // from page 776
    row[5] = '\x81';
    row[68] = '\x80';
    const UsageMap map(maps.pages, maps.Add(row));
    EXPECT_EQ(map.All(), (std::vector<PageNumber>{776, 783, 776 + 511}));
    EXPECT_TRUE(map.Has(783));
    EXPECT_FALSE(map.Has(784));
    EXPECT_EQ(map.First(784), 776 + 511);
    EXPECT_EQ(map.Last(776 + 511), 783);
    EXPECT_EQ(map.Last(776), std::nullopt);
}

TEST(JetUsageMap, ReferencesLeadToPagesOfBits) {
    Maps maps(40000);
    BeginBitsPage(maps.pages.Change(7), 7);
    maps.pages.Change(7)[4] = 0x02;
    BeginBitsPage(maps.pages.Change(8), 8);
    maps.pages.Change(8)[5] = 0x01;
    QByteArray row(UsageMapForm::UsualSize, '\0');
    row[0] = 1;
    row[1] = 7;
    row[5] = 8;
    const UsageMap map(maps.pages, maps.Add(row));
    EXPECT_EQ(map.All(), (std::vector<PageNumber>{1, 32736 + 8}));
    EXPECT_EQ(map.Last(), 32736 + 8);
    EXPECT_EQ(map.Last(32736), 1U);
}

TEST(JetUsageMap, AMapMovesItsWindowWhileAllPagesFitIt) {
    Maps maps(2000);
    const RowPlace place = maps.AddEmpty();
    UsageMap map(maps.pages, place);
    map.Add(1003);
    map.Add(1511);
    EXPECT_EQ(map.All(), (std::vector<PageNumber>{1003, 1511}));
    EXPECT_EQ(maps.Row(place)[0], 0);
    EXPECT_EQ(BytesOf(maps.Row(place), 2).U32(1), 1000U);
    EXPECT_EQ(maps.pages.Count(), 2000U);
}

TEST(JetUsageMap, AMapTurnsToPagesOfBitsWhereTheWindowIsTooSmall) {
    Maps maps(40000);
    const RowPlace place = maps.AddEmpty();
    UsageMap map(maps.pages, place);
    map.Add(3);
    map.Add(39999);
    map.Add(600);
    EXPECT_EQ(map.All(), (std::vector<PageNumber>{3, 600, 39999}));
    EXPECT_EQ(maps.Row(place)[0], 1);
    EXPECT_EQ(maps.Row(place).size(), 69);
    EXPECT_EQ(maps.pages.Count(), 40002U);
    map.Remove(600);
    EXPECT_FALSE(map.Has(600));
    map.RemoveAll();
    EXPECT_TRUE(map.All().empty());
    EXPECT_EQ(maps.Row(place)[0], 1);
}

TEST(JetUsageMap, AMapThatNamesAPageOutsideOfTheFileIsDamage) {
    Maps maps(100);
    QByteArray row(UsageMapForm::UsualSize, '\0');
    row[5 + 100 / 8] = 1 << 100 % 8;
    const UsageMap map(maps.pages, maps.Add(row));
    EXPECT_TRUE(FindsDamage(MapsPage, [&] { map.All(); }));
    UsageMap empty(maps.pages, maps.AddEmpty());
    EXPECT_TRUE(FindsDamage(MapsPage, [&] { empty.Add(100); }));
}

TEST(JetUsageMap, AFirstPageThatOverflowsIsDamage) {
    Maps maps(100);
    // Bit 16 would be page 8, from where the search would begin again.
    QByteArray row(UsageMapForm::UsualSize, '\0');
    row.replace(1, 4, QByteArray("\xF8\xFF\xFF\xFF", 4));
    row[7] = 1;
    UsageMap map(maps.pages, maps.Add(row));
    EXPECT_TRUE(FindsDamage(MapsPage, [&] { map.All(); }));
    EXPECT_TRUE(FindsDamage(MapsPage, [&] { map.Add(1); }));
}

TEST(JetUsageMap, AReferenceToAnotherKindOfPageIsDamage) {
    Maps maps(100);
    QByteArray row(UsageMapForm::UsualSize, '\0');
    row[0] = 1;
    row[1] = 50;
    UsageMap map(maps.pages, maps.Add(row));
    EXPECT_TRUE(FindsDamage(50, [&] { map.All(); }));
    EXPECT_TRUE(FindsDamage(50, [&] { map.Add(1); }));
    EXPECT_TRUE(FindsDamage(50, [&] { map.RemoveAll(); }));
    row[1] = 100;
    EXPECT_TRUE(FindsDamage(100, [&] { UsageMap(maps.pages, maps.Add(row)).All(); }));
}

TEST(JetUsageMap, ARowThatIsNoMapIsDamage) {
    Maps maps;
    for (const QByteArray& row : {QByteArray(),
                                  QByteArray("\x02"
                                             "1234",
                                             5),
                                  QByteArray(4, '\0'), QByteArray(5, '\0')}) {
        EXPECT_TRUE(FindsDamage(MapsPage, [&] { UsageMap(maps.pages, maps.Add(row)).All(); }));
    }
    EXPECT_TRUE(FindsDamage(MapsPage, [&] { UsageMap(maps.pages, {MapsPage, 99}).All(); }));
    EXPECT_TRUE(FindsDamage(900, [&] { UsageMap(maps.pages, {900, 0}).All(); }));
}

TEST(JetUsageMap, ADeletedMapIsDamage) {
    Maps maps;
    const RowPlace place = maps.AddEmpty();
    ChangeableDataPage(maps.pages.Change(MapsPage), MapsPage, PageOwner::Nobody).Delete(place.row);
    EXPECT_TRUE(FindsDamage(MapsPage, [&] { UsageMap(maps.pages, place).All(); }));
}

RC_GTEST_PROP(JetUsageMapProperty, AMapHoldsWhatASetHolds, ()) {
    Maps maps(*rc::gen::element<PageNumber>(400, 1500, 70000));
    UsageMap map(maps.pages, maps.AddEmpty());
    std::set<PageNumber> expected;
    const int steps = *rc::gen::inRange(1, 60);
    const auto somePage = rc::gen::inRange<PageNumber>(3, maps.pages.Count());
    for (int step = 0; step < steps; ++step) {
        const PageNumber page = *somePage;
        if (*rc::gen::inRange(0, 3) > 0) {
            map.Add(page);
            expected.insert(page);
        } else {
            map.Remove(page);
            expected.erase(page);
        }
        RC_ASSERT(map.Has(page) == expected.contains(page));
        const PageNumber other = *somePage;
        const auto behind = expected.lower_bound(other);
        RC_ASSERT(map.First(other) == (behind == expected.end() ? std::nullopt : std::optional(*behind)));
        RC_ASSERT(map.Last(other) ==
                  (behind == expected.begin() ? std::nullopt : std::optional(*std::prev(behind))));
    }
    RC_ASSERT(map.All() == std::vector<PageNumber>(expected.begin(), expected.end()));
}

/// A map in a file, with page 4 in it, of which all has been asked.
class JetUsageMapOfAFile : public ::testing::Test {
protected:
    JetUsageMapOfAFile() {
        ChangeableDataPage page =
            ChangeableDataPage::Begin(file->Change(MapsPage), MapsPage, PageOwner::Nobody);
        const QByteArray row(UsageMapForm::UsualSize, '\0');
        page.Add(BytesOf(row, MapsPage), RowState::Here);
        map.Add(4);
        file->EndGroup(GroupKind::Adds);
        EXPECT_TRUE(map.Has(4));
        EXPECT_EQ(map.Last(), 4U);
    }

    void ExpectPage(PageNumber page) const {
        EXPECT_EQ(map.First(), page);
        EXPECT_EQ(map.Last(), page);
        EXPECT_TRUE(map.Has(page));
    }

    BareFile bare;
    std::unique_ptr<PagedFile> file = bare.Open();
    UsageMap map{*file, {MapsPage, 0}};
};

TEST_F(JetUsageMapOfAFile, SaysWhatAnotherOneHasWritten) {
    UsageMap other(*file, {MapsPage, 0});
    other.Remove(4);
    EXPECT_FALSE(map.Has(4));
    EXPECT_EQ(map.Last(), std::nullopt);
    other.Add(5);
    ExpectPage(5);
}

TEST_F(JetUsageMapOfAFile, SaysWhatItWasAfterAnUndo) {
    const PagedFile::Mark mark = file->SetMark();
    map.Add(5);
    map.Remove(4);
    ExpectPage(5);
    file->UndoTo(mark);
    ExpectPage(4);
}

TEST_F(JetUsageMapOfAFile, SaysWhatItWasWhenTheGroupIsGivenUp) {
    map.Add(5);
    map.Remove(4);
    ExpectPage(5);
    file->GiveUpGroup();
    ExpectPage(4);
}

TEST_F(JetUsageMapOfAFile, SaysWhatOthersHaveWrittenIntoTheFile) {
    const QByteArray with4 = bare.Content();
    map.Add(5);
    map.Remove(4);
    file->EndGroup(GroupKind::Adds);
    ExpectPage(5);
    bare.Content() = with4;
    file->Reopen();
    ExpectPage(4);
}

// Bits for pages that aren't there come to mean something once there are so many.
TEST_F(JetUsageMapOfAFile, SaysWhatIsThereWhenTheFileGrows) {
    const PageNumber next = file->Count();
    ChangeableDataPage page(file->Change(MapsPage), MapsPage, PageOwner::Nobody);
    ChangeableBytes row = page.ChangeableRow(0);
    SetBit(row.ChangeablePart(UsageMapForm::InlineBitsAt, 64), next, true);
    EXPECT_EQ(map.Last(), 4U);
    EXPECT_EQ(file->Take(), next);
    EXPECT_EQ(map.Last(), next);
}

}  // namespace
}  // namespace engine::jet
